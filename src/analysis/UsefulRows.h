// The pivot rows as the upward phase needs them: without the columns that can change neither a right-hand
// side nor a column without a pivot.
#pragma once

#include <cstddef>
#include <vector>

#include "analysis/Echelon.h"

/// The pivot rows over the columns that matter: these pivots, then the columns without a pivot, then the
/// right-hand side. A column's number here is its slot.
struct UsefulRows {
  explicit UsefulRows(Echelon& echelon);  ///< releases the pivot rows one by one

  Index NumSlots() const { return static_cast<Index>(PositionOfSlot.size()) + 1; }
  Index RightHandSideSlot() const { return NumSlots() - 1; }

  std::vector<Index> PositionOfSlot;
  Index NumPivotSlots = 0;
  Index FirstFullSlot = 0;            ///< from this pivot on the rows are rather full
  std::vector<std::size_t> RowBegin;  ///< by position: where the row's entries begin; one more at the end
  std::vector<Index> Slots;
  std::vector<double> Values;

 private:
  void FindFullRows();
};
