#include "explanation/forces/ForcesText.h"

#include <cmath>

#include "explanation/Directions.h"
#include "explanation/DistinctNames.h"

namespace {

// More would be listened to for too long; the list beside the drawing has them all.
constexpr std::size_t MostTold = 24;

std::string WhereOf(const PlacedUnknown& unknown, const DistinctNames& names) {
  if (unknown.IsMember())
    return "member from " + names.Joint(unknown.JointA) + " to " + names.Joint(unknown.JointB);
  return "reaction at " + names.Joint(unknown.JointA) + ", positive " + DirectionOfReaction(unknown, 1);
}

std::string ForceOf(const PlacedUnknown& unknown, const ForceFound& force, const ReportFormat& format) {
  if (force.Sense == ForceSense::Undetermined) return "?";
  if (force.Sense == ForceSense::Zero) return "0";
  std::string magnitude = FormatSigFigs(std::abs(force.Value), format);
  if (unknown.IsMember()) return magnitude + (force.Sense == ForceSense::Pushing ? " C" : " T");
  return magnitude + ' ' + DirectionOfReaction(unknown, force.Value > 0 ? 1 : -1);
}

std::string CountOf(int count, const char* what) {
  return count == 0 ? std::string() : Counted(count, "member", "members") + what;
}

}  // namespace

std::vector<ForceRow> ForceRows(const TrussForces& forces, const ReportFormat& format) {
  std::vector<ForceRow> rows;
  const DistinctNames names(forces.Graph, format);
  for (int k = 1; k <= forces.Graph.NumUnknowns(); ++k) {
    const PlacedUnknown& unknown = forces.Graph.Unknowns[k];
    const ForceFound& force = forces.Unknowns[k];
    rows.push_back({.Name = unknown.Name.String(),
                    .Where = WhereOf(unknown, names),
                    .Force = ForceOf(unknown, force, format),
                    .Number = force.Sense == ForceSense::Undetermined ? WordForUnknown(forces)
                                                                      : TableNumber(force.Value, format)});
  }
  return rows;
}

std::string RoomText(int leftOut, int all) {
  if (leftOut == 0) return "Every number has its place. Drag to move, click a force to find it.";
  const bool one = leftOut == 1;
  return std::to_string(leftOut) + " of " + Counted(all, "number", "numbers") + (one ? " has" : " have") +
         " no room at this size: zoom in to see " + (one ? "it." : "them.");
}

std::string DescribeForces(const TrussForces& forces, const ReportFormat& format) {
  int pushing = 0, pulling = 0, zero = 0, open = 0;
  std::vector<std::string> members;
  const DistinctNames names(forces.Graph, format);
  for (int k = 1; k <= forces.Graph.NumUnknowns(); ++k) {
    if (!forces.Graph.Unknowns[k].IsMember()) continue;
    const ForceSense sense = forces.Unknowns[k].Sense;
    pushing += int{sense == ForceSense::Pushing};
    pulling += int{sense == ForceSense::Pulling};
    zero += int{sense == ForceSense::Zero};
    open += int{sense == ForceSense::Undetermined && forces.HasSolution()};
    members.push_back(names.Force(k) + " " + ForceOf(forces.Graph.Unknowns[k], forces.Unknowns[k], format));
  }
  std::vector<std::string> counts;
  for (const std::string& count : {CountOf(pushing, " in compression"), CountOf(pulling, " in tension"),
                                   CountOf(zero, " without force"), CountOf(open, " undetermined")}) {
    if (!count.empty()) counts.push_back(count);
  }
  std::string text =
      forces.HasSolution() ? "Drawing of the truss with its forces" : "Drawing of the truss, without forces";
  if (!counts.empty()) text += ": " + ListOf(counts);
  text += '.';
  if (forces.HasSolution() && !members.empty()) (text += ' ').append(ListOf(members, MostTold)) += '.';
  for (const std::string& remark : RemarksOn(forces)) (text += ' ') += remark;
  return text;
}
