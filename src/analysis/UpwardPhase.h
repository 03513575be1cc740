// Clears the columns above the pivots, when all pivots are known. Row i takes the later pivot rows in their
// order, each times the entry it has by then in that pivot's column, exactly as if it had been cleared at
// each step; so the rows do not depend on each other.
#pragma once

#include <vector>

#include "analysis/Echelon.h"
#include "analysis/EliminationTuning.h"

/// A reduced pivot row apart from its pivot: what is not 0 in the columns that have no pivot.
struct ReducedRow {
  std::vector<Index> FreePositions;  ///< ascending
  std::vector<double> Values;
  double RightHandSide = 0;
};

/// By the position of the pivot. Coefficients below the tolerance have become 0. Gives the memory of the
/// pivot rows back on the way, leaving them empty.
std::vector<ReducedRow> ReduceUpward(Echelon& echelon, const EliminationTuning& tuning);
