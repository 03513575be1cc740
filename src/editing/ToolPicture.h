// The looks of the tool buttons, drawn when they are asked for, so that they are crisp on every screen and
// follow the colours of the desktop.
#pragma once

#include <QPalette>
#include <QPixmap>

inline constexpr int ToolPictureSize = 32;  ///< pixels before the device pixel ratio

/// The button of tool 1 .. 8, raised or pressed.
QPixmap ToolPicture(int tool, bool pressed, qreal devicePixelRatio, const QPalette& palette);
