// How large a window may be so that all of it lies on the screen, its title bar included.
#pragma once

#include <QRect>

class QWidget;

/// The part of the window's screen in which its frame may lie: without panels and docks of the desktop.
QRect FrameRoom(const QWidget& window);

/// What the window system puts around the window (pixels): once it is shown what there is, before that what
/// most desktops take.
QMargins FrameMargins(const QWidget& window);

/// The largest size of the window itself, anywhere on its screen.
QSize WindowRoom(const QWidget& window);
