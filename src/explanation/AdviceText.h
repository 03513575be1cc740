// What was advised, in words.
#pragma once

#include <string>
#include <vector>

#include "explanation/DistinctNames.h"
#include "explanation/Explanation.h"

/// What the author of the drawing may have meant otherwise and what that would change, paragraph by
/// paragraph: forces off the truss, members across joints, ends that nearly meet, members drawn twice.
std::vector<std::string> WhatMayBeASlip(const Explanation& explanation, const DistinctNames& names);

/// What else would stop a motion, paragraph by paragraph; empty when there is nothing to say. The names are
/// those of the explanation's graph.
std::vector<std::string> WhatWouldHelp(const Explanation& explanation, const DistinctNames& names);

/// What could be left out without starting a motion; empty when there is nothing to say.
std::vector<std::string> WhatMayBeLeftOut(const Explanation& explanation, const DistinctNames& names);
