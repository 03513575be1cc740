// What the steps say of the loads.
#include <algorithm>
#include <cmath>

#include "explanation/Directions.h"
#include "explanation/Length.h"
#include "explanation/RigidityMatrix.h"
#include "explanation/byjoint/HandText.h"

// The picture shows a load whole; the equations have its components.
std::string HandText::LoadsInComponents(const std::vector<int>& joints) const {
  std::vector<std::string> loads;
  for (const PlacedLoad& load : graph_.Loads) {
    const double fx = WrittenDifference(load.Fx, 0);
    const double fy = WrittenDifference(load.Fy, 0);
    if (fx == 0 || fy == 0 || !std::ranges::binary_search(joints, load.Joint)) continue;
    loads.push_back("the load of " + equations_.Number(LengthOf(fx, fy)) + " at " +
                    names_.JointInWords(load.Joint) + " is " + equations_.Number(std::abs(fx)) + ' ' +
                    DirectionText(fx, 0) + " and " + equations_.Number(std::abs(fy)) + ' ' +
                    DirectionText(0, fy));
  }
  constexpr std::size_t most = 12;
  std::string text;
  for (std::size_t i = 0; i < std::min(most, loads.size()); ++i) text += (i == 0 ? "" : "; ") + loads[i];
  if (loads.size() > most) text += "; so do the others have two components";
  return loads.empty() ? "" : Capital(text) + '.';
}

std::string HandText::LoadsWithoutArm(const HandStep& step, const BalanceEquation& equation) const {
  if (equation.Kind != BalanceKind::Moment) return "";
  std::vector<int> joints;
  for (const PlacedLoad& load : graph_.Loads) {
    const auto isItsTerm = [&](const BalanceTerm& term) {
      return term.Unknown == 0 && term.Joint == load.Joint;
    };
    if ((load.Fx != 0 || load.Fy != 0) && std::ranges::binary_search(step.Joints, load.Joint) &&
        std::ranges::none_of(equation.Terms, isItsTerm))
      joints.push_back(load.Joint);
  }
  std::ranges::sort(joints);
  joints.erase(std::unique(joints.begin(), joints.end()), joints.end());
  if (joints.empty()) return "";
  return (joints.size() == 1 ? "The load at " : "The loads at ") + names_.Joints(joints) +
         (joints.size() == 1 ? " acts through that point and has no arm."
                             : " act through that point and have no arm.");
}

// Loads and reactions; those that turn out to be 0 do not matter.
std::string HandText::WhatActsAt(int joint) const {
  std::vector<std::string> acting;
  const auto numLoads = std::ranges::count(graph_.Loads, joint, &PlacedLoad::Joint);
  if (numLoads > 0) acting.emplace_back(numLoads == 1 ? "the load" : "the loads");
  for (int k = 1; k <= graph_.NumUnknowns(); ++k) {
    const PlacedUnknown& unknown = graph_.Unknowns[k];
    const std::optional<double>& value = solution_.Values[k];
    if (!unknown.IsMember() && unknown.JointA == joint && (!value || *value != 0))
      acting.push_back(names_.ReactionInWords(k));
  }
  if (acting.empty()) return "what acts";
  return ListOf(acting) + (acting.size() > 1 ? " together" : "");
}
