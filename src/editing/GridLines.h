// The grid that is snapped to, and that the keyboard's cursor walks on.
#pragma once

#include <cmath>
#include <limits>

#include "text/ExactDecimal.h"

/// The lines of the grid along one axis, counted from the minimum coordinate. World coordinates.
class GridLines {
 public:
  GridLines(float minimum, float spacing) : minimum_(minimum), spacing_(spacing) {}

  /// How many spacings a coordinate is from the minimum. Not finite without a spacing.
  double Position(float value) const { return (double{value} - double{minimum_}) / double{spacing_}; }

  /// The nearest line; halves go upward.
  double Nearest(float value) const { return std::floor(Position(value) + 0.5); }

  /// The coordinate that is stored for a line; what no single can hold is not finite.
  float Stored(double line) const {
    const double coordinate = double{minimum_} + line * double{spacing_};
    constexpr double largest = std::numeric_limits<float>::max();
    return std::abs(coordinate) <= largest ? static_cast<float>(coordinate)
                                           : std::numeric_limits<float>::quiet_NaN();
  }

  /// The decimals of a line whose stored coordinate is finite.
  ExactDecimal Exact(double line) const {
    return ExactDecimal::Of(minimum_) + ExactDecimal::Of(line) * ExactDecimal::Of(spacing_);
  }

 private:
  float minimum_, spacing_;
};
