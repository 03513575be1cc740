// Everything that is known of an analysed file as one JSON object.
#pragma once

#include <string>

#include "app/FileAnalysis.h"
#include "reports/FormatSigFigs.h"

/// One line of UTF-8 without its end. Keys stand in a fixed order. Singles and doubles are written in the
/// shortest form that reads back to the same value of their type. With `matrices` the assembled and the
/// reduced augmented matrix are written in full.
std::string JsonReport(const AnalysedFile& file, bool matrices, const ReportFormat& format);
