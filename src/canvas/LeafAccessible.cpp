#include "canvas/LeafAccessible.h"

#include <QAccessible>

QWindow* LeafAccessible::window() const { return canvas_ ? canvas_->window()->windowHandle() : nullptr; }

QAccessibleInterface* LeafAccessible::parent() const {
  return QAccessible::queryAccessibleInterface(canvas_);
}

QAccessible::State LeafAccessible::state() const {
  QAccessible::State state;
  state.invalid = !isValid();
  if (state.invalid) return state;
  state.disabled = !canvas_->isEnabled();
  state.invisible = !canvas_->isVisible();
  return state;
}
