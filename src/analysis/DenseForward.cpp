// A pivot row changes every row below it, but most of these changes can wait: only the column of the pivot is
// needed at once. For each row an upper bound of its magnitudes is kept; the row is brought up to date when
// the bound is the largest of all, until the row with the largest bound is up to date and so has the pivot.
// After a window of pivots all rows are brought up to date together, while the pivot rows are in the cache.
#include "analysis/DenseForward.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <cmath>
#include <functional>
#include <numeric>
#include <utility>

#include "analysis/EliminationLimits.h"
#include "analysis/Parallel.h"
#include "analysis/VectorUpdate.h"

namespace {

/// Rows stand an odd number of cache lines apart. Otherwise the entries of one column would compete for a
/// small part of the cache.
constexpr std::size_t NumbersBetweenRows = 8;

/// Rows are numbered by their position below the pivots of the sparse phase, columns by their place in the
/// arrays.
class DenseBlock {
 public:
  DenseBlock(std::vector<SparseRow>& rows, Echelon& echelon, const EliminationTuning& tuning);

  /// Returns false when no pivot is left.
  bool TakePivot();
  void HandOverRightHandSides() {
    for (Index row = 0; row < numRows_; ++row) RightHandSideInEchelon(row) = rightHandSides_[row];
  }

 private:
  Index NumTaken() const { return echelon_.NumPivots() - firstPosition_; }
  double& RightHandSideInEchelon(Index row) {
    return echelon_.RightHandSide[echelon_.RowAt[firstPosition_ + row]];
  }
  double* PendingRow(Index pending) { return window_.data() + stride_ * pending; }
  PendingRows Pending() const { return {window_.data(), stride_, pendingInBlock_.data()}; }

  Index FindPivotRow();
  Index FirstPlaceWith(double magnitude, Index row) const;
  void SwapRows(Index row, Index otherRow);
  void Normalise(Index row, Index pivotPlace);
  void ClearColumn(Index pivotRow, Index place);
  void RaiseBounds(Index firstRow, const Numbers& factors);

  void BringUpToDate(Index row);
  void BringUpToDate(const Index* rows, std::size_t count);
  void CloseWindow();
  void ClearPivotPlaces(double* cells) const;
  void DropPivotPlaces(double* cells) const;

