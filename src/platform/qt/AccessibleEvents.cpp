#include "platform/qt/AccessibleEvents.h"

#include <QStatusBar>
#include <utility>

#include "platform/qt/AccessibleRole.h"

namespace {

std::function<void(QAccessibleEvent&)>& Listener() {
  static std::function<void(QAccessibleEvent&)> listener;
  return listener;
}

#if QT_VERSION < QT_VERSION_CHECK(6, 8, 0)
// Nothing of it can be seen or reached.
QWidget* WithoutSize(QWidget* parent, QAccessible::Role role) {
  auto* made = new QWidget(parent);
  made->setAttribute(Qt::WA_TransparentForMouseEvents);
  made->resize(0, 0);
  SetAccessibleRole(*made, role);
  made->show();
  return made;
}

// Of a notice in a status bar a screen reader says the name alone, and not that it is a notice.
QWidget& NoticeOf(QWidget& window) {
  const QString name = QStringLiteral("spokenNotice");
  if (auto* there = window.findChild<QWidget*>(name)) return *there;
  QWidget* bar = window.findChild<QStatusBar*>();
  if (bar == nullptr) {
    bar = WithoutSize(&window, QAccessible::StatusBar);
    bar->setAccessibleName(QStringLiteral("Status"));
  }
  QWidget* notice = WithoutSize(bar, QAccessible::Notification);
  notice->setObjectName(name);
  return *notice;
}
#endif

}  // namespace

bool IsSomebodyListening() { return Listener() || QAccessible::isActive(); }

void TellListeners(QAccessibleEvent& event) {
  if (Listener()) {
    Listener()(event);
  } else if (QAccessible::isActive()) {
    QAccessible::updateAccessibility(&event);
  }
}

void Announce(QWidget& from, const QString& text) {
  if (text.isEmpty() || !IsSomebodyListening()) return;
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
  QAccessibleAnnouncementEvent said(&from, text);
#else
  QWidget& notice = NoticeOf(*from.window());
  notice.setAccessibleName(text);
  QAccessibleEvent said(&notice, QAccessible::ObjectShow);
#endif
  TellListeners(said);
}

void ListenInstead(std::function<void(QAccessibleEvent&)> listener) { Listener() = std::move(listener); }
