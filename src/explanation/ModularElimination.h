// Rank and null space of a sparse matrix over a prime field. Pivots are chosen for sparsity alone: nothing is
// rounded, so magnitude does not matter.
#pragma once

#include <vector>

#include "explanation/RigidityMatrix.h"

/// The vectors that a matrix maps to 0. Vector i is 1 in column Free[i] and 0 in the other free columns, so
/// that the coefficients of a combination stand in its free columns.
struct ModularNullSpace {
  int Rank = 0;
  std::vector<int> Free;            ///< columns without a pivot, ascending, from 0
  std::vector<ModularRow> Vectors;  ///< as many as Free
};

/// Rows need not be independent; columns count from 0.
template <class Field>
ModularNullSpace NullSpaceOf(std::vector<ModularRow> rows, int numColumns);

/// The rank alone, without the work for the null space.
template <class Field>
int RankOf(std::vector<ModularRow> rows, int numColumns);

/// Turns rows into columns. The matrix has as many rows as `rows` has, and `numColumns` columns.
std::vector<ModularRow> Transposed(const std::vector<ModularRow>& rows, int numColumns);
