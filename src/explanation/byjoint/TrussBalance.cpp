#include "explanation/byjoint/TrussBalance.h"

#include <algorithm>
#include <cmath>

#include "explanation/Length.h"
#include "explanation/RigidityMatrix.h"

namespace {

// A coordinate or a load as it is written, rounded once.
double Written(float value) { return WrittenDifference(value, 0); }

ExactNumber ExactMeasure(const Measure& measure, const ExactVector& force, const ExactVector& at) {
  switch (measure.Kind) {
    case BalanceKind::X:
      return force.X;
    case BalanceKind::Y:
      return force.Y;
    case BalanceKind::Across:
      return Cross(measure.Line, force);
    case BalanceKind::Moment:
      break;
  }
  return Cross(at - measure.At.Exact, force);
}

}  // namespace

void Balance::AddKnown(const BalanceTerm& term, const ExactNumber& part) {
  Equation.Terms.push_back(term);
  Rest = Rest + part;
  KnownSide& side = term.Factor > 0 ? left_ : right_;
  side.Sum = side.Sum + part;
  side.LargestTerm = std::max(side.LargestTerm, std::abs(term.Factor * term.Force));
}

void Balance::Close(double unit) {
  Equation.Use = Rest.IsZero() ? BalanceUse::Holds : BalanceUse::Contradicts;
  Equation.KnownLeft = left_.Sum.ToDouble() / unit;
  Equation.KnownRight = (-right_.Sum).ToDouble() / unit;
  Equation.KnownSum = Rest.ToDouble() / unit;
  if (!Rest.IsZero()) return;
  // The same number, which the rounding of forces that were found by the matrix has touched less on the side
  // where they are smaller.
  const bool isLeftSmaller = left_.LargestTerm < right_.LargestTerm;
  Equation.KnownLeft = isLeftSmaller ? Equation.KnownLeft : Equation.KnownRight;
  Equation.KnownRight = Equation.KnownLeft;
}

TrussBalance::TrussBalance(const TrussGraph& graph)
    : graph_(graph),
      places_(graph.NumJoints()),
      directions_(graph.NumUnknowns()),
      unitX_(graph.NumUnknowns()),
      unitY_(graph.NumUnknowns()),
      lengths_(graph.NumUnknowns()),
      acting_(graph.NumJoints()),
      loads_(graph.NumJoints()),
      numSought_(graph.NumJoints()),
      known_(graph.NumUnknowns()),
      exact_(graph.NumUnknowns()),
      values_(graph.NumUnknowns()) {
  for (int j = 1; j <= graph.NumJoints(); ++j) {
    const PlacedJoint& joint = graph.Joints[j];
    places_[j] = {{ExactNumber::Of(joint.X), ExactNumber::Of(joint.Y)}, Written(joint.X), Written(joint.Y)};
  }
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    const PlacedUnknown& unknown = graph.Unknowns[k];
    if (unknown.IsMember()) {
      const PlacedJoint& a = graph.Joints[unknown.JointA];
      const PlacedJoint& b = graph.Joints[unknown.JointB];
      const double dx = WrittenDifference(a.X, b.X);
      const double dy = WrittenDifference(a.Y, b.Y);
      lengths_[k] = LengthOf(dx, dy);
      if (unknown.JointA == unknown.JointB) continue;
      directions_[k] = places_[unknown.JointA].Exact - places_[unknown.JointB].Exact;
      unitX_[k] = dx / lengths_[k];
      unitY_[k] = dy / lengths_[k];
      acting_[unknown.JointB].push_back(k);
    } else {
      const ExactNumber sign = ExactNumber::Whole(unknown.Sign);
      const bool alongX = unknown.Along == Axis::X;
      directions_[k] = alongX ? ExactVector{sign, {}} : ExactVector{{}, sign};
      (alongX ? unitX_ : unitY_)[k] = unknown.Sign;
      lengths_[k] = 1;
    }
    acting_[unknown.JointA].push_back(k);
  }
  for (int j = 1; j <= graph.NumJoints(); ++j) numSought_[j] = static_cast<int>(acting_[j].size());
  for (std::size_t i = 0; i < graph.Loads.size(); ++i) {
    const PlacedLoad& load = graph.Loads[i];
    loads_[load.Joint].push_back(static_cast<int>(i));
    exactLoads_.push_back({ExactNumber::Of(load.Fx), ExactNumber::Of(load.Fy)});
  }
}

