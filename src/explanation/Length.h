// Lengths in the plane with the same bits on every machine, which the library's std::hypot has not.
#pragma once

#include <cmath>

/// For components that are singles, sums or differences of some: their squares neither overflow nor vanish.
inline double LengthOf(double x, double y) { return std::sqrt(x * x + y * y); }
