// What counts as a pivot.
#pragma once

#include <limits>

/// An entry smaller than this (in magnitude) is no pivot, and is set to 0 in the reduced matrix.
inline constexpr double PivotTolerance = 1e-10;

/// Where an elimination stops looking for pivots, for whoever knows more about its matrix than the matrix
/// says: no pivot is smaller than `SmallestPivot` (or 0), and there are no more than `MostPivots`.
struct EliminationLimits {
  double SmallestPivot = PivotTolerance;
  int MostPivots = std::numeric_limits<int>::max();
};
