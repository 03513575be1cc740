#include "app/TrussDrop.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>
#include <utility>

namespace {

// The only file of a drop, if there is one and it is a truss file.
QString DroppedTruss(const QMimeData* data) {
  const QList<QUrl> urls = data->urls();
  if (urls.size() != 1 || !urls.front().isLocalFile()) return {};
  const QString path = urls.front().toLocalFile();
  return path.endsWith(QStringLiteral(".trs"), Qt::CaseInsensitive) ? path : QString();
}

bool TakesACopy(QDropEvent* event) {
  const bool allowed = event->possibleActions().testFlag(Qt::CopyAction);
  if (allowed) event->setDropAction(Qt::CopyAction);
  event->setAccepted(allowed);
  return allowed;
}

}  // namespace

TrussDrop::TrussDrop(QWidget& window, std::function<bool()> takes)
    : QObject(&window), takes_(std::move(takes)) {
  window.setAcceptDrops(true);
  window.installEventFilter(this);
}

bool TrussDrop::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
      return Take(static_cast<QDropEvent*>(event));
    default:
      return QObject::eventFilter(watched, event);
  }
}

bool TrussDrop::Take(QDropEvent* event) {
  const QString path = DroppedTruss(event->mimeData());
  if (event->type() == QEvent::DragEnter) {
    event->ignore();
    if (takes_() && !path.isEmpty()) TakesACopy(event);
  } else if (event->type() == QEvent::DragMove) {
    TakesACopy(event);  // keys held down change what is proposed while the file is on its way
  } else if (!path.isEmpty() && TakesACopy(event)) {
    QMetaObject::invokeMethod(
        this, [this, path] { Q_EMIT Dropped(path); }, Qt::QueuedConnection);
  }
  return true;
}
