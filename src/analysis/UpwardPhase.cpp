// Sixteen rows are reduced side by side, one in each lane, as they do not depend on each other. The columns
// of pivots that can change neither a right-hand side nor a column without a pivot are left out. Rows that
// share later pivots are neighbours, so that their lanes do the same work. Where the pivot rows are rather
// full, a few columns at a time receive many updates while they are in registers.
#include "analysis/UpwardPhase.h"

#include <algorithm>
#include <atomic>
#include <cmath>

#include "analysis/EliminationLimits.h"
#include "analysis/Parallel.h"
#include "analysis/UpwardPanels.h"
#include "analysis/UsefulRows.h"
#include "analysis/VectorUpdate.h"

namespace {

/// All positions of pivots, in such an order that rows which take the same pivot rows stand together: each
/// row follows the row of the first pivot that it takes.
std::vector<Index> NeighboursByPivot(const UsefulRows& rows, Index numPivots) {
  std::vector<Index> parent(numPivots, numPivots);
  std::vector<Index> numBelow(numPivots + 1, 1);
  for (Index position = 0; position < numPivots; ++position) {
    Index first = rows.NumPivotSlots;
    for (std::size_t entry = rows.RowBegin[position]; entry < rows.RowBegin[position + 1]; ++entry) {
      first = std::min(first, rows.Slots[entry]);
    }
    if (first < rows.NumPivotSlots) parent[position] = rows.PositionOfSlot[first];
    numBelow[parent[position]] += numBelow[position];
  }
  std::vector<Index> nextPlace(numPivots + 1);
  std::vector<Index> order(numPivots + 1);
  for (Index position = numPivots; position-- > 0;) {
    const Index place = nextPlace[parent[position]];
    nextPlace[parent[position]] += numBelow[position];
    nextPlace[position] = place + 1;
    order[place] = position;
  }
  order.pop_back();
  return order;
}

/// The array of lanes of one thread, in which it reduces one group of rows after the other.
class LaneReducer {
 public:
  LaneReducer(const UsefulRows& rows, const UpwardPanels& panels, std::vector<ReducedRow>& reduced)
      : rows_(rows),
        panels_(panels),
        reduced_(reduced),
        vector_(FastestVectorUpdate()),
        lanes_(panels.NumColumnsOfLanes() * RowsSideBySide) {}

  void Reduce(const Index* positions, std::size_t count) {
    Index first = rows_.NumPivotSlots;
    for (std::size_t lane = 0; lane < count; ++lane) {
      first = std::min(first, Fill(lane, positions[lane]));
    }
    for (Index slot = first; slot < rows_.FirstFullSlot; ++slot) {
      const double* factors = Lanes(slot);
      if (std::all_of(factors, factors + RowsSideBySide, [](double factor) { return factor == 0; })) continue;
      const std::size_t begin = rows_.RowBegin[rows_.PositionOfSlot[slot]];
      const std::size_t end = rows_.RowBegin[rows_.PositionOfSlot[slot] + 1];
      vector_.SubtractFromLanes(lanes_.data(), rows_.Slots.data() + begin, rows_.Values.data() + begin,
                                end - begin, factors);
    }
    if (rows_.FirstFullSlot < rows_.NumPivotSlots) {
      panels_.Subtract(vector_, lanes_.data(), std::max(first, rows_.FirstFullSlot));
    }
    for (std::size_t lane = 0; lane < count; ++lane) Take(lane, reduced_[positions[lane]]);
    std::fill(Lanes(first), lanes_.data() + lanes_.size(), 0.0);
  }

 private:
  double* Lanes(Index slot) { return lanes_.data() + slot * RowsSideBySide; }

  /// Returns the first slot that is not 0.
  Index Fill(std::size_t lane, Index position) {
    Index first = rows_.NumPivotSlots;
    for (std::size_t entry = rows_.RowBegin[position]; entry < rows_.RowBegin[position + 1]; ++entry) {
      Lanes(rows_.Slots[entry])[lane] = rows_.Values[entry];
      first = std::min(first, rows_.Slots[entry]);
    }
    return first;
  }

  void Take(std::size_t lane, ReducedRow& row) {
    for (Index slot = rows_.NumPivotSlots; slot < rows_.RightHandSideSlot(); ++slot) {
      const double value = Lanes(slot)[lane];
      if (std::abs(value) < PivotTolerance) continue;
      row.FreePositions.push_back(rows_.PositionOfSlot[slot]);
      row.Values.push_back(value);
    }
    row.RightHandSide = Lanes(rows_.RightHandSideSlot())[lane];
  }

  const UsefulRows& rows_;
  const UpwardPanels& panels_;
  std::vector<ReducedRow>& reduced_;
  const VectorUpdate& vector_;
  Numbers lanes_;  // 0 between two groups
};

}  // namespace

std::vector<ReducedRow> ReduceUpward(Echelon& echelon, const EliminationTuning& tuning) {
  const Index numPivots = echelon.NumPivots();
  std::vector<ReducedRow> reduced(numPivots);
  const UsefulRows rows(echelon);
  const unsigned numThreads = numPivots < tuning.FewestRowsForThreads ? 1 : tuning.MostThreads;
  const UpwardPanels panels(rows, numThreads);
  const std::vector<Index> order = NeighboursByPivot(rows, numPivots);
  std::atomic<std::size_t> next = 0;
  RunInParallel(numThreads, [&] {
    LaneReducer reducer(rows, panels, reduced);
    for (;;) {
      const std::size_t from = next.fetch_add(RowsSideBySide);
      if (from >= order.size()) return;
      reducer.Reduce(order.data() + from, std::min(RowsSideBySide, order.size() - from));
    }
  });
  return reduced;
}
