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

using ExtendedRow = std::vector<ExtendedDouble>;

// By complete pivoting; the rows have one column more than pivots, for which the vector is 1.
std::vector<double> NullVectorOf(std::vector<ExtendedRow> rows, std::size_t numColumns) {
  std::vector<std::size_t> order(numColumns);  // of the columns, pivots first
  for (std::size_t i = 0; i < numColumns; ++i) order[i] = i;
  for (std::size_t done = 0; done + 1 < numColumns; ++done) {
    std::size_t row = done;
    std::size_t column = done;
    for (std::size_t r = done; r < rows.size(); ++r) {
      for (std::size_t c = done; c < numColumns; ++c) {
        if (std::abs(rows[r][order[c]].High) > std::abs(rows[row][order[column]].High)) {
          row = r;
          column = c;
        }
      }
    }
    std::swap(rows[row], rows[done]);
    std::swap(order[column], order[done]);
    const ExtendedRow& pivot = rows[done];
    for (std::size_t r = done + 1; r < rows.size(); ++r) {
      if (rows[r][order[done]].High == 0) continue;
      const ExtendedDouble factor = rows[r][order[done]] / pivot[order[done]];
      for (std::size_t c = done; c < numColumns; ++c) {
        if (pivot[order[c]].High != 0) rows[r][order[c]] = rows[r][order[c]] - factor * pivot[order[c]];
      }
      rows[r][order[done]] = {};
    }
  }
  ExtendedRow values(numColumns);
  values[order.back()] = {1};
  for (std::size_t i = numColumns - 1; i-- > 0;) {
    ExtendedDouble sum;
    for (std::size_t c = i + 1; c < numColumns; ++c) sum = sum + rows[i][order[c]] * values[order[c]];
    values[order[i]] = -sum / rows[i][order[i]];
  }
  std::vector<double> result;
  result.reserve(numColumns);
  for (const ExtendedDouble& value : values) result.push_back(value.High);
  return result;
}

int PowerOf(double value) { return std::ilogb(value); }

ExtendedDouble Scaled(const ExtendedDouble& value, int power) {
  return {std::ldexp(value.High, power), std::ldexp(value.Low, power)};
}

}  // namespace

NullVectors::NullVectors(const SparseMatrix<ExtendedDouble>& rows)
    : rows_(rows), rowsOfColumn_(static_cast<std::size_t>(rows.NumColumns()) + 1) {
  for (int row = 1; row <= rows.NumRows(); ++row) {
    for (const auto& entry : rows.Row(row))
      rowsOfColumn_[static_cast<std::size_t>(entry.Column)].push_back(row);
  }
}

NullVectors::Part NullVectors::PartOf(const std::vector<int>& columns) const {
  std::vector<int> chosen;
  for (const int column : columns) {
    const std::vector<int>& rows = rowsOfColumn_[static_cast<std::size_t>(column)];
    chosen.insert(chosen.end(), rows.begin(), rows.end());
  }
  std::sort(chosen.begin(), chosen.end());
  chosen.erase(std::unique(chosen.begin(), chosen.end()), chosen.end());
  Part part{{}, std::vector<int>(columns.size())};
  for (const int row : chosen) {
    part.Rows.emplace_back();
    for (const auto& [column, value] : rows_.Row(row)) {
      const auto found = std::lower_bound(columns.begin(), columns.end(), column);
      if (found == columns.end() || *found != column) continue;
      part.Rows.back().push_back({static_cast<int>(found - columns.begin()), value});
    }
  }
  return part;
}

// Rows and columns in turn, until both hardly change.
void NullVectors::BringToOneSize(Part& part) {
  constexpr int rounds = 3;
  for (int round = 0; round < rounds; ++round) {
    std::vector<double> largest(part.Scales.size());
    for (auto& row : part.Rows) {
      double ofRow = 0;
      for (const auto& entry : row) ofRow = std::max(ofRow, std::abs(entry.Value.High));
      for (auto& entry : row) {
        entry.Value = Scaled(entry.Value, -PowerOf(ofRow));
        double& ofColumn = largest[static_cast<std::size_t>(entry.Column)];
        ofColumn = std::max(ofColumn, std::abs(entry.Value.High));
      }
    }
    for (std::size_t i = 0; i < largest.size(); ++i)
      part.Scales[i] += largest[i] > 0 ? PowerOf(largest[i]) : 0;
    for (auto& row : part.Rows) {
      for (auto& entry : row)
        entry.Value = Scaled(entry.Value, -PowerOf(largest[static_cast<std::size_t>(entry.Column)]));
    }
  }
}

SparseVector NullVectors::On(const std::vector<int>& columns) const {
  if (columns.size() > MostExtended) return Basis(columns, 1).front();
  Part part = PartOf(columns);
  BringToOneSize(part);
  std::vector<ExtendedRow> rows(std::max(part.Rows.size(), columns.size()), ExtendedRow(columns.size()));
  for (std::size_t i = 0; i < part.Rows.size(); ++i) {
    for (const auto& entry : part.Rows[i]) rows[i][static_cast<std::size_t>(entry.Column)] = entry.Value;
  }
  const std::vector<double> values = NullVectorOf(std::move(rows), columns.size());
  SparseVector vector;
  for (std::size_t i = 0; i < columns.size(); ++i)
    vector.push_back({columns[i], std::ldexp(values[i], -part.Scales[i])});
  SetLargestTo1(vector);
  return vector;
}

std::vector<SparseVector> NullVectors::Basis(const std::vector<int>& columns, int number) const {
  const int numColumns = static_cast<int>(columns.size());
  // Never fewer rows than columns, and a right-hand side of 0.
  Part part = PartOf(columns);
  // Of several vectors those are sparse whose pivots are chosen among coefficients as they are.
  if (number == 1) BringToOneSize(part);
  SparseMatrix<double> matrix(std::max(numColumns, static_cast<int>(part.Rows.size())), numColumns + 1);
  for (std::size_t i = 0; i < part.Rows.size(); ++i) {
    std::vector<SparseMatrix<double>::Entry> entries;
    for (const auto& entry : part.Rows[i]) entries.push_back({entry.Column + 1, entry.Value.High});
    matrix.SetRow(static_cast<int>(i) + 1, std::move(entries));
  }
  Table<std::int16_t> order;
  SolveToRREF(matrix.NumRows(), numColumns, matrix, order,
              EliminationLimits{.SmallestPivot = 0, .MostPivots = numColumns - number});
  const auto scaled = [&part](double value, int column) {
    return std::ldexp(value, -part.Scales[static_cast<std::size_t>(column - 1)]);
  };

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
      vectors[vectorOf[static_cast<std::size_t>(row)]].push_back({column, scaled(1, row)});
      continue;
    }
    for (const auto& entry : matrix.Row(row)) {
      if (entry.Column == row || entry.Column > numColumns) continue;
      vectors[vectorOf[static_cast<std::size_t>(entry.Column)]].push_back(
          {column, scaled(-entry.Value, row)});
    }
  }
  for (SparseVector& vector : vectors) SetLargestTo1(vector);
  return vectors;
}
