// The steps are so quick to carry out that going back begins at the beginning again: no state is kept.
#include "explanation/steps/StepWalk.h"

#include <algorithm>
#include <utility>

StepWalk::StepWalk(std::shared_ptr<const EliminationInSteps> story)
    : story_(std::move(story)), matrix_(story_->Equations) {
  for (std::size_t step = 0; step < story_->Steps.size(); ++step) {
    views_.push_back({step, false});
    if (Changes(story_->Steps[step].Kind)) views_.push_back({step, true});
  }
  GoTo(0);
}

void StepWalk::GoTo(int place) {
  place_ = place;
  const std::size_t step = View().Step;
  if (numCarriedOut_ > step) {
    matrix_ = StepMatrix(story_->Equations);
    numCarriedOut_ = 0;
  }
  while (numCarriedOut_ < step) matrix_.CarryOut(story_->Steps[numCarriedOut_++]);
  MarkNumbers();
  if (View().IsCarriedOut) matrix_.CarryOut(story_->Steps[numCarriedOut_++]);
}

int StepWalk::PlaceOf(std::size_t step) const {
  const auto found = std::ranges::lower_bound(views_, step, {}, &StepView::Step);
  return static_cast<int>(found - views_.begin());
}

CellMark StepWalk::Mark(int row, int column) const {
  const std::size_t width = static_cast<std::size_t>(matrix_.NumUnknowns()) + 1;
  return marks_[static_cast<std::size_t>(row - 1) * width + static_cast<std::size_t>(column - 1)];
}

void StepWalk::SetMark(int row, int column, CellMark mark) {
  const std::size_t width = static_cast<std::size_t>(matrix_.NumUnknowns()) + 1;
  marks_[static_cast<std::size_t>(row - 1) * width + static_cast<std::size_t>(column - 1)] = mark;
}

void StepWalk::MarkRow(int row, CellMark mark) {
  for (int column = 1; column <= matrix_.NumUnknowns() + 1; ++column) {
    if (matrix_(row, column) != 0) SetMark(row, column, mark);
  }
}

void StepWalk::MarkColumn(int column, CellMark mark) {
  for (int row = 1; row <= matrix_.NumRows(); ++row) {
    if (matrix_(row, column) != 0) SetMark(row, column, mark);
  }
}

// What stays 0 is not concerned. The matrix is the one before the step.
void StepWalk::MarkNumbers() {
  marks_.assign(
      static_cast<std::size_t>(matrix_.NumRows()) * (static_cast<std::size_t>(matrix_.NumUnknowns()) + 1),
      CellMark::None);
  const EliminationStep& step = Step();
  switch (step.Kind) {
    case StepKind::Pivot:
    case StepKind::PivotsEnd:
      if (step.Row != 0) SetMark(step.Row, step.Column, CellMark::Pivot);
      break;
    case StepKind::ExchangeRows:
      MarkRow(step.Row, CellMark::Target);
      MarkRow(step.OtherRow, CellMark::Target);
      break;
    case StepKind::ExchangeColumns:
      MarkColumn(step.Column, CellMark::Target);
      MarkColumn(step.OtherColumn, CellMark::Target);
      break;
    case StepKind::Divide:
      MarkRow(step.Row, CellMark::Target);
      SetMark(step.Row, step.Column, CellMark::Pivot);
      break;
    case StepKind::Clear:
      MarkSubtraction(step);
      break;
    case StepKind::Clean:
      MarkRemnants();
      break;
    case StepKind::RestoreColumns:
      MarkMovedColumns();
      break;
    case StepKind::RestoreRows:
      MarkMovedRows();
      break;
    case StepKind::Begin:
    case StepKind::Read:
      MarkEmptied();
      break;
  }
}

void StepWalk::MarkSubtraction(const EliminationStep& step) {
  MarkRow(step.OtherRow, CellMark::Source);
  for (int column = 1; column <= matrix_.NumUnknowns() + 1; ++column) {
    if (matrix_(step.OtherRow, column) != 0) SetMark(step.Row, column, CellMark::Target);
  }
  SetMark(step.OtherRow, step.Column, CellMark::Pivot);
}

void StepWalk::MarkRemnants() {
  for (int row = 1; row <= matrix_.NumRows(); ++row) {
    for (int column = 1; column <= matrix_.NumUnknowns() + 1; ++column) {
      if (IsRemnant(matrix_(row, column))) SetMark(row, column, CellMark::Target);
    }
  }
}

void StepWalk::MarkMovedColumns() {
  for (int place = 1; place <= matrix_.NumUnknowns(); ++place) {
    if (matrix_.ColumnAt(place) != place) MarkColumn(matrix_.ColumnAt(place), CellMark::Target);
  }
}

void StepWalk::MarkMovedRows() {
  StepMatrix after = matrix_;
  after.CarryOut(Step());
  for (int place = 1; place <= matrix_.NumRows(); ++place) {
    if (matrix_.RowAt(place) != after.RowAt(place)) MarkRow(matrix_.RowAt(place), CellMark::Target);
  }
}

// What stands on the right of rows without coefficients.
void StepWalk::MarkEmptied() {
  for (const EmptiedRow& emptied : story_->DecidingRows(View().Step))
    SetMark(emptied.Row, matrix_.NumUnknowns() + 1, CellMark::Pivot);
}
