#include "platform/qt/WindowInFront.h"

#include <QApplication>
#include <QWidget>

QWidget* WindowInFront() {
  if (QWidget* dialog = QApplication::activeModalWidget()) return dialog;
  if (QWidget* window = QApplication::activeWindow()) return window;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible()) return window;
  }
  return nullptr;
}
