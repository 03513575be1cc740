#include "explanation/Advice.h"

#include <algorithm>
#include <utility>

#include "explanation/AdviceCandidates.h"
#include "explanation/At.h"
#include "explanation/Oversights.h"

namespace {

// Follows each candidate on a copy of the truss and keeps those that do what they are to do.
class Adviser {
 public:
  Adviser(const TrussGraph& graph, const ExactReasons& reasons, const NearPlaces& near)
      : graph_(graph), reasons_(reasons), candidates_(graph, reasons, near) {}

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

  void KeepIfItStops(Advice advice, int motionsLeft) {
    advice.Stops = NumMotions() - motionsLeft;
    if (advice.Stops > 0) advice_.push_back(std::move(advice));
  }

  // What the joints with one number are then stays behind as a joint without anything, which moves as it
  // likes.
  void JoinEnds() {
    for (const Advice& ends : candidates_.EndsToJoin()) {
      TrussGraph joined = graph_;
      for (PlacedUnknown& unknown : joined.Unknowns.First(joined.NumUnknowns())) {
        if (unknown.JointA == ends.JointB) unknown.JointA = ends.JointA;
        if (unknown.JointB == ends.JointB) unknown.JointB = ends.JointA;
      }
      constexpr int ofTheOther = 2;
      KeepIfItStops(ends, JudgeExactly(joined).Mechanisms() - ofTheOther);
    }
  }

  void TurnRollers() {
    for (const Advice& turn : candidates_.RollersToTurn()) {
      TrussGraph turned = graph_;
      turned.Unknowns[turn.Unknown].Along = turn.Along;
      KeepIfItStops(turn, JudgeExactly(turned).Mechanisms());
    }
  }

  void AddRollers() {
    for (const Motion& motion : reasons_.Motions) {
      if (motion.Kind != MotionKind::Rigid) continue;
      for (const Advice& roller : candidates_.Rollers(motion)) {
        if (!HasEnough()) AddIfItStops(roller);
      }
    }
  }

  // A part that stands apart wants a support of its own before it is tied to the rest; and where every member
  // that would hold is there already, a support is left.
  std::vector<Advice> AgainstInternal(const Motion& motion) const {
    std::vector<Advice> members = candidates_.Members(motion);
    if (!members.empty() && !candidates_.IsOfAPartApart(motion)) return members;
    std::vector<Advice> additions = candidates_.Rollers(motion);
    if (!members.empty() && additions.size() > 1) additions.resize(1);
    additions.insert(additions.end(), members.begin(), members.end());
    return additions;
  }

  void AddMembers() {
    std::vector<std::vector<Advice>> byMotion;
    for (const Motion& motion : reasons_.Motions) {
      const bool isInternal = motion.Kind == MotionKind::Internal;
      if (isInternal && byMotion.size() < At(MostAdvice)) byMotion.push_back(AgainstInternal(motion));
    }
    // The best for each motion, then the second best, and so on; of these the shortest first.
    const std::size_t numBefore = advice_.size();
    for (std::size_t choice = 0; choice <= At(MostAdvice); ++choice) {
      for (const std::vector<Advice>& additions : byMotion) {
        if (!HasEnough() && choice < additions.size()) AddIfItStops(additions[choice]);
      }
    }
    std::stable_sort(advice_.begin() + static_cast<std::ptrdiff_t>(numBefore), advice_.end(),
                     [this](const Advice& left, const Advice& right) {
                       return candidates_.SquaredLengthOf(left) < candidates_.SquaredLengthOf(right);
                     });
  }

  void Remove() {
    for (const Advice& removal : candidates_.ToRemove()) {
      const int k = removal.Unknown;
      TrussGraph without = graph_;
      without.Unknowns[k] = {.JointA = graph_.Unknowns[k].JointA, .Sign = 0};
      if (JudgeExactly(without).Mechanisms() == NumMotions()) advice_.push_back(removal);
    }
  }

  void AddIfItStops(const Advice& advice) {
    const bool isGiven = std::ranges::any_of(advice_, [&](const Advice& other) {
      return other.Kind == advice.Kind && other.JointA == advice.JointA && other.JointB == advice.JointB &&
             other.Along == advice.Along;
    });
    if (isGiven) return;
    TrussGraph with = graph_;
    with.Unknowns.Resize(graph_.NumUnknowns() + 1);
    with.Unknowns[with.NumUnknowns()] = {
        .JointA = advice.JointA, .JointB = advice.JointB, .Along = advice.Along};
    KeepIfItStops(advice, JudgeExactly(with).Mechanisms());
  }

  const TrussGraph& graph_;
  const ExactReasons& reasons_;
  AdviceCandidates candidates_;
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