std::vector<int> TrussBalance::SoughtAt(int joint) const {
  std::vector<int> sought = acting_[joint];
  std::erase_if(sought, [this](int k) { return IsKnown(k); });
  return sought;
}

void TrussBalance::Learn(int unknown, const ExactNumber& exact) {
  known_[unknown] = 1;
  exact_[unknown] = exact.IsZero() ? ExactNumber{} : exact;
  values_[unknown] = exact.ToDouble() * lengths_[unknown];
  if (!Acts(unknown)) return;
  const PlacedUnknown& placed = graph_.Unknowns[unknown];
  --numSought_[placed.JointA];
  if (placed.IsMember()) --numSought_[placed.JointB];
}

double TrussBalance::Sine(int unknown, int other) const {
  return std::abs(unitX_[unknown] * unitY_[other] - unitY_[unknown] * unitX_[other]);
}

bool TrussBalance::PassesThrough(int unknown, const PlanePoint& point) const {
  const PlanePoint& end = places_[graph_.Unknowns[unknown].JointA];
  const double x = point.X - end.X;
  const double y = point.Y - end.Y;
  // Exact reckoning is needed only where doubles cannot tell.
  const double size = std::abs(point.X) + std::abs(end.X) + std::abs(point.Y) + std::abs(end.Y);
  if (std::abs(x * unitY_[unknown] - y * unitX_[unknown]) > 1e-9 * size) return false;
  return AreInLine(point.Exact - end.Exact, directions_[unknown]);
}

double TrussBalance::ArmShare(int unknown, const PlanePoint& point) const {
  const PlacedUnknown& placed = graph_.Unknowns[unknown];
  const PlanePoint& a = places_[placed.JointA];
  const PlanePoint& b = placed.IsMember() ? places_[placed.JointB] : a;
  const double arm = std::abs((a.X - point.X) * unitY_[unknown] - (a.Y - point.Y) * unitX_[unknown]);
  const double distance =
      std::min(LengthOf(a.X - point.X, a.Y - point.Y), LengthOf(b.X - point.X, b.Y - point.Y));
  return distance > 0 ? arm / distance : 0;
}

ExactVector TrussBalance::UnitForceOn(int joint, int unknown) const {
  const PlacedUnknown& placed = graph_.Unknowns[unknown];
  return !placed.IsMember() || placed.JointA == joint ? directions_[unknown] : -directions_[unknown];
}

ExactVector TrussBalance::LoadAt(int joint) const {
  ExactVector sum;
  for (const int i : loads_[joint]) sum = sum + exactLoads_[static_cast<std::size_t>(i)];
  for (const int k : acting_[joint]) {
    if (!graph_.Unknowns[k].IsMember() && IsKnown(k)) sum = sum + exact_[k] * directions_[k];
  }
  return sum;
}

double TrussBalance::UnitOf(const Measure& measure) const {
  return measure.Kind == BalanceKind::Across ? lengths_[measure.AlongUnknown] : 1;
}

Measure TrussBalance::Across(int unknown) const {
  const ExactVector& line = directions_[unknown];
  if (line.Y.IsZero()) return {.Kind = BalanceKind::Y};
  if (line.X.IsZero()) return {.Kind = BalanceKind::X};
  return {.Kind = BalanceKind::Across,
          .Line = line,
          .LineX = unitX_[unknown],
          .LineY = unitY_[unknown],
          .AlongUnknown = unknown};
}

