// Which forces the equations determine and which they leave open, in words.
#pragma once

#include <string>

#include "explanation/DistinctNames.h"
#include "explanation/Explanation.h"

/// The determined ones with their values, and the others by name; for a truss with self-stress whose loads
/// are in balance.
std::string DeterminedText(const Explanation& explanation, const DistinctNames& names,
                           const ReportFormat& format);

/// Which of those that are left open are free, and on which of these each other one depends; for a truss
/// with self-stress.
std::string FreeForcesText(const Explanation& explanation, const DistinctNames& names);
