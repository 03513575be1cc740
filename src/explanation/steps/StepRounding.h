// What rounding has to do with the steps of an elimination, in words, where it arises: a remnant that stands
// as a pivot, what is lost below the tolerance, and values that mean nothing.
#pragma once

#include <string>
#include <vector>

#include "explanation/RoundingText.h"
#include "explanation/steps/EliminationSteps.h"

/// Sentences without line breaks, single-byte texts. All say nothing where rounding changes nothing.
class StepRounding {
 public:
  /// The first three must outlive it. `where` is what the reader has before him.
  StepRounding(const TrussGraph& graph, const EliminationInSteps& story, const Rounding& rounding,
               const ReportFormat& format, ReadOn where);

  /// Whether pivot `number` (1 the first) is one that exactly is not there: there are no more of them than
  /// the exact rank.
  bool IsRemnant(int number) const { return number > rounding_.Verdict.Rank; }

  /// That pivot `number` is a remnant, how much smaller than what it is left over from, and what follows.
  std::string OnPivot(int number, const std::string& value) const;

  /// That pivots end before there are as many as there are exactly; `largest` is the largest number left.
  std::string OnPivotsEnd(double largest) const;

  /// That a row without coefficients decides wrongly, by `rightHandSide`, that there is no solution.
  std::string OnContradiction(double rightHandSide, const std::string& value) const;

  /// Whether the number that the reduced matrix gives the unknown holds, and no other would.
  bool Holds(int unknown) const;

  /// What is wrong with the numbers, or the one number, for which this is not so: they "do not hold" where no
  /// forces balance the loads, and else "are not determined", being those of one of many balanced states.
  std::string WhatFails(bool one) const;

  /// What the values are worth, and where to read on.
  std::string OnReading() const;

 private:
  double LargestBehind(int number) const;

  const TrussGraph& graph_;
  const EliminationInSteps& story_;
  const Rounding& rounding_;
  ReportFormat format_;
  ReadOn where_;
};
