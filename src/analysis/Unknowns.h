// The unknown forces of a truss and the matrix column of each.
#pragma once

#include <cstdint>
#include <vector>

#include "analysis/EquationSystem.h"
#include "document/Truss.h"

/// Builds UnknownList and the two counts from the live supports (two components for a clamp, one for a
/// roller) and the live members.
void CountUnknowns(const Truss& truss, EquationSystem& system);

/// Sorts entries first .. last of the list by name, by character code; equal names keep their order.
void SortUnknowns(Table<Unknown>& unknownList, int first, int last);

/// The columns of all unknowns, found by their labels.
class ColumnMap {
 public:
  explicit ColumnMap(const Table<Unknown>& unknownList);

  /// The column 1 .. N of the unknown that carries this label; 0 if there is none.
  std::int16_t Column(LabelIndex label) const;

 private:
  std::vector<std::int16_t> columnOf_;  // by label index
};
