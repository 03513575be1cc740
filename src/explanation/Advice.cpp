#include "explanation/Advice.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>
#include <tuple>
#include <utility>

#include "explanation/At.h"
#include "explanation/Oversights.h"
#include "explanation/RigidityMatrix.h"

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

class Adviser {
 public:
  Adviser(const TrussGraph& graph, const ExactReasons& reasons, const NearPlaces& near)
      : graph_(graph), reasons_(reasons), near_(near), shortestAt_(graph.NumJoints()) {
    for (double& shortest : shortestAt_.First(shortestAt_.Size()))
      shortest = std::numeric_limits<double>::infinity();
    for (int k = 1; k <= graph.NumUnknowns(); ++k) {
      const PlacedUnknown& unknown = graph.Unknowns[k];
      if (unknown.IsMember()) {
        joined_.insert(std::minmax(unknown.JointA, unknown.JointB));
        hasMember_.insert({unknown.JointA, unknown.JointB});
        const double length = SquaredLength(graph, unknown.JointA, unknown.JointB);
        for (const int joint : {unknown.JointA, unknown.JointB})
          shortestAt_[joint] = std::min(shortestAt_[joint], length);
      } else {
        held_.insert({unknown.JointA, unknown.Along});
      }
    }
  }

  std::vector<Advice> All() {
    if (NumMotions() > 0) {
      JoinEnds();
      TurnRollers();
      AddRollers();
      AddMembers();
    }
    Remove();
    return std::move(advice_);
  }

 private:
  int NumMotions() const { return reasons_.Verdict.Mechanisms(); }

  bool HasEnough() const {
    return std::ranges::count_if(advice_, &Advice::IsAddition) >= std::ptrdiff_t{MostAdvice};
  }

  // What the joints with one number are then stays behind as a joint without anything, which moves as it
  // likes.
  void JoinEnds() {
    int numTried = 0;
    near_.ForEachPair(graph_.Joints, [&](int first, int second) {
      if (joined_.contains({first, second}) || !IsAGap(first, second)) return true;
      TrussGraph joined = graph_;
      for (PlacedUnknown& unknown : joined.Unknowns.First(joined.NumUnknowns())) {
        if (unknown.JointA == second) unknown.JointA = first;
        if (unknown.JointB == second) unknown.JointB = first;
      }
      constexpr int ofTheOther = 2;
      const int stops = NumMotions() - (JudgeExactly(joined).Mechanisms() - ofTheOther);
      if (stops > 0)
        advice_.push_back({.Kind = AdviceKind::JoinEnds, .JointA = first, .JointB = second, .Stops = stops});
      return ++numTried < MostAdvice;
    });
  }

  // Beside the members that end there; in a drawing of many small ones all joints are near each other.
  bool IsAGap(int first, int second) const {
    constexpr double oneQuarter = 0.25 * 0.25;
    const double gap = SquaredLength(graph_, first, second);
    return gap <= oneQuarter * std::min(shortestAt_[first], shortestAt_[second]);
  }

  // Those first whose joints move most where they do not hold them.
  void TurnRollers() {
    std::vector<std::pair<double, Advice>> candidates;
    for (int k = 1; k <= graph_.NumUnknowns(); ++k) {
      const PlacedUnknown& roller = graph_.Unknowns[k];
      if (roller.IsMember() || roller.Sign == 0 || IsSupported(graph_, roller.JointA, k)) continue;
      const Axis other = roller.Along == Axis::X ? Axis::Y : Axis::X;
      const double size = LargestDisplacement(roller.JointA, other);
      if (size <= SmallestHeld) continue;
      candidates.emplace_back(
          -size,
          Advice{.Kind = AdviceKind::TurnRoller, .JointA = roller.JointA, .Along = other, .Unknown = k});
    }
    std::ranges::stable_sort(candidates, {}, [](const auto& candidate) { return candidate.first; });
    if (candidates.size() > At(MostRollersTurned)) candidates.resize(At(MostRollersTurned));
    for (auto& [size, turn] : candidates) {
      TrussGraph turned = graph_;
      turned.Unknowns[turn.Unknown].Along = turn.Along;
      turn.Stops = NumMotions() - JudgeExactly(turned).Mechanisms();
      if (turn.Stops > 0) advice_.push_back(turn);
    }
  }

