#include "explanation/Rounding.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "analysis/EliminationLimits.h"
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

int NumPivots(const EquationSystem& system) {
  int pivots = 0;
  for (int row = 1; row <= system.EquationMatrix.NumRows(); ++row) {
    const auto entries = system.EquationMatrix.Row(row);
    pivots += !entries.empty() && entries.front().Column <= system.NumUnknowns() ? 1 : 0;
  }
  return pivots;
}

double LargestShownForce(const TrussAnalysis& analysis) {
  double largest = 0;
  for (int k = 1; k <= analysis.Reading.Values.Size(); ++k) {
    const std::optional<double>& value = analysis.Reading.Values[k];
    if (value) largest = std::max(largest, std::abs(*value));
  }
  return largest;
}

std::vector<VanishedCoefficient> VanishedFrom(const TrussGraph& graph) {
  std::vector<VanishedCoefficient> vanished;
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    const PlacedUnknown& member = graph.Unknowns[k];
    if (!member.IsMember()) continue;
    const PlacedJoint& a = graph.Joints[member.JointA];
    const PlacedJoint& b = graph.Joints[member.JointB];
    const double x = std::abs(WrittenDifference(a.X, b.X));
    const double y = std::abs(WrittenDifference(a.Y, b.Y));
    const double least = PivotTolerance * std::max(x, y);
    if (x > 0 && x < least) vanished.push_back({k, Axis::X});
    if (y > 0 && y < least) vanished.push_back({k, Axis::Y});
  }
  return vanished;
}

std::vector<int> OpenYetShown(const TrussAnalysis& analysis, const ExactVerdict& verdict) {
  std::vector<int> unknowns;
  if (analysis.Reading.Code == Outcome::Inconsistent || verdict.Code() == Outcome::Inconsistent)
    return unknowns;
  for (int k = 1; k <= analysis.Reading.Values.Size(); ++k) {
    if (analysis.Reading.Values[k] && !std::ranges::binary_search(verdict.Determined, k))
      unknowns.push_back(k);
  }
  return unknowns;
}

}  // namespace

bool Rounding::HoldsNoNumber() const {
  return Shown != Outcome::Inconsistent && Verdict.Code() == Outcome::Inconsistent &&
         (Figures.Within == Outcome::Inconsistent || ShownMagnification > NearlyAMechanism);
}

Rounding RoundingOf(const TrussGraph& graph, const TrussAnalysis& analysis, ExactVerdict verdict) {
  Rounding rounding;
  rounding.Verdict = std::move(verdict);
  rounding.Figures = FiguresOf(graph, analysis, rounding.Verdict);
  rounding.Shown = analysis.Reading.Code;
  rounding.ShownRank = NumPivots(analysis.System);
  rounding.ShownThoughOpen = OpenYetShown(analysis, rounding.Verdict);
  if (!rounding.Agrees()) rounding.Vanished = VanishedFrom(graph);
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
