#include "explanation/Explanation.h"

#include <utility>

namespace {

// `rounding` where it is known.
Explanation Explain(const Truss& truss, const TrussAnalysis& analysis, TrussGraph graph,
                    std::optional<Rounding> rounding) {
  Explanation explanation;
  explanation.Graph = std::move(graph);
  explanation.Exact = ReasonExactly(explanation.Graph);
  explanation.Proof = ProveContradiction(explanation.Graph, explanation.Exact.Motions);
  explanation.Suggestions =
      AdviceFor(explanation.Graph, explanation.Exact, NearPlaces(truss.Settings, UsuallyDrawn(truss)));
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
