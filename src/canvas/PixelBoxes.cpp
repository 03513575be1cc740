#include "canvas/PixelBoxes.h"

#include <algorithm>
#include <cmath>

namespace {

// Narrows the part [from, to] of a line, of which `start` and `step` are one coordinate, to what lies between
// two bounds.
void Narrow(double start, double step, double low, double high, double& from, double& to) {
  if (step == 0) {
    if (start <= low || start >= high) to = -1;
    return;
  }
  const double a = (low - start) / step;
  const double b = (high - start) / step;
  from = std::max(from, std::min(a, b));
  to = std::min(to, std::max(a, b));
}

}  // namespace

bool Overlap(const PixelRect& a, const PixelRect& b) {
  return a.Left < b.Right && b.Left < a.Right && a.Top < b.Bottom && b.Top < a.Bottom;
}

bool Crosses(const PixelLine& line, const PixelRect& box) {
  double from = 0;
  double to = 1;
  Narrow(line.X1, double{line.X2} - double{line.X1}, box.Left, box.Right, from, to);
  Narrow(line.Y1, double{line.Y2} - double{line.Y1}, box.Top, box.Bottom, from, to);
  return from < to;
}

PixelRect Widened(const PixelRect& box, float margin) {
  return {box.Left - margin, box.Top - margin, box.Right + margin, box.Bottom + margin};
}

double DistanceTo(const PixelLine& line, PixelPoint point) {
  const double dx = double{line.X2} - double{line.X1};
  const double dy = double{line.Y2} - double{line.Y1};
  const double px = double{point.X} - double{line.X1};
  const double py = double{point.Y} - double{line.Y1};
  const double square = dx * dx + dy * dy;
  const double along = square > 0 ? std::clamp((px * dx + py * dy) / square, 0.0, 1.0) : 0;
  return std::hypot(px - along * dx, py - along * dy);
}
