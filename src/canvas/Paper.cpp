// Each end that lies off the paper is moved along the line onto the paper's edge.
#include "canvas/Paper.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double Edge = FarthestPixel;

struct Point {
  double X, Y;
};

bool IsOnPaper(float x, float y) { return std::abs(x) <= FarthestPixel && std::abs(y) <= FarthestPixel; }

// Moves `u` onto the edge that it lies beyond, and `v`, its other coordinate, with it. Reckoned from the
// other end, which is the near one where precision matters. Returns false when that end lies beyond the same
// edge.
bool MoveOntoEdge(double& u, double& v, double otherU, double otherV) {
  if (std::abs(u) <= Edge) return true;
  const double edge = std::copysign(Edge, u);
  if (u > 0 ? otherU > edge : otherU < edge) return false;
  v = otherV + (v - otherV) * ((edge - otherU) / (u - otherU));
  u = edge;
  return true;
}

bool MoveOntoPaper(Point& end, const Point& other) {
  return MoveOntoEdge(end.X, end.Y, other.X, other.Y) && MoveOntoEdge(end.Y, end.X, other.Y, other.X) &&
         std::abs(end.X) <= Edge;
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
  const Point given1{line.X1, line.Y1};
  const Point given2{line.X2, line.Y2};
  Point end1 = given1;
  Point end2 = given2;
  if (!MoveOntoPaper(end1, given2) || !MoveOntoPaper(end2, given1)) return std::nullopt;
  return PixelLine{static_cast<float>(end1.X), static_cast<float>(end1.Y), static_cast<float>(end2.X),
                   static_cast<float>(end2.Y)};
}

void DrawLine(Surface& surface, const PixelLine& line) {
  if (const auto part = PartOnPaper(line)) surface.Line(part->X1, part->Y1, part->X2, part->Y2);
}
