#include "explanation/steps/PlainElimination.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "analysis/Equations.h"

namespace {

using TellStep = std::function<void(const EliminationStep&)>;

class PlainWork {
 public:
  PlainWork(StepMatrix& matrix, const TellStep& done) : matrix_(matrix), done_(done) {}

  void Run() {
    Take({.Kind = StepKind::Begin});
    for (int place = 1;; ++place) {
      EliminationStep largest = LargestLeft(place);
      if (std::abs(largest.Number) < PivotTolerance) {
        largest.Kind = StepKind::PivotsEnd;
        largest.IsTied = false;
        Take(largest);
        break;
      }
      Take(largest);
      BringTo(place, largest);
      ReduceColumn(largest);
    }
    Take({.Kind = StepKind::Clean, .Number = static_cast<double>(NumRemnants())});
    Restore();
    Take({.Kind = StepKind::Read});
  }

 private:
  void Take(const EliminationStep& step) {
    matrix_.CarryOut(step);
    done_(step);
  }

  // The search goes row by row, and in each row from left to right; of equal magnitudes the first counts.
  EliminationStep LargestLeft(int place) const {
    EliminationStep best{.Kind = StepKind::Pivot};
    for (int i = place; i <= matrix_.NumRows(); ++i) {
      const int row = matrix_.RowAt(i);
      for (int k = place; k <= matrix_.NumUnknowns(); ++k) {
        const int column = matrix_.ColumnAt(k);
        const double value = matrix_(row, column);
        if (std::abs(value) > std::abs(best.Number)) {
          best = {.Kind = StepKind::Pivot, .Row = row, .Column = column, .Number = value};
        } else if (value != 0 && std::abs(value) == std::abs(best.Number)) {
          best.IsTied = true;
        }
      }
    }
    return best;
  }

  void BringTo(int place, const EliminationStep& pivot) {
    const int row = matrix_.RowAt(place);
    if (row != pivot.Row) Take({.Kind = StepKind::ExchangeRows, .Row = pivot.Row, .OtherRow = row});
    const int column = matrix_.ColumnAt(place);
    if (column != pivot.Column)
      Take({.Kind = StepKind::ExchangeColumns, .Column = pivot.Column, .OtherColumn = column});
  }

  // Dividing by 1 and subtracting 0 times a row change nothing and are no steps.
  void ReduceColumn(const EliminationStep& pivot) {
    if (pivot.Number != 1)
      Take({.Kind = StepKind::Divide, .Row = pivot.Row, .Column = pivot.Column, .Number = pivot.Number});
    for (int place = 1; place <= matrix_.NumRows(); ++place) {
      const int row = matrix_.RowAt(place);
      const double factor = matrix_(row, pivot.Column);
      if (row == pivot.Row || factor == 0) continue;
      Take({.Kind = StepKind::Clear,
            .Row = row,
            .OtherRow = pivot.Row,
            .Column = pivot.Column,
            .Number = factor});
    }
  }

  std::ptrdiff_t NumRemnants() const {
    std::ptrdiff_t count = 0;
    for (int row = 1; row <= matrix_.NumRows(); ++row)
      count += std::ranges::count_if(matrix_.Row(row), IsRemnant);
    return count;
  }

  // With fewer equations than unknowns there is no diagonal to restore.
  void Restore() {
    if (matrix_.NumRows() < matrix_.NumUnknowns()) return;
    bool isInOrder = true;
    for (int place = 1; place <= matrix_.NumUnknowns(); ++place)
      isInOrder = isInOrder && matrix_.ColumnAt(place) == place;
    if (isInOrder) return;
    Take({.Kind = StepKind::RestoreColumns});
    Take({.Kind = StepKind::RestoreRows});
  }

  StepMatrix& matrix_;
  const TellStep& done_;
};

// Writes the steps down, and which rows have no coefficient any more.
class StepRecorder {
 public:
  StepRecorder(EliminationInSteps& story, const StepMatrix& matrix)
      : story_(story), matrix_(matrix), isEmpty_(matrix.NumRows()) {}

  void Note(const EliminationStep& step) {
    story_.Steps.push_back(step);
    if (step.Kind == StepKind::Pivot) story_.Pivots.push_back({step.Row, step.Column, step.Number});
    if (step.Kind == StepKind::Clear) NoteIfEmpty(step.Row);
    if (step.Kind != StepKind::Begin && step.Kind != StepKind::Clean) return;
    for (int row = 1; row <= matrix_.NumRows(); ++row) NoteIfEmpty(row);
  }

 private:
  void NoteIfEmpty(int row) {
    const auto coefficients = matrix_.Row(row).first(static_cast<std::size_t>(matrix_.NumUnknowns()));
    const bool isEmpty = std::ranges::all_of(coefficients, [](double value) { return value == 0; });
    if (!isEmpty || isEmpty_[row] != 0) return;
    isEmpty_[row] = 1;
    story_.Emptied.push_back({story_.Steps.size() - 1, row, matrix_(row, matrix_.NumUnknowns() + 1)});
  }

  EliminationInSteps& story_;
  const StepMatrix& matrix_;
  Table<char> isEmpty_;
};

}  // namespace

void EliminatePlainly(StepMatrix& matrix, const TellStep& done) { PlainWork(matrix, done).Run(); }

std::vector<EmptiedRow> EliminationInSteps::DecidingRows(std::size_t step) const {
  const bool contradicts = std::ranges::any_of(Emptied, &EmptiedRow::Contradicts);
  std::vector<EmptiedRow> deciding;
  std::ranges::copy_if(Emptied, std::back_inserter(deciding), [&](const EmptiedRow& emptied) {
    return emptied.Step <= step && emptied.Contradicts() == contradicts;
  });
  return deciding;
}

EliminationInSteps EliminateInSteps(SparseMatrix<double> equations) {
  EliminationInSteps story;
  story.Equations = std::move(equations);
  if (std::max(story.Equations.NumRows(), story.Equations.NumColumns() - 1) > MostToldInSteps) {
    story.Pivots = PivotsOf(story.Equations);
    return story;
  }
  StepMatrix matrix(story.Equations);
  StepRecorder recorder(story, matrix);
  EliminatePlainly(matrix, [&recorder](const EliminationStep& step) { recorder.Note(step); });
  return story;
}

SparseMatrix<double> EquationsOf(const Truss& truss, const TrussAnalysis& analysis) {
  EquationSystem system;
  system.UnknownList = analysis.System.UnknownList;
  system.NumReactionForces = analysis.System.NumReactionForces;
  system.NumMemberForces = analysis.System.NumMemberForces;
  LoadArrays(truss, analysis.Counted.Joints, system);
  return std::move(system.EquationMatrix);
}
