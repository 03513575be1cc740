#include "app/HelpBrowser.h"

#include <QAbstractTextDocumentLayout>
#include <QDir>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QUrl>
#include <QWheelEvent>
#include <algorithm>
#include <array>

#include "platform/qt/TextInWords.h"

namespace {

constexpr qreal DotsPerPixel = 2;      // of the pictures in the help file
constexpr int OneWheelStep = 120;      // eighths of a degree
constexpr qreal SmallestPicture = 16;  // pixels wide, on however narrow a page
constexpr std::array ZoomSteps = {50, 67, 80, 90, 100, 110, 125, 150, 175, 200, 250, 300};

QString Scheme() { return QStringLiteral("help"); }

// Addresses inside the help are help:/program/files.htm#place, with a blank in a folder's name as %20.
QUrl AddressOf(const QString& page) {
  const qsizetype place = page.indexOf(u'#');
  QUrl address;
  address.setScheme(Scheme());
  address.setPath(u'/' + page.left(place), QUrl::DecodedMode);
  if (place >= 0) address.setFragment(page.mid(place + 1));
  return address;
}

// The name of the file that an address leads to, whichever slashes it is written with.
QString NameOf(const QUrl& address) {
  QString path = address.path(QUrl::FullyDecoded).replace(u'\\', u'/');
  path = QDir::cleanPath(path);
  while (path.startsWith(u'/')) path.remove(0, 1);
  return path;
}

QString PageOf(const QUrl& address) {
  return address.hasFragment() ? NameOf(address) + u'#' + address.fragment() : NameOf(address);
}

}  // namespace

// --- the paper

int ZoomedPaper::metric(PaintDeviceMetric metric) const {
  switch (metric) {
    case PdmWidth:
      return screen_.width();
    case PdmHeight:
      return screen_.height();
    case PdmDpiX:
    case PdmPhysicalDpiX:
      return qRound(screen_.logicalDpiX() * Percent / 100.0);
    case PdmDpiY:
    case PdmPhysicalDpiY:
      return qRound(screen_.logicalDpiY() * Percent / 100.0);
    case PdmDevicePixelRatio:
      return qRound(screen_.devicePixelRatioF());
    case PdmDevicePixelRatioScaled:
      return qRound(screen_.devicePixelRatioF() * devicePixelRatioFScale());
    default:
      return QPaintDevice::metric(metric);
  }
}

// --- pictures

const QImage& HelpPictures::Picture(const QString& name) {
  auto found = pictures_.find(name);
  if (found == pictures_.end()) found = pictures_.insert(name, load_(name));
  return *found;
}

void HelpPictures::Forget() {
  pictures_.clear();
  scaled_.clear();
}

QSizeF HelpPictures::intrinsicSize(QTextDocument* document, int /*position*/, const QTextFormat& format) {
  const QImage& picture = Picture(format.toImageFormat().name());
  if (picture.isNull()) return {SmallestPicture, SmallestPicture};
  QSizeF size = QSizeF(picture.size()) * (paper_.Percent / 100.0) / DotsPerPixel;
  const qreal room = document->textWidth() - 2 * document->documentMargin() - document->indentWidth();
  const qreal widest = std::max(SmallestPicture, room);
  if (document->textWidth() > 0 && size.width() > widest) size *= widest / size.width();
  return size.toSize();
}

