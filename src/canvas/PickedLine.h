// Whether a line of the drawing is under the mouse.
#pragma once

#include <optional>

#include "canvas/Paper.h"

/// Pixels: closer than this to a line, measured along its minor axis, is on the line.
inline constexpr float PickTolerance = 5;

/// Where along the line a pixel lies that is on it, from 0 at its first end to 1; nothing when it is not.
std::optional<float> FractionAt(const PixelLine& line, float x, float y);
