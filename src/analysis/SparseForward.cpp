// Each row keeps its largest magnitude, so that finding the pivot row is one pass over as many numbers as
// there are rows, and each column keeps a list of the rows that may have an entry in it, so that clearing it
// touches no other row. Swaps exchange positions only.
#include "analysis/SparseForward.h"

#include <algorithm>
#include <cmath>

#include "analysis/Elimination.h"
#include "analysis/VectorUpdate.h"

namespace {

class SparseBlock {
 public:
  SparseBlock(std::vector<SparseRow>& rows, Echelon& echelon)
      : rows_(rows), echelon_(echelon), vector_(FastestVectorUpdate()) {
    rowsOfColumn_.resize(echelon.NumColumns());
    placeInPivotRow_.assign(echelon.NumColumns(), NotThere);
    largestAt_.resize(RoundUpToBlock(echelon.NumRows()));
    for (Index row = 0; row < echelon.NumRows(); ++row) {
      largestAt_[row] = LargestMagnitude(rows[row]);
      numEntries_ += rows[row].Columns.size();
      for (const Index column : rows[row].Columns) rowsOfColumn_[column].push_back(row);
    }
    positionOfRow_ = echelon.RowAt;
  }

  bool FillExceeds(double share) const {
    const double numRows = echelon_.NumRows() - echelon_.NumPivots();
    const double numColumns = echelon_.NumColumns() - echelon_.NumPivots();
    return static_cast<double>(numEntries_) > share * numRows * numColumns;
  }

  /// Returns false when no pivot is left.
  bool TakePivot() {
    const Index step = echelon_.NumPivots();
    if (step == echelon_.NumRows()) return false;
    const std::size_t from = step / BlockLength * BlockLength;  // pivot rows have left a 0
    const double largest = vector_.Largest(largestAt_.data() + from, largestAt_.size() - from);
    if (!(largest >= PivotTolerance)) return false;

    const auto first = std::find(largestAt_.begin() + step, largestAt_.end(), largest);
    const auto position = static_cast<Index>(first - largestAt_.begin());
    const Index row = echelon_.RowAt[position];
    const Index column = FirstColumnWith(largest, rows_[row]);
    SwapRows(step, position);
    largestAt_[step] = 0;
    echelon_.SwapColumns(step, echelon_.PositionOfColumn[column]);

    SparseRow pivotRow = Normalise(row, column);
    ClearBelow(row, column, pivotRow);
    echelon_.PivotRows.push_back(std::move(pivotRow));
    return true;
  }

 private:
  static constexpr Index NotThere = ~Index{0};

  static double LargestMagnitude(const SparseRow& row) {
    double largest = 0;
    for (const double value : row.Values) largest = std::max(largest, std::abs(value));
    return largest;
  }

  /// Among equal magnitudes the smallest position wins, as in a search from left to right.
  Index FirstColumnWith(double magnitude, const SparseRow& row) const {
    Index first = NotThere;
    for (Index at = 0; at < row.Columns.size(); ++at) {
      if (std::abs(row.Values[at]) != magnitude) continue;
      const Index column = row.Columns[at];
      if (first == NotThere || echelon_.PositionOfColumn[column] < echelon_.PositionOfColumn[first]) {
        first = column;
      }
    }
    return first;
  }

  void SwapRows(Index position, Index otherPosition) {
    echelon_.SwapRows(position, otherPosition);
    std::swap(largestAt_[position], largestAt_[otherPosition]);
    positionOfRow_[echelon_.RowAt[position]] = position;
    positionOfRow_[echelon_.RowAt[otherPosition]] = otherPosition;
  }

  static double TakeEntry(SparseRow& row, Index column) {
    const auto found = std::find(row.Columns.begin(), row.Columns.end(), column);
    if (found == row.Columns.end()) return 0;
    const auto at = static_cast<Index>(found - row.Columns.begin());
    const double value = row.Values[at];
    row.Columns[at] = row.Columns.back();
    row.Values[at] = row.Values.back();
    row.Columns.pop_back();
    row.Values.pop_back();
    return value;
  }

