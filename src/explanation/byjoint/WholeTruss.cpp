#include "explanation/byjoint/WholeTruss.h"

#include <algorithm>
#include <iterator>
#include <map>

namespace {

class Reactions {
 public:
  Reactions(TrussBalance& balance, const std::vector<int>& joints, double leastShare)
      : balance_(balance), joints_(joints), leastShare_(leastShare) {
    step_.Kind = HandStepKind::Reactions;
    step_.Joints = joints;
    for (const int joint : joints) {
      for (const int k : balance.ActingAt(joint)) {
        if (!balance.Graph().Unknowns[k].IsMember() && !balance.IsKnown(k)) reactions_.push_back(k);
      }
    }
  }

  // Whether a single one is left in a sum, or so few that there may be a point through which all others pass.
  bool MayBeFound() const {
    const auto numAlong = [this](Axis axis) {
      return std::ranges::count_if(reactions_,
                                   [&](int k) { return balance_.Graph().Unknowns[k].Along == axis; });
    };
    return !reactions_.empty() &&
           (reactions_.size() <= 3 || numAlong(Axis::X) == 1 || numAlong(Axis::Y) == 1);
  }

  std::optional<HandStep> Step() {
    FindPoints();
    while (SolveOne()) {
    }
    if (const Measure* wrong = Contradicted()) {
      step_.Equations.push_back(balance_.BalanceOf(joints_, *wrong).Equation);
      step_.Contradicts = true;
    }
    if (step_.Equations.empty()) return std::nullopt;
    std::ranges::copy_if(reactions_, std::back_inserter(step_.StillSought),
                         [this](int k) { return !balance_.IsKnown(k); });
    return step_;
  }

 private:
  // Supports through which the most reactions pass come first; then the other points where two of them meet.
  void FindPoints() {
    CountLines();
    std::vector<std::pair<int, int>> supports;  // reactions that do not pass, joint
    for (const int k : reactions_) {
      const int joint = balance_.Graph().Unknowns[k].JointA;
      const PlanePoint& at = balance_.At(joint);
      if (IsWorthAsking(at.X, at.Y)) supports.emplace_back(-NumThrough(at.X, at.Y), joint);
    }
    std::ranges::stable_sort(supports);
    for (const auto& [order, joint] : supports) AddPoint(balance_.At(joint));
    for (const PlanePoint* level : OnLines(Axis::X)) {
      for (const PlanePoint* upright : OnLines(Axis::Y)) {
        if (!IsWorthAsking(upright->X, level->Y)) continue;
        AddPoint({{upright->Exact.X, level->Exact.Y}, upright->X, level->Y});
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

  void CountLines() {
    for (const int k : reactions_) {
      const PlacedUnknown& reaction = balance_.Graph().Unknowns[k];
      const PlanePoint& at = balance_.At(reaction.JointA);
      ++(reaction.Along == Axis::X ? onLevel_[at.Y] : onUpright_[at.X]);
    }
  }

  int NumThrough(double x, double y) const {
    const auto level = onLevel_.find(y);
    const auto upright = onUpright_.find(x);
    return (level == onLevel_.end() ? 0 : level->second) +
           (upright == onUpright_.end() ? 0 : upright->second);
  }

  // The balance of the whole gives three reactions at most, so that about a point which more of them pass by
  // there is never a single one left to be found.
  bool IsWorthAsking(double x, double y) const {
    return static_cast<int>(reactions_.size()) - NumThrough(x, y) <= 3;
  }

  // Supports with reactions along this axis, where few enough of those act on other lines.
  std::vector<const PlanePoint*> OnLines(Axis along) const {
    std::vector<const PlanePoint*> points;
    const auto numAlong =
        std::ranges::count_if(reactions_, [&](int k) { return balance_.Graph().Unknowns[k].Along == along; });
    for (const int k : reactions_) {
      const PlacedUnknown& reaction = balance_.Graph().Unknowns[k];
      if (reaction.Along != along) continue;
      const PlanePoint& at = balance_.At(reaction.JointA);
      const int onLine = along == Axis::X ? onLevel_.at(at.Y) : onUpright_.at(at.X);
      if (numAlong - onLine <= 3) points.push_back(&at);
    }
    return points;
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
      if (measure.Kind == BalanceKind::Moment &&
          balance_.ArmShare(sum.Sought.front().Unknown, measure.At) < leastShare_)
        continue;
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
  double leastShare_;
  std::vector<int> reactions_;                 // those that are sought when it begins
  std::map<double, int> onLevel_, onUpright_;  // reactions by the y or x of the line on which they act
  std::vector<Measure> moments_, checked_;
  HandStep step_;
};

}  // namespace

std::optional<HandStep> ReactionsOf(TrussBalance& balance, const std::vector<int>& joints) {
  return Reactions(balance, joints, 0).Step();
}

std::optional<HandStep> MoreReactionsOf(TrussBalance& balance, const std::vector<int>& joints) {
  Reactions reactions(balance, joints, NearlyVanishing);
  if (!reactions.MayBeFound()) return std::nullopt;
  auto step = reactions.Step();
  return step && step->Solved.empty() ? std::nullopt : step;
}