  double LargestDisplacement(int joint, Axis axis) const {
    double largest = 0;
    for (const Motion& motion : reasons_.Motions) {
      for (const JointDisplacement& at : motion.Joints) {
        if (at.Joint == joint) largest = std::max(largest, std::abs(axis == Axis::X ? at.Dx : at.Dy));
      }
    }
    return largest;
  }

  std::size_t NumRigid() const {
    return static_cast<std::size_t>(std::ranges::count(reasons_.Motions, MotionKind::Rigid, &Motion::Kind));
  }

  void AddRollers() {
    for (const Motion& motion : reasons_.Motions) {
      if (motion.Kind != MotionKind::Rigid) continue;
      for (const Advice& roller : Rollers(motion)) {
        if (!HasEnough()) Give(roller);
      }
    }
  }

  // The two with the largest displacements, so that they hold as well as can be. A support that stands there
  // already is in the way.
  std::vector<Advice> Rollers(const Motion& motion) const {
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

  bool IsHeld(int joint, Axis axis) const { return held_.contains({joint, axis}); }

  void AddMembers() {
    std::vector<std::vector<Advice>> byMotion;
    for (const Motion& motion : reasons_.Motions) {
      const bool isInternal = motion.Kind == MotionKind::Internal;
      if (isInternal && byMotion.size() < At(MostAdvice)) byMotion.push_back(Members(motion));
    }
    // Where every member that would hold is there already, a support is left.
    const std::size_t numRigid = NumRigid();  // they stand first
    for (std::size_t i = 0; i < byMotion.size(); ++i) {
      if (byMotion[i].empty()) byMotion[i] = Rollers(reasons_.Motions[numRigid + i]);
    }
    // The best for each motion, then the second best, and so on; of these the shortest first.
    const std::size_t numBefore = advice_.size();
    for (std::size_t choice = 0; choice < At(MostAdvice); ++choice) {
      for (const std::vector<Advice>& members : byMotion) {
        if (!HasEnough() && choice < members.size()) Give(members[choice]);
      }
    }
    std::stable_sort(
        advice_.begin() + static_cast<std::ptrdiff_t>(numBefore), advice_.end(),
        [this](const Advice& left, const Advice& right) { return LengthOf(left) < LengthOf(right); });
  }

  // Members that the motion would lengthen or shorten, the shortest first.
  std::vector<Advice> Members(const Motion& motion) const {
    std::vector<Candidate> candidates = CandidatesFor(motion);
    const auto isLater = [](const Candidate& left, const Candidate& right) {
      return std::tie(left.Length, left.Joints) > std::tie(right.Length, right.Joints);
    };
    std::ranges::make_heap(candidates, isLater);
    std::vector<Advice> members;
    std::pair<int, int> last;
    for (int tries = 0; !candidates.empty() && tries < MostTries && members.size() < At(MostAdvice);
         ++tries) {
      const std::pair<int, int> pair = candidates.front().Joints;
      std::ranges::pop_heap(candidates, isLater);
      candidates.pop_back();
      if (pair == std::exchange(last, pair) || IsADrawingMistake(pair.first, pair.second)) continue;
      members.push_back({.Kind = AdviceKind::AddMember, .JointA = pair.first, .JointB = pair.second});
    }
    return members;
  }

  struct Candidate {
    double Length;
    std::pair<int, int> Joints;
  };

  std::vector<Candidate> CandidatesFor(const Motion& motion) const {
    const std::vector<double> moved = DisplacementsByColumn(graph_, motion);
    std::vector<Candidate> candidates;
    for (const JointDisplacement& at : motion.Joints) {
      for (int other = 1; other <= graph_.NumJoints(); ++other) {
        if (other == at.Joint) continue;
        const double x = double{graph_.Joints[at.Joint].X} - double{graph_.Joints[other].X};
        const double y = double{graph_.Joints[at.Joint].Y} - double{graph_.Joints[other].Y};
        const double length = std::sqrt(x * x + y * y);
        const double lengthening = (x * (at.Dx - moved[At(ColumnOf(other, Axis::X))]) +
                                    y * (at.Dy - moved[At(ColumnOf(other, Axis::Y))])) /
                                   length;
        if (std::abs(lengthening) > SmallestHeld)
          candidates.push_back({length, std::minmax(at.Joint, other)});
      }
    }
    return candidates;
  }

  // What the checks of the drawing would find in a member between two joints.
  bool IsADrawingMistake(int a, int b) const {
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

  bool AreClose(int a, int b) const { return a == b || near_.Meet(graph_.Joints[a], graph_.Joints[b]); }

  // However small the drawing is.
  bool IsBetween(int j, int a, int b) const {
    const double detour = std::sqrt(SquaredLength(graph_, a, j)) + std::sqrt(SquaredLength(graph_, j, b));
    return detour < std::sqrt(SquaredLength(graph_, a, b)) * (1 + 1e-6);
  }

  void Remove() {
    std::set<int> inSelfStress;
    for (const SelfStress& stress : reasons_.SelfStresses) {
      for (const UnknownForce& force : stress.Forces) inSelfStress.insert(force.Unknown);
    }
    std::vector<int> unknowns(inSelfStress.begin(), inSelfStress.end());
    const auto isReaction = [this](int k) { return !graph_.Unknowns[k].IsMember(); };
    std::erase_if(unknowns, [this](int k) { return graph_.Unknowns[k].Sign == 0; });
    const auto members = std::stable_partition(unknowns.begin(), unknowns.end(), isReaction);
    std::stable_sort(members, unknowns.end(),
                     [this](int left, int right) { return LengthOf(left) > LengthOf(right); });
    if (members - unknowns.begin() > MostReactionsAdvised)
      unknowns.erase(unknowns.begin() + MostReactionsAdvised, members);
    if (unknowns.size() > At(MostAdvice)) unknowns.resize(At(MostAdvice));
    for (const int k : unknowns) {
      TrussGraph without = graph_;
      without.Unknowns[k] = {.JointA = graph_.Unknowns[k].JointA, .Sign = 0};
      if (JudgeExactly(without).Mechanisms() == reasons_.Verdict.Mechanisms())
        advice_.push_back({.Kind = AdviceKind::Remove, .Unknown = k});
    }
  }

  double LengthOf(int k) const {
    return SquaredLength(graph_, graph_.Unknowns[k].JointA, graph_.Unknowns[k].JointB);
  }

  // Of a roller none.
  double LengthOf(const Advice& advice) const {
    return advice.JointB == 0 ? 0 : SquaredLength(graph_, advice.JointA, advice.JointB);
  }

  // Follows the advice on a copy: there must be one motion less.
  void Give(Advice advice) {
    const bool isGiven = std::ranges::any_of(advice_, [&](const Advice& other) {
      return other.Kind == advice.Kind && other.JointA == advice.JointA && other.JointB == advice.JointB &&
             other.Along == advice.Along;
    });
    if (isGiven) return;
    TrussGraph with = graph_;
    with.Unknowns.Resize(graph_.NumUnknowns() + 1);
    with.Unknowns[with.NumUnknowns()] = {
        .JointA = advice.JointA, .JointB = advice.JointB, .Along = advice.Along};
    advice.Stops = NumMotions() - JudgeExactly(with).Mechanisms();
    if (advice.Stops > 0) advice_.push_back(advice);
  }

  const TrussGraph& graph_;
  const ExactReasons& reasons_;
  const NearPlaces& near_;
  Table<double> shortestAt_;  // by joint: squared, of the members that end there
  std::set<int> hasMember_;
  std::set<std::pair<int, int>> joined_;  // the lower joint first
  std::set<std::pair<int, Axis>> held_;   // by a support that stands there, whatever it holds
  std::vector<Advice> advice_;
};

}  // namespace

std::vector<Advice> AdviceFor(const TrussGraph& graph, const ExactReasons& reasons, const NearPlaces& near) {
  std::vector<Advice> advice;
  const std::vector<Advice> others = Adviser(graph, reasons, near).All();
  if (reasons.Verdict.Mechanisms() > 0) advice = Oversights(graph, reasons, near, others);
  advice.insert(advice.end(), others.begin(), others.end());
  return advice;
}

bool IsSupported(const TrussGraph& graph, int joint, int except) {
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    const PlacedUnknown& unknown = graph.Unknowns[k];
    if (k != except && !unknown.IsMember() && unknown.JointA == joint) return true;
  }
  return false;
}
