#include "explanation/Explanation.h"

#include <algorithm>
#include <cmath>

#include "explanation/RigidityMatrix.h"

namespace {

// The first row that contradicts.
double ContradictingValue(const EquationSystem& system) {
  for (int row = 1; row <= system.EquationMatrix.NumRows(); ++row) {
    const auto entries = system.EquationMatrix.Row(row);
    if (!entries.empty() && entries.front().Column > system.NumUnknowns())
      return std::abs(entries.front().Value);
  }
  return 0;
}

double LargestShownForce(const TrussAnalysis& analysis) {
  double largest = 0;
  for (int k = 1; k <= analysis.Reading.Values.Size(); ++k) {
    const std::optional<double>& value = analysis.Reading.Values[k];
    if (value) largest = std::max(largest, std::abs(*value));
  }
  return largest;
}

}  // namespace

Explanation ExplainTruss(const Truss& truss, const TrussAnalysis& analysis) {
  Explanation explanation;
  explanation.Graph = GraphOf(truss, analysis);
  explanation.Exact = ReasonExactly(explanation.Graph);
  explanation.Proof = ProveContradiction(explanation.Graph, explanation.Exact.Motions);
  explanation.Suggestions = AdviceFor(explanation.Graph, explanation.Exact);
  explanation.Figures = FiguresOf(explanation.Graph, analysis, explanation.Exact.Verdict);
  explanation.Shown = analysis.Reading.Code;
  double load = 0;
  for (const double component : LoadVector(explanation.Graph)) load = std::max(load, std::abs(component));
  if (load == 0) return explanation;
  if (explanation.Shown != Outcome::Inconsistent) {
    explanation.ShownMagnification = LargestShownForce(analysis) / load;
  } else if (!explanation.Agrees()) {
    explanation.Remnant = ContradictingValue(analysis.System);
    explanation.RemnantShare = explanation.Remnant / load;
  }
  return explanation;
}
