// The eight support pictures as plain shapes in a box of 32 by 32 pixels whose centre is the supported point.
// A clamp is a pin fixed on hatched ground, a roller a pin on wheels. The ground of a roller lies opposite to
// the direction in which it pushes.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/Palette.h"
#include "platform/Picture.h"
#include "platform/Surface.h"

enum class ShapeKind { Line, Polygon, Circle };

/// One shape of a picture, drawn with a black outline.
struct PictureShape {
  ShapeKind Kind = ShapeKind::Line;
  std::vector<PixelPoint> Points;  ///< the two ends, the corners, or the centre
  float Radius = 0;                ///< of a circle
  int Fill = White;                ///< palette index; lines have no inside
};

/// The side of the box on which the ground lies.
enum class GroundSide { Below, Left, Above, Right };

/// `type` is a support type code; clamp n and roller n + 4 have it on the same side. Codes other than 1 .. 8
/// have their ground below.
GroundSide GroundSideOf(std::int16_t type);

/// The shapes from back to front; none for codes other than 1 .. 8.
const std::vector<PictureShape>& SupportPicture(std::int16_t type);

/// The part of a picture centred here in which there is something, pixels.
PixelRect SupportPictureBox(std::int16_t type, PixelPoint centre);

/// Paints a picture with its box's top left corner at (left, top), magnified by `scale`. Leaves a black
/// foreground and a line width of 1.
void PaintSupportPicture(Surface& surface, std::int16_t type, float left, float top, float scale = 1);

/// Paints a filled circle of this outer radius with a black rim one pixel wide; coordinates are pixels.
void PaintCircle(Surface& surface, float centreX, float centreY, float radius, int fill);
