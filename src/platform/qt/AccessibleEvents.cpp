#include "platform/qt/AccessibleEvents.h"

#include <utility>

namespace {

std::function<void(QAccessibleEvent&)>& Listener() {
  static std::function<void(QAccessibleEvent&)> listener;
  return listener;
}

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
  QAccessibleEvent said(&from, QAccessible::Alert);
#endif
  TellListeners(said);
}

void ListenInstead(std::function<void(QAccessibleEvent&)> listener) { Listener() = std::move(listener); }
