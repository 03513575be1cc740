#include "explanation/steps/StepText.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "analysis/TellingNumber.h"
#include "explanation/Directions.h"
#include "explanation/steps/PlainElimination.h"

namespace {

bool IsUnit(double factor) { return std::abs(factor) == 1; }

}  // namespace

StepText::StepText(const TrussGraph& graph, const EliminationInSteps& story, const Classification& shown,
                   const Rounding& rounding, const ReportFormat& format, ReadOn where)
    : story_(story),
      shown_(shown),
      format_(format),
      names_(graph, format, OddNames::InBrackets),
      rounding_(graph, story, rounding, format, where) {}

std::vector<std::string> StepText::Introduction() {
  return {
      "A row keeps the name of the equation that it was at first, wherever it stands and whatever it has "
      "become.",
      "Numbers stand as decimals and not as fractions: a direction such as 0.7071 comes from a square root "
      "and is rounded to seven figures; no fraction is equal to it."};
}

std::string StepText::Row(int row) const { return names_.Equation(JointOfRow(row), AxisOfRow(row)); }

std::string StepText::Column(int column) const {
  return column > NumUnknowns() ? "RHS" : names_.Force(column);
}

std::string StepText::Number(double value) const { return NumberNot0(value, format_); }

std::string StepText::Factor(double value) const { return NumberNot1(value, format_); }

std::string StepText::Coefficient(const EliminationStep& step) const {
  return "the coefficient of " + Column(step.Column) + " in " + Row(step.Row);
}

std::string StepText::Title(const EliminationStep& step) const {
  switch (step.Kind) {
    case StepKind::Begin:
      return "The equations";
    case StepKind::Pivot:
      return "Pivot: " + Column(step.Column) + " in " + Row(step.Row);
    case StepKind::ExchangeRows:
      return "Exchange " + Row(step.Row) + " and " + Row(step.OtherRow);
    case StepKind::ExchangeColumns:
      return "Exchange " + Column(step.Column) + " and " + Column(step.OtherColumn);
    case StepKind::Divide:
      return "Divide " + Row(step.Row) + " by " + Factor(step.Number);
    case StepKind::Clear:
      return Subtraction(step);
    case StepKind::PivotsEnd:
      return "No further pivot";
    case StepKind::Clean:
      return "Clean";
    case StepKind::RestoreColumns:
      return "Restore the columns";
    case StepKind::RestoreRows:
      return "Restore the rows";
    case StepKind::Read:
      break;
  }
  return "Read the rows";
}

std::string StepText::Sentence(const EliminationStep& step, bool isCarriedOut) const {
  const std::string change = isCarriedOut ? " have changed places." : " change places.";
  switch (step.Kind) {
    case StepKind::Begin:
      return "The equations as they were assembled.";
    case StepKind::Pivot:
      return "The pivot is " + Coefficient(step) + ", " + Factor(step.Number) + ".";
    case StepKind::ExchangeRows:
      return "The rows " + Row(step.Row) + " and " + Row(step.OtherRow) + change;
    case StepKind::ExchangeColumns:
      return "The columns of " + Column(step.Column) + " and " + Column(step.OtherColumn) + change;
    case StepKind::Divide:
      return Row(step.Row) + (isCarriedOut ? " has become " : " becomes ") + Row(step.Row) + " divided by " +
             Factor(step.Number) + ".";
    case StepKind::Clear:
      return Row(step.Row) + (isCarriedOut ? " has become " : " becomes ") + Subtraction(step) + ".";
    case StepKind::PivotsEnd:
      return PivotsEnd(step);
    case StepKind::Clean:
      return std::string("Every number smaller than 1E-10 in magnitude ") +
             (isCarriedOut ? "has become 0." : "becomes 0.");
    case StepKind::RestoreColumns:
      return isCarriedOut ? "The columns stand in the order of the unknowns again."
                          : "The columns go back to the order of the unknowns.";
    case StepKind::RestoreRows:
      return isCarriedOut ? "Each row has gone to the place that its column has now."
                          : "Each row goes to the place that its column has now.";
    case StepKind::Read:
      break;
  }
  return "The rows are read.";
}

std::string StepText::Subtraction(const EliminationStep& step) const {
  const std::string factor = IsUnit(step.Number) ? "" : Factor(std::abs(step.Number)) + " times ";
  return Row(step.Row) + (step.Number < 0 ? " plus " : " minus ") + factor + Row(step.OtherRow);
}

