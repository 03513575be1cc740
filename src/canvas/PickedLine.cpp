#include "canvas/PickedLine.h"

#include <cmath>

std::optional<float> FractionAt(const PixelLine& line, float x, float y) {
  const double dx = double{line.X2} - double{line.X1};
  const double dy = double{line.Y2} - double{line.Y1};
  const bool isFlat = std::abs(dx) >= std::abs(dy);
  const double along = isFlat ? double{x} - double{line.X1} : double{y} - double{line.Y1};
  const double length = isFlat ? dx : dy;
  if (length == 0) return std::nullopt;
  const auto t = static_cast<float>(along / length);
  if (!(t >= 0 && t <= 1)) return std::nullopt;
  const double aside =
      isFlat ? double{line.Y1} + double{t} * dy - double{y} : double{line.X1} + double{t} * dx - double{x};
  if (!(std::abs(aside) < double{PickTolerance})) return std::nullopt;
  return t;
}
