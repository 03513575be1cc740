#include "explanation/OpenForcesText.h"

#include <algorithm>
#include <map>
#include <vector>

#include "explanation/Directions.h"

namespace {

constexpr std::size_t MostNamed = 24;
constexpr std::size_t MostInAGroup = 12;
constexpr std::size_t MostGroups = 12;

}  // namespace

std::string DeterminedText(const Explanation& explanation, const DistinctNames& names,
                           const ReportFormat& format) {
  std::vector<std::string> values;
  for (const UnknownForce& force : explanation.Determined)
    values.push_back(names.Force(force.Unknown) + " = " + FormatSigFigs(force.Value, format));
  std::vector<int> open = explanation.Exact.Open.Free;
  for (const DependentForce& force : explanation.Exact.Open.Dependent) open.push_back(force.Unknown);
  std::ranges::sort(open);
  const std::string left = "Left open by the equations: " + names.Forces(open, MostNamed) + ".";
  if (values.empty()) return left;
  return "Determined whatever the others are: " + ListOf(values, MostNamed) + ".  " + left;
}

std::string FreeForcesText(const Explanation& explanation, const DistinctNames& names) {
  const OpenForces& open = explanation.Exact.Open;
  std::string text = open.Free.size() == 1
                         ? "One force can be chosen freely, for example "
                         : std::to_string(open.Free.size()) + " forces can be chosen freely, for example ";
  text += names.Forces(open.Free, MostNamed) + ".";
  std::map<std::vector<int>, std::vector<int>> groups;  // by what they depend on
  for (const DependentForce& force : open.Dependent) groups[force.On].push_back(force.Unknown);
  std::string dependences;
  std::size_t numTold = 0;
  int numLeft = 0;
  for (const auto& [on, unknowns] : groups) {
    if (numTold == MostGroups) {
      numLeft += static_cast<int>(unknowns.size());
      continue;
    }
    ++numTold;
    dependences += (dependences.empty() ? "" : "; ") + names.Forces(unknowns, MostInAGroup) +
                   (unknowns.size() == 1 ? " depends on " : " depend on ") + names.Forces(on, MostInAGroup);
  }
  if (numLeft > 0) dependences += "; and so on for " + Counted(numLeft, "more force", "more forces");
  if (!dependences.empty()) text += "  The others then follow: " + dependences + ".";
  // A member without length is stressed by nothing.
  const bool isOneStressed = !open.Dependent.empty() || std::ranges::any_of(open.Free, [&](int k) {
    const PlacedUnknown& unknown = explanation.Graph.Unknowns[k];
    return unknown.JointA != unknown.JointB;
  });
  if (!isOneStressed) return text;
  return text + "  Which values they take depends on how the members behave under stress.";
}
