// A tour through the elimination, as a window shows it: where one can go, and what is said there. Where only
// the pivots are told, they are the places.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "explanation/steps/StepText.h"
#include "explanation/steps/StepWalk.h"

class StepsTour {
 public:
  /// Begins at the first place. At least one unknown.
  StepsTour(TrussGraph graph, SparseMatrix<double> equations, const Classification& shown, Rounding rounding,
            const ReportFormat& format);

  StepsTour(const StepsTour&) = delete;
  StepsTour& operator=(const StepsTour&) = delete;

  const StepText& Text() const { return text_; }
  bool IsToldInSteps() const { return walk_.has_value(); }

  /// The places are numbered from 0. There may be none, where only the pivots are told.
  int NumPlaces() const;
  int Place() const { return place_; }
  void GoTo(int place);

  /// The list of all operations: its rows from 0, each with its number.
  int NumOperations() const;
  std::string Title(int operation) const;
  bool IsPivot(int operation) const;

  /// Of the operation that the present place is about; and where an operation is chosen.
  int Operation() const;
  int PlaceOf(int operation) const;

  /// "Step 4 of 18, chosen".
  std::string Position() const;

  /// What is said here; the first line says what is done.
  std::vector<std::string> Lines() const;

  /// Where the unknown's pivot is chosen; empty when it gets none.
  std::optional<int> PlaceOfPivot(int unknown) const;

  /// Where that is, and what its row still waits for from here on.
  std::string PivotLine(int unknown) const;

  /// The number that takes the most characters, of all that the elimination goes through; of a large one a
  /// number that is as long as any can be.
  std::string LongestNumber() const;

  /// As it stands here; only where the elimination is told in steps.
  const StepMatrix& Matrix() const { return walk_->Matrix(); }
  CellMark Mark(int row, int column) const { return walk_->Mark(row, column); }

 private:
  std::size_t NumStepsDone() const;

  TrussGraph graph_;
  Classification shown_;
  Rounding rounding_;
  std::shared_ptr<const EliminationInSteps> story_;
  StepText text_;
  std::optional<StepWalk> walk_;
  int place_ = 0;
};
