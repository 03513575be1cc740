#include "platform/qt/QtClipboard.h"

#include <QClipboard>
#include <QEventLoop>
#include <QGuiApplication>
#include <QMimeData>
#include <QPointer>
#include <QThread>
#include <QTimer>
#include <QUrl>

#include "platform/qt/QtPicture.h"

namespace {

constexpr const char* RtfTypes[] = {"text/rtf", "application/rtf"};

// Null when the program has no desktop.
QClipboard* Board() {
  return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr
             ? QGuiApplication::clipboard()
             : nullptr;
}

bool IsEmpty(const QClipboard& board) {
  const QMimeData* held = board.mimeData();
  return held == nullptr || held->formats().isEmpty();
}

// The clipboard takes the data over, and deletes it when it could not be had.
bool Put(std::unique_ptr<QMimeData> data) {
  QClipboard* board = Board();
  if (board == nullptr) return false;
  const QPointer<QMimeData> put = data.get();
  board->setMimeData(data.release());
  return board->ownsClipboard() || (!put.isNull() && board->mimeData() == put.data());
}

// Its own copy of what is kept; null when there is nothing of that kind.
std::unique_ptr<QMimeData> CopyOf(const QMimeData& held) {
  auto copy = std::make_unique<QMimeData>();
  if (held.hasText()) copy->setText(held.text());
  if (held.hasHtml()) copy->setHtml(held.html());
  if (held.hasUrls()) copy->setUrls(held.urls());
  if (held.hasImage()) copy->setImageData(held.imageData());
  for (const char* type : RtfTypes) {
    const QString name = QString::fromLatin1(type);
    if (held.hasFormat(name)) copy->setData(name, held.data(name));
  }
  return copy->formats().isEmpty() ? nullptr : std::move(copy);
}

}  // namespace

bool QtClipboard::Clear() {
  QClipboard* board = Board();
  if (board == nullptr) return false;
  board->clear();
  return IsEmpty(*board);
}

bool QtClipboard::PutRichText(const RichTextForms& text) {
  auto data = std::make_unique<QMimeData>();
  for (const char* type : RtfTypes)
    data->setData(QString::fromLatin1(type), QByteArray::fromStdString(text.Rtf));
  data->setHtml(QString::fromStdString(text.Html));
  data->setText(QString::fromStdString(text.Plain));
  return Put(std::move(data));
}

bool QtClipboard::PutPicture(const Picture& picture) {
  const QImage image = ToImage(picture);
  if (image.isNull()) return Clear();
  auto data = std::make_unique<QMimeData>();
  data->setImageData(image);
  return Put(std::move(data));
}

QImage QtClipboard::Bitmap() const {
  const QClipboard* board = Board();
  return board != nullptr ? board->image() : QImage();
}

ClipboardKeeper::ClipboardKeeper() {
  const QClipboard* board = Board();
  const QMimeData* held = board != nullptr ? board->mimeData() : nullptr;
  if (held != nullptr) kept_ = CopyOf(*held);
}

ClipboardKeeper::~ClipboardKeeper() {
  QClipboard* board = Board();
  if (board == nullptr) return;
  if (kept_ != nullptr) {
    board->setMimeData(kept_.release());
  } else {
    board->clear();
  }
}

void QtClock::Pause(int milliseconds) {
  if (milliseconds <= 0) return;
  if (QCoreApplication::instance() == nullptr) {
    QThread::msleep(static_cast<unsigned long>(milliseconds));
    return;
  }
  QEventLoop loop;  // one for each pause, so that a pause within a pause ends on its own time
  QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
  loop.exec(QEventLoop::ExcludeUserInputEvents);
}
