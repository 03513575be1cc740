#include "explanation/Explanation.h"

#include <utility>

#include "explanation/HoldingSet.h"
#include "explanation/TrussExtent.h"

namespace {

std::vector<UnknownForce> DeterminedForces(const TrussGraph& graph, const ExactReasons& exact) {
  std::vector<UnknownForce> determined;
  if (exact.Verdict.SelfStresses() == 0 || exact.Verdict.Code() == Outcome::Inconsistent) return determined;
  const Table<double> forces = ForcesWithFreeAt0(graph, exact.Open.Free, exact.Verdict.Rank);
  for (const int k : exact.Verdict.Determined) determined.push_back({k, forces[k]});
  return determined;
}

// `rounding` where it is known.
Explanation Explain(const Truss& truss, const TrussAnalysis& analysis, TrussGraph graph,
                    std::optional<Rounding> rounding) {
  Explanation explanation;
  explanation.Graph = std::move(graph);
  explanation.Exact = ReasonExactly(explanation.Graph);
  explanation.Determined = DeterminedForces(explanation.Graph, explanation.Exact);
  explanation.Proof = ProveContradiction(explanation.Graph, explanation.Exact.Motions);
  const NearPlaces near(truss.Settings, UsuallyDrawn(truss), ExtentOf(explanation.Graph).Size());
  explanation.Suggestions = AdviceFor(explanation.Graph, explanation.Exact, near);
  explanation.Together = SetThatHolds(explanation.Graph, explanation.Exact, near);
  explanation.Rounded =
      rounding ? *std::move(rounding) : RoundingOf(explanation.Graph, analysis, explanation.Exact.Verdict);
  return explanation;
}

}  // namespace

Explanation ExplainTruss(const Truss& truss, const TrussAnalysis& analysis) {
  return Explain(truss, analysis, GraphOf(truss, analysis), std::nullopt);
}

const TrussGraph& ExplanationOnDemand::Graph() {
  if (!graph_) graph_ = GraphOf(truss_, analysis_);
  return *graph_;
}

const Rounding& ExplanationOnDemand::Rounded() {
  if (!rounded_) rounded_ = RoundingOf(Graph(), analysis_, JudgeExactly(Graph()));
  return *rounded_;
}

const Explanation& ExplanationOnDemand::Whole() {
  if (!whole_) {
    whole_ = Explain(truss_, analysis_, Graph(), rounded_);
    rounded_ = whole_->Rounded;
  }
  return *whole_;
}
