// Where a window that comes and goes stands on the screen: where the program puts it until the user has put
// it elsewhere.
#pragma once

#include <QRect>
#include <QWidget>

class KeptPlace {
 public:
  /// Calls `show`, and before it `place` when the window is about to open and nobody has moved or resized it.
  template <class Place, class Show>
  void BringUp(QWidget& window, Place place, Show show) {
    const bool opens = !window.isVisible() && (!placed_.isValid() || window.geometry() == placed_);
    if (opens) place();
    show();
    if (opens) placed_ = window.geometry();
  }

  /// The window has been put where it stands now.
  void Placed(const QWidget& window) { placed_ = window.geometry(); }

 private:
  QRect placed_;
};
