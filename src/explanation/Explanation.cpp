#include "explanation/Explanation.h"

#include <chrono>
#include <system_error>
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

Rounding ExactlyRounded(const TrussGraph& graph, const TrussAnalysis& analysis) {
  return RoundingOf(graph, analysis, JudgeExactly(graph));
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
  if (!rounded_) rounded_ = coming_.valid() ? coming_.get() : ExactlyRounded(Graph(), analysis_);
  return *rounded_;
}

bool ExplanationOnDemand::HasRounded() try {
  constexpr int fewestForThread = 400;  // unknowns; less takes a few milliseconds
  if (rounded_ || Graph().NumUnknowns() < fewestForThread) return true;
  if (!coming_.valid()) {
    coming_ = std::async(std::launch::async, [graph = Graph(), &analysis = analysis_] {
      return ExactlyRounded(graph, analysis);
    });
    return false;
  }
  return coming_.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
} catch (const std::system_error&) {
  return true;  // without a thread it is worked out when it is asked for
}

const Explanation& ExplanationOnDemand::Whole() {
  if (!whole_) {
    if (coming_.valid()) Rounded();
    whole_ = Explain(truss_, analysis_, Graph(), rounded_);
    rounded_ = whole_->Rounded;
  }
  return *whole_;
}
