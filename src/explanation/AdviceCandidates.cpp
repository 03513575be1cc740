#include "explanation/AdviceCandidates.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>

#include "explanation/At.h"
#include "explanation/MovingPieces.h"

namespace {

// Displacements that a roller or a member is to stop; it would hardly hold smaller ones.
constexpr double SmallestHeld = 1e-3;

// Members that are looked at for each motion, so that a drawing full of mistakes does not take for ever.
constexpr int MostTries = 1000;

double SquaredLength(const TrussGraph& graph, int a, int b) {
  const double x = double{graph.Joints[a].X} - double{graph.Joints[b].X};
  const double y = double{graph.Joints[a].Y} - double{graph.Joints[b].Y};
  return x * x + y * y;
}

}  // namespace

AdviceCandidates::AdviceCandidates(const TrussGraph& graph, const ExactReasons& reasons,
                                   const NearPlaces& near)
    : graph_(graph), reasons_(reasons), near_(near), shortestAt_(graph.NumJoints()) {
  for (double& shortest : shortestAt_.First(shortestAt_.Size()))
    shortest = std::numeric_limits<double>::infinity();
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    const PlacedUnknown& unknown = graph.Unknowns[k];
    if (!unknown.IsMember()) {
      held_.insert({unknown.JointA, unknown.Along});
      continue;
    }
    joined_.insert(std::minmax(unknown.JointA, unknown.JointB));
    hasMember_.insert({unknown.JointA, unknown.JointB});
    const double length = SquaredLength(graph, unknown.JointA, unknown.JointB);
    for (const int joint : {unknown.JointA, unknown.JointB})
      shortestAt_[joint] = std::min(shortestAt_[joint], length);
  }
}

std::vector<Advice> AdviceCandidates::EndsToJoin() const {
  std::vector<Advice> ends;
  near_.ForEachPair(graph_.Joints, [&](int first, int second) {
    if (!IsAGap(first, second)) return true;
    ends.push_back({.Kind = AdviceKind::JoinEnds, .JointA = first, .JointB = second});
    return ends.size() < At(MostAdvice);
  });
  return ends;
}

// Beside the members that end there, so that joints with a member between them have none; in a drawing of
// many small members all joints are near each other.
bool AdviceCandidates::IsAGap(int first, int second) const {
  constexpr double oneQuarter = 0.25 * 0.25;
  const double gap = SquaredLength(graph_, first, second);
  return gap <= oneQuarter * std::min(shortestAt_[first], shortestAt_[second]);
}

std::vector<Advice> AdviceCandidates::RollersToTurn() const {
  std::vector<std::pair<double, Advice>> candidates;
  for (int k = 1; k <= graph_.NumUnknowns(); ++k) {
    const PlacedUnknown& roller = graph_.Unknowns[k];
    if (roller.IsMember() || IsSupported(graph_, roller.JointA, k)) continue;
    const Axis other = roller.Along == Axis::X ? Axis::Y : Axis::X;
    const double size = LargestDisplacement(roller.JointA, other);
    if (size <= SmallestHeld) continue;
    candidates.emplace_back(
        -size, Advice{.Kind = AdviceKind::TurnRoller, .JointA = roller.JointA, .Along = other, .Unknown = k});
  }
  std::ranges::stable_sort(candidates, {}, [](const auto& candidate) { return candidate.first; });
  std::vector<Advice> turns;
  for (const auto& [size, turn] : candidates) {
    if (turns.size() < At(MostRollersTurned)) turns.push_back(turn);
  }
  return turns;
}

double AdviceCandidates::LargestDisplacement(int joint, Axis axis) const {
  double largest = 0;
  for (const Motion& motion : reasons_.Motions) {
    for (const JointDisplacement& at : motion.Joints) {
      if (at.Joint == joint) largest = std::max(largest, std::abs(axis == Axis::X ? at.Dx : at.Dy));
    }
  }
  return largest;
}

std::vector<Advice> AdviceCandidates::Rollers(const Motion& motion) const {
  std::vector<std::tuple<bool, double, Advice>> candidates;
  for (const JointDisplacement& at : motion.Joints) {
    for (const auto& [axis, size] :
         {std::pair(Axis::X, std::abs(at.Dx)), std::pair(Axis::Y, std::abs(at.Dy))}) {
      const bool standsThere = IsHeld(at.Joint, Axis::X) || IsHeld(at.Joint, Axis::Y);
      if (size > SmallestHeld && !IsHeld(at.Joint, axis)) {
        candidates.emplace_back(standsThere, -size,
                                Advice{.Kind = AdviceKind::AddRoller, .JointA = at.Joint, .Along = axis});
      }
    }
  }
  std::ranges::stable_sort(candidates, {}, [](const auto& candidate) {
    return std::pair(std::get<0>(candidate), std::get<1>(candidate));
  });
  std::vector<Advice> rollers;
  for (const auto& [standsThere, size, roller] : candidates) {
    if (rollers.size() == 2 || (standsThere && !rollers.empty())) break;
    rollers.push_back(roller);
  }
  return rollers;
}

