#include "explanation/Advice.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <tuple>
#include <utility>

#include "explanation/At.h"
#include "explanation/RigidityMatrix.h"

namespace {

double SquaredLength(const TrussGraph& graph, int a, int b) {
  const double x = double{graph.Joints[a].X} - double{graph.Joints[b].X};
  const double y = double{graph.Joints[a].Y} - double{graph.Joints[b].Y};
  return x * x + y * y;
}

class Adviser {
 public:
  Adviser(const TrussGraph& graph, const ExactReasons& reasons) : graph_(graph), reasons_(reasons) {
    for (int k = 1; k <= graph.NumUnknowns(); ++k) {
      const PlacedUnknown& unknown = graph.Unknowns[k];
      if (unknown.IsMember()) {
        joined_.insert(std::minmax(unknown.JointA, unknown.JointB));
      } else {
        held_.insert({unknown.JointA, unknown.Along});
      }
    }
  }

  std::vector<Advice> All() {
    AddRollers();
    AddMembers();
    Remove();
    return std::move(advice_);
  }

 private:
  bool HasEnough() const { return advice_.size() >= At(MostAdvice); }

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
        if (size > 1e-3 && !IsHeld(at.Joint, axis))
          candidates.emplace_back(standsThere, -size, Advice{AdviceKind::AddRoller, at.Joint, 0, axis, 0});
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
    // The best for each motion, then the second best, and so on.
    for (std::size_t choice = 0; choice < At(MostAdvice); ++choice) {
      for (const std::vector<Advice>& members : byMotion) {
        if (!HasEnough() && choice < members.size()) Give(members[choice]);
      }
    }
  }

  // Members that the motion would lengthen or shorten, the shortest first.
  std::vector<Advice> Members(const Motion& motion) const {
    const std::vector<double> moved = DisplacementsByColumn(graph_, motion);
    std::vector<std::pair<double, std::pair<int, int>>> candidates;
    for (const JointDisplacement& at : motion.Joints) {
      for (int other = 1; other <= graph_.NumJoints(); ++other) {
        const auto pair = std::minmax(at.Joint, other);
        if (other == at.Joint || joined_.contains(pair)) continue;
        const double x = double{graph_.Joints[at.Joint].X} - double{graph_.Joints[other].X};
        const double y = double{graph_.Joints[at.Joint].Y} - double{graph_.Joints[other].Y};
        const double length = std::sqrt(x * x + y * y);
        const double lengthening = (x * (at.Dx - moved[At(ColumnOf(other, Axis::X))]) +
                                    y * (at.Dy - moved[At(ColumnOf(other, Axis::Y))])) /
                                   length;
        if (std::abs(lengthening) > 1e-3) candidates.push_back({length, pair});
      }
    }
    std::ranges::sort(candidates);
    candidates.erase(std::unique(candidates.begin(), candidates.end()), candidates.end());
    std::vector<Advice> members;
    for (const auto& [length, pair] : candidates) {
      if (members.size() == At(MostAdvice)) break;
      if (PassesThroughAJoint(pair.first, pair.second)) continue;
      members.push_back({AdviceKind::AddMember, pair.first, pair.second, Axis::X, 0});
    }
    return members;
  }

  bool PassesThroughAJoint(int a, int b) const {
    const double whole = std::sqrt(SquaredLength(graph_, a, b));
    for (int j = 1; j <= graph_.NumJoints(); ++j) {
      if (j == a || j == b) continue;
      const double detour = std::sqrt(SquaredLength(graph_, a, j)) + std::sqrt(SquaredLength(graph_, j, b));
      if (detour < whole * (1 + 1e-6)) return true;
    }
    return false;
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
        advice_.push_back({AdviceKind::Remove, 0, 0, Axis::X, k});
    }
  }

  double LengthOf(int k) const {
    return SquaredLength(graph_, graph_.Unknowns[k].JointA, graph_.Unknowns[k].JointB);
  }

  // Follows the advice on a copy: there must be one motion less.
  bool Give(const Advice& advice) {
    TrussGraph with = graph_;
    with.Unknowns.Resize(graph_.NumUnknowns() + 1);
    with.Unknowns[with.NumUnknowns()] = {
        .JointA = advice.JointA, .JointB = advice.JointB, .Along = advice.Along};
    if (JudgeExactly(with).Mechanisms() >= reasons_.Verdict.Mechanisms()) return false;
    advice_.push_back(advice);
    if (advice.Kind == AdviceKind::AddMember) joined_.insert(std::minmax(advice.JointA, advice.JointB));
    return true;
  }

  const TrussGraph& graph_;
  const ExactReasons& reasons_;
  std::set<std::pair<int, int>> joined_;  // the lower joint first
  std::set<std::pair<int, Axis>> held_;   // by a support that stands there, whatever it holds
  std::vector<Advice> advice_;
};

}  // namespace

std::vector<Advice> AdviceFor(const TrussGraph& graph, const ExactReasons& reasons) {
  return Adviser(graph, reasons).All();
}

bool IsSupported(const TrussGraph& graph, int joint, int except) {
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    const PlacedUnknown& unknown = graph.Unknowns[k];
    if (k != except && !unknown.IsMember() && unknown.JointA == joint) return true;
  }
  return false;
}
