// The next pivot stands in the shortest row or in the column with the fewest entries, whichever makes fewer
// new entries. Rows and columns wait in buckets by their number of entries; an entry of a bucket that has
// become stale is passed over when it is met.
#include "explanation/ModularElimination.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "explanation/At.h"

namespace {

// Indices by a count that changes; finds one with the smallest count above 0.
class Buckets {
 public:
  explicit Buckets(int numIndices) : countOf_(At(numIndices), 0) { entries_.reserve(2 * At(numIndices)); }

  int Count(int index) const { return countOf_[At(index)]; }

  void SetCount(int index, int count) {
    if (countOf_[At(index)] == count) return;
    countOf_[At(index)] = count;
    if (count <= 0) return;
    if (At(count) >= tops_.size()) tops_.resize(At(count) + 1, -1);
    Push(tops_[At(count)], index);
    lowest_ = std::min(lowest_, count);
  }

  /// -1 when every count is 0.
  int Smallest() {
    for (; At(lowest_) < tops_.size(); ++lowest_) {
      int& top = tops_[At(lowest_)];
      while (top >= 0 && Count(entries_[At(top)].Index) != lowest_) Pop(top);
      if (top >= 0) return entries_[At(top)].Index;
    }
    return -1;
  }

 private:
  struct Entry {
    int Index, Below;  // the place of the entry below it in its bucket, -1 for none
  };

  void Push(int& top, int index) {
    if (free_ < 0) {
      free_ = static_cast<int>(entries_.size());
      entries_.push_back({.Index = 0, .Below = -1});
    }
    const int place = std::exchange(free_, entries_[At(free_)].Below);
    entries_[At(place)] = {.Index = index, .Below = std::exchange(top, place)};
  }

  void Pop(int& top) {
    const int place = std::exchange(top, entries_[At(top)].Below);
    entries_[At(place)].Below = std::exchange(free_, place);
  }

  std::vector<int> countOf_;
  std::vector<int> tops_;  // of each bucket, the place of its uppermost entry
  // Of all buckets, and those that are free: small vectors of their own take longer.
  std::vector<Entry> entries_;
  int free_ = -1;
  int lowest_ = 1;
};

struct Place {
  int Row = -1;
  int Column = -1;
};

template <class Field>
class Reducer {
 public:
  Reducer(std::vector<ModularRow> rows, int numColumns)
      : rows_(std::move(rows)),
        rowsOf_(At(numColumns)),
        rowCounts_(static_cast<int>(rows_.size())),
        columnCounts_(numColumns) {
    std::vector<int> counts(At(numColumns));
    for (const ModularRow& row : rows_) {
      for (const ModularEntry& entry : row) ++counts[At(entry.Column)];
    }
    for (int column = 0; column < numColumns; ++column) rowsOf_[At(column)].reserve(At(counts[At(column)]));
    for (int row = 0; row < static_cast<int>(rows_.size()); ++row) {
      for (const ModularEntry& entry : rows_[At(row)]) rowsOf_[At(entry.Column)].push_back(row);
      rowCounts_.SetCount(row, static_cast<int>(rows_[At(row)].size()));
    }
    for (int column = 0; column < numColumns; ++column) columnCounts_.SetCount(column, counts[At(column)]);
  }

  void Run() {
    for (Place pivot = NextPivot(); pivot.Row >= 0; pivot = NextPivot()) Take(pivot);
  }

  int Rank() const { return static_cast<int>(pivotColumns_.size()); }

  ModularNullSpace NullSpace() const;

 private:
  Place NextPivot() {
    const int row = rowCounts_.Smallest();
    if (row < 0) return {};
    const Place byRow{row, ColumnWithFewest(row)};
    const int column = columnCounts_.Smallest();
    const Place byColumn{ShortestRow(column), column};
    return NewEntries(byColumn) < NewEntries(byRow) ? byColumn : byRow;
  }

  long NewEntries(Place place) const {
    return long{rowCounts_.Count(place.Row) - 1} * (columnCounts_.Count(place.Column) - 1);
  }

  int ColumnWithFewest(int row) const {
    const auto fewer = [this](const ModularEntry& left, const ModularEntry& right) {
      return columnCounts_.Count(left.Column) < columnCounts_.Count(right.Column);
    };
    return std::min_element(rows_[At(row)].begin(), rows_[At(row)].end(), fewer)->Column;
  }

  // Lists of columns may hold rows whose entry has cancelled, rows that are used up, or a row twice.
  bool HasEntry(int row, int column) const {
    return rowCounts_.Count(row) > 0 && Find(rows_[At(row)], column) != rows_[At(row)].end();
  }

  int ShortestRow(int column) {
    std::vector<int>& rows = rowsOf_[At(column)];
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    std::erase_if(rows, [&](int row) { return !HasEntry(row, column); });
    return *std::min_element(rows.begin(), rows.end(), [this](int left, int right) {
      return rowCounts_.Count(left) < rowCounts_.Count(right);
    });
  }

  static ModularRow::const_iterator Find(const ModularRow& row, int column) {
    const auto found =
        std::lower_bound(row.begin(), row.end(), column,
                         [](const ModularEntry& entry, int wanted) { return entry.Column < wanted; });
    return found != row.end() && found->Column == column ? found : row.end();
  }