  SparseRow Normalise(Index row, Index pivotColumn) {
    numEntries_ -= rows_[row].Columns.size();
    const double pivot = TakeEntry(rows_[row], pivotColumn);
    for (double& value : rows_[row].Values) value = value / pivot;
    echelon_.RightHandSide[row] = echelon_.RightHandSide[row] / pivot;
    return std::move(rows_[row]);
  }

  void ClearBelow(Index pivotRowNumber, Index pivotColumn, const SparseRow& pivotRow) {
    const std::vector<Index>& columns = pivotRow.Columns;
    for (Index at = 0; at < columns.size(); ++at) placeInPivotRow_[columns[at]] = at;
    met_.assign(columns.size(), NotThere);
    for (const Index row : rowsOfColumn_[pivotColumn]) {
      if (positionOfRow_[row] <= echelon_.NumPivots()) continue;  // the pivot row or one above it
      const double factor = TakeEntry(rows_[row], pivotColumn);
      if (factor == 0) continue;  // the entry has cancelled since it was listed
      --numEntries_;
      echelon_.RightHandSide[row] -= factor * echelon_.RightHandSide[pivotRowNumber];
      Subtract(factor, pivotRow, row);
    }
    rowsOfColumn_[pivotColumn] = {};
    for (const Index column : columns) placeInPivotRow_[column] = NotThere;
  }

  /// row -= factor * pivotRow; entries that cancel are dropped, new ones are listed in their columns.
  void Subtract(double factor, const SparseRow& pivotRow, Index rowNumber) {
    SparseRow& row = rows_[rowNumber];
    const std::size_t numEntriesBefore = row.Columns.size();
    double largest = 0;
    Index kept = 0;
    for (Index at = 0; at < numEntriesBefore; ++at) {
      double value = row.Values[at];
      const Index place = placeInPivotRow_[row.Columns[at]];
      if (place != NotThere) {
        met_[place] = rowNumber;
        value -= factor * pivotRow.Values[place];
        if (value == 0) continue;
      }
      row.Columns[kept] = row.Columns[at];
      row.Values[kept] = value;
      ++kept;
      largest = std::max(largest, std::abs(value));
    }
    row.Columns.resize(kept);
    row.Values.resize(kept);
    for (Index place = 0; place < pivotRow.Values.size(); ++place) {
      if (met_[place] == rowNumber) continue;
      const double value = 0 - factor * pivotRow.Values[place];
      if (value == 0) continue;
      const Index column = pivotRow.Columns[place];
      row.Columns.push_back(column);
      row.Values.push_back(value);
      rowsOfColumn_[column].push_back(rowNumber);
      largest = std::max(largest, std::abs(value));
    }
    numEntries_ += row.Columns.size();
    numEntries_ -= numEntriesBefore;
    largestAt_[positionOfRow_[rowNumber]] = largest;
  }

  std::vector<SparseRow>& rows_;
  Echelon& echelon_;
  const VectorUpdate& vector_;
  std::vector<std::vector<Index>> rowsOfColumn_;  // may list rows whose entry has cancelled, or a row twice
  std::vector<Index> positionOfRow_;
  Numbers largestAt_;           // by position; 0 above the pivot
  std::size_t numEntries_ = 0;  // below the pivots
  std::vector<Index> placeInPivotRow_;
  std::vector<Index> met_;  // by place in the pivot row: the last row that had an entry in that column
};

}  // namespace

bool EliminateSparse(std::vector<SparseRow>& rows, Echelon& echelon, double denseFill) {
  SparseBlock block(rows, echelon);
  while (!block.FillExceeds(denseFill)) {
    if (!block.TakePivot()) return true;
  }
  return false;
}
