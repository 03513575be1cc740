#include "explanation/byjoint/EquationText.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>

#include "explanation/Directions.h"
#include "explanation/RigidityMatrix.h"
#include "text/NumberText.h"

namespace {

// The terms that point to one side, and those that point to the other.
std::string TwoSides(const BalanceEquation& equation,
                     const std::function<std::string(const BalanceTerm&)>& text) {
  std::string positive, negative;
  for (const BalanceTerm& term : equation.Terms) {
    std::string& side = term.Factor > 0 ? positive : negative;
    side += (side.empty() ? "" : " + ") + text(term);
  }
  return (positive.empty() ? "0" : positive) + " = " + (negative.empty() ? "0" : negative);
}

// The whole force counts.
bool IsOne(double factor) { return std::abs(factor - 1) < 1e-12; }

// Of smaller ones the decimals would be noughts; in degrees.
constexpr double SmallestPlainAngle = 1e-4;

// P times the first sought force and Q times the second make Right; P is positive.
struct SortedEquation {
  double P = 0, Q = 0, Right = 0;
};

SortedEquation Sorted(const BalanceEquation& equation, int first) {
  SortedEquation sorted{.Right = -equation.KnownSum};
  for (const BalanceTerm& term : equation.Terms) {
    if (term.IsSought) (term.Unknown == first ? sorted.P : sorted.Q) += term.Factor;
  }
  if (sorted.P > 0) return sorted;
  return {-sorted.P, -sorted.Q, -sorted.Right};
}

}  // namespace

std::string EquationText::What(const BalanceEquation& equation) const {
  switch (equation.Kind) {
    case BalanceKind::X:
      return "forces right = forces left";
    case BalanceKind::Y:
      return "forces up = forces down";
    case BalanceKind::Across:
      return "across " + names_.Force(equation.AlongUnknown) + ", forces to one side = forces to the other";
    case BalanceKind::Moment:
      break;
  }
  return "moments about " + names_.Point(equation.AtX, equation.AtY) + ", anticlockwise = clockwise";
}

// A bare name where the whole force counts; nothing then.
std::string EquationText::Angle(const BalanceEquation& equation, const BalanceTerm& term) const {
  if (equation.Kind == BalanceKind::Moment) return "";
  if (IsOne(std::abs(term.Factor))) return "";
  if (equation.Kind == BalanceKind::Across)
    return " sin(" + Degrees(std::asin(std::abs(term.Factor)), false) + ')';
  if (term.Unknown == 0 || !graph_.Unknowns[term.Unknown].IsMember()) return "";
  const PlacedJoint& a = graph_.Joints[graph_.Unknowns[term.Unknown].JointA];
  const PlacedJoint& b = graph_.Joints[graph_.Unknowns[term.Unknown].JointB];
  const double dx = std::abs(WrittenDifference(a.X, b.X));
  const double dy = std::abs(WrittenDifference(a.Y, b.Y));
  if (dx == 0 || dy == 0) return "";
  return (equation.Kind == BalanceKind::X ? " cos(" : " sin(") + Degrees(std::atan2(dy, dx), true) + ')';
}

// A table of sines gives the numbers of the equations from what is written here.
std::string EquationText::Degrees(double radians, bool withCosine) const {
  constexpr int mostDecimals = 15;
  const double degrees = radians * 180 / std::numbers::pi;
  if (degrees < SmallestPlainAngle) {
    ReportFormat longer = format_;
    longer.SigFigs += 2;
    return NumberNot0(degrees, longer) + '\xB0';
  }
  int decimals = 1;
  for (; decimals < mostDecimals; ++decimals) {
    const double unit = std::pow(10, decimals);
    const double shown = std::round(degrees * unit) / unit * std::numbers::pi / 180;
    if (Number(std::sin(shown)) == Number(std::sin(radians)) &&
        (!withCosine || Number(std::cos(shown)) == Number(std::cos(radians))))
      break;
  }
  return FixedText(degrees, decimals, format_.Numbers.DecimalSeparator) + '\xB0';
}

std::string EquationText::Name(int unknown) const { return names_.ForceInEquation(unknown); }

// As the cosine of a thousandth of a degree.
bool EquationText::IsWrittenAsOne(double factor) const { return Number(factor) == "1"; }

std::string EquationText::Product(double factor, const std::string& force) const {
  return IsWrittenAsOne(factor) ? force : Number(factor) + TimesSign + force;
}

std::string EquationText::Letters(const BalanceEquation& equation, const BalanceTerm& term) const {
  const bool isLoad = term.Unknown == 0;
  const std::string name = isLoad ? Number(term.Force) : Name(term.Unknown);
  if (equation.Kind != BalanceKind::Moment) return name + Angle(equation, term);
  return Product(std::abs(term.Factor), name) + (isLoad ? " (load at " + names_.Joint(term.Joint) + ')' : "");
}

std::string EquationText::Numbers(const BalanceTerm& term) const {
  std::string force = term.IsSought ? Name(term.Unknown) : Number(term.Force);
  if (!term.IsSought && term.Force < 0) force = '(' + force + ')';
  return Product(std::abs(term.Factor), force);
}

std::string EquationText::InLetters(const BalanceEquation& equation) const {
  return TwoSides(equation, [&](const BalanceTerm& term) { return Letters(equation, term); });
}

