// Four sums are written side by side, one for each direction in which a force can point.
#include "analysis/JointEquations.h"

#include <cmath>
#include <utility>

#include "analysis/Equations.h"
#include "document/Angles.h"
#include "document/SupportReactions.h"
#include "text/NumberText.h"

namespace {

// One equation in the making.
struct Sides {
  std::string Positive;
  std::string Negative;

  void Add(bool positive, std::string_view term) {
    std::string& side = positive ? Positive : Negative;
    side.append(" + ").append(term);
  }

  void AddForce(float component, const NumberFormat& format) {
    if (component != 0) Add(component > 0, SharpText(std::abs(component), format.DecimalSeparator));
  }

  std::string Text() const { return Sum(Positive) + " = " + Sum(Negative); }

 private:
  // Without the leading " + "; a sum without terms is 0.
  static std::string Sum(const std::string& terms) { return terms.empty() ? "0" : terms.substr(3); }
};

// The angle that a member makes with the horizontal, 0 to 90 degrees, with one decimal.
std::string AngleText(float dx, float dy, const NumberFormat& format) {
  const double angle = std::abs(std::atan(double{dy} / double{dx}));
  return FixedText(angle * 180 / HalfTurn, 1, format.DecimalSeparator);
}

// A member that pushes into the pin in the direction (dx, dy). "0" stands for no term wherever it comes from,
// so a member that is called "0" is left out where it would stand with its bare name.
void AddMember(Sides& x, Sides& y, const SharedText& name, float dx, float dy, const NumberFormat& format) {
  const auto add = [](Sides& sides, bool positive, std::string_view term) {
    if (term != "0") sides.Add(positive, term);
  };
  if (dx != 0) add(x, dx > 0, dy == 0 ? name.String() : name + " cos(" + AngleText(dx, dy, format) + ")");
  if (dy != 0) add(y, dy > 0, dx == 0 ? name.String() : name + " sin(" + AngleText(dx, dy, format) + ")");
}

void AddSupport(Sides& x, Sides& y, const SupportRec& support, const Truss& truss) {
  for (const auto& [component, label] :
       {std::pair(1, support.NameLabel1), std::pair(2, support.NameLabel2)}) {
    const ReactionDirection direction = DirectionOf(support.TypeIndex, component);
    if (direction.Exists()) (direction.IsAlongX() ? x : y).Add(direction.Sign() > 0, truss.Name(label));
  }
}

}  // namespace

JointEquations::JointEquations(const Truss& truss, NumberFormat format)
    : truss_(truss), format_(std::move(format)) {
  for (int i = 1; i <= truss.NumMembers; ++i) {
    const MemberRec& member = truss.Members[i];
    if (!member.Live) continue;
    at_[PositionKey(member.X1, member.Y1)].MemberEnds.emplace_back(i, 1);
    at_[PositionKey(member.X2, member.Y2)].MemberEnds.emplace_back(i, 2);
  }
  for (int i = 1; i <= truss.NumSupports; ++i) {
    const SupportRec& support = truss.Supports[i];
    if (support.Live) at_[PositionKey(support.X, support.Y)].Supports.push_back(i);
  }
  for (int i = 1; i <= truss.NumForces; ++i) {
    const ForceRec& force = truss.Forces[i];
    if (force.Active) at_[PositionKey(force.X, force.Y)].Forces.push_back(i);
  }
}

JointEquationTexts JointEquations::ReportOnJoint(const CountedJoint& joint) const {
  Sides x;
  Sides y;
  const auto found = at_.find(PositionKey(joint.X, joint.Y));
  if (found != at_.end()) {
    for (const auto& [index, end] : found->second.MemberEnds) {
      const MemberRec& member = truss_.Members[index];
      const float dx = SingleDifference(member.X1, member.X2);
      const float dy = SingleDifference(member.Y1, member.Y2);
      const float sign = end == 1 ? 1.0F : -1.0F;
      AddMember(x, y, truss_.Name(member.NameLabel1), sign * dx, sign * dy, format_);
    }
    for (const int index : found->second.Supports) AddSupport(x, y, truss_.Supports[index], truss_);
    for (const int index : found->second.Forces) {
      x.AddForce(truss_.Forces[index].Fx, format_);
      y.AddForce(truss_.Forces[index].Fy, format_);
    }
  }
  return JointEquationTexts{x.Text(), y.Text()};
}
