// What the forward phases hand on to the upward phase: the order of rows and columns that the pivots gave,
// and each pivot row as it stood when it was divided by its pivot. Rows and columns keep their numbers while
// they are permuted; only their positions change. Everything here counts from 0.
#pragma once

#include <cstdint>
#include <numeric>
#include <utility>
#include <vector>

#include "analysis/EliminationLimits.h"

using Index = std::uint32_t;

/// Says that there is no such row or column.
inline constexpr Index NoIndex = ~Index{0};

/// The coefficients of one row, in no particular order, none of them 0.
struct SparseRow {
  std::vector<Index> Columns;
  std::vector<double> Values;
};

struct Echelon {
  Echelon(Index numRows, Index numColumns)
      : RowAt(numRows), ColumnAt(numColumns), PositionOfColumn(numColumns), RightHandSide(numRows) {
    std::iota(RowAt.begin(), RowAt.end(), Index{0});
    std::iota(ColumnAt.begin(), ColumnAt.end(), Index{0});
    std::iota(PositionOfColumn.begin(), PositionOfColumn.end(), Index{0});
  }

  /// Whether another pivot may be taken, when the largest magnitude left is `largest`.
  bool Accepts(double largest) const {
    return largest >= Limits.SmallestPivot && largest > 0 &&
           NumPivots() < static_cast<std::uint64_t>(Limits.MostPivots);
  }

  Index NumRows() const { return static_cast<Index>(RowAt.size()); }
  Index NumColumns() const { return static_cast<Index>(ColumnAt.size()); }
  Index NumPivots() const { return static_cast<Index>(PivotRows.size()); }

  void SwapRows(Index position, Index otherPosition) { std::swap(RowAt[position], RowAt[otherPosition]); }
  void SwapColumns(Index position, Index otherPosition) {
    std::swap(ColumnAt[position], ColumnAt[otherPosition]);
    PositionOfColumn[ColumnAt[position]] = position;
    PositionOfColumn[ColumnAt[otherPosition]] = otherPosition;
  }

  EliminationLimits Limits;
  std::vector<Index> RowAt;             ///< the row that stands at a position
  std::vector<Index> ColumnAt;          ///< the column that stands at a position
  std::vector<Index> PositionOfColumn;  ///< the inverse of ColumnAt
  std::vector<double> RightHandSide;    ///< by row, not by position
  std::vector<SparseRow> PivotRows;  ///< by position; pivot k, which is 1, stands at (k, k) and is left out
  std::vector<double> PivotValues;   ///< by position: what the pivot was before its row was divided by it
};
