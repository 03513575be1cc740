// The one arrow shape of the program, painted for forces and placed beside names: a shaft and an open
// triangle as its head.
#pragma once

#include <cstdint>
#include <optional>

#include "canvas/Drawing.h"
#include "canvas/Paper.h"

/// How applied forces are drawn; the head length is in pixels.
inline constexpr std::int16_t ForceLineWidth = 2;
inline constexpr float ForceHeadLength = 12;
inline constexpr std::int16_t ForceColour = 12;

/// Pixels; the head length of arrows beside names.
inline constexpr float LabelArrowSize = 10;

struct ArrowShape {
  PixelLine Shaft;
  PixelLine Side1;  ///< from the tip back to one corner
  PixelLine Base;   ///< from there to the other corner
  PixelLine Side2;  ///< from there to the tip
};

/// The arrow from (x1, y1) to its tip at (x2, y2), in the surface's own units. Half the head's width is a
/// fifth of its length. Nothing when both points coincide or a coordinate is not finite.
std::optional<ArrowShape> ArrowGeometry(float x1, float y1, float x2, float y2, float headLength);

/// Paints the arrow and leaves a black foreground and a line width of 1; without an arrow to paint it leaves
/// them untouched.
void DrawArrow(Surface& surface, float x1, float y1, float x2, float y2, std::int16_t lineWidth,
               float headLength, std::int16_t paletteIndex);

/// Places the arrow with the segments `lastArrowLine` - 3 .. `lastArrowLine`: shaft, both head sides, base.
/// Without an arrow to place they stay where they are.
void ArrowControl(Drawing& drawing, std::int16_t lastArrowLine, float x1, float y1, float x2, float y2,
                  float arrowSize);
