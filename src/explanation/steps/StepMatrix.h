// The matrix between two steps of the elimination: its numbers, and the places at which its rows and columns
// stand. Whatever is exchanged, a row keeps the number of its equation and a column that of its unknown.
#pragma once

#include <cmath>
#include <cstddef>
#include <span>
#include <vector>

#include "document/Table.h"
#include "explanation/steps/EliminationSteps.h"

/// Whether a number is so small that it is taken for what rounding has left of 0. 0 is none.
inline bool IsRemnant(double value) { return value != 0 && std::abs(value) < PivotTolerance; }

class StepMatrix {
 public:
  /// The augmented matrix, every row and column at its own place.
  explicit StepMatrix(const SparseMatrix<double>& equations);

  int NumRows() const { return rowAt_.Size(); }
  int NumUnknowns() const { return columnAt_.Size(); }

  /// The row (the column) that stands at a place, 1 the first.
  int RowAt(int place) const { return rowAt_[place]; }
  int ColumnAt(int place) const { return columnAt_[place]; }

  /// Column NumUnknowns() + 1 is the right-hand side.
  double operator()(int row, int column) const { return cells_[Cell(row, column)]; }

  /// The numbers of a row by ascending columns, the right-hand side last.
  std::span<const double> Row(int row) const {
    return std::span(cells_).subspan(Cell(row, 1), static_cast<std::size_t>(NumUnknowns()) + 1);
  }

  void CarryOut(const EliminationStep& step);

  /// Same numbers (-0 is 0) at the same places.
  friend bool operator==(const StepMatrix&, const StepMatrix&) = default;

 private:
  std::size_t Cell(int row, int column) const {
    return static_cast<std::size_t>(row - 1) * (static_cast<std::size_t>(columnAt_.Size()) + 1) +
           static_cast<std::size_t>(column - 1);
  }
  std::span<double> CellsOf(int row) {
    return std::span(cells_).subspan(Cell(row, 1), static_cast<std::size_t>(NumUnknowns()) + 1);
  }
  void Divide(int row, int column, double pivot);
  void Clear(int row, int pivotRow, int column, double factor);
  void Clean();
  void RestoreColumns();
  void RestoreRows();

  Table<int> rowAt_, columnAt_;
  Table<int> columnWas_;  // at each place before the columns were restored; empty until then
  std::vector<double> cells_;
};
