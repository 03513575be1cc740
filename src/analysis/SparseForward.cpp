// Each row keeps its largest magnitude, so that finding the pivot row is one pass over as many numbers as
// there are rows, and each column keeps a list of the rows that may have an entry in it, so that clearing it
// touches no other row. The first row that takes a multiple of a pivot row takes over its places in these
// lists as its heir, since it has got all of its columns; only for further rows are new entries listed. Swaps
// exchange positions only.
#include "analysis/SparseForward.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "analysis/VectorUpdate.h"

namespace {

class SparseBlock {
 public:
  SparseBlock(std::vector<SparseRow>& rows, Echelon& echelon)
      : rows_(rows), echelon_(echelon), vector_(FastestVectorUpdate()) {
    rowsOfColumn_.resize(echelon.NumColumns());
    pivotValues_.resize(echelon.NumColumns());
    metBy_.resize(echelon.NumColumns());
    largestAt_.resize(RoundUpToBlock(echelon.NumRows()));
    for (Index row = 0; row < echelon.NumRows(); ++row) {
      largestAt_[row] = LargestMagnitude(rows[row]);
      numEntries_ += rows[row].Columns.size();
      for (const Index column : rows[row].Columns) rowsOfColumn_[column].push_back(row);
    }
    positionOfRow_ = echelon.RowAt;
    heirOf_ = echelon.RowAt;
    searchedFor_.assign(echelon.NumRows(), NotThere);
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
    if (!echelon_.Accepts(largest)) return false;

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

  /// Four magnitudes at a time, so that no comparison waits for the one before.
  static double LargestMagnitude(const SparseRow& row) {
    std::array<double, 4> largest{};
    const std::size_t numValues = row.Values.size();
    for (std::size_t at = 0; at < numValues; at += 4) {
      for (std::size_t lane = 0; lane < std::min<std::size_t>(4, numValues - at); ++lane) {
        const double magnitude = std::abs(row.Values[at + lane]);
        largest[lane] = magnitude > largest[lane] ? magnitude : largest[lane];
      }
    }
    return std::max(std::max(largest[0], largest[1]), std::max(largest[2], largest[3]));
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
    echelon_.PivotValues.push_back(pivot);
    for (double& value : rows_[row].Values) value = value / pivot;
    echelon_.RightHandSide[row] = echelon_.RightHandSide[row] / pivot;
    return std::move(rows_[row]);
  }

  /// The row that now stands for `row` in the lists: the row itself while it is below the pivots.
  Index LastHeir(Index row) {
    while (heirOf_[row] != row) {
      heirOf_[row] = heirOf_[heirOf_[row]];  // the next search is shorter
      row = heirOf_[row];
    }
    return row;
  }

  void ClearBelow(Index pivotRowNumber, Index pivotColumn, const SparseRow& pivotRow) {
    const std::vector<Index>& columns = pivotRow.Columns;
    for (Index at = 0; at < columns.size(); ++at) pivotValues_[columns[at]] = pivotRow.Values[at];
    for (const Index listed : rowsOfColumn_[pivotColumn]) {
      const Index row = LastHeir(listed);
      if (positionOfRow_[row] <= echelon_.NumPivots()) continue;  // the pivot row or one above it
      if (searchedFor_[row] == pivotColumn) continue;             // listed twice
      searchedFor_[row] = pivotColumn;
      const double factor = TakeEntry(rows_[row], pivotColumn);
      if (factor == 0) continue;  // the entry has cancelled since it was listed
      --numEntries_;
      echelon_.RightHandSide[row] -= factor * echelon_.RightHandSide[pivotRowNumber];
      const bool inherits = heirOf_[pivotRowNumber] == pivotRowNumber;
      if (inherits) heirOf_[pivotRowNumber] = row;
      Subtract(factor, pivotRow, row, !inherits);
    }
    rowsOfColumn_[pivotColumn] = {};
    for (const Index column : columns) pivotValues_[column] = 0;
  }

  /// row -= factor * pivotRow; entries that cancel are dropped, new ones are listed in their columns.
  void Subtract(double factor, const SparseRow& pivotRow, Index rowNumber, bool listsNewEntries) {
    SparseRow& row = rows_[rowNumber];
    const std::size_t numEntriesBefore = row.Columns.size();
    row.Columns.resize(numEntriesBefore + pivotRow.Columns.size());
    row.Values.resize(row.Columns.size());
    Index* columns = row.Columns.data();
    double* values = row.Values.data();
    std::size_t kept = 0;
    ++numSubtractions_;
    for (std::size_t at = 0; at < numEntriesBefore; ++at) {
      const Index column = columns[at];
      const double value = values[at] - factor * pivotValues_[column];
      metBy_[column] = numSubtractions_;
      columns[kept] = column;
      values[kept] = value;
      kept += value != 0 ? 1 : 0;
    }
    const std::size_t firstNew = kept;
    for (std::size_t at = 0; at < pivotRow.Values.size(); ++at) {
      const Index column = pivotRow.Columns[at];
      const double value = 0 - factor * pivotRow.Values[at];
      columns[kept] = column;
      values[kept] = value;
      kept += metBy_[column] != numSubtractions_ && value != 0 ? 1 : 0;
    }
    for (std::size_t at = firstNew; listsNewEntries && at < kept; ++at) {
      rowsOfColumn_[columns[at]].push_back(rowNumber);
    }
    row.Columns.resize(kept);
    row.Values.resize(kept);
    numEntries_ += kept;
    numEntries_ -= numEntriesBefore;
    largestAt_[positionOfRow_[rowNumber]] = LargestMagnitude(row);
  }

  std::vector<SparseRow>& rows_;
  Echelon& echelon_;
  const VectorUpdate& vector_;
  std::vector<std::vector<Index>> rowsOfColumn_;  // may list rows whose entry has cancelled, or a row twice
  std::vector<Index> heirOf_;  // by row: the first row from which it was subtracted as pivot row, or itself
  std::vector<Index> searchedFor_;  // by row: the last pivot column whose entry was looked for in it
  std::vector<Index> positionOfRow_;
  Numbers largestAt_;                 // by position; 0 above the pivot
  std::size_t numEntries_ = 0;        // below the pivots
  std::vector<double> pivotValues_;   // by column: the pivot row while its column is cleared, else 0
  std::vector<std::uint64_t> metBy_;  // by column: the last subtraction that found an entry in it
  std::uint64_t numSubtractions_ = 0;
};

}  // namespace

bool EliminateSparse(std::vector<SparseRow>& rows, Echelon& echelon, double denseFill) {
  SparseBlock block(rows, echelon);
  while (!block.FillExceeds(denseFill)) {
    if (!block.TakePivot()) return true;
  }
  return false;
}
