// Ranks the plain way, for comparing: fraction-free elimination in wide whole numbers. For coordinates that
// are small whole numbers only.
#pragma once

#include <vector>

#include "explanation/TrussGraph.h"

namespace WholeNumbers {

__extension__ using Wide = __int128;
using Rows = std::vector<std::vector<Wide>>;

int Rank(Rows rows);

/// The equilibrium equations: a row for each equation, force densities as unknowns, the loads last.
Rows Equations(const TrussGraph& graph, bool withLoads);

}  // namespace WholeNumbers
