#include "support/PlainElimination.h"

#include <utility>
#include <vector>

ReducedMatrix AtItsPlaces(const StepMatrix& matrix) {
  const int N = matrix.NumUnknowns();
  ReducedMatrix reduced{SparseMatrix<double>(matrix.NumRows(), N + 1), Table<std::int16_t>(N)};
  for (int k = 1; k <= N; ++k) reduced.ColumnOrder[k] = static_cast<std::int16_t>(matrix.ColumnAt(k));
  for (int place = 1; place <= matrix.NumRows(); ++place) {
    const int row = matrix.RowAt(place);
    std::vector<SparseMatrix<double>::Entry> entries;
    for (int k = 1; k <= N + 1; ++k) {
      const double value = matrix(row, k <= N ? matrix.ColumnAt(k) : k);
      if (value != 0) entries.push_back({k, value});
    }
    reduced.Equations.SetRow(place, std::move(entries));
  }
  return reduced;
}

ReducedMatrix ReducedPlainly(const SparseMatrix<double>& equations) {
  StepMatrix matrix(equations);
  EliminatePlainly(matrix, [](const EliminationStep&) {});
  return AtItsPlaces(matrix);
}
