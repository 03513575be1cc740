#include "explanation/byjoint/WholeTruss.h"

#include <algorithm>

namespace {

class Reactions {
 public:
  Reactions(TrussBalance& balance, const std::vector<int>& joints) : balance_(balance), joints_(joints) {
    step_.Kind = HandStepKind::Reactions;
    step_.Joints = joints;
    for (const int joint : joints) {
      for (const int k : balance.ActingAt(joint)) {
        if (!balance.Graph().Unknowns[k].IsMember()) reactions_.push_back(k);
      }
    }
    FindPoints();
  }

  std::optional<HandStep> Step() {
    while (SolveOne()) {
    }
    if (const Measure* wrong = Contradicted()) {
      step_.Equations.push_back(balance_.BalanceOf(joints_, *wrong).Equation);
      step_.Contradicts = true;
    }
    if (step_.Equations.empty()) return std::nullopt;
    return step_;
  }

 private:
  // Supports through which the most reactions pass come first; then the other points where two of them meet.
  void FindPoints() {
    std::vector<std::pair<int, int>> supports;  // reactions that do not pass, joint
    for (const int k : reactions_) {
      const int joint = balance_.Graph().Unknowns[k].JointA;
      supports.emplace_back(-NumThrough(balance_.At(joint)), joint);
    }
    std::ranges::stable_sort(supports);
    for (const auto& [order, joint] : supports) AddPoint(balance_.At(joint));
    for (const int k : reactions_) {
      for (const int other : reactions_) {
        const TrussGraph& graph = balance_.Graph();
        if (graph.Unknowns[k].Along != Axis::X || graph.Unknowns[other].Along != Axis::Y) continue;
        const PlanePoint& level = balance_.At(graph.Unknowns[k].JointA);
        const PlanePoint& upright = balance_.At(graph.Unknowns[other].JointA);
        AddPoint({{upright.Exact.X, level.Exact.Y}, upright.X, level.Y});
      }
    }
    // Without supports the moments about any joint tell whether the loads turn the truss.
    if (moments_.empty()) AddPoint(balance_.At(joints_.front()));
  }

  void AddPoint(const PlanePoint& point) {
    const bool isThere = std::ranges::any_of(
        moments_, [&](const Measure& measure) { return (measure.At.Exact - point.Exact).IsZero(); });
    if (!isThere) moments_.push_back(TrussBalance::About(point));
  }

  int NumThrough(const PlanePoint& point) const {
    return static_cast<int>(
        std::ranges::count_if(reactions_, [&](int k) { return balance_.PassesThrough(k, point); }));
  }

  // Moments first while three reactions are sought, since the sums do not give one then; otherwise the sums,
  // which are simpler.
  std::vector<Measure> InOrder() const {
    std::vector<Measure> order = moments_;
    const auto numSought = std::ranges::count_if(reactions_, [&](int k) { return !balance_.IsKnown(k); });
    order.insert(numSought >= 3 ? order.end() : order.begin(),
                 {Measure{.Kind = BalanceKind::X}, Measure{.Kind = BalanceKind::Y}});
    return order;
  }

  bool SolveOne() {
    for (const Measure& measure : InOrder()) {
      Balance sum = balance_.BalanceOf(joints_, measure);
      if (sum.Sought.size() != 1) continue;
      step_.Solved.push_back(balance_.Solve(sum));
      step_.Equations.push_back(std::move(sum.Equation));
      return true;
    }
    return false;
  }

  const Measure* Contradicted() {
    checked_ = InOrder();
    for (const Measure& measure : checked_) {
      const Balance sum = balance_.BalanceOf(joints_, measure);
      if (sum.Sought.empty() && sum.Equation.Use == BalanceUse::Contradicts) return &measure;
    }
    return nullptr;
  }

  TrussBalance& balance_;
  const std::vector<int>& joints_;
  std::vector<int> reactions_;
  std::vector<Measure> moments_, checked_;
  HandStep step_;
};

}  // namespace

std::optional<HandStep> ReactionsOf(TrussBalance& balance, const std::vector<int>& joints) {
  return Reactions(balance, joints).Step();
}
