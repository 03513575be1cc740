#include "platform/qt/WindowInFront.h"

#include <QApplication>
#include <QVariant>
#include <QWidget>

namespace {

constexpr auto OwnerProperty = "messagesAppearOver";

QWidget* OwnerOf(QWidget* window) {
  auto* owner = window->property(OwnerProperty).value<QWidget*>();
  return owner != nullptr && owner->isVisible() ? owner : window;
}

}  // namespace

QWidget* WindowInFront() {
  if (QWidget* dialog = QApplication::activeModalWidget()) return dialog;
  if (QWidget* window = QApplication::activeWindow()) return OwnerOf(window);
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible()) return OwnerOf(window);
  }
  return nullptr;
}

void ShowMessagesOver(QWidget& window, QWidget& companion) {
  companion.setProperty(OwnerProperty, QVariant::fromValue(&window));
}
