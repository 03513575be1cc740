#include "explanation/steps/StepRounding.h"

#include <algorithm>
#include <cmath>

#include "explanation/Directions.h"
#include "explanation/RigidityMatrix.h"
#include "explanation/steps/StepMatrix.h"

namespace {

constexpr const char* BecauseRounded = "because directions are rounded to single precision";

// What is not so many times smaller than another number is not called smaller.
constexpr double MuchSmaller = 10;

std::string PivotsText(int count) {
  return count == 1 ? "there is only 1 pivot" : "there are only " + Counted(count, "pivot", "pivots");
}

}  // namespace

StepRounding::StepRounding(const TrussGraph& graph, const EliminationInSteps& story, const Rounding& rounding,
                           const ReportFormat& format, ReadOn where)
    : graph_(graph), story_(story), rounding_(rounding), format_(format), where_(where) {}

// The largest number that the pivot is a sum of, or that was cancelled in it; 0 where the steps are not told.
double StepRounding::LargestBehind(int number) const {
  if (!story_.IsToldInSteps()) return 0;
  const EliminationPivot& pivot = story_.Pivots[static_cast<std::size_t>(number - 1)];
  StepMatrix matrix(story_.Equations);
  double largest = std::abs(matrix(pivot.Row, pivot.Column));
  int numPivots = 0;
  for (const EliminationStep& step : story_.Steps) {
    if (step.Kind == StepKind::Pivot && ++numPivots == number) break;
    if (step.Kind == StepKind::Clear && step.Row == pivot.Row)
      largest = std::max(largest, std::abs(step.Number * matrix(step.OtherRow, pivot.Column)));
    matrix.CarryOut(step);
    largest = std::max(largest, std::abs(matrix(pivot.Row, pivot.Column)));
  }
  return largest;
}

std::string StepRounding::OnPivot(int number, const std::string& value) const {
  if (!IsRemnant(number)) return {};
  const bool isSaidWhich =
      story_.IsToldInSteps() && (rounding_.HoldsNoNumber() || !rounding_.ShownThoughOpen.empty());
  const double share =
      LargestBehind(number) / std::abs(story_.Pivots[static_cast<std::size_t>(number - 1)].Value);
  return "Exactly " + PivotsText(rounding_.Verdict.Rank) + ", and nothing is left here: " + value +
         " is a remnant of rounding, " + BecauseRounded +
         (share >= MuchSmaller ? ", about " + PowerOfTenText(share) +
                                     " times smaller than the numbers that it is left over from"
                               : "") +
         ".  It counts as a pivot because it is not below " + PowerOfTenText(PivotTolerance) +
         ".  To divide by it makes numbers out of nothing: what follows from it " +
         (rounding_.Verdict.Code() == Outcome::Inconsistent ? "does not hold" : "is not determined") +
         (isSaidWhich ? ", and the last step says which values that are." : ".");
}

std::string StepRounding::OnPivotsEnd(double largest) const {
  const auto numPivots = static_cast<int>(story_.Pivots.size());
  if (numPivots >= rounding_.Verdict.Rank) return {};
  const std::string exactly = "Exactly there are " + std::to_string(rounding_.Verdict.Rank) + " pivots";
  return largest != 0
             ? exactly + ": not all that is left is nothing, only too small to be told from a remnant."
             : exactly + ": what is left is 0 only " + BecauseRounded + '.';
}

std::string StepRounding::OnContradiction(double rightHandSide, const std::string& value) const {
  if (rounding_.Verdict.Code() == Outcome::Inconsistent) return {};
  const double load = LargestLoad(graph_);
  const double share = load == 0 ? 0 : std::abs(rightHandSide) / load;
  const std::string none = "But exactly the equations do not contradict each other";
  if (!IsLeftByRounding(share)) return none + ": what is smaller than 1E-10 counts as nothing here.";
  return none + ": " + value + " is a remnant of rounding, " + BecauseRounded + ", about " +
         PowerOfTenText(share) + " of the largest load.";
}

bool StepRounding::Holds(int unknown) const {
  return !rounding_.HoldsNoNumber() && !std::ranges::binary_search(rounding_.ShownThoughOpen, unknown);
}

std::string StepRounding::WhatFails(bool one) const {
  if (rounding_.HoldsNoNumber()) return one ? "does not hold" : "do not hold";
  return one ? "is not determined" : "are not determined";
}

std::string StepRounding::OnReading() const {
  return NoticeBelowConclusion(graph_, rounding_, format_, where_);
}