std::string EquationText::WithNumbers(const BalanceEquation& equation) const {
  return TwoSides(equation, [&](const BalanceTerm& term) { return Numbers(term); });
}

bool EquationText::HasKnownNames(const BalanceEquation& equation) {
  const bool isMoment = equation.Kind == BalanceKind::Moment;
  return std::ranges::any_of(equation.Terms, [isMoment](const BalanceTerm& term) {
    return (term.Unknown != 0 && !term.IsSought) || (!isMoment && !IsOne(std::abs(term.Factor)));
  });
}

std::string EquationText::Sense(const UnknownForce& force) const {
  if (force.Value == 0) return "";
  const std::string magnitude = Number(std::abs(force.Value));
  if (graph_.Unknowns[force.Unknown].IsMember())
    return ", that is " + magnitude + (force.Value > 0 ? " C" : " T");
  return force.Value < 0 ? ", against its arrow" : "";
}

std::string EquationText::Value(const UnknownForce& force) const {
  return Name(force.Unknown) + " = " + Number(force.Value) + Sense(force);
}

std::string EquationText::Quotient(const UnknownForce& force, double over, double factor) const {
  if (over == 0) return Name(force.Unknown) + " = 0";
  return Name(force.Unknown) + " = " +
         (IsWrittenAsOne(factor) ? "" : Number(over) + " / " + Number(factor) + " = ") + Number(force.Value) +
         Sense(force);
}

std::vector<std::string> EquationText::Together(const BalanceEquation& one, const BalanceEquation& other,
                                                const std::vector<UnknownForce>& solved) const {
  const UnknownForce& first = solved[0];
  const UnknownForce& second = solved[1];
  const SortedEquation a = Sorted(one, first.Unknown);
  const SortedEquation b = Sorted(other, first.Unknown);
  const auto text = [&](const SortedEquation& sorted, const std::string& name) {
    return Product(sorted.P, Name(first.Unknown)) + (sorted.Q < 0 ? " - " : " + ") +
           Product(std::abs(sorted.Q), name) + " = " + Number(sorted.Right);
  };
  std::vector<std::string> lines = {"What is sought to the left:  " + text(a, Name(second.Unknown)) +
                                    "  and  " + text(b, Name(second.Unknown))};
  const std::string factorOfOne = Number(b.P);
  const std::string factorOfOther = Number(a.P);
  const bool asTheyAre = factorOfOne == factorOfOther;
  const double left = asTheyAre ? a.Q - b.Q : a.Q * b.P - b.Q * a.P;
  std::string how;
  if (asTheyAre) {
    how = left > 0 ? "The first less the second" : "The second less the first";
  } else {
    const auto times = [](const std::string& number) { return number == "1" ? "" : " times " + number; };
    const std::string timesOne = "he first" + times(factorOfOne);
    const std::string timesOther = "he second" + times(factorOfOther);
    how = left > 0 ? 'T' + timesOne + " less t" + timesOther : 'T' + timesOther + " less t" + timesOne;
  }
  const double factor = std::abs(left);
  const double over = factor * second.Value;
  lines.push_back(how + ":  " + Product(factor, Name(second.Unknown)) + " = " + Number(over));
  lines.push_back("So  " + Quotient(second, over, factor) + '.');
  const std::string value = Number(second.Value);
  lines.push_back("Put into the first:  " + text(a, second.Value < 0 ? '(' + value + ')' : value));
  lines.push_back("So  " + Quotient(first, a.P * first.Value, a.P) + '.');
  return lines;
}

// Whether what is shown of it is all of it.
bool EquationText::IsShownWhole(double value) const {
  return DecimalDigits::Of(value).Digits.size() <= static_cast<std::size_t>(std::max(1, format_.SigFigs));
}

// A small difference of large forces does not follow from the few figures that are shown of them.
std::string EquationText::WhatCancels(const BalanceEquation& equation, double sum) const {
  double largest = 0;
  bool areWhole = true;
  for (const BalanceTerm& term : equation.Terms) {
    largest = std::max(largest, std::abs(term.Factor * term.Force));
    areWhole = areWhole && (term.IsSought || (IsShownWhole(term.Factor) && IsShownWhole(term.Force)));
  }
  if (areWhole || sum == 0 || std::abs(sum) > largest * std::pow(10, 1 - std::max(1, format_.SigFigs)))
    return "";
  return ".  Terms as large as " + Number(largest) +
         " cancel here: it takes more figures of them than are shown";
}

std::string EquationText::Result(const BalanceEquation& equation) const {
  if (equation.Use == BalanceUse::SolvesTogether) return "";
  if (equation.Use == BalanceUse::Solves) {
    const auto sought = std::ranges::find(equation.Terms, true, &BalanceTerm::IsSought);
    const double factor = sought->Factor;
    const double over = factor > 0 ? -equation.KnownSum : equation.KnownSum;
    return Quotient(equation.Solved, over, std::abs(factor)) + WhatCancels(equation, over);
  }
  const std::string left = Number(equation.KnownLeft);
  const std::string right = Number(equation.KnownRight);
  if (equation.Use == BalanceUse::Holds)
    return left + " = " + right + ", which holds" + WhatCancels(equation, equation.KnownLeft);
  const std::string difference =
      left == right ? ", with a difference of " + Number(std::abs(equation.KnownSum)) : "";
  return left + " = " + right + difference + ", which is false: no forces balance the loads here";
}
