// The phases in their order: pivots are found in sparse rows while these are sparse, then in dense rows; when
// all are known the columns above them are cleared; what comes out is set in the unknowns' own order.
#include "analysis/Elimination.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "analysis/DenseForward.h"
#include "analysis/Echelon.h"
#include "analysis/EliminationTuning.h"
#include "analysis/SparseForward.h"
#include "analysis/UpwardPhase.h"

namespace {

using Matrix = SparseMatrix<double>;

std::vector<SparseRow> TakeRows(const Matrix& matrix, Echelon& echelon) {
  const Index numColumns = echelon.NumColumns();
  std::vector<SparseRow> rows(echelon.NumRows());
  for (Index row = 0; row < echelon.NumRows(); ++row) {
    for (const auto& [column, value] : matrix.Row(static_cast<int>(row) + 1)) {
      const auto index = static_cast<Index>(column - 1);
      if (index == numColumns) {
        echelon.RightHandSide[row] = value;
      } else if (value != 0) {
        rows[row].Columns.push_back(index);
        rows[row].Values.push_back(value);
      }
    }
  }
  return rows;
}

bool IsKept(double value) { return !(std::abs(value) < PivotTolerance); }

/// Writes rows by position; with at least as many equations as unknowns each pivot goes to the diagonal.
class ResultWriter {
 public:
  ResultWriter(const Echelon& echelon, Matrix& matrix) : echelon_(echelon), matrix_(matrix) {
    keepsPermutation_ = echelon.NumRows() < echelon.NumColumns();
  }

  void Write(Index position, ReducedRow row) {
    std::vector<Matrix::Entry> entries;
    entries.reserve(row.Values.size() + 2);
    entries.push_back({ColumnNumber(position), 1});
    for (Index at = 0; at < row.Values.size(); ++at) {
      entries.push_back({ColumnNumber(row.FreePositions[at]), row.Values[at]});
    }
    std::sort(entries.begin(), entries.end(), [](const Matrix::Entry& left, const Matrix::Entry& right) {
      return left.Column < right.Column;
    });
    AppendRightHandSide(row.RightHandSide, entries);
    matrix_.SetRow(RowNumber(position), std::move(entries));
  }

  /// A row without a pivot: nothing is left in it but, perhaps, a right-hand side that contradicts.
  void WriteWithoutPivot(Index position) {
    std::vector<Matrix::Entry> entries;
    AppendRightHandSide(echelon_.RightHandSide[echelon_.RowAt[position]], entries);
    matrix_.SetRow(RowNumber(position), std::move(entries));
  }

 private:
  void AppendRightHandSide(double value, std::vector<Matrix::Entry>& entries) const {
    if (IsKept(value)) entries.push_back({static_cast<int>(echelon_.NumColumns()) + 1, value});
  }
  int ColumnNumber(Index position) const {
    return static_cast<int>(keepsPermutation_ ? position : echelon_.ColumnAt[position]) + 1;
  }
  int RowNumber(Index position) const {
    return position < echelon_.NumColumns() ? ColumnNumber(position) : static_cast<int>(position) + 1;
  }

  const Echelon& echelon_;
  Matrix& matrix_;
  bool keepsPermutation_ = false;
};

void FindPivots(Echelon& echelon, const Matrix& matrix, const EliminationTuning& tuning) {
  std::vector<SparseRow> rows = TakeRows(matrix, echelon);
  const bool hasAllPivots = EliminateSparse(rows, echelon, tuning.DenseFill);
  if (!hasAllPivots) EliminateDense(rows, echelon, tuning);
}

void Reduce(Echelon& echelon, Matrix& matrix, const EliminationTuning& tuning) {
  FindPivots(echelon, matrix, tuning);
  std::vector<ReducedRow> reduced = ReduceUpward(echelon, tuning);
  ResultWriter writer(echelon, matrix);
  for (Index position = 0; position < echelon.NumPivots(); ++position) {
    writer.Write(position, std::move(reduced[position]));
  }
  for (Index position = echelon.NumPivots(); position < echelon.NumRows(); ++position) {
    writer.WriteWithoutPivot(position);
  }
}

void Solve(Echelon& echelon, Matrix& matrix, Table<std::int16_t>& columnOrder,
           const EliminationTuning& tuning) {
  Reduce(echelon, matrix, tuning);
  const auto numColumns = static_cast<int>(echelon.NumColumns());
  const bool keepsPermutation = echelon.NumRows() < echelon.NumColumns();
  columnOrder.Resize(numColumns);
  for (int k = 1; k <= numColumns; ++k) {
    const int unknown =
        keepsPermutation ? static_cast<int>(echelon.ColumnAt[static_cast<Index>(k - 1)]) + 1 : k;
    columnOrder[k] = static_cast<std::int16_t>(unknown);
  }
}

}  // namespace

void SolveToRREF(int R, int N, Matrix& EquationMatrix, Table<std::int16_t>& ColumnOrder) {
  SolveToRREF(R, N, EquationMatrix, ColumnOrder, EliminationTuning{});
}

void SolveToRREF(int R, int N, Matrix& EquationMatrix, Table<std::int16_t>& ColumnOrder,
                 const EliminationTuning& tuning) {
  Echelon echelon(static_cast<Index>(R), static_cast<Index>(N));
  Solve(echelon, EquationMatrix, ColumnOrder, tuning);
}

void SolveToRREF(int R, int N, Matrix& EquationMatrix, Table<std::int16_t>& ColumnOrder,
                 const EliminationLimits& limits) {
  Echelon echelon(static_cast<Index>(R), static_cast<Index>(N));
  echelon.Limits = limits;
  Solve(echelon, EquationMatrix, ColumnOrder, EliminationTuning{});
}

std::vector<EliminationPivot> PivotsOf(const Matrix& equations) {
  return PivotsOf(equations, EliminationTuning{});
}

std::vector<EliminationPivot> PivotsOf(const Matrix& equations, const EliminationTuning& tuning) {
  Echelon echelon(static_cast<Index>(equations.NumRows()), static_cast<Index>(equations.NumColumns() - 1));
  FindPivots(echelon, equations, tuning);
  std::vector<EliminationPivot> pivots;
  pivots.reserve(echelon.NumPivots());
  for (Index k = 0; k < echelon.NumPivots(); ++k) {
    pivots.push_back({static_cast<int>(echelon.RowAt[k]) + 1, static_cast<int>(echelon.ColumnAt[k]) + 1,
                      echelon.PivotValues[k]});
  }
  return pivots;
}
