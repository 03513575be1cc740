// Lines are cut by their parameter, from 0 at end 1 to 1 at end 2.
#include "canvas/Paper.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

bool IsOnPaper(float x, float y) { return std::abs(x) <= FarthestPixel && std::abs(y) <= FarthestPixel; }

// Narrows [first, last] to where start + parameter * slope lies on the paper.
void Narrow(double start, double slope, double& first, double& last) {
  constexpr double edge = FarthestPixel;
  if (slope == 0) {
    if (std::abs(start) > edge) last = -1;
    return;
  }
  double enter = (-edge - start) / slope;
  double leave = (edge - start) / slope;
  if (enter > leave) std::swap(enter, leave);
  first = std::max(first, enter);
  last = std::min(last, leave);
}

}  // namespace

float OntoPaper(float coordinate) {
  return std::isnan(coordinate) ? 0.0F : std::clamp(coordinate, -FarthestPixel, FarthestPixel);
}

float FiniteSingle(double value) {
  constexpr double largest = std::numeric_limits<float>::max();
  return std::isnan(value) ? 0.0F : static_cast<float>(std::clamp(value, -largest, largest));
}

std::optional<PixelLine> PartOnPaper(const PixelLine& line) {
  if (IsOnPaper(line.X1, line.Y1) && IsOnPaper(line.X2, line.Y2)) return line;
  for (const float coordinate : {line.X1, line.Y1, line.X2, line.Y2}) {
    if (!std::isfinite(coordinate)) return std::nullopt;
  }
  const double dx = double{line.X2} - double{line.X1};
  const double dy = double{line.Y2} - double{line.Y1};
  double first = 0;
  double last = 1;
  Narrow(line.X1, dx, first, last);
  Narrow(line.Y1, dy, first, last);
  if (first > last) return std::nullopt;
  // A cut far from end 1 loses digits; the result is held on the paper.
  const auto at = [](float start, double slope, double parameter) {
    return OntoPaper(FiniteSingle(double{start} + parameter * slope));
  };
  return PixelLine{at(line.X1, dx, first), at(line.Y1, dy, first), at(line.X1, dx, last),
                   at(line.Y1, dy, last)};
}

void DrawLine(Surface& surface, const PixelLine& line) {
  if (const auto part = PartOnPaper(line)) surface.Line(part->X1, part->Y1, part->X2, part->Y2);
}
