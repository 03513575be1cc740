// Finds the controls of a window that is tested.
#pragma once

#include <QString>
#include <QWidget>
#include <stdexcept>

/// The control of this object name; throws std::runtime_error with the name when the window has none.
template <class Control>
Control& FindControl(const QWidget& window, const char* name) {
  auto* found = window.findChild<Control*>(QString::fromLatin1(name));
  if (found == nullptr) throw std::runtime_error(name);
  return *found;
}
