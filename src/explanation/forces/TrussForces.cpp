#include "explanation/forces/TrussForces.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "canvas/Polar.h"
#include "document/Truss.h"
#include "explanation/DistinctNames.h"
#include "explanation/DrawnFigures.h"
#include "explanation/RigidityMatrix.h"
#include "explanation/RoundingText.h"

namespace {

constexpr char DegreeSign = '\xB0';  // in the single-byte code page

std::string NameBefore(const std::string& text, const PlacedUnknown& unknown) {
  const bool isNamed = !unknown.Name.empty() && unknown.Name != UnnamedCaption;
  return isNamed ? NameBesideValue(unknown.Name) + ' ' + text : text;
}

bool MayBeRounding(const TrussForces& forces) {
  return std::ranges::any_of(forces.Unknowns.First(forces.Unknowns.Size()),
                             [&forces](const ForceFound& force) {
                               const double magnitude = std::abs(force.Value);
                               return magnitude > 0 && magnitude < NothingWithinFigures * forces.Largest;
                             });
}

}  // namespace

std::vector<std::string> LinesOf(const PlacedUnknown& unknown, const ForceFound& force,
                                 const ReportFormat& format) {
  if (force.Sense == ForceSense::Undetermined) return {NameBefore("?", unknown)};
  if (force.Sense == ForceSense::Zero) return {NameBefore("0", unknown)};
  const bool pushes = force.Sense == ForceSense::Pushing;
  const std::string letter = !unknown.IsMember() ? "" : pushes ? " C" : " T";
  std::vector<std::string> lines = {
      NameBefore(FormatSigFigs(std::abs(force.Value), format) + letter, unknown)};
  // The arrow of a reaction that pulls is turned round, so that its number alone tells the program's sign.
  if (unknown.IsMember() || !pushes) lines.push_back('(' + TableNumber(force.Value, format) + ')');
  return lines;
}

ForceSense SenseOf(double value) {
  if (FormatSigFigs(value, {}) == "0") return ForceSense::Zero;
  return value > 0 ? ForceSense::Pushing : ForceSense::Pulling;
}

TrussForces ForcesOf(ExplanationOnDemand& reasons, const ReportFormat& format) {
  const TrussAnalysis& analysis = reasons.Analysis();
  TrussForces forces{
      .Graph = reasons.Graph(), .Code = analysis.Reading.Code, .Exact = reasons.Rounded().Verdict.Code()};
  forces.FiguresText = FiguresRemark(reasons.Rounded(), format);
  forces.HoldsNoNumber = reasons.Rounded().HoldsNoNumber();
  forces.HasMotion = reasons.Rounded().Verdict.Mechanisms() > 0;
  forces.ShowsOpenForces = !reasons.Rounded().ShownThoughOpen.empty();
  forces.HidesForces = !reasons.Rounded().Figures.Hidden.empty();
  forces.Unknowns.Resize(forces.Graph.NumUnknowns());
  for (int k = 1; k <= forces.Graph.NumUnknowns(); ++k) {
    ForceFound& force = forces.Unknowns[k];
    // What was read before a contradiction is part of no solution.
    const std::optional<double> value =
        forces.HasSolution() ? analysis.Reading.Values[k] : std::optional<double>();
    if (value) force.Sense = SenseOf(*value);
    if (value && force.Sense != ForceSense::Zero) force.Value = *value;
    force.Lines = LinesOf(forces.Graph.Unknowns[k], force, format);
    forces.Largest = std::max(forces.Largest, std::abs(force.Value));
  }
  for (const PlacedLoad& load : forces.Graph.Loads)
    forces.Loads.push_back(LoadText(load.Fx, load.Fy, format));
  return forces;
}

TrussForces ForcesOf(ExplanationOnDemand&& reasons, const ReportFormat& format) {
  return ForcesOf(reasons, format);
}

const char* WordForUnknown(const TrussForces& forces) {
  if (forces.HasSolution()) return "undetermined";
  return forces.Exact == Outcome::Inconsistent ? "no solution" : "not found";
}

std::vector<std::string> RemarksOn(const TrussForces& forces) {
  if (!forces.HasSolution() && forces.Exact == Outcome::Inconsistent)
    return {"There is no solution: no forces hold this truss in balance under these loads."};
  std::vector<std::string> remarks;
  if (!forces.HasSolution()) {
    return {
        "The reduced matrix gives no forces because of a remnant of rounding: exactly, these loads are in "
        "balance.  See \"Why this conclusion\"."};
  }
  if (forces.HoldsNoNumber) {
    remarks.emplace_back(
        "Exactly, there is no solution: these numbers come from dividing by a remnant of rounding, and none "
        "of them holds.  See \"Why this conclusion\".");
  }
  if (forces.Exact == Outcome::Inconsistent && !forces.HoldsNoNumber) {
    remarks.emplace_back(
        "Exactly, there is no solution, but within the figures of the drawing these forces balance the "
        "loads.  "
        "See \"Why this conclusion\".");
  }
  if (forces.ShowsOpenForces) {
    remarks.emplace_back(
        "Exactly, the equations leave some of these forces open: their numbers come from a remnant of "
        "rounding "
        "and are not determined.  See \"Why this conclusion\".");
  }
  if (forces.Code == Outcome::Redundant)
    remarks.emplace_back("These forces hold for these loads only: under others the truss is unstable.");
  const bool areAllDetermined =
      std::ranges::none_of(forces.Unknowns.First(forces.Unknowns.Size()),
                           [](const ForceFound& force) { return force.Sense == ForceSense::Undetermined; });
  if (!areAllDetermined) {
    remarks.emplace_back(
        forces.HidesForces
            ? "Forces with \"?\" are undetermined by the reduced matrix; exactly, the equations "
              "leave not all of them open.  See \"Why this conclusion\"."
            : "Forces with \"?\" are undetermined: the equations leave them open.");
  }
  if (MayBeRounding(forces)) {
    remarks.emplace_back(
        "Forces below a millionth of the largest may be remnants of rounding: their sense is not sure.");
  }
  if (!forces.FiguresText.empty()) remarks.push_back(forces.FiguresText);
  // No number can be large against no load.
  const double load = LargestLoad(forces.Graph);
  if (load > 0 && forces.Largest > NearlyAMechanism * load) {
    remarks.push_back("The largest force is more than a thousand times the largest load: " +
                      std::string(forces.HasMotion
                                      ? "the truss is a mechanism, and a remnant of rounding was divided by."
                                      : "the truss is nearly a mechanism."));
  }
  return remarks;
}

std::string LoadText(float fx, float fy, const ReportFormat& format) {
  if (fx == 0 && fy == 0) return {};
  if (fx == 0 || fy == 0) return FormatSigFigs(std::abs(fx + fy), format);
  const PolarVector polar = RectangularToPolar(DegreeMode, fx, fy);
  return FormatSigFigs(polar.Magnitude, format) + " at " + TableNumber(polar.Angle, format) + DegreeSign;
}
