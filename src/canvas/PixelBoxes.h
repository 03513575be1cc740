// Whether boxes and lines on the paper touch each other, and how far apart they are: for texts that look for
// a place.
#pragma once

#include "canvas/Paper.h"
#include "platform/Picture.h"

/// Whether two boxes have a part in common; a common edge is none.
bool Overlap(const PixelRect& a, const PixelRect& b);

/// Whether a part of the line lies inside the box.
bool Crosses(const PixelLine& line, const PixelRect& box);

/// From a point to the nearest one of the line, pixels.
double DistanceTo(const PixelLine& line, PixelPoint point);

/// The box made larger by `margin` pixels on every side.
PixelRect Widened(const PixelRect& box, float margin);
