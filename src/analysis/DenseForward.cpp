// A pivot row changes every row below it, but most of these changes can wait: only the column of the pivot is
// needed at once. For each row an upper bound of its magnitudes is kept; the row is brought up to date when the
// bound is the largest of all, until the row with the largest bound is up to date and so has the pivot. After a
// window of pivots all rows are brought up to date together, while the pivot rows are in the cache.
#include "analysis/DenseForward.h"

#include <algorithm>
#include <atomic>
#include <cmath>

#include "analysis/Elimination.h"
#include "analysis/Parallel.h"
#include "analysis/VectorUpdate.h"

namespace {

/// Rows are numbered by their position below the sparse pivots, columns by their place in the arrays.
class DenseBlock {
 public:
  DenseBlock(std::vector<SparseRow>& rows, Echelon& echelon, const EliminationTuning& tuning)
      : echelon_(echelon),
        tuning_(tuning),
        vector_(FastestVectorUpdate()),
        firstPosition_(echelon.NumPivots()),
        numRows_(echelon.NumRows() - firstPosition_),
        columns_(echelon.ColumnAt.begin() + firstPosition_, echelon.ColumnAt.end()),
        stride_(RoundUpToVector(columns_.size())),
        cells_(stride_ * numRows_),
        rowCells_(numRows_),
        bounds_(RoundUpToVector(numRows_)),
        isUpToDate_(numRows_, true),
        window_(stride_ * tuning.Window),
        factors_(tuning.Window, Numbers(RoundUpToVector(numRows_))) {
    std::vector<Index> placeOfColumn(echelon.NumColumns());
    for (Index place = 0; place < columns_.size(); ++place) placeOfColumn[columns_[place]] = place;
    for (Index row = 0; row < numRows_; ++row) {
      rowCells_[row] = cells_.data() + stride_ * row;
      SparseRow& source = rows[echelon.RowAt[firstPosition_ + row]];
      for (Index at = 0; at < source.Columns.size(); ++at) {
        rowCells_[row][placeOfColumn[source.Columns[at]]] = source.Values[at];
        bounds_[row] = std::max(bounds_[row], std::abs(source.Values[at]));
      }
      source = {};
    }
    ShareColumns();
  }

  /// Returns false when no pivot is left.
  bool TakePivot() {
    if (numPending_ == tuning_.Window) CloseWindow();
    const Index row = FindPivotRow();
    if (row == None) return false;
    const Index place = FirstPlaceWith(bounds_[row], row);
    const Index step = NumTaken();
    SwapRows(step, row);
    echelon_.SwapColumns(firstPosition_ + step, echelon_.PositionOfColumn[columns_[place]]);
    Normalise(step, place);
    ClearColumn(step, place);
    return true;
  }

 private:
  static constexpr Index None = ~Index{0};

  Index NumTaken() const { return echelon_.NumPivots() - firstPosition_; }
  double* PendingRow(Index pending) { return window_.data() + stride_ * pending; }

  Index FindPivotRow() {
    const Index step = NumTaken();
    if (step == numRows_) return None;
    const std::size_t from = step / VectorLength * VectorLength;  // the bounds of the rows taken are 0
    for (;;) {
      const double largest = vector_.Largest(bounds_.data() + from, bounds_.size() - from);
      if (!(largest >= PivotTolerance)) return None;
      const auto found = std::find(bounds_.begin() + step, bounds_.begin() + numRows_, largest);
      const auto row = static_cast<Index>(found - bounds_.begin());
      if (isUpToDate_[row]) return row;
      BringUpToDate(row);
    }
  }

  void BringUpToDate(Index row) {
    updates_.clear();
    for (Index pending = 0; pending < numPending_; ++pending) {
      double& factor = factors_[pending][row];
      if (factor != 0) updates_.push_back({factor, PendingRow(pending)});
      factor = 0;
    }
    bounds_[row] = vector_.Subtract(rowCells_[row], stride_, updates_.data(), updates_.size());
    isUpToDate_[row] = true;
  }

  /// Among equal magnitudes the smallest position wins, as in a search from left to right.
  Index FirstPlaceWith(double magnitude, Index row) const {
    Index first = None;
    for (Index place = 0; place < columns_.size(); ++place) {
      if (std::abs(rowCells_[row][place]) != magnitude) continue;
      if (first == None || Position(place) < Position(first)) first = place;
    }
    return first;
  }
  Index Position(Index place) const { return echelon_.PositionOfColumn[columns_[place]]; }

  void SwapRows(Index row, Index otherRow) {
    echelon_.SwapRows(firstPosition_ + row, firstPosition_ + otherRow);
    std::swap(rowCells_[row], rowCells_[otherRow]);
    std::swap(bounds_[row], bounds_[otherRow]);
    std::swap(isUpToDate_[row], isUpToDate_[otherRow]);
    for (Index pending = 0; pending < numPending_; ++pending) {
      std::swap(factors_[pending][row], factors_[pending][otherRow]);
    }
  }

  /// Divides the row by its pivot and makes it the last of the window. The columns of pivots hold 0 there, so
  /// that pending updates leave them alone.
  void Normalise(Index row, Index pivotPlace) {
    double* pendingRow = PendingRow(numPending_);
    const double pivot = rowCells_[row][pivotPlace];
    for (Index place = 0; place < columns_.size(); ++place) pendingRow[place] = rowCells_[row][place] / pivot;
    std::fill(pendingRow + columns_.size(), pendingRow + stride_, 0.0);
    pendingRow[pivotPlace] = 0;
    echelon_.RightHandSide[echelon_.RowAt[firstPosition_ + row]] /= pivot;
    bounds_[row] = 0;
    pivotPlaces_.push_back(pivotPlace);
  }

