// What a button does when it is pressed.
#pragma once

#include <QAbstractButton>
#include <functional>
#include <type_traits>

/// Calls the slot, a member function of `context` or a function without arguments, for each press of the
/// button by mouse, key or screen reader. The last two end a moment after they begin; a press whose button
/// has been hidden or disabled in that moment does nothing.
template <class Context, class Slot>
void OnPress(QAbstractButton* button, Context* context, Slot slot) {
  if constexpr (std::is_member_function_pointer_v<Slot>) {
    OnPress(button, context, std::bind_front(slot, context));
  } else {
    QObject::connect(button, &QAbstractButton::clicked, context, [button, slot] {
      if (button->isVisible() && button->isEnabled()) slot();
    });
  }
}
