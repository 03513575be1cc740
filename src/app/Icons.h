// The program's own pictures, drawn when they are asked for, so that they are crisp on every screen and
// follow the colours of the desktop.
#pragma once

#include <QIcon>
#include <QPalette>
#include <QPixmap>

inline constexpr int ToolPictureSize = 32;  ///< pixels before the device pixel ratio

/// The button of tool 1 .. 8, raised or pressed.
QPixmap ToolPicture(int tool, bool pressed, qreal devicePixelRatio, const QPalette& palette);

/// The program's mark, a small truss; `side` in pixels before the device pixel ratio.
QPixmap ApplicationPicture(int side, qreal devicePixelRatio);

/// The same mark in the sizes that window systems ask for.
QIcon ApplicationIcon();

/// The picture of the about box: a loaded truss on white paper, in every style of the desktop.
QPixmap AboutPicture(QSize size, qreal devicePixelRatio);
