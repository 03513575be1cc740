// What no joint and no section gives: forces that hang together, by the matrix.
#pragma once

#include <optional>
#include <vector>

#include "explanation/byjoint/TrussBalance.h"

/// The joints that sought members join, directly or through others, with at least one sought force: groups of
/// ascending joints, by their first ones. Joints of which `isOut` is true are left out.
std::vector<std::vector<int>> JoinedBySought(const TrussBalance& balance, const Table<char>& isOut);

/// Solves the equations of these joints for all forces sought in them and learns those that they determine.
/// Empty when they determine none and contradict nothing.
std::optional<HandStep> SolveTogether(TrussBalance& balance, const std::vector<int>& joints);