  /// Brings the pivot's column up to date and takes the factors of the rows below from it; the rest of their
  /// updates is left pending.
  void ClearColumn(Index pivotRow, Index place) {
    const Index firstBelow = pivotRow + 1;
    Numbers& factors = factors_[numPending_];
    for (Index row = firstBelow; row < numRows_; ++row) {
      factors[row] = rowCells_[row][place];
      rowCells_[row][place] = 0;
    }
    const std::size_t from = firstBelow / VectorLength * VectorLength;
    updates_.clear();
    for (Index pending = 0; pending < numPending_; ++pending) {
      double& share = PendingRow(pending)[place];
      if (share != 0) updates_.push_back({share, factors_[pending].data() + from});
      share = 0;
    }
    vector_.Subtract(factors.data() + from, factors.size() - from, updates_.data(), updates_.size());

    double* pendingRow = PendingRow(numPending_);
    const double largest = vector_.Subtract(pendingRow, stride_, nullptr, 0);
    RaiseBounds(firstBelow, factors, largest);
    const double rightHandSide = echelon_.RightHandSide[echelon_.RowAt[firstPosition_ + pivotRow]];
    for (Index row = firstBelow; row < numRows_; ++row) {
      if (factors[row] == 0) continue;
      echelon_.RightHandSide[echelon_.RowAt[firstPosition_ + row]] -= factors[row] * rightHandSide;
    }
    echelon_.PivotRows.push_back({sharedColumns_, {pendingRow, pendingRow + columns_.size()}});
    ++numPending_;
  }

  void RaiseBounds(Index firstRow, const Numbers& factors, double largestInPivotRow) {
    constexpr double roundedUp = 1 + 1e-15;  // the roundings of this bound and of the numbers it bounds
    for (Index row = firstRow; row < numRows_; ++row) {
      if (factors[row] == 0) continue;
      bounds_[row] = (bounds_[row] + std::abs(factors[row]) * largestInPivotRow) * roundedUp;
      isUpToDate_[row] = false;
    }
  }

  /// Brings every row up to date and drops the columns of the pivots.
  void CloseWindow() {
    const Index firstRow = NumTaken();
    constexpr Index rowsAtOnce = 32;
    std::atomic<Index> next = firstRow;
    const Index numLeft = numRows_ - firstRow;
    RunInParallel(numLeft < tuning_.FewestRowsForThreads ? 1 : tuning_.MostThreads, [&] {
      for (;;) {
        const Index from = next.fetch_add(rowsAtOnce);
        if (from >= numRows_) return;
        BringUpToDate(from, std::min(from + rowsAtOnce, numRows_));
      }
    });
    DropPivotColumns(firstRow);
    for (Numbers& factors : factors_) std::fill(factors.begin(), factors.end(), 0.0);
    numPending_ = 0;
  }

  /// Takes the columns in stretches for which the window's pivot rows fit into the first cache.
  void BringUpToDate(Index firstRow, Index endRow) {
    constexpr std::size_t stretch = 128;
    std::vector<ScaledVector> updates;
    std::fill(bounds_.begin() + firstRow, bounds_.begin() + endRow, 0.0);
    for (std::size_t place = 0; place < stride_; place += stretch) {
      const std::size_t length = std::min(stretch, stride_ - place);
      for (Index row = firstRow; row < endRow; ++row) {
        updates.clear();
        for (Index pending = 0; pending < numPending_; ++pending) {
          const double factor = factors_[pending][row];
          if (factor != 0) updates.push_back({factor, PendingRow(pending) + place});
        }
        const double largest =
            vector_.Subtract(rowCells_[row] + place, length, updates.data(), updates.size());
        bounds_[row] = std::max(bounds_[row], largest);
        isUpToDate_[row] = true;
      }
    }
  }

  void DropPivotColumns(Index firstRow) {
    std::sort(pivotPlaces_.begin(), pivotPlaces_.end(), std::greater<>());
    const auto numColumns = static_cast<Index>(columns_.size());
    for (Index row = firstRow; row < numRows_; ++row) {
      double* cells = rowCells_[row];
      Index last = numColumns;
      for (const Index place : pivotPlaces_) {
        cells[place] = cells[--last];
        cells[last] = 0;
      }
    }
    for (const Index place : pivotPlaces_) {
      columns_[place] = columns_.back();
      columns_.pop_back();
    }
    pivotPlaces_.clear();
    ShareColumns();
  }

  void ShareColumns() { sharedColumns_ = std::make_shared<const std::vector<Index>>(columns_); }

  Echelon& echelon_;
  const EliminationTuning& tuning_;
  const VectorUpdate& vector_;
  Index firstPosition_;
  Index numRows_;
  std::vector<Index> columns_;  // by place
  std::shared_ptr<const std::vector<Index>> sharedColumns_;
  std::size_t stride_;
  Numbers cells_;
  std::vector<double*> rowCells_;
  Numbers bounds_;  // by row: no magnitude of the row is above it; exact when the row is up to date
  std::vector<char> isUpToDate_;
  Index numPending_ = 0;
  Numbers window_;                // the pivot rows that are pending
  std::vector<Numbers> factors_;  // by pending pivot and row; 0 where it has been subtracted
  std::vector<Index> pivotPlaces_;
  std::vector<ScaledVector> updates_;
};

}  // namespace

void EliminateDense(std::vector<SparseRow>& rows, Echelon& echelon, const EliminationTuning& tuning) {
  DenseBlock block(rows, echelon, tuning);
  while (block.TakePivot()) {
  }
}
