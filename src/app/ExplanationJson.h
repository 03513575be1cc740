// The keys that --explain adds to the JSON object of a file.
#pragma once

#include "analysis/FormatSigFigs.h"
#include "app/FileAnalysis.h"
#include "app/JsonList.h"
#include "explanation/Explanation.h"

/// "exact" to "certainFigures", of a truss with at least one unknown force, then "checks"; without unknown
/// forces "checks" alone.
void AddExplanation(JsonList& object, const AnalysedFile& file, const ReportFormat& format);
