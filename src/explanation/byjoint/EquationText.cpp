// See the header.
#include "explanation/byjoint/EquationText.h"

#include <cmath>
#include <functional>

#include "document/Angles.h"
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

double SumOf(const BalanceEquation& equation, bool positive) {
  double sum = 0;
  for (const BalanceTerm& term : equation.Terms) {
    if ((term.Factor > 0) == positive) sum += std::abs(term.Factor) * term.Force;
  }
  return sum;
}

// A factor that would be written as 1 is left out.
bool IsOne(double factor) { return std::abs(factor - 1) < 1e-12; }

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
  const auto inBrackets = [this](const char* function, double radians) {
    return ' ' + std::string(function) + '(' +
           FixedText(radians * 180 / HalfTurn, 1, format_.Numbers.DecimalSeparator) + ')';
  };
  if (IsOne(std::abs(term.Factor))) return "";
  if (equation.Kind == BalanceKind::Across) return inBrackets("sin", std::asin(std::abs(term.Factor)));
  if (term.Unknown == 0 || !graph_.Unknowns[term.Unknown].IsMember()) return "";
  const PlacedJoint& a = graph_.Joints[graph_.Unknowns[term.Unknown].JointA];
  const PlacedJoint& b = graph_.Joints[graph_.Unknowns[term.Unknown].JointB];
  const double dx = std::abs(WrittenDifference(a.X, b.X));
  const double dy = std::abs(WrittenDifference(a.Y, b.Y));
  if (dx == 0 || dy == 0) return "";
  return inBrackets(equation.Kind == BalanceKind::X ? "cos" : "sin", std::atan2(dy, dx));
}

std::string EquationText::Letters(const BalanceEquation& equation, const BalanceTerm& term) const {
  const std::string name = term.Unknown == 0 ? Number(term.Force) : names_.Force(term.Unknown);
  if (equation.Kind == BalanceKind::Moment && !IsOne(std::abs(term.Factor)))
    return Number(std::abs(term.Factor)) + TimesSign + name;
  return name + Angle(equation, term);
}

std::string EquationText::Numbers(const BalanceTerm& term) const {
  std::string force = term.IsSought ? names_.Force(term.Unknown) : Number(term.Force);
  if (!term.IsSought && term.Force < 0) force = '(' + force + ')';
  const double factor = std::abs(term.Factor);
  return IsOne(factor) ? force : Number(factor) + TimesSign + force;
}

std::string EquationText::InLetters(const BalanceEquation& equation) const {
  return TwoSides(equation, [&](const BalanceTerm& term) { return Letters(equation, term); });
}

std::string EquationText::WithNumbers(const BalanceEquation& equation) const {
  return TwoSides(equation, [&](const BalanceTerm& term) { return Numbers(term); });
}

std::string EquationText::Sense(const UnknownForce& force) const {
  const std::string magnitude = Number(std::abs(force.Value));
  if (magnitude == "0") return "";
  if (graph_.Unknowns[force.Unknown].IsMember())
    return ", that is " + magnitude + (force.Value > 0 ? " C" : " T");
  return force.Value < 0 ? ", against its arrow" : "";
}

std::string EquationText::Value(const UnknownForce& force) const {
  return names_.Force(force.Unknown) + " = " + Number(force.Value) + Sense(force);
}

std::string EquationText::Result(const BalanceEquation& equation) const {
  if (equation.Use == BalanceUse::Solves) {
    double known = 0;
    double factor = 1;
    for (const BalanceTerm& term : equation.Terms) {
      if (term.IsSought) {
        factor = term.Factor;
      } else {
        known += term.Factor * term.Force;
      }
    }
    const double over = factor > 0 ? -known : known;
    const UnknownForce force{equation.Solved, over / std::abs(factor)};
    const bool isPlain = IsOne(std::abs(factor)) || Number(over) == "0";
    return names_.Force(equation.Solved) + " = " +
           (isPlain ? "" : Number(over) + " / " + Number(std::abs(factor)) + " = ") +
           (Number(over) == "0" ? "0" : Number(force.Value) + Sense(force));
  }
  if (equation.Use == BalanceUse::SolvesTogether) return "";
  const std::string left = Number(SumOf(equation, true));
  const std::string right = Number(SumOf(equation, false));
  if (equation.Use == BalanceUse::Holds) return left + " = " + right + ", which holds";
  const std::string difference =
      left == right
          ? ", with a difference of " + Number(std::abs(SumOf(equation, true) - SumOf(equation, false)))
          : "";
  return left + " = " + right + difference + ", which is false: no forces balance the loads here";
}
