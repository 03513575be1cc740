#include "explanation/byjoint/JointBalance.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

HandStep StepAt(const TrussBalance& balance, int joint) {
  HandStep step{.Kind = HandStepKind::Joint, .Joint = joint};
  for (const int k : balance.ActingAt(joint)) {
    if (balance.IsKnownZero(k)) step.LeftOut.push_back(k);
  }
  return step;
}

void Check(const TrussBalance& balance, const std::vector<int>& joint, BalanceKind kind, HandStep& step) {
  const BalanceEquation equation = balance.BalanceOf(joint, {.Kind = kind}).Equation;
  if (equation.Terms.empty()) return;
  step.Equations.push_back(equation);
  if (equation.Use == BalanceUse::Contradicts) step.Contradicts = true;
}

void SolveOne(TrussBalance& balance, const std::vector<int>& joint, Balance& sum, HandStep& step) {
  step.Solved.push_back(balance.Solve(sum));
  step.Equations.push_back(std::move(sum.Equation));
  const bool wasX = step.Equations.back().Kind == BalanceKind::X;
  const BalanceKind otherKind = wasX ? BalanceKind::Y : BalanceKind::X;
  Balance other = balance.BalanceOf(joint, {.Kind = otherKind});
  if (other.Sought.empty()) {
    Check(balance, joint, otherKind, step);
  } else {
    step.Solved.push_back(balance.Solve(other));
    step.Equations.push_back(std::move(other.Equation));
  }
}

}  // namespace

double SolvableShare(const TrussBalance& balance, int joint) {
  const std::vector<int> sought = balance.SoughtAt(joint);
  if (sought.size() == 1) return 1;
  if (sought.size() != 2 || balance.AreParallel(sought[0], sought[1])) return 0;
  return balance.Sine(sought[0], sought[1]);
}

bool IsSolvedInPair(const TrussBalance& balance, int joint) {
  const std::vector<int> sought = balance.SoughtAt(joint);
  const auto hasBothComponents = [&](int k) {
    return !balance.Direction(k).X.IsZero() && !balance.Direction(k).Y.IsZero();
  };
  return sought.size() == 2 && std::ranges::all_of(sought, hasBothComponents);
}

HandStep SolveJoint(TrussBalance& balance, int joint) {
  const std::vector<int> joints = {joint};
  HandStep step = StepAt(balance, joint);
  Balance x = balance.BalanceOf(joints, {.Kind = BalanceKind::X});
  Balance y = balance.BalanceOf(joints, {.Kind = BalanceKind::Y});
  if (x.Sought.size() == 2 && y.Sought.size() == 2) {
    step.Solved = balance.SolveTogether(x, y);
    step.Equations = {std::move(x.Equation), std::move(y.Equation)};
  } else if (x.Sought.empty() && y.Sought.empty()) {
    Check(balance, joints, BalanceKind::X, step);
    Check(balance, joints, BalanceKind::Y, step);
  } else {
    const auto factor = [](const Balance& sum) {
      return sum.Sought.size() == 1 ? std::abs(sum.Sought.front().ByForce) : 0;
    };
    SolveOne(balance, joints, factor(x) >= factor(y) ? x : y, step);
  }
  return step;
}

AcrossLine OneAcross(const TrussBalance& balance, int joint) {
  const std::vector<int> sought = balance.SoughtAt(joint);
  if (sought.size() < 3) return {};
  // Of any three forces two lie in the line.
  for (const auto& [one, two] : {std::pair(0, 1), std::pair(0, 2), std::pair(1, 2)}) {
    const int line = sought[static_cast<std::size_t>(one)];
    if (!balance.AreParallel(line, sought[static_cast<std::size_t>(two)])) continue;
    AcrossLine across{.Line = line};
    int numAcross = 0;
    for (const int k : sought) {
      if (balance.AreParallel(line, k)) continue;
      if (++numAcross > 1) break;
      across.Unknown = k;
      across.Share = balance.Sine(line, k);
    }
    return numAcross == 1 ? across : AcrossLine{};
  }
  return {};
}

HandStep SolveAcross(TrussBalance& balance, int joint, const AcrossLine& across) {
  HandStep step = StepAt(balance, joint);
  Balance sum = balance.BalanceOf({joint}, balance.Across(across.Line));
  step.PutAside = sum.PutAside;
  step.Solved.push_back(balance.Solve(sum));
  step.Equations.push_back(std::move(sum.Equation));
  return step;
}

bool ContradictsAcross(const TrussBalance& balance, int joint) {
  const std::vector<int> sought = balance.SoughtAt(joint);
  if (sought.empty()) return false;
  const bool inLine =
      std::ranges::all_of(sought, [&](int k) { return balance.AreParallel(sought.front(), k); });
  return inLine && !balance.BalanceOf({joint}, balance.Across(sought.front())).Rest.IsZero();
}

HandStep ContradictionAcross(const TrussBalance& balance, int joint) {
  HandStep step = StepAt(balance, joint);
  Balance sum = balance.BalanceOf({joint}, balance.Across(balance.SoughtAt(joint).front()));
  step.PutAside = sum.PutAside;
  step.Equations.push_back(std::move(sum.Equation));
  step.Contradicts = true;
  return step;
}
