// Going through the elimination view by view: each operation as it is chosen, then as it is carried out.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "explanation/steps/StepMatrix.h"

struct StepView {
  std::size_t Step = 0;       ///< of EliminationInSteps::Steps
  bool IsCarriedOut = false;  ///< what only looks at the matrix is never carried out

  friend bool operator==(const StepView&, const StepView&) = default;
};

/// What the step has to do with a number.
enum class CellMark : std::uint8_t {
  None,
  Source,  ///< a multiple of it is subtracted from another row
  Target,  ///< it changes, or changes its place
  Pivot,   ///< the pivot, what is no pivot though it is the largest left, or what a row without coefficients
           ///< has on its right
};

class StepWalk {
 public:
  /// Stands at the first view. The elimination must be told in steps.
  explicit StepWalk(std::shared_ptr<const EliminationInSteps> story);

  int NumViews() const { return static_cast<int>(views_.size()); }

  /// 0 .. NumViews() - 1.
  int Place() const { return place_; }
  const StepView& View() const { return views_[static_cast<std::size_t>(place_)]; }
  const EliminationStep& Step() const { return story_->Steps[View().Step]; }
  void GoTo(int place);

  /// Where the step is chosen.
  int PlaceOf(std::size_t step) const;

  /// As it stands in this view.
  const StepMatrix& Matrix() const { return matrix_; }

  /// Column NumUnknowns() + 1 is the right-hand side.
  CellMark Mark(int row, int column) const;

 private:
  void MarkNumbers();
  void SetMark(int row, int column, CellMark mark);
  void MarkRow(int row, CellMark mark);
  void MarkColumn(int column, CellMark mark);
  void MarkSubtraction(const EliminationStep& step);
  void MarkRemnants();
  void MarkMovedColumns();
  void MarkMovedRows();
  void MarkEmptied();

  std::shared_ptr<const EliminationInSteps> story_;
  std::vector<StepView> views_;
  int place_ = 0;
  StepMatrix matrix_;
  std::size_t numCarriedOut_ = 0;  // of the steps, in matrix_
  std::vector<CellMark> marks_;    // row by row
};
