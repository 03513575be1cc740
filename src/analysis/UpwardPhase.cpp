// Sixteen rows are reduced side by side, one in each lane, as they do not depend on each other. The columns
// of pivots that can change neither a right-hand side nor a column without a pivot are left out. Rows that
// share later pivots are neighbours, so that their lanes do the same work. Where the pivot rows are rather
// full, a few columns at a time receive all their updates while they are in registers.
#include "analysis/UpwardPhase.h"

#include <algorithm>
#include <atomic>
#include <bit>
#include <cmath>
#include <cstdint>
#include <utility>

#include "analysis/EliminationLimits.h"
#include "analysis/Parallel.h"
#include "analysis/VectorUpdate.h"

namespace {

/// The pivot rows over the columns that matter: these pivots, then the columns without a pivot, then the
/// right-hand side. A column's number here is its slot.
struct UsefulRows {
  explicit UsefulRows(Echelon& echelon);  ///< releases the pivot rows one by one

  void FindFullRows();
  Index NumSlots() const { return static_cast<Index>(PositionOfSlot.size()) + 1; }
  Index RightHandSideSlot() const { return NumSlots() - 1; }

  std::vector<Index> PositionOfSlot;
  Index NumPivotSlots = 0;
  Index FirstFullSlot = 0;            ///< from this pivot on the rows are rather full
  std::vector<std::size_t> RowBegin;  ///< by position: where the row's entries begin; one more at the end
  std::vector<Index> Slots;
  std::vector<double> Values;
};

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

/// What one thread needs while it subtracts panels.
struct PanelWork {
  std::vector<unsigned char> HasFactor;  ///< by full slot: 1 when some lane is not 0 in it
  std::vector<PanelRow> Rows;
};

/// The full pivot rows, cut into panels of a few columns. A panel leaves out the rows that are 0 in it, but
/// for the rows of its own pivots, which stand at its end.
class Panels {
 public:
  explicit Panels(const UsefulRows& rows) : first_(rows.FirstFullSlot) {
    if (first_ == rows.NumPivotSlots) return;
    panels_.resize((rows.NumSlots() - first_ + PanelWidth - 1) / PanelWidth);
    for (Index pivot = first_; pivot < rows.NumPivotSlots; ++pivot) {
      const Index position = rows.PositionOfSlot[pivot];
      for (std::size_t entry = rows.RowBegin[position]; entry < rows.RowBegin[position + 1]; ++entry) {
        const std::size_t place = rows.Slots[entry] - first_;
        double* row = RowInPanel(pivot, place / PanelWidth);
        row[place % PanelWidth] = rows.Values[entry];
      }
    }
    for (Panel& panel : panels_) AddOwnRows(panel);
  }

  /// Pivot rows whose factors are 0 in all lanes are left out; `work` is the caller's own.
  void Subtract(const VectorUpdate& vector, double* lanes, Index firstFactor, PanelWork& work) const {
    work.HasFactor.assign(panels_.size() * PanelWidth, 0);
    for (std::size_t at = (firstFactor - first_) / PanelWidth; at < panels_.size(); ++at) {
      const Panel& panel = panels_[at];
      work.Rows.resize(panel.Pivots.size() + 1);
      const auto from = std::lower_bound(panel.Pivots.begin(), panel.Pivots.end(), firstFactor);
      std::size_t count = 0;
      for (auto row = static_cast<Index>(from - panel.Pivots.begin()); row < panel.Pivots.size(); ++row) {
        work.Rows[count] = {panel.Pivots[row], row};
        count += work.HasFactor[panel.Pivots[row] - first_];
      }
      const double* ownRows = panel.Cells.data() + panel.Pivots.size() * PanelWidth;
      vector.SubtractPanel(lanes, StartOf(at), panel.Cells.data(), work.Rows.data(), count, ownRows);
      for (std::size_t column = 0; column < PanelWidth; ++column) {
        work.HasFactor[at * PanelWidth + column] = IsNotZero(lanes + (StartOf(at) + column) * RowsSideBySide);
      }
    }
  }

 private:
  /// Looks at the bits, as this needs no branch; the sign is shifted out.
  static bool IsNotZero(const double* lanes) {
    std::uint64_t bits = 0;
    for (std::size_t lane = 0; lane < RowsSideBySide; ++lane) {
      bits |= std::bit_cast<std::uint64_t>(lanes[lane]);
    }
    return bits << 1 != 0;
  }

  struct Panel {
    std::vector<Index> Pivots;  ///< those before its own that are not 0 in it, ascending
    std::vector<double> Cells;
  };

  std::size_t StartOf(std::size_t panel) const { return first_ + panel * PanelWidth; }

  static void AddOwnRows(Panel& panel) {
    panel.Cells.resize((panel.Pivots.size() + PanelWidth) * PanelWidth);
  }

  /// Adds the row where it is missing; pivots come in ascending order.
  double* RowInPanel(Index pivot, std::size_t panelNumber) {
    Panel& panel = panels_[panelNumber];
    if (pivot >= StartOf(panelNumber)) {
      AddOwnRows(panel);
      return panel.Cells.data() + (panel.Pivots.size() + pivot - StartOf(panelNumber)) * PanelWidth;
    }
    if (panel.Pivots.empty() || panel.Pivots.back() != pivot) {
      panel.Pivots.push_back(pivot);
      panel.Cells.resize(panel.Pivots.size() * PanelWidth);
    }
    return panel.Cells.data() + (panel.Pivots.size() - 1) * PanelWidth;
  }

  Index first_;
  std::vector<Panel> panels_;
};

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
  LaneReducer(const UsefulRows& rows, const Panels& panels, std::vector<ReducedRow>& reduced)
      : rows_(rows),
        panels_(panels),
        reduced_(reduced),
        vector_(FastestVectorUpdate()),
        lanes_((rows.NumSlots() + PanelWidth) * RowsSideBySide) {}

  void Reduce(const Index* positions, std::size_t count) {
    std::fill(lanes_.begin(), lanes_.end(), 0.0);
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
      panels_.Subtract(vector_, lanes_.data(), std::max(first, rows_.FirstFullSlot), panelWork_);
    }
    for (std::size_t lane = 0; lane < count; ++lane) Take(lane, reduced_[positions[lane]]);
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
  const Panels& panels_;
  std::vector<ReducedRow>& reduced_;
  const VectorUpdate& vector_;
  Numbers lanes_;
  PanelWork panelWork_;
};

}  // namespace

std::vector<ReducedRow> ReduceUpward(Echelon& echelon, const EliminationTuning& tuning) {
  const Index numPivots = echelon.NumPivots();
  std::vector<ReducedRow> reduced(numPivots);
  const UsefulRows rows(echelon);
  const Panels panels(rows);
  const std::vector<Index> order = NeighboursByPivot(rows, numPivots);
  std::atomic<std::size_t> next = 0;
  RunInParallel(numPivots < tuning.FewestRowsForThreads ? 1 : tuning.MostThreads, [&] {
    LaneReducer reducer(rows, panels, reduced);
    for (;;) {
      const std::size_t from = next.fetch_add(RowsSideBySide);
      if (from >= order.size()) return;
      reducer.Reduce(order.data() + from, std::min(RowsSideBySide, order.size() - from));
    }
  });
  return reduced;
}