  Echelon& echelon_;
  const EliminationTuning& tuning_;
  const VectorUpdate& vector_;
  Index firstPosition_;
  Index numRows_;
  Index mostPending_;
  std::vector<Index> columns_;  // by place
  std::size_t stride_;
  Numbers cells_;
  std::vector<double*> rowCells_;
  Numbers rightHandSides_;
  Numbers bounds_;                        // no magnitude of the row is above; exact without pending updates
  std::vector<std::uint64_t> pendingOf_;  // by row: a bit for each pivot row of the window still to subtract
  Index numPending_ = 0;
  Numbers window_;  // the pivot rows that are pending, with 0 in the columns of pivots
  std::vector<std::uint64_t> pendingInBlock_;
  std::vector<Numbers> factors_;    // by pending pivot and row; 0 where it has been subtracted
  std::vector<Index> pivotPlaces_;  // of the window; rows with pending updates may still have entries there
  std::vector<Index> keptColumns_;  // these two only while a row is divided by its pivot
  std::vector<double> keptValues_;
  std::vector<ScaledVector> updates_;
};

DenseBlock::DenseBlock(std::vector<SparseRow>& rows, Echelon& echelon, const EliminationTuning& tuning)
    : echelon_(echelon),
      tuning_(tuning),
      vector_(FastestVectorUpdate()),
      firstPosition_(echelon.NumPivots()),
      numRows_(echelon.NumRows() - firstPosition_),
      mostPending_(std::clamp<Index>(tuning.Window, 1, MostPending)),
      columns_(echelon.ColumnAt.begin() + firstPosition_, echelon.ColumnAt.end()),
      stride_(RoundUpToBlock(columns_.size())),
      cells_((stride_ + NumbersBetweenRows) * numRows_),
      rowCells_(numRows_),
      rightHandSides_(RoundUpToBlock(numRows_)),
      bounds_(RoundUpToBlock(numRows_)),
      pendingOf_(numRows_),
      window_(stride_ * mostPending_),
      pendingInBlock_(stride_ / BlockLength),
      factors_(mostPending_, Numbers(RoundUpToBlock(numRows_))) {
  std::vector<Index> placeOfColumn(echelon.NumColumns());
  for (Index place = 0; place < columns_.size(); ++place) placeOfColumn[columns_[place]] = place;
  for (Index row = 0; row < numRows_; ++row) {
    rowCells_[row] = cells_.data() + (stride_ + NumbersBetweenRows) * row;
    rightHandSides_[row] = RightHandSideInEchelon(row);
    SparseRow& source = rows[echelon.RowAt[firstPosition_ + row]];
    for (Index at = 0; at < source.Columns.size(); ++at) {
      rowCells_[row][placeOfColumn[source.Columns[at]]] = source.Values[at];
      bounds_[row] = std::max(bounds_[row], std::abs(source.Values[at]));
    }
    source = {};
  }
}

bool DenseBlock::TakePivot() {
  if (numPending_ == mostPending_) CloseWindow();
  const Index row = FindPivotRow();
  if (row == NoIndex) return false;
  const Index place = FirstPlaceWith(bounds_[row], row);
  const Index step = NumTaken();
  SwapRows(step, row);
  echelon_.SwapColumns(firstPosition_ + step, echelon_.PositionOfColumn[columns_[place]]);
  Normalise(step, place);
  ClearColumn(step, place);
  return true;
}

Index DenseBlock::FindPivotRow() {
  const Index step = NumTaken();
  const std::size_t from = step / BlockLength * BlockLength;  // the bounds of the rows taken are 0
  while (step < numRows_) {
    const double largest = vector_.Largest(bounds_.data() + from, bounds_.size() - from);
    if (!echelon_.Accepts(largest)) return NoIndex;
    const auto found = std::find(bounds_.begin() + step, bounds_.begin() + numRows_, largest);
    const auto row = static_cast<Index>(found - bounds_.begin());
    if (pendingOf_[row] == 0) return row;
    BringUpToDate(row);
  }
  return NoIndex;
}

/// Among equal magnitudes the smallest position wins, as in a search from left to right.
Index DenseBlock::FirstPlaceWith(double magnitude, Index row) const {
  const auto position = [this](Index place) { return echelon_.PositionOfColumn[columns_[place]]; };
  Index first = NoIndex;
  for (Index place = 0; place < columns_.size(); ++place) {
    const bool ties = std::abs(rowCells_[row][place]) == magnitude;
    if (ties && (first == NoIndex || position(place) < position(first))) first = place;
  }
  return first;
}

void DenseBlock::SwapRows(Index row, Index otherRow) {
  echelon_.SwapRows(firstPosition_ + row, firstPosition_ + otherRow);
  std::swap(rowCells_[row], rowCells_[otherRow]);
  std::swap(rightHandSides_[row], rightHandSides_[otherRow]);
  std::swap(bounds_[row], bounds_[otherRow]);
  std::swap(pendingOf_[row], pendingOf_[otherRow]);
  for (Index pending = 0; pending < numPending_; ++pending) {
    std::swap(factors_[pending][row], factors_[pending][otherRow]);
  }
}

/// Divides the row by its pivot and makes it the last of the window.
void DenseBlock::Normalise(Index row, Index pivotPlace) {
  double* pendingRow = PendingRow(numPending_);
  double* cells = rowCells_[row];
  const double pivot = std::exchange(cells[pivotPlace], 0.0);
  echelon_.PivotValues.push_back(pivot);
  keptColumns_.resize(columns_.size());
  keptValues_.resize(columns_.size());
  std::size_t numKept = 0;
  for (std::size_t begin = 0; begin < columns_.size(); begin += BlockLength) {
    const std::size_t numKeptBefore = numKept;
    for (std::size_t place = begin; place < std::min(begin + BlockLength, columns_.size()); ++place) {
      const double value = cells[place] / pivot;
      pendingRow[place] = value;
      keptColumns_[numKept] = columns_[place];
      keptValues_[numKept] = value;
      numKept += value != 0 ? 1 : 0;
    }
    const bool isInBlock = numKept != numKeptBefore;
    pendingInBlock_[begin / BlockLength] |= static_cast<std::uint64_t>(isInBlock) << numPending_;
  }
  std::fill(pendingRow + columns_.size(), pendingRow + stride_, 0.0);
  keptColumns_.resize(numKept);
  keptValues_.resize(numKept);
  echelon_.PivotRows.push_back({keptColumns_, keptValues_});  // copies, as long as they need to be
  rightHandSides_[row] /= pivot;
  bounds_[row] = 0;
  pivotPlaces_.push_back(pivotPlace);
}

/// Brings the pivot's column up to date and takes the factors of the rows below from it; the rest of their
/// updates is left pending. So is the 0 in the column itself, as writing it would cost as much as reading.
void DenseBlock::ClearColumn(Index pivotRow, Index place) {
  const Index firstBelow = pivotRow + 1;
  Numbers& factors = factors_[numPending_];
  for (Index row = firstBelow; row < numRows_; ++row) factors[row] = rowCells_[row][place];
  const std::size_t from = firstBelow / BlockLength * BlockLength;
  updates_.clear();
  for (Index pending = 0; pending < numPending_; ++pending) {
    double& share = PendingRow(pending)[place];
    if (share != 0) updates_.push_back({share, factors_[pending].data() + from});
    share = 0;
  }
  vector_.Subtract(factors.data() + from, factors.size() - from, updates_.data(), updates_.size());
  std::fill(factors.begin() + static_cast<std::ptrdiff_t>(from), factors.begin() + firstBelow, 0.0);

  RaiseBounds(firstBelow, factors);
  const ScaledVector change{rightHandSides_[pivotRow], factors.data() + from};
  vector_.Subtract(rightHandSides_.data() + from, factors.size() - from, &change, 1);
  ++numPending_;
}

void DenseBlock::RaiseBounds(Index firstRow, const Numbers& factors) {
  double largest = 0;
  for (const double value : echelon_.PivotRows.back().Values) largest = std::max(largest, std::abs(value));
  constexpr double roundedUp = 1 + 1e-15;  // covers the roundings of the bound and of the numbers it bounds
  for (Index row = firstRow; row < numRows_; ++row) {
    const double raised = (bounds_[row] + std::abs(factors[row]) * largest) * roundedUp;
    bounds_[row] = factors[row] != 0 ? raised : bounds_[row];
  }
  for (Index row = firstRow; row < numRows_; ++row) {
    pendingOf_[row] |= static_cast<std::uint64_t>(factors[row] != 0) << numPending_;
  }
}

void DenseBlock::ClearPivotPlaces(double* cells) const {
  for (const Index place : pivotPlaces_) cells[place] = 0;
}

void DenseBlock::BringUpToDate(Index row) {
  ClearPivotPlaces(rowCells_[row]);
  std::array<double, MostPending> factors;
  for (std::uint64_t left = pendingOf_[row]; left != 0; left &= left - 1) {
    const auto pending = static_cast<std::size_t>(std::countr_zero(left));
    factors[pending] = factors_[pending][row];
    factors_[pending][row] = 0;
  }
  bounds_[row] = vector_.SubtractPending(rowCells_[row], Pending(), pendingOf_[row], factors.data());
  pendingOf_[row] = 0;
}

/// Brings up to RowsTogether rows up to date, side by side when they are that many.
void DenseBlock::BringUpToDate(const Index* rows, std::size_t count) {
  if (count < RowsTogether) {
    for (std::size_t at = 0; at < count; ++at) BringUpToDate(rows[at]);
    return;
  }
  std::array<double, MostPending * RowsTogether> factors;
  std::array<double*, RowsTogether> cells;
  std::array<double, RowsTogether> largest;
  std::uint64_t mask = 0;
  for (std::size_t at = 0; at < RowsTogether; ++at) {
    mask |= pendingOf_[rows[at]];
    cells[at] = rowCells_[rows[at]];
    ClearPivotPlaces(cells[at]);
  }
  for (Index pending = 0; pending < numPending_; ++pending) {
    for (std::size_t at = 0; at < RowsTogether; ++at) {
      factors[pending * RowsTogether + at] = factors_[pending][rows[at]];
    }
  }
  vector_.SubtractPendingTogether(cells.data(), Pending(), mask, factors.data(), largest.data());
  for (std::size_t at = 0; at < RowsTogether; ++at) {
    bounds_[rows[at]] = largest[at];
    pendingOf_[rows[at]] = 0;
  }
}

/// Brings every row up to date and drops the columns of the pivots, while the row is in the cache.
void DenseBlock::CloseWindow() {
  std::sort(pivotPlaces_.begin(), pivotPlaces_.end(), std::greater<>());
  std::vector<Index> rows(numRows_ - NumTaken());
  std::iota(rows.begin(), rows.end(), NumTaken());
  // Rows that take about the same pivot rows are neighbours then.
  std::sort(rows.begin(), rows.end(), [this](Index left, Index right) {
    const int numLeft = std::popcount(pendingOf_[left]);
    const int numRight = std::popcount(pendingOf_[right]);
    return numLeft != numRight ? numLeft > numRight : pendingOf_[left] > pendingOf_[right];
  });
  std::atomic<std::size_t> next = 0;
  RunInParallel(rows.size() < tuning_.FewestRowsForThreads ? 1 : tuning_.MostThreads, [&] {
    for (std::size_t from = 0; (from = next.fetch_add(RowsTogether)) < rows.size();) {
      const std::size_t count = std::min(RowsTogether, rows.size() - from);
      if (pendingOf_[rows[from]] != 0) BringUpToDate(rows.data() + from, count);
      for (std::size_t at = from; at < from + count; ++at) DropPivotPlaces(rowCells_[rows[at]]);
    }
  });
  for (const Index place : pivotPlaces_) {
    columns_[place] = columns_.back();
    columns_.pop_back();
  }
  std::fill(pendingInBlock_.begin(), pendingInBlock_.end(), std::uint64_t{0});
  pivotPlaces_.clear();
  for (Numbers& factors : factors_) std::fill(factors.begin(), factors.end(), 0.0);
  numPending_ = 0;
}

/// The places of the pivots' columns, in descending order, are filled from the end of the row.
void DenseBlock::DropPivotPlaces(double* cells) const {
  std::size_t last = columns_.size();
  for (const Index place : pivotPlaces_) {
    cells[place] = cells[--last];
    cells[last] = 0;
  }
}

}  // namespace

void EliminateDense(std::vector<SparseRow>& rows, Echelon& echelon, const EliminationTuning& tuning) {
  DenseBlock block(rows, echelon, tuning);
  while (block.TakePivot()) {
  }
  block.HandOverRightHandSides();
}
