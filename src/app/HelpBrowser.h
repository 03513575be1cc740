// Shows the pages of the help file: white paper, pictures as sharp as the screen, and a zoom for all of it.
#pragma once

#include <QHash>
#include <QImage>
#include <QPaintDevice>
#include <QPixmap>
#include <QTextBrowser>
#include <QTextObjectInterface>
#include <QUrl>
#include <functional>

#include "app/HelpFile.h"

/// What a page is laid out for: the screen, with its dots per inch multiplied by the zoom. So letters,
/// margins and pictures grow alike.
class ZoomedPaper final : public QPaintDevice {
 public:
  explicit ZoomedPaper(const QWidget& screen) : screen_(screen) {}

  int Percent = 100;

  QPaintEngine* paintEngine() const override { return nullptr; }

 protected:
  int metric(PaintDeviceMetric metric) const override;

 private:
  const QWidget& screen_;
};

/// The pictures of a page. The files have two dots for each pixel of the page; they are scaled smoothly to
/// the dots of the screen, and never wider than the page.
class HelpPictures final : public QObject, public QTextObjectInterface {
  Q_OBJECT
  Q_INTERFACES(QTextObjectInterface)

 public:
  HelpPictures(const ZoomedPaper& paper, std::function<QImage(const QString&)> load)
      : paper_(paper), load_(std::move(load)) {}

  QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
  void drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document, int position,
                  const QTextFormat& format) override;

  /// To be called before another page is shown.
  void Forget();

 private:
  const QImage& Picture(const QString& name);

  const ZoomedPaper& paper_;
  std::function<QImage(const QString&)> load_;  // by the name that stands in the page
  QHash<QString, QImage> pictures_;
  QHash<QString, QPixmap> scaled_;
};

class HelpBrowser final : public QTextBrowser {
  Q_OBJECT

 public:
  /// The file must be open before a page is shown, and outlive the browser.
  explicit HelpBrowser(const HelpFile& file, QWidget* parent = nullptr);
  ~HelpBrowser() override;

  /// A page as it is named in the file, perhaps with a place on it after "#". False when there is none.
  bool ShowPage(const QString& page);

  /// The name of the page that is shown, with the place if one was asked for.
  QString Page() const;

  int ZoomPercent() const { return paper_.Percent; }
  void ZoomBy(int steps);
  void ResetZoom() { SetZoom(100); }

 Q_SIGNALS:
  /// Another page, or another place on it, is shown; named as by Page().
  void PageShown(const QString& page);

  /// A link was clicked that leads out of the help file.
  void OutwardLink(const QUrl& address);

  /// A link was clicked to a page that is not there.
  void DeadLink(const QString& page);

  void ZoomChanged(int percent);

 protected:
  QVariant loadResource(int type, const QUrl& name) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void FollowLink(const QUrl& address);
  void SetZoom(int percent);

  const HelpFile& file_;
  QUrl loaded_;  // the page last read; source() is still the one before it while a page is read
  ZoomedPaper paper_;
  HelpPictures pictures_;
  int wheel_ = 0;  // eighths of a degree that were turned since the last step of the zoom
};