std::vector<Advice> AdviceCandidates::Members(const Motion& motion) const {
  std::vector<PossibleMember> candidates = MembersAgainst(motion);
  const auto isLater = [](const PossibleMember& left, const PossibleMember& right) {
    return std::tie(left.Length, left.Joints) > std::tie(right.Length, right.Joints);
  };
  std::ranges::make_heap(candidates, isLater);
  std::vector<Advice> members;
  std::pair<int, int> last;
  for (int tries = 0; !candidates.empty() && tries < MostTries && members.size() < At(MostAdvice); ++tries) {
    const std::pair<int, int> pair = candidates.front().Joints;
    std::ranges::pop_heap(candidates, isLater);
    candidates.pop_back();
    if (pair == std::exchange(last, pair) || IsADrawingMistake(pair.first, pair.second)) continue;
    members.push_back({.Kind = AdviceKind::AddMember, .JointA = pair.first, .JointB = pair.second});
  }
  return members;
}

std::vector<AdviceCandidates::PossibleMember> AdviceCandidates::MembersAgainst(const Motion& motion) const {
  const std::vector<double> moved = DisplacementsByColumn(graph_, motion);
  std::vector<PossibleMember> candidates;
  for (const JointDisplacement& at : motion.Joints) {
    for (int other = 1; other <= graph_.NumJoints(); ++other) {
      if (other == at.Joint) continue;
      const double x = double{graph_.Joints[at.Joint].X} - double{graph_.Joints[other].X};
      const double y = double{graph_.Joints[at.Joint].Y} - double{graph_.Joints[other].Y};
      const double length = std::sqrt(x * x + y * y);
      const double lengthening = (x * (at.Dx - moved[At(ColumnOf(other, Axis::X))]) +
                                  y * (at.Dy - moved[At(ColumnOf(other, Axis::Y))])) /
                                 length;
      if (std::abs(lengthening) > SmallestHeld) candidates.push_back({length, std::minmax(at.Joint, other)});
    }
  }
  return candidates;
}

// What the checks of the drawing would find in a member between two joints.
bool AdviceCandidates::IsADrawingMistake(int a, int b) const {
  const Table<PlacedJoint>& joints = graph_.Joints;
  if ((!hasMember_.contains(a) && !hasMember_.contains(b)) || joined_.contains(std::minmax(a, b)) ||
      near_.Meet(joints[a], joints[b]))
    return true;
  const MemberLine line(joints[a], joints[b]);
  for (int j = 1; j <= graph_.NumJoints(); ++j) {
    if (j != a && j != b && (near_.PassesThrough(line, joints[j]) || IsBetween(j, a, b))) return true;
  }
  return std::ranges::any_of(joined_, [&](const std::pair<int, int>& member) {
    const auto& [c, d] = member;
    return near_.LieOnOneAnother(joints[a], joints[b], joints[c], joints[d]) ||
           (AreClose(a, c) && AreClose(b, d)) || (AreClose(a, d) && AreClose(b, c));
  });
}

bool AdviceCandidates::AreClose(int a, int b) const {
  return a == b || near_.Meet(graph_.Joints[a], graph_.Joints[b]);
}

// However small the drawing is.
bool AdviceCandidates::IsBetween(int j, int a, int b) const {
  const double detour = std::sqrt(SquaredLength(graph_, a, j)) + std::sqrt(SquaredLength(graph_, j, b));
  return detour < std::sqrt(SquaredLength(graph_, a, b)) * (1 + 1e-6);
}

std::vector<Advice> AdviceCandidates::ToRemove() const {
  std::set<int> inSelfStress;
  for (const SelfStress& stress : reasons_.SelfStresses) {
    for (const UnknownForce& force : stress.Forces) inSelfStress.insert(force.Unknown);
  }
  std::vector<int> unknowns(inSelfStress.begin(), inSelfStress.end());
  const auto isReaction = [this](int k) { return !graph_.Unknowns[k].IsMember(); };
  const auto lengthOf = [this](int k) {
    return SquaredLength(graph_, graph_.Unknowns[k].JointA, graph_.Unknowns[k].JointB);
  };
  const auto members = std::stable_partition(unknowns.begin(), unknowns.end(), isReaction);
  std::stable_sort(members, unknowns.end(),
                   [&lengthOf](int left, int right) { return lengthOf(left) > lengthOf(right); });
  if (members - unknowns.begin() > MostReactionsAdvised)
    unknowns.erase(unknowns.begin() + MostReactionsAdvised, members);
  if (unknowns.size() > At(MostAdvice)) unknowns.resize(At(MostAdvice));
  std::vector<Advice> removals;
  for (const int k : unknowns) removals.push_back({.Kind = AdviceKind::Remove, .Unknown = k});
  return removals;
}

bool AdviceCandidates::IsOfAPartApart(const Motion& motion) const {
  const std::vector<MovingPiece> moving = PieceFinder(graph_).Of(motion);
  if (moving.size() != 1) return false;
  const TrussPieces parts = PiecesOf(graph_);
  const int part = parts.OfJoint[motion.Joints.front().Joint];
  std::size_t numOfPart = 0;
  std::size_t numOfOthers = 0;
  for (const PlacedUnknown& unknown : graph_.Unknowns.First(graph_.NumUnknowns())) {
    if (unknown.IsMember()) ++(parts.OfJoint[unknown.JointA] == part ? numOfPart : numOfOthers);
  }
  return numOfOthers > 0 && moving.front().Members.size() == numOfPart;
}

double AdviceCandidates::SquaredLengthOf(const Advice& advice) const {
  return advice.JointB == 0 ? 0 : SquaredLength(graph_, advice.JointA, advice.JointB);
}