  void Take(Place pivot) {
    ModularRow pivotRow = std::move(rows_[At(pivot.Row)]);
    const std::uint64_t inverse = Field::Inverse(Find(pivotRow, pivot.Column)->Value);
    for (ModularEntry& entry : pivotRow) {
      entry.Value = Field::Multiply(entry.Value, inverse);
      columnCounts_.SetCount(entry.Column, columnCounts_.Count(entry.Column) - 1);
    }
    rows_[At(pivot.Row)].clear();
    rowCounts_.SetCount(pivot.Row, 0);
    for (const int row : std::exchange(rowsOf_[At(pivot.Column)], {})) {
      const auto found = Find(rows_[At(row)], pivot.Column);
      if (found != rows_[At(row)].end()) Subtract(row, found->Value, pivotRow);
    }
    pivotColumns_.push_back(pivot.Column);
    pivotRows_.push_back(std::move(pivotRow));
  }

  // row -= factor * pivotRow, both by ascending column.
  void Subtract(int row, std::uint64_t factor, const ModularRow& pivotRow) {
    const ModularRow& old = rows_[At(row)];
    merged_.clear();
    auto at = old.begin();
    for (const ModularEntry& entry : pivotRow) {
      while (at != old.end() && at->Column < entry.Column) merged_.push_back(*at++);
      const bool meets = at != old.end() && at->Column == entry.Column;
      const std::uint64_t value =
          Field::Subtract(meets ? at->Value : 0, Field::Multiply(factor, entry.Value));
      if (value != 0) merged_.push_back({entry.Column, value});
      if (meets == (value != 0)) {
        if (meets) ++at;
        continue;
      }
      columnCounts_.SetCount(entry.Column, columnCounts_.Count(entry.Column) + (meets ? -1 : 1));
      if (meets) {
        ++at;
      } else {
        rowsOf_[At(entry.Column)].push_back(row);
      }
    }
    merged_.insert(merged_.end(), at, old.end());
    rows_[At(row)] = merged_;
    rowCounts_.SetCount(row, static_cast<int>(merged_.size()));
  }

  std::vector<ModularRow> rows_;
  std::vector<std::vector<int>> rowsOf_;
  Buckets rowCounts_;
  Buckets columnCounts_;
  ModularRow merged_;
  std::vector<int> pivotColumns_;      // in the order taken
  std::vector<ModularRow> pivotRows_;  // 1 in the pivot's column
};

// From the last pivot back: each pivot's column is a combination of free columns.
template <class Field>
ModularNullSpace Reducer<Field>::NullSpace() const {
  const int numColumns = static_cast<int>(rowsOf_.size());
  std::vector<bool> hasPivot(At(numColumns));
  for (const int column : pivotColumns_) hasPivot[At(column)] = true;

  ModularNullSpace result;
  result.Rank = Rank();
  std::vector<ModularRow> combination(At(numColumns));  // by column: its value in each vector
  for (int column = 0; column < numColumns; ++column) {
    if (hasPivot[At(column)]) continue;
    combination[At(column)] = {{static_cast<int>(result.Free.size()), 1}};
    result.Free.push_back(column);
  }
  std::vector<std::uint64_t> sum(result.Free.size());
  std::vector<int> touched;
  for (std::size_t pivot = pivotColumns_.size(); pivot-- > 0;) {
    touched.clear();
    for (const ModularEntry& entry : pivotRows_[pivot]) {
      if (entry.Column == pivotColumns_[pivot]) continue;
      for (const ModularEntry& term : combination[At(entry.Column)]) {
        if (sum[At(term.Column)] == 0) touched.push_back(term.Column);
        sum[At(term.Column)] =
            Field::Subtract(sum[At(term.Column)], Field::Multiply(entry.Value, term.Value));
      }
    }
    std::sort(touched.begin(), touched.end());
    ModularRow& row = combination[At(pivotColumns_[pivot])];
    for (const int vector : touched) {
      const std::uint64_t value = std::exchange(sum[At(vector)], 0);
      if (value != 0) row.push_back({vector, value});
    }
  }
  // Written from rows to columns: both together would need twice the room.
  std::vector<std::size_t> sizes(result.Free.size());
  for (const ModularRow& row : combination) {
    for (const ModularEntry& entry : row) ++sizes[At(entry.Column)];
  }
  result.Vectors.resize(sizes.size());
  for (std::size_t i = 0; i < sizes.size(); ++i) result.Vectors[i].reserve(sizes[i]);
  for (int column = 0; column < numColumns; ++column) {
    for (const ModularEntry& entry : std::exchange(combination[At(column)], {}))
      result.Vectors[At(entry.Column)].push_back({column, entry.Value});
  }
  return result;
}

}  // namespace

template <class Field>
ModularNullSpace NullSpaceOf(std::vector<ModularRow> rows, int numColumns) {
  Reducer<Field> reducer(std::move(rows), numColumns);
  reducer.Run();
  return reducer.NullSpace();
}

template <class Field>
int RankOf(std::vector<ModularRow> rows, int numColumns) {
  Reducer<Field> reducer(std::move(rows), numColumns);
  reducer.Run();
  return reducer.Rank();
}

std::vector<ModularRow> Transposed(const std::vector<ModularRow>& rows, int numColumns) {
  std::vector<ModularRow> columns(At(numColumns));
  for (int row = 0; row < static_cast<int>(rows.size()); ++row) {
    for (const ModularEntry& entry : rows[At(row)]) columns[At(entry.Column)].push_back({row, entry.Value});
  }
  return columns;
}

template ModularNullSpace NullSpaceOf<FirstField>(std::vector<ModularRow>, int);
template ModularNullSpace NullSpaceOf<SecondField>(std::vector<ModularRow>, int);
template int RankOf<FirstField>(std::vector<ModularRow>, int);
template int RankOf<SecondField>(std::vector<ModularRow>, int);