std::string StepText::ShortForm(const EliminationStep& step) const {
  const auto row = [this](int number) { return '[' + Row(number) + ']'; };
  switch (step.Kind) {
    case StepKind::ExchangeRows:
      return row(step.Row) + " <-> " + row(step.OtherRow);
    case StepKind::ExchangeColumns:
      return Column(step.Column) + " <-> " + Column(step.OtherColumn);
    case StepKind::Divide: {
      const std::string pivot = Factor(step.Number);
      return row(step.Row) + " := " + row(step.Row) + " / " + (step.Number < 0 ? '(' + pivot + ')' : pivot);
    }
    case StepKind::Clear:
      return row(step.Row) + " := " + row(step.Row) + (step.Number < 0 ? " + " : " - ") +
             (IsUnit(step.Number) ? "" : Factor(std::abs(step.Number)) + TimesSign) + row(step.OtherRow);
    default:
      return "";
  }
}

std::string StepText::Purpose(const EliminationStep& step, bool isCarriedOut) const {
  switch (step.Kind) {
    case StepKind::Pivot:
      return std::string(
                 "No number is larger in magnitude in the rows and columns that have had no pivot "
                 "yet.") +
             (step.IsTied ? "  Others are as large: the first row counts, and in it the first column." : "");
    case StepKind::ExchangeRows:
    case StepKind::ExchangeColumns:
      return isCarriedOut ? "An exchange changes no equation and no unknown, only where they stand."
                          : "So the pivot comes to its place on the diagonal.";
    case StepKind::Divide:
      return isCarriedOut ? "The pivot is 1 now." : "So the pivot becomes 1.";
    case StepKind::Clear:
      return isCarriedOut ? Column(step.Column) + " is gone from " + Row(step.Row) + "."
                          : "So " + Column(step.Column) + " goes out of " + Row(step.Row) +
                                ", where its coefficient is " + Factor(step.Number) + ".";
    case StepKind::Clean: {
      const std::string count = Counted(static_cast<int>(step.Number), "number", "numbers");
      const bool one = step.Number == 1;
      if (step.Number == 0) return "There is none: nothing changes.";
      return isCarriedOut ? "It was " + count + "."
                          : "So small " + std::string(one ? "is " : "are ") + count +
                                (one ? ", a remnant" : ", remnants") + " of rounding.";
    }
    case StepKind::RestoreColumns:
      return isCarriedOut ? "The pivots stand off the diagonal until the rows follow."
                          : "The exchanges of columns are taken back.";
    case StepKind::RestoreRows:
      return isCarriedOut ? "Each pivot stands on the diagonal, in the row and the column of its unknown."
                          : "Its column is the one that stood at the same place; so the pivots come back to "
                            "the diagonal.";
    default:
      return "";
  }
}

std::string StepText::PivotsEnd(const EliminationStep& step) const {
  const auto numPivots = static_cast<int>(story_.Pivots.size());
  if (numPivots == NumUnknowns()) return "Every unknown has its pivot.";
  if (numPivots == story_.Equations.NumRows()) return "Every equation has its pivot.";
  if (step.Row == 0) return "Only 0 is left to choose from: no further pivot.";
  return "The largest number left, " + Coefficient(step) + ", is " + Number(step.Number) +
         ": no further pivot.";
}

std::vector<std::string> StepText::View(std::size_t index, bool isCarriedOut) const {
  const EliminationStep& step = story_.Steps[index];
  std::vector<std::string> lines = {Sentence(step, isCarriedOut)};
  for (const std::string& line : {ShortForm(step), Purpose(step, isCarriedOut)}) {
    if (!line.empty()) lines.push_back(line);
  }
  if (index == 0) {
    for (std::string& line : Introduction()) lines.push_back(std::move(line));
  }
  if (isCarriedOut || !Changes(step.Kind)) {
    for (std::string& remark : Remarks(index)) lines.push_back(std::move(remark));
  }
  return lines;
}

std::string StepText::Pivot(const EliminationPivot& pivot) const {
  return Row(pivot.Row) + ", " + Column(pivot.Column) + ":  " + Factor(pivot.Value);
}

std::string StepText::OnlyPivots() const {
  return "There are " + Counted(story_.Equations.NumRows(), "equation", "equations") + " and " +
         Counted(NumUnknowns(), "unknown", "unknowns") + ".  Of systems with more than " +
         std::to_string(MostToldInSteps) +
         " equations or unknowns only the pivots are told: the row, the column and the number, in the order "
         "in which they are chosen.";
}
