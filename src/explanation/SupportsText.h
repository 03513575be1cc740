// Why the supports of a truss do not hold it, in words.
#pragma once

#include <string>

#include "explanation/DistinctNames.h"
#include "explanation/Explanation.h"

/// Of a truss without any support: that it has none, and whether a clamp and a roller would hold it. Empty
/// for one with supports.
std::string NoSupportsText(const Explanation& explanation);

/// Of a truss with supports: which of its parts have none. Empty where each has one.
std::string PartsWithoutSupportText(const Explanation& explanation, const DistinctNames& names);

/// Of a truss that keeps its shape and has as many equations as unknowns, and that moves all the same: what
/// Counting's sentence about triangles takes for granted, and why it does not hold here.
std::string TrianglesText(const Explanation& explanation, const DistinctNames& names);

/// Whether no motion changes the shape: each moves the truss as a whole.
bool KeepsItsShape(const Explanation& explanation);
