#include "explanation/Rounding.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "explanation/RigidityMatrix.h"

namespace {

// Of the first row that contradicts.
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

Rounding RoundingOf(const TrussGraph& graph, const TrussAnalysis& analysis, ExactVerdict verdict) {
  Rounding rounding;
  rounding.Verdict = std::move(verdict);
  rounding.Figures = FiguresOf(graph, analysis, rounding.Verdict);
  rounding.Shown = analysis.Reading.Code;
  const double load = LargestLoad(graph);
  if (load == 0) return rounding;
  if (rounding.Shown != Outcome::Inconsistent) {
    rounding.ShownMagnification = LargestShownForce(analysis) / load;
  } else if (!rounding.Agrees()) {
    rounding.Remnant = ContradictingValue(analysis.System);
    rounding.RemnantShare = rounding.Remnant / load;
  }
  return rounding;
}
