// The names by which a table of answers calls the forces of a truss.
#pragma once

#include <string>

#include "explanation/TrussGraph.h"

// Columns of a table of answers that are no forces.
inline constexpr const char* StudentHeading = "student";
inline constexpr const char* FileHeading = "file";
inline constexpr const char* VariantHeading = "variant";

/// UTF-8, without outer blanks.
std::string TrimmedName(const PlacedUnknown& unknown);

/// Why the forces cannot be told apart by their names, the rest of a sentence; empty when they can.
std::string WhyNotByName(const TrussGraph& graph);
