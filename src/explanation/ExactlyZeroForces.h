// The forces that are exactly 0: what rounding leaves of them looks like a small force.
#pragma once

#include <vector>

#include "explanation/TrussGraph.h"

/// The unknown forces that are 0 in all forces that balance the loads, ascending, from 1. There must be such
/// forces; `rank` is the exact rank of the equations.
std::vector<int> ExactlyZeroForces(const TrussGraph& graph, int rank);
