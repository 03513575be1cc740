#include "explanation/Oversights.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "explanation/At.h"

namespace {

// A drawing full of mistakes does not take for ever.
constexpr int MostCandidates = 20;

// The numbers of the joints that the member passes, in their order along it. One that nearly meets an end of
// it is meant to be that end.
std::vector<int> JointsUnder(const TrussGraph& graph, const Table<std::vector<int>>& unknownsAt, int member,
                             const NearPlaces& near) {
  const int a = graph.Unknowns[member].JointA;
  const int b = graph.Unknowns[member].JointB;
  const MemberLine line(graph.Joints[a], graph.Joints[b]);
  const auto isAnEnd = [&](int j) {
    return near.Meet(graph.Joints[a], graph.Joints[j]) || near.Meet(graph.Joints[b], graph.Joints[j]);
  };
  std::vector<std::pair<double, int>> found;
  for (int j = 1; j <= graph.NumJoints(); ++j) {
    if (unknownsAt[j].empty() || !near.PassesThrough(line, graph.Joints[j]) || isAnEnd(j)) continue;
    found.emplace_back(line.See(graph.Joints[j]).Along, j);
  }
  std::ranges::sort(found);
  std::vector<int> joints;
  for (const auto& [along, j] : found) joints.push_back(j);
  return joints;
}

TrussGraph SplitAt(const TrussGraph& graph, int member, const std::vector<int>& joints) {
  TrussGraph split = graph;
  const int end = graph.Unknowns[member].JointB;
  int last = member;
  for (const int j : joints) {
    split.Unknowns[last].JointB = j;
    split.Unknowns.Resize(split.NumUnknowns() + 1);
    last = split.NumUnknowns();
    split.Unknowns[last] = {.JointA = j, .JointB = end};
  }
  return split;
}

double DisplacementAlong(const Motion& motion, int joint, Axis axis) {
  const auto at = std::ranges::find(motion.Joints, joint, &JointDisplacement::Joint);
  if (at == motion.Joints.end()) return 0;
  return std::abs(axis == Axis::X ? at->Dx : at->Dy);
}

std::vector<Advice> ForcesToMove(const TrussGraph& graph) {
  const Table<std::vector<int>> unknownsAt = UnknownsByJoint(graph);
  std::vector<Advice> found;
  for (int j = 1; j <= graph.NumJoints() && found.size() < At(MostAdvice); ++j) {
    const bool isLoaded = std::ranges::any_of(graph.Loads, [j](const PlacedLoad& load) {
      return load.Joint == j && (load.Fx != 0 || load.Fy != 0);
    });
    // Such a joint moves as it likes, in two ways.
    if (isLoaded && unknownsAt[j].empty())
      found.push_back({.Kind = AdviceKind::MoveForce, .JointA = j, .Stops = 2});
  }
  return found;
}

std::vector<Advice> MembersToSplit(const TrussGraph& graph, const ExactVerdict& verdict,
                                   const NearPlaces& near) {
  const Table<std::vector<int>> unknownsAt = UnknownsByJoint(graph);
  std::vector<Advice> found;
  int tries = 0;
  for (int k = 1; k <= graph.NumUnknowns() && tries < MostCandidates && found.size() < At(MostAdvice); ++k) {
    if (!graph.Unknowns[k].IsMember()) continue;
    std::vector<int> joints = JointsUnder(graph, unknownsAt, k, near);
    if (joints.empty()) continue;
    ++tries;
    const int stops = verdict.Mechanisms() - JudgeExactly(SplitAt(graph, k, joints)).Mechanisms();
    if (stops <= 0) continue;
    found.push_back(
        {.Kind = AdviceKind::SplitMember, .Unknown = k, .Stops = stops, .Through = std::move(joints)});
  }
  return found;
}

std::vector<Advice> RollersToClamp(const TrussGraph& graph, const ExactReasons& reasons) {
  constexpr double smallestHeld = 1e-3;  // it would hardly hold a smaller displacement
  std::vector<Advice> found;
  int tries = 0;
  for (int k = 1;
       k <= graph.NumUnknowns() && tries < MostCandidates && found.size() < At(MostClampsForRollers); ++k) {
    const PlacedUnknown& roller = graph.Unknowns[k];
    if (roller.IsMember() || IsSupported(graph, roller.JointA, k)) continue;
    const Axis other = roller.Along == Axis::X ? Axis::Y : Axis::X;
    const bool moves = std::ranges::any_of(reasons.Motions, [&](const Motion& motion) {
      return motion.Kind == MotionKind::Rigid &&
             DisplacementAlong(motion, roller.JointA, other) > smallestHeld;
    });
    if (!moves) continue;
    ++tries;
    TrussGraph with = graph;
    with.Unknowns.Resize(graph.NumUnknowns() + 1);
    with.Unknowns[with.NumUnknowns()] = {.JointA = roller.JointA, .Along = other};
    const int stops = reasons.Verdict.Mechanisms() - JudgeExactly(with).Mechanisms();
    if (stops > 0) {
      found.push_back({.Kind = AdviceKind::ClampForRoller,
                       .JointA = roller.JointA,
                       .Along = other,
                       .Unknown = k,
                       .Stops = stops});
    }
  }
  return found;
}

}  // namespace

std::vector<Advice> Oversights(const TrussGraph& graph, const ExactReasons& reasons, const NearPlaces& near,
                               const std::vector<Advice>& others) {
  std::vector<Advice> advice = ForcesToMove(graph);
  for (const Advice& split : MembersToSplit(graph, reasons.Verdict, near)) advice.push_back(split);
  if (std::ranges::find(others, AdviceKind::TurnRoller, &Advice::Kind) != others.end()) return advice;
  for (const Advice& clamp : RollersToClamp(graph, reasons)) {
    const bool isAdded = std::ranges::any_of(others, [&clamp](const Advice& other) {
      return other.Kind == AdviceKind::AddRoller && other.JointA == clamp.JointA;
    });
    if (!isAdded) advice.push_back(clamp);
  }
  return advice;
}
