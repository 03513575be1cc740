#include "analysis/UsefulRows.h"

#include <algorithm>
#include <utility>

UsefulRows::UsefulRows(Echelon& echelon) {
  const Index numPivots = echelon.NumPivots();
  const auto rightHandSide = [&](Index position) { return echelon.RightHandSide[echelon.RowAt[position]]; };

  std::vector<char> isUseful(echelon.NumColumns());
  std::size_t numEntries = 0;
  for (Index position = numPivots; position-- > 0;) {
    char changesSomething = rightHandSide(position) != 0 ? 1 : 0;
    for (const Index number : echelon.PivotRows[position].Columns) {
      const Index column = echelon.PositionOfColumn[number];
      isUseful[column] = static_cast<char>(isUseful[column] | (column >= numPivots));
      changesSomething = static_cast<char>(changesSomething | isUseful[column]);
    }
    isUseful[position] = changesSomething;
    numEntries += echelon.PivotRows[position].Columns.size() + 1;
  }

  std::vector<Index> slotOfColumn(echelon.NumColumns(), NoIndex);
  for (Index position = 0; position < echelon.NumColumns(); ++position) {
    if (!isUseful[position]) continue;
    slotOfColumn[echelon.ColumnAt[position]] = static_cast<Index>(PositionOfSlot.size());
    PositionOfSlot.push_back(position);
    if (position < numPivots) ++NumPivotSlots;
  }

  Slots.resize(numEntries);
  Values.resize(numEntries);
  std::size_t end = 0;
  RowBegin.push_back(0);
  for (Index position = 0; position < numPivots; ++position) {
    const SparseRow row = std::move(echelon.PivotRows[position]);
    echelon.PivotRows[position] = {};
    const auto append = [&](Index slot, double value) {
      Slots[end] = slot;
      Values[end] = value;
      end += slot != NoIndex ? 1 : 0;
    };
    for (Index at = 0; at < row.Values.size(); ++at) append(slotOfColumn[row.Columns[at]], row.Values[at]);
    if (rightHandSide(position) != 0) append(RightHandSideSlot(), rightHandSide(position));
    RowBegin.push_back(end);
  }

  Slots.resize(end);
  Values.resize(end);
  FindFullRows();
}

void UsefulRows::FindFullRows() {
  constexpr double fullShare = 0.1;
  constexpr Index rowsAtOnce = 32;
  for (FirstFullSlot = NumPivotSlots; FirstFullSlot > 0;) {
    const Index begin = FirstFullSlot - std::min(FirstFullSlot, rowsAtOnce);
    std::size_t numEntries = 0;
    for (Index slot = begin; slot < FirstFullSlot; ++slot) {
      const Index position = PositionOfSlot[slot];
      numEntries += RowBegin[position + 1] - RowBegin[position];
    }
    const double numCells = static_cast<double>(FirstFullSlot - begin) * (NumSlots() - begin);
    if (static_cast<double>(numEntries) < fullShare * numCells) return;
    FirstFullSlot = begin;
  }
}
