// A truss solved by hand: joint by joint, with sections where no joint can be solved.
#pragma once

#include "explanation/TrussGraph.h"
#include "explanation/byjoint/HandSteps.h"

/// A division by less than this (the sine of an angle, or the share of an arm) waits until nothing else is
/// left.
inline constexpr double NearlyVanishing = 0.01;

/// In this order: the reactions, as far as the balance of the whole truss gives them; members that carry
/// nothing, until nothing is new; then each joint at which at most two forces are sought, going on at a
/// neighbour of the last one where that is possible. Where there is none, a section; then a joint at which
/// all forces but one lie in one line; then what divides by nearly nothing; and last the matrix. The joints
/// whose equations were not needed check the values at the end. What the equations do not determine is gone
/// around. In a part of the truss whose equations contradict each other nothing is said after that.
HandSolution SolveByHand(const TrussGraph& graph);
