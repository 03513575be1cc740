// The part of the endless pixel plane that a painter can take. Coordinates from a file may lie anywhere; what
// is drawn passes through here, so that a surface gets finite numbers of a sane size only.
#pragma once

#include <optional>

#include "platform/Surface.h"

/// The paper reaches this many pixels from the origin on every side.
inline constexpr float FarthestPixel = 1e6F;

struct PixelLine {
  float X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;

  PixelPoint End1() const { return {X1, Y1}; }
  PixelPoint End2() const { return {X2, Y2}; }

  friend bool operator==(const PixelLine&, const PixelLine&) = default;
};

/// The nearest coordinate on the paper; 0 for what is not a number.
float OntoPaper(float coordinate);

/// A double as a single, held within the range of finite singles; 0 for what is not a number.
float FiniteSingle(double value);

/// The part of the line that lies on the paper, in the line's own direction; nothing when there is none or
/// when a coordinate is not finite. A line that lies on the paper whole comes back unchanged.
std::optional<PixelLine> PartOnPaper(const PixelLine& line);

/// Draws the part of the line that lies on the paper.
void DrawLine(Surface& surface, const PixelLine& line);
