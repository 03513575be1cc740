// The angle comes from the plain arc tangent and the vector's quadrant.
#include "canvas/Polar.h"

#include <cmath>

#include "document/Angles.h"

namespace {

double AngleInRadians(double x, double y) {
  if (x == 0) return y < 0 ? -HalfTurn / 2 : HalfTurn / 2;
  const double angle = std::atan(y / x);
  if (x > 0) return angle;
  return y < 0 ? angle - HalfTurn : angle + HalfTurn;
}

// On an axis the other component is the magnitude, without the roundings of a square and a root.
double MagnitudeOf(double x, double y) {
  if (x == 0) return std::abs(y);
  if (y == 0) return std::abs(x);
  return std::sqrt(x * x + y * y);
}

}  // namespace

PolarVector RectangularToPolar(int angleMode, double x, double y) {
  if (x == 0 && y == 0) return {};
  const double angle = AngleInRadians(x, y);
  return {MagnitudeOf(x, y), angleMode == DegreeMode ? angle * 180 / HalfTurn : angle};
}

RectangularVector PolarToRectangular(int angleMode, double magnitude, double angle) {
  const double radians = angleMode == DegreeMode ? angle * HalfTurn / 180 : angle;
  return {magnitude * std::cos(radians), magnitude * std::sin(radians)};
}
