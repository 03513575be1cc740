// The displacements of a motion as whole numbers, where that can be told exactly.
#pragma once

#include <cstdint>
#include <vector>

#include "explanation/Motions.h"
#include "explanation/TrussGraph.h"

/// Whole numbers in the proportions of the displacements (Dx and Dy of each joint that moves, in its order),
/// without a common divisor, each below 2^53 so that a double holds it. Empty where larger ones would be
/// needed, or where more than one motion keeps to these joints. Found modulo two primes, from which fractions
/// of up to 2^60 are told; that they lengthen no member is for the caller to check.
std::vector<std::int64_t> ExactProportions(const TrussGraph& graph, const Motion& motion);