void TrussBalance::AddUnknown(int joint, int unknown, const Measure& measure, Balance& balance) const {
  const ExactNumber factor = ExactMeasure(measure, UnitForceOn(joint, unknown), places_[joint].Exact);
  const bool isKnown = IsKnown(unknown);
  if (factor.IsZero()) {
    if (!isKnown) balance.PutAside.push_back(unknown);
    return;
  }
  if (IsKnownZero(unknown)) return;
  const BalanceTerm term{.Unknown = unknown,
                         .Joint = joint,
                         .IsSought = !isKnown,
                         .Factor = factor.ToDouble() / (lengths_[unknown] * UnitOf(measure)),
                         .Force = isKnown ? values_[unknown] : 0};
  if (isKnown) {
    balance.AddKnown(term, factor * exact_[unknown]);
  } else {
    balance.Sought.push_back({unknown, factor, term.Factor});
    balance.Equation.Terms.push_back(term);
  }
}

// One term for each component, so that a load stands in the equations of a joint as it was given.
void TrussBalance::AddLoads(int joint, const Measure& measure, Balance& balance) const {
  for (const int i : loads_[joint]) {
    const PlacedLoad& load = graph_.Loads[static_cast<std::size_t>(i)];
    const ExactVector& exact = exactLoads_[static_cast<std::size_t>(i)];
    for (const Axis axis : {Axis::X, Axis::Y}) {
      const bool alongX = axis == Axis::X;
      const ExactVector component = alongX ? ExactVector{exact.X, {}} : ExactVector{{}, exact.Y};
      const ExactNumber part = ExactMeasure(measure, component, places_[joint].Exact);
      if (part.IsZero()) continue;
      const double force = Written(alongX ? load.Fx : load.Fy);
      const BalanceTerm term{.Joint = joint,
                             .Factor = part.ToDouble() / (std::abs(force) * UnitOf(measure)),
                             .Force = std::abs(force)};
      balance.AddKnown(term, part);
    }
  }
}

Balance TrussBalance::BalanceOf(const std::vector<int>& joints, const Measure& measure) const {
  Balance balance;
  balance.Equation.Kind = measure.Kind;
  balance.Equation.AlongUnknown = measure.AlongUnknown;
  const bool isMoment = measure.Kind == BalanceKind::Moment;
  balance.Equation.AtX = isMoment ? measure.At.X : measure.LineX;
  balance.Equation.AtY = isMoment ? measure.At.Y : measure.LineY;
  for (const int joint : joints) {
    for (const int unknown : acting_[joint]) {
      const PlacedUnknown& placed = graph_.Unknowns[unknown];
      const int far = placed.JointA == joint ? placed.JointB : placed.JointA;
      const bool isInside = placed.IsMember() && std::ranges::binary_search(joints, far);
      if (!isInside) AddUnknown(joint, unknown, measure, balance);
    }
    AddLoads(joint, measure, balance);
  }
  balance.Close(UnitOf(measure));
  return balance;
}

UnknownForce TrussBalance::Solve(Balance& balance) {
  const Balance::SoughtForce& sought = balance.Sought.front();
  Learn(sought.Unknown, -balance.Rest / sought.Factor);
  balance.Equation.Use = BalanceUse::Solves;
  balance.Equation.Solved = {sought.Unknown, values_[sought.Unknown]};
  return balance.Equation.Solved;
}

std::vector<UnknownForce> TrussBalance::SolveTogether(Balance& one, Balance& other) {
  const Balance::SoughtForce& a = one.Sought[0];
  const Balance::SoughtForce& b = one.Sought[1];
  const bool sameOrder = other.Sought[0].Unknown == a.Unknown;
  const Balance::SoughtForce& c = other.Sought[sameOrder ? 0 : 1];
  const Balance::SoughtForce& d = other.Sought[sameOrder ? 1 : 0];
  const ExactNumber determinant = a.Factor * d.Factor - b.Factor * c.Factor;
  const int first = a.Unknown;
  const int second = b.Unknown;
  Learn(first, (b.Factor * other.Rest - d.Factor * one.Rest) / determinant);
  Learn(second, (c.Factor * one.Rest - a.Factor * other.Rest) / determinant);
  one.Equation.Use = other.Equation.Use = BalanceUse::SolvesTogether;
  return {{first, values_[first]}, {second, values_[second]}};
}
