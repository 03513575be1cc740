#include "explanation/steps/StepMatrix.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

Table<int> Numbered(int count) {
  Table<int> numbers(count);
  const auto all = numbers.First(count);
  std::iota(all.begin(), all.end(), 1);
  return numbers;
}

void ChangePlaces(Table<int>& at, int one, int other) {
  const auto all = at.First(at.Size());
  std::iter_swap(std::ranges::find(all, one), std::ranges::find(all, other));
}

}  // namespace

StepMatrix::StepMatrix(const SparseMatrix<double>& equations)
    : rowAt_(Numbered(equations.NumRows())), columnAt_(Numbered(equations.NumColumns() - 1)) {
  cells_.resize(static_cast<std::size_t>(equations.NumRows()) *
                static_cast<std::size_t>(equations.NumColumns()));
  for (int row = 1; row <= equations.NumRows(); ++row) {
    for (const auto& [column, value] : equations.Row(row)) cells_[Cell(row, column)] = value;
  }
}

void StepMatrix::CarryOut(const EliminationStep& step) {
  switch (step.Kind) {
    case StepKind::ExchangeRows:
      return ChangePlaces(rowAt_, step.Row, step.OtherRow);
    case StepKind::ExchangeColumns:
      return ChangePlaces(columnAt_, step.Column, step.OtherColumn);
    case StepKind::Divide:
      return Divide(step.Row, step.Column, step.Number);
    case StepKind::Clear:
      return Clear(step.Row, step.OtherRow, step.Column, step.Number);
    case StepKind::Clean:
      return Clean();
    case StepKind::RestoreColumns:
      return RestoreColumns();
    case StepKind::RestoreRows:
      return RestoreRows();
    case StepKind::Begin:
    case StepKind::Pivot:
    case StepKind::PivotsEnd:
    case StepKind::Read:
      break;
  }
}

void StepMatrix::Divide(int row, int column, double pivot) {
  for (double& cell : CellsOf(row)) cell = cell / pivot;
  cells_[Cell(row, column)] = 1;
}

void StepMatrix::Clear(int row, int pivotRow, int column, double factor) {
  const std::span<double> cells = CellsOf(row);
  const std::span<const double> subtracted = Row(pivotRow);
  for (std::size_t at = 0; at < cells.size(); ++at) cells[at] = cells[at] - factor * subtracted[at];
  cells_[Cell(row, column)] = 0;
}

void StepMatrix::Clean() {
  for (double& cell : cells_) {
    if (IsRemnant(cell)) cell = 0;
  }
}

void StepMatrix::RestoreColumns() { columnWas_ = std::exchange(columnAt_, Numbered(NumUnknowns())); }

// Rows beyond the number of unknowns stay.
void StepMatrix::RestoreRows() {
  const Table<int> rowWas = rowAt_;
  for (int place = 1; place <= columnWas_.Size(); ++place) rowAt_[columnWas_[place]] = rowWas[place];
}
