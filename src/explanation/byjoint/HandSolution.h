// A truss solved by hand: joint by joint, with sections where no joint can be solved.
#pragma once

#include "explanation/TrussGraph.h"
#include "explanation/byjoint/HandSteps.h"

/// In this order: the reactions, as far as the balance of the whole truss gives them; members that carry
/// nothing, until nothing is new. Then whatever one equation along x or y gives by itself: of the whole
/// truss, where a reaction was found since; of a joint at which at most two forces are sought, going on at a
/// neighbour of the last one where that is possible; of a joint at which all sought forces but one are level,
/// or upright. Then a joint whose two equations hold the same two forces. Where there is none, a section;
/// then a joint at which all forces but one lie in one slanted line; then what divides by nearly nothing; and
/// last the matrix. The joints whose equations were not needed check the values at the end. What the
/// equations do not determine is gone around. In a part of the truss whose equations contradict each other
/// nothing is said after that.
HandSolution SolveByHand(const TrussGraph& graph);
