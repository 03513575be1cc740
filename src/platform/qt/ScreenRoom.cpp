#include "platform/qt/ScreenRoom.h"

#include <QScreen>
#include <QWidget>

namespace {

// A frame is made only when a window is shown.
constexpr int UsualTitleBar = 38;
constexpr int UsualBorder = 4;

}  // namespace

QRect FrameRoom(const QWidget& window) { return window.screen()->availableGeometry(); }

QMargins FrameMargins(const QWidget& window) {
  const QRect frame = window.frameGeometry();
  const QRect inner = window.geometry();
  if (window.isVisible()) {
    return {inner.left() - frame.left(), inner.top() - frame.top(), frame.right() - inner.right(),
            frame.bottom() - inner.bottom()};
  }
  return {UsualBorder, UsualTitleBar, UsualBorder, UsualBorder};
}

QSize WindowRoom(const QWidget& window) {
  return FrameRoom(window).marginsRemoved(FrameMargins(window)).size();
}
