// Where the joints of a truss are, in words: who is to find its forces must know its angles.
#pragma once

#include <string>

#include "analysis/FormatSigFigs.h"
#include "explanation/TrussGraph.h"

/// "Joints (x, y):  A at (0, 0),  B at (3, 0)"; those without a name by their places alone. A single-byte
/// text.
std::string JointPlaces(const TrussGraph& graph, const ReportFormat& format);
