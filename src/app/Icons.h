// The program's own pictures, drawn when they are asked for, so that they are crisp on
// every screen.
#pragma once

#include <QIcon>
#include <QPixmap>

/// The program's mark, a small truss; `side` in pixels before the device pixel ratio.
QPixmap ApplicationPicture(int side, qreal devicePixelRatio);

/// The same mark in the sizes that window systems ask for.
QIcon ApplicationIcon();

/// The picture of the about box: a loaded truss on white paper, in every style of the desktop.
QPixmap AboutPicture(QSize size, qreal devicePixelRatio);
