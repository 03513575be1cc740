// The values of a motion or a state of self-stress in double precision, once it is known exactly which of
// them are not 0.
#pragma once

#include <vector>

#include "analysis/SparseMatrix.h"
#include "explanation/ExtendedDouble.h"

/// Entries that are not 0, by ascending column from 1.
using SparseVector = std::vector<SparseMatrix<double>::Entry>;

class NullVectors {
 public:
  /// The matrix must outlive it.
  explicit NullVectors(const SparseMatrix<ExtendedDouble>& rows);

  /// The vector that the matrix maps to 0 among those that are 0 but in `columns` (from 1, ascending), when
  /// exact reckoning has shown that there is one and, but for its size, no other. By elimination with
  /// complete pivoting, which stops one pivot short of the number of columns, whatever rounding has left by
  /// then. Rows and columns are brought to one size before, and up to MostExtended columns are reckoned with
  /// in twice the figures of a double, so that the small values are right too where the drawing has lengths
  /// of very different sizes. The largest magnitude is 1.
  SparseVector On(const std::vector<int>& columns) const;

  /// All of them, when there are `number` independent ones: each is 1 in a column of its own in which the
  /// others are 0 (before its size is set to 1), and is given by (column, value).
  std::vector<SparseVector> Basis(const std::vector<int>& columns, int number) const;

  /// More would take long.
  static constexpr std::size_t MostExtended = 48;

 private:
  // Some columns of the rows that have an entry in them, numbered anew from 0, with the powers of two by
  // which columns were divided.
  struct Part {
    std::vector<std::vector<SparseMatrix<ExtendedDouble>::Entry>> Rows;
    std::vector<int> Scales;
  };
  Part PartOf(const std::vector<int>& columns) const;
  static void BringToOneSize(Part& part);

  const SparseMatrix<ExtendedDouble>& rows_;
  std::vector<std::vector<int>> rowsOfColumn_;
};
