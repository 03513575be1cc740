// The elimination in words: for each step a sentence that says all that is needed to carry it out, and what
// the step is for. All texts are single-byte texts without line breaks.
#pragma once

#include <string>
#include <vector>

#include "analysis/Classification.h"
#include "analysis/FormatSigFigs.h"
#include "explanation/DistinctNames.h"
#include "explanation/steps/EliminationSteps.h"
#include "explanation/steps/StepRounding.h"

class StepText {
 public:
  /// The first four must outlive it; `shown` is what the analysis read from the reduced matrix, `where` what
  /// the reader has before him.
  StepText(const TrussGraph& graph, const EliminationInSteps& story, const Classification& shown,
           const Rounding& rounding, const ReportFormat& format, ReadOn where = ReadOn::OnScreen);

  /// How rows are called, and why there are no fractions; said once, before the first step.
  static std::vector<std::string> Introduction();

  /// "Divide A - x by 0.7071", "C - y minus 0.6 times A - x": for a list of all.
  std::string Title(const EliminationStep& step) const;

  /// "C - y": the equation that the row was at first, whatever it has become.
  std::string Row(int row) const;

  /// The unknown; of the column behind the unknowns "RHS".
  std::string Column(int column) const;

  /// As in reports, but only 0 is written as "0": what is smaller than the reports show is there until it is
  /// cleaned.
  std::string Number(double value) const;

  /// The same of what a row is divided by or taken times: only 1 is written as "1".
  std::string Factor(double value) const;

  /// "C - y becomes C - y minus 0.6 times A - x."; with `isCarriedOut` "C - y has become ...".
  std::string Sentence(const EliminationStep& step, bool isCarriedOut) const;

  /// "[C - y] := [C - y] - 0.6 \xB7 [A - x]"; empty where the sentence is as short.
  std::string ShortForm(const EliminationStep& step) const;

  /// What it is for or, carried out, what it has done.
  std::string Purpose(const EliminationStep& step, bool isCarriedOut) const;

  /// What has come about with step number `index`: rows that decide the conclusion, a pivot that rounding has
  /// left, why there is no further one, what the rows say and what that is worth. Often nothing.
  std::vector<std::string> Remarks(std::size_t index) const;

  /// All that is said of a step while it is looked at: the sentence, its short form, what it is for, and what
  /// has come about.
  std::vector<std::string> View(std::size_t index, bool isCarriedOut) const;

  /// "A - x, AB:  0.7071".
  std::string Pivot(const EliminationPivot& pivot) const;

  /// Of pivot `number`, 1 the first, that it is a remnant of rounding; mostly empty.
  std::string RemarkOnPivot(int number) const;

  /// Instead of the introduction, where the system is too large to be told in steps.
  std::string OnlyPivots() const;

  const EliminationInSteps& Story() const { return story_; }

 private:
  std::string Coefficient(const EliminationStep& step) const;
  std::string Subtraction(const EliminationStep& step) const;
  std::string PivotsEnd(const EliminationStep& step) const;
  std::string WithoutPivot() const;
  void AddPivotsEnd(const EliminationStep& step, std::vector<std::string>& remarks) const;
  void AddEmptied(std::size_t index, std::vector<std::string>& remarks) const;
  void AddReading(std::vector<std::string>& remarks) const;
  void AddValues(std::vector<std::string>& remarks) const;
  int PivotNumber(std::size_t index) const;
  std::string RowsOf(const std::vector<EmptiedRow>& emptied) const;
  int NumUnknowns() const { return story_.Equations.NumColumns() - 1; }

  const EliminationInSteps& story_;
  const Classification& shown_;
  ReportFormat format_;
  DistinctNames names_;
  StepRounding rounding_;
};
