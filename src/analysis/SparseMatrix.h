// A matrix that stores the entries that are not zero, row by row. The equations of a truss have about four
// of them in a row, so the largest document needs kilobytes where a full array would need 134 MB.
#pragma once

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

/// A matrix of NumRows() by NumColumns() cells, both numbered from 1. Cells that are not stored are 0.
template <class Number>
class SparseMatrix {
 public:
  struct Entry {
    int Column;  ///< 1 .. NumColumns()
    Number Value;
    friend bool operator==(const Entry&, const Entry&) = default;
  };

  SparseMatrix() = default;
  SparseMatrix(int numRows, int numColumns)
      : numColumns_(numColumns), rows_(static_cast<std::size_t>(numRows)) {}

  int NumRows() const { return static_cast<int>(rows_.size()); }
  int NumColumns() const { return numColumns_; }

  /// The stored entries of a row, by ascending column.
  std::span<const Entry> Row(int row) const { return rows_[RowIndex(row)]; }

  /// Replaces a row; `entries` must be in ascending order of their columns, each column at most once.
  void SetRow(int row, std::vector<Entry> entries) { rows_[RowIndex(row)] = std::move(entries); }

  /// The value of one cell, found by bisection.
  Number operator()(int row, int column) const {
    const std::vector<Entry>& entries = rows_[RowIndex(row)];
    const auto found = Find(entries, column);
    return found != entries.end() && found->Column == column ? found->Value : Number{0};
  }

  /// Sets one cell, storing it when it was not.
  void Set(int row, int column, Number value) {
    assert(column >= 1 && column <= numColumns_);
    std::vector<Entry>& entries = rows_[RowIndex(row)];
    const auto found = Find(entries, column);
    if (found != entries.end() && found->Column == column) {
      found->Value = value;
    } else {
      entries.insert(found, Entry{column, value});
    }
  }

 private:
  std::size_t RowIndex(int row) const {
    assert(row >= 1 && row <= NumRows());
    return static_cast<std::size_t>(row - 1);
  }
  template <class Entries>
  static auto Find(Entries& entries, int column) {
    return std::lower_bound(entries.begin(), entries.end(), column,
                            [](const Entry& entry, int wanted) { return entry.Column < wanted; });
  }

  int numColumns_ = 0;
  std::vector<std::vector<Entry>> rows_;
};
