// Everything that stands behind the answer, as one value: for the window, the printable report and the
// command line alike.
#pragma once

#include <optional>
#include <vector>

#include "analysis/Analysis.h"
#include "explanation/Advice.h"
#include "explanation/Contradiction.h"
#include "explanation/DrawnFigures.h"
#include "explanation/ExactVerdict.h"
#include "explanation/TrussGraph.h"

struct Explanation {
  TrussGraph Graph;
  ExactReasons Exact;
  std::optional<ContradictionProof> Proof;  ///< when the exact outcome is Inconsistent
  std::vector<Advice> Suggestions;
  DrawnFigures Figures;
  Outcome Shown = Outcome::Neither;  ///< what the reduced matrix says

  /// What stands on the right of the first row without coefficients, when the reduced matrix says that there
  /// is no solution: its magnitude in force units, and as a share of the largest load. 0 otherwise.
  double Remnant = 0;
  double RemnantShare = 0;

  /// The largest force that the reduced matrix shows by the largest component of a load; 0 without either.
  double ShownMagnification = 0;

  /// Whether the exact outcome is the one that the reduced matrix shows.
  bool Agrees() const { return Exact.Verdict.Code() == Shown; }
};

/// Of a truss with at least one unknown force.
Explanation ExplainTruss(const Truss& truss, const TrussAnalysis& analysis);