void HelpPictures::drawObject(QPainter* painter, const QRectF& rect, QTextDocument* /*document*/,
                              int /*position*/, const QTextFormat& format) {
  const QString name = format.toImageFormat().name();
  const QImage& picture = Picture(name);
  if (picture.isNull()) return;
  const qreal ratio = painter->device()->devicePixelRatioF();
  const QSize dots = (rect.size() * ratio).toSize();
  QPixmap& scaled = scaled_[name];
  if (scaled.size() != dots) {
    scaled = QPixmap::fromImage(picture.scaled(dots, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  }
  scaled.setDevicePixelRatio(ratio);
  painter->drawPixmap(rect.topLeft().toPoint(), scaled);
}

// --- pages

HelpBrowser::HelpBrowser(const HelpFile& file, QWidget* parent)
    : QTextBrowser(parent), file_(file), paper_(*viewport()), pictures_(paper_, [this](const QString& name) {
        return QImage::fromData(file_.Read(NameOf(loaded_.resolved(QUrl(name)))));
      }) {
  setObjectName(QStringLiteral("txtHelp"));
  TellPicturesInWords(*this);
  setAccessibleName(QStringLiteral("Help page"));
  setOpenLinks(false);
  connect(this, &QTextBrowser::anchorClicked, this, &HelpBrowser::FollowLink);
  connect(this, &QTextBrowser::sourceChanged, this,
          [this](const QUrl& address) { Q_EMIT PageShown(PageOf(address)); });

  // The pictures are drawn for white paper, so all of it is white in every style of the desktop.
  QPalette paper = palette();
  paper.setColor(QPalette::Base, Qt::white);
  paper.setColor(QPalette::Text, QColor(0x1C, 0x1C, 0x1E));
  paper.setColor(QPalette::Link, QColor(0x0B, 0x57, 0xA4));
  paper.setColor(QPalette::LinkVisited, QColor(0x0B, 0x57, 0xA4));
  paper.setColor(QPalette::Highlight, QColor(0x2F, 0x6F, 0xB7));
  paper.setColor(QPalette::HighlightedText, Qt::white);
  setPalette(paper);
  document()->setDocumentMargin(14);
  document()->documentLayout()->registerHandler(QTextFormat::ImageObject, &pictures_);
  document()->documentLayout()->setPaintDevice(&paper_);
}

HelpBrowser::~HelpBrowser() { document()->documentLayout()->setPaintDevice(nullptr); }

bool HelpBrowser::ShowPage(const QString& page) {
  const QUrl address = AddressOf(page);
  if (!file_.Contains(NameOf(address))) return false;
  setSource(address, QTextDocument::HtmlResource);
  return true;
}

QString HelpBrowser::Page() const { return source().isEmpty() ? QString() : PageOf(source()); }

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
  // The pictures are drawn by their own handler; only the page and its style are asked for here.
  if (type != QTextDocument::HtmlResource) return file_.Read(NameOf(loaded_.resolved(name)));
  loaded_ = name;
  pictures_.Forget();
  return file_.Read(NameOf(name));
}

void HelpBrowser::FollowLink(const QUrl& address) {
  if (address.scheme() != Scheme()) {
    Q_EMIT OutwardLink(address);
  } else if (!ShowPage(PageOf(address))) {
    Q_EMIT DeadLink(PageOf(address));
  }
}

// --- zoom

void HelpBrowser::ZoomBy(int steps) {
  const auto* current = std::ranges::lower_bound(ZoomSteps, paper_.Percent);
  const auto index = current - ZoomSteps.begin() + steps;
  SetZoom(ZoomSteps.at(static_cast<std::size_t>(
      std::clamp<std::ptrdiff_t>(index, 0, static_cast<std::ptrdiff_t>(ZoomSteps.size()) - 1))));
}

void HelpBrowser::SetZoom(int percent) {
  if (percent == paper_.Percent) return;
  // What stands at the top of the window stays there.
  QTextCursor top = cursorForPosition(QPoint(1, 1));
  const bool atStart = verticalScrollBar()->value() == 0;
  paper_.Percent = percent;
  document()->markContentsDirty(0, document()->characterCount());
  const int y = atStart ? 0 : cursorRect(top).top() + verticalScrollBar()->value();
  verticalScrollBar()->setValue(y);
  Q_EMIT ZoomChanged(percent);
}

void HelpBrowser::wheelEvent(QWheelEvent* event) {
  if (!event->modifiers().testFlag(Qt::ControlModifier)) {
    QTextBrowser::wheelEvent(event);
    return;
  }
  event->accept();
  wheel_ += event->angleDelta().y();
  const int steps = wheel_ / OneWheelStep;
  wheel_ -= steps * OneWheelStep;
  if (steps != 0) ZoomBy(steps);
}
