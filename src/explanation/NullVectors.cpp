#include "explanation/NullVectors.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "analysis/Elimination.h"

namespace {

void SetLargestTo1(SparseVector& vector) {
  double largest = 0;
  for (const auto& entry : vector) largest = std::max(largest, std::abs(entry.Value));
  for (auto& entry : vector) entry.Value /= largest;
}

}  // namespace

NullVectors::NullVectors(const SparseMatrix<double>& rows)
    : rows_(rows), rowsOfColumn_(static_cast<std::size_t>(rows.NumColumns()) + 1) {
  for (int row = 1; row <= rows.NumRows(); ++row) {
    for (const auto& entry : rows.Row(row))
      rowsOfColumn_[static_cast<std::size_t>(entry.Column)].push_back(row);
  }
}

// The rows that have an entry in the chosen columns, these numbered anew; never fewer rows than columns, and
// with a right-hand side of 0.
SparseMatrix<double> NullVectors::Restricted(const std::vector<int>& columns) const {
  std::vector<int> chosen;
  for (const int column : columns) {
    const std::vector<int>& rows = rowsOfColumn_[static_cast<std::size_t>(column)];
    chosen.insert(chosen.end(), rows.begin(), rows.end());
  }
  std::sort(chosen.begin(), chosen.end());
  chosen.erase(std::unique(chosen.begin(), chosen.end()), chosen.end());
  const int numColumns = static_cast<int>(columns.size());
  SparseMatrix<double> matrix(std::max(numColumns, static_cast<int>(chosen.size())), numColumns + 1);
  for (std::size_t i = 0; i < chosen.size(); ++i) {
    std::vector<SparseMatrix<double>::Entry> entries;
    for (const auto& [column, value] : rows_.Row(chosen[i])) {
      const auto found = std::lower_bound(columns.begin(), columns.end(), column);
      if (found == columns.end() || *found != column) continue;
      entries.push_back({static_cast<int>(found - columns.begin()) + 1, value});
    }
    matrix.SetRow(static_cast<int>(i) + 1, std::move(entries));
  }
  return matrix;
}

SparseVector NullVectors::On(const std::vector<int>& columns) const { return Basis(columns, 1).front(); }

std::vector<SparseVector> NullVectors::Basis(const std::vector<int>& columns, int number) const {
  const int numColumns = static_cast<int>(columns.size());
  SparseMatrix<double> matrix = Restricted(columns);
  Table<std::int16_t> order;
  SolveToRREF(matrix.NumRows(), numColumns, matrix, order,
              EliminationLimits{.SmallestPivot = 0, .MostPivots = numColumns - number});

  // With a row for each column, the pivot of a column stands on the diagonal; the others are free.
  std::vector<SparseVector> vectors;
  std::vector<std::size_t> vectorOf(columns.size() + 1);
  for (int column = 1; column <= numColumns; ++column) {
    if (matrix(column, column) != 0) continue;
    vectorOf[static_cast<std::size_t>(column)] = vectors.size();
    vectors.emplace_back();
  }
  for (int row = 1; row <= numColumns; ++row) {
    const int column = columns[static_cast<std::size_t>(row - 1)];
    if (matrix(row, row) == 0) {
      vectors[vectorOf[static_cast<std::size_t>(row)]].push_back({column, 1});
      continue;
    }
    for (const auto& entry : matrix.Row(row)) {
      if (entry.Column == row || entry.Column > numColumns) continue;
      vectors[vectorOf[static_cast<std::size_t>(entry.Column)]].push_back({column, -entry.Value});
    }
  }
  for (SparseVector& vector : vectors) SetLargestTo1(vector);
  return vectors;
}
