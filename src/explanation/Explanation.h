// Everything that stands behind the answer, as one value: for the window, the printable report and the
// command line alike.
#pragma once

#include <future>
#include <optional>
#include <vector>

#include "analysis/Analysis.h"
#include "explanation/Advice.h"
#include "explanation/Contradiction.h"
#include "explanation/ExactVerdict.h"
#include "explanation/Rounding.h"
#include "explanation/TrussGraph.h"

struct Explanation {
  TrussGraph Graph;
  ExactReasons Exact;
  /// The forces that are determined although others are left open, ascending; empty when there is no
  /// solution, or when the solutions have them all.
  std::vector<UnknownForce> Determined;
  std::optional<ContradictionProof> Proof;  ///< when the exact outcome is Inconsistent
  std::vector<Advice> Suggestions;
  std::vector<Advice> Together;  ///< additions that hold it, where it takes several (see SetThatHolds)
  Rounding Rounded;
};

/// Of a truss with at least one unknown force.
Explanation ExplainTruss(const Truss& truss, const TrussAnalysis& analysis);

/// The explanation of one analysis, each part worked out when it is first asked for and kept from then on:
/// what rounding has to do with it costs as much as the analysis, and the whole up to several times that.
class ExplanationOnDemand {
 public:
  /// Both must outlive it and stay as they are; there must be at least one unknown force.
  ExplanationOnDemand(const Truss& truss, const TrussAnalysis& analysis)
      : truss_(truss), analysis_(analysis) {}

  const TrussAnalysis& Analysis() const { return analysis_; }
  const TrussGraph& Graph();
  const Rounding& Rounded();
  const Explanation& Whole();

  /// Whether Rounded answers at once. While it does not, a thread of its own works it out, begun by the first
  /// call; Rounded, Whole and the destructor wait for that.
  bool HasRounded();

 private:
  const Truss& truss_;
  const TrussAnalysis& analysis_;
  std::optional<TrussGraph> graph_;
  std::optional<Rounding> rounded_;
  std::future<Rounding> coming_;
  std::optional<Explanation> whole_;
};
