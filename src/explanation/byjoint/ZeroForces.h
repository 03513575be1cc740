// Members that carry nothing, found by looking.
#pragma once

#include <optional>

#include "explanation/byjoint/TrussBalance.h"

/// Applies the first rule that tells something new at the joint and learns what it tells. Only members that
/// are already known to carry nothing, reactions and loads may act there beside those that are sought. "In
/// line" is decided on the coordinates as they are written.
std::optional<HandStep> ZeroForcesAt(TrussBalance& balance, int joint);
