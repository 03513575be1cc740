// Everything that is known of an analysed file as one JSON object.
#pragma once

#include <ostream>

#include "analysis/FormatSigFigs.h"
#include "app/CommandLine.h"
#include "app/FileAnalysis.h"

/// Writes one line of UTF-8 without its end, as it goes. Keys stand in a fixed order. Singles and doubles are
/// written in the shortest form that reads back to the same value of their type. The assembled and the
/// reduced augmented matrix are written in full when they are asked for.
void WriteJson(std::ostream& out, const AnalysedFile& file, const JsonExtras& extras,
               const ReportFormat& format);
