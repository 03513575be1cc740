#include "paper/qt/SmoothPictures.h"

#include <QAbstractTextDocumentLayout>
#include <QHash>
#include <QPainter>
#include <QTextImageFormat>
#include <QTextObjectInterface>

#include "paper/qt/DocumentImages.h"

namespace {

class SmoothPictures final : public QObject, public QTextObjectInterface {
  Q_OBJECT
  Q_INTERFACES(QTextObjectInterface)

 public:
  using QObject::QObject;

  QSizeF intrinsicSize(QTextDocument* document, int, const QTextFormat& format) override {
    const QTextImageFormat picture = format.toImageFormat();
    return ShownSize(picture, ImageOf(*document, picture.name()));
  }

  void drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document, int,
                  const QTextFormat& format) override {
    const QSize dots = (rect.size() * painter->device()->devicePixelRatio()).toSize();
    const QString name = format.toImageFormat().name();
    QImage& reduced = reduced_[name];
    if (reduced.size() != dots) {
      reduced = ImageOf(*document, name).scaled(dots, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    painter->drawImage(rect, reduced);
  }

 private:
  QHash<QString, QImage> reduced_;  // as they were drawn last
};

}  // namespace

void ShowPicturesSmoothly(QTextDocument& document) {
  QAbstractTextDocumentLayout* layout = document.documentLayout();
  layout->registerHandler(QTextFormat::ImageObject, new SmoothPictures(layout));
}

#include "SmoothPictures.moc"
