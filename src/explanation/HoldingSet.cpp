#include "explanation/HoldingSet.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <tuple>

namespace {

// Each addition takes an analysis of its own.
constexpr int MostAdditions = 8;
constexpr int MostJoints = 200;

TrussGraph WithAddition(const TrussGraph& graph, const Advice& advice) {
  TrussGraph with = graph;
  with.Unknowns.Resize(graph.NumUnknowns() + 1);
  with.Unknowns[with.NumUnknowns()] = {
      .JointA = advice.JointA, .JointB = advice.JointB, .Along = advice.Along};
  return with;
}

Advice RollerAt(int joint, Axis along) {
  return {.Kind = AdviceKind::AddRoller, .JointA = joint, .Along = along, .Stops = 1};
}

// A clamp at the lowest joint on the left, and a roller as far from it sideways as can be, the lower the
// better. Of a truss in several pieces, in the clamp's.
std::optional<std::vector<Advice>> ClampAndRoller(const TrussGraph& graph, int motions) {
  const Table<std::vector<int>> unknownsAt = UnknownsByJoint(graph);
  const TrussPieces pieces = PiecesOf(graph);
  const Table<PlacedJoint>& joints = graph.Joints;
  int clamp = 0;
  for (int j = 1; j <= graph.NumJoints(); ++j) {
    if (unknownsAt[j].empty()) continue;
    const bool isBetter =
        clamp == 0 || std::tuple(joints[j].Y, joints[j].X) < std::tuple(joints[clamp].Y, joints[clamp].X);
    if (isBetter) clamp = j;
  }
  if (clamp == 0) return std::nullopt;
  int roller = 0;
  const auto rank = [&](int j) {
    const float away = std::abs(joints[j].X - joints[clamp].X);
    return std::tuple(away == 0, joints[j].Y, -away);
  };
  for (int j = 1; j <= graph.NumJoints(); ++j) {
    if (j == clamp || pieces.OfJoint[j] != pieces.OfJoint[clamp]) continue;
    if (roller == 0 || rank(j) < rank(roller)) roller = j;
  }
  if (roller == 0) return std::nullopt;
  const Axis along = joints[roller].X == joints[clamp].X ? Axis::X : Axis::Y;
  std::vector<Advice> both{RollerAt(clamp, Axis::X), RollerAt(clamp, Axis::Y), RollerAt(roller, along)};
  TrussGraph with = graph;
  for (const Advice& advice : both) with = WithAddition(with, advice);
  if (JudgeExactly(with).Mechanisms() != motions - 3) return std::nullopt;
  return both;
}

}  // namespace

bool HasNoSupports(const TrussGraph& graph) {
  return std::ranges::all_of(graph.Unknowns.First(graph.NumUnknowns()), &PlacedUnknown::IsMember);
}

std::vector<Advice> SetThatHolds(const TrussGraph& graph, const ExactReasons& reasons,
                                 const NearPlaces& near) {
  const int motions = reasons.Verdict.Mechanisms();
  if (motions < 2 || motions > MostAdditions || graph.NumJoints() > MostJoints) return {};
  std::vector<Advice> set;
  TrussGraph with = graph;
  if (HasNoSupports(graph)) set = ClampAndRoller(graph, motions).value_or(std::vector<Advice>{});
  for (const Advice& advice : set) with = WithAddition(with, advice);
  while (static_cast<int>(set.size()) < motions) {
    const std::vector<Advice> next = AdviceFor(with, ReasonExactly(with), near);
    const auto addition = std::ranges::find_if(next, &Advice::IsAddition);
    if (addition == next.end()) return {};
    set.push_back(*addition);
    with = WithAddition(with, *addition);
  }
  if (JudgeExactly(with).Mechanisms() > 0) return {};
  return set;
}
