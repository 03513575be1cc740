// The values of a motion or a state of self-stress in double precision, once it is known exactly which of
// them are not 0.
#pragma once

#include <vector>

#include "analysis/SparseMatrix.h"

/// Entries that are not 0, by ascending column from 1.
using SparseVector = std::vector<SparseMatrix<double>::Entry>;

class NullVectors {
 public:
  /// The matrix must outlive it.
  explicit NullVectors(const SparseMatrix<double>& rows);

  /// The vector that the matrix maps to 0 among those that are 0 but in `columns` (from 1, ascending), when
  /// exact reckoning has shown that there is one and, but for its size, no other. By elimination with
  /// complete pivoting, which stops one pivot short of the number of columns, whatever rounding has left by
  /// then. The largest magnitude is 1.
  SparseVector On(const std::vector<int>& columns) const;

  /// All of them, when there are `number` independent ones: each is 1 in a column of its own in which the
  /// others are 0 (before its size is set to 1), and is given by (column, value).
  std::vector<SparseVector> Basis(const std::vector<int>& columns, int number) const;

 private:
  SparseMatrix<double> Restricted(const std::vector<int>& columns) const;

  const SparseMatrix<double>& rows_;
  std::vector<std::vector<int>> rowsOfColumn_;
};
