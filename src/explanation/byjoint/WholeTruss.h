// The reactions from the balance of the whole truss.
#pragma once

#include <optional>
#include <vector>

#include "explanation/byjoint/TrussBalance.h"

/// The three equations of a connected part as far as each gives one reaction: moments about the point that
/// leaves one, then the sums. An equation without a sought reaction that is false ends the step. Empty when
/// they give nothing. `joints` are those of the part, ascending.
std::optional<HandStep> ReactionsOf(TrussBalance& balance, const std::vector<int>& joints);

/// The same once some reactions are known, for those that are still sought. Empty when they give none.
/// Moments whose arm nearly vanishes are left to others.
std::optional<HandStep> MoreReactionsOf(TrussBalance& balance, const std::vector<int>& joints);
