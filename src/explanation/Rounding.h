// What rounding has to do with the answer: the exact verdict beside what the reduced matrix shows.
#pragma once

#include <vector>

#include "analysis/Analysis.h"
#include "explanation/DrawnFigures.h"
#include "explanation/ExactVerdict.h"
#include "explanation/TrussGraph.h"

/// A direction so nearly along the other axis that it counts as being along it.
struct VanishedCoefficient {
  int Unknown = 0;
  Axis Along = Axis::X;
};

/// Whether what stands on the right of a row without coefficients, as a share of the largest load, is so
/// small that the rounding of directions can have left it.
inline bool IsLeftByRounding(double share) { return share > 0 && share < 1e-3; }

struct Rounding {
  ExactVerdict Verdict;
  DrawnFigures Figures;
  Outcome Shown = Outcome::Neither;  ///< what the reduced matrix says

  /// What stands on the right of the first row without coefficients, when the reduced matrix says that there
  /// is no solution and is wrong: its magnitude in force units, and as a share of the largest load. 0
  /// otherwise.
  double Remnant = 0;
  double RemnantShare = 0;

  /// The coefficients of members that the equations have and the reduced matrix does not, being smaller than
  /// every pivot; where the outcomes differ.
  std::vector<VanishedCoefficient> Vanished;

  bool IsRemnantOfRounding() const { return Remnant > 0 && IsLeftByRounding(RemnantShare); }

  /// The largest force that the reduced matrix shows by the largest load; 0 without either.
  double ShownMagnification = 0;

  /// The pivots of the reduced matrix.
  int ShownRank = 0;

  /// Unknowns that the equations leave open, exactly, and that the reduced matrix shows with a value;
  /// ascending.
  std::vector<int> ShownThoughOpen;

  /// Whether no number that the reduced matrix shows for a force holds: there are none that balance the
  /// loads, not within the figures of the drawing either.
  bool HoldsNoNumber() const;

  /// Whether the exact outcome is the one that the reduced matrix shows.
  bool Agrees() const { return Verdict.Code() == Shown; }
};

Rounding RoundingOf(const TrussGraph& graph, const TrussAnalysis& analysis, ExactVerdict verdict);
