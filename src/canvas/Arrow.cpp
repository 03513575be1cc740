// One geometry for painted and for placed arrows.
#include "canvas/Arrow.h"

#include <cmath>

#include "document/Angles.h"
#include "document/Labels.h"

namespace {

// Steeper than this (dy over dx), an arrow counts as vertical.
constexpr double SteepestSlope = 1000;

// Half the width of a head over its length.
constexpr double HalfWidthRatio = 0.2;

// The arrow's direction in a y-downward system; the points differ.
double DirectionAngle(double dx, double dy) {
  if (std::abs(dx) * SteepestSlope >= std::abs(dy)) return std::atan(dy / dx) + (dx < 0 ? HalfTurn : 0.0);
  return dy > 0 ? HalfTurn / 2 : -HalfTurn / 2;
}

}  // namespace

std::optional<ArrowShape> ArrowGeometry(float x1, float y1, float x2, float y2, float headLength) {
  if (x1 == x2 && y1 == y2) return std::nullopt;
  for (const float value : {x1, y1, x2, y2, headLength}) {
    if (!std::isfinite(value)) return std::nullopt;
  }
  const double angle = DirectionAngle(double{x2} - double{x1}, double{y2} - double{y1});
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  const double h = headLength;
  const double halfWidth = HalfWidthRatio * h;
  const PixelPoint p{FiniteSingle(x2 - h * c - halfWidth * s), FiniteSingle(y2 - h * s + halfWidth * c)};
  const PixelPoint q{FiniteSingle(x2 - h * c + halfWidth * s), FiniteSingle(y2 - h * s - halfWidth * c)};
  return ArrowShape{.Shaft = {x1, y1, x2, y2},
                    .Side1 = {x2, y2, p.X, p.Y},
                    .Base = {p.X, p.Y, q.X, q.Y},
                    .Side2 = {q.X, q.Y, x2, y2}};
}

void DrawArrow(Surface& surface, float x1, float y1, float x2, float y2, std::int16_t lineWidth,
               float headLength, std::int16_t paletteIndex) {
  const auto arrow = ArrowGeometry(x1, y1, x2, y2, headLength);
  if (!arrow) return;
  surface.SetLineWidth(lineWidth);
  surface.SetForeground(paletteIndex);
  for (const PixelLine& line : {arrow->Shaft, arrow->Side1, arrow->Base, arrow->Side2}) {
    DrawLine(surface, line);
  }
  surface.SetForeground(0);
  surface.SetLineWidth(1);
}

void ArrowControl(Drawing& drawing, std::int16_t lastArrowLine, float x1, float y1, float x2, float y2,
                  float arrowSize) {
  const auto arrow = ArrowGeometry(x1, y1, x2, y2, arrowSize);
  if (!arrow) return;
  int segment = lastArrowLine - SegmentsPerArrow;
  for (const PixelLine& line : {arrow->Shaft, arrow->Side1, arrow->Side2, arrow->Base}) {
    drawing.ArLin[++segment].Line = line;
  }
}
