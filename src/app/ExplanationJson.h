// The keys that --explain adds to the JSON object of a file.
#pragma once

#include <optional>

#include "analysis/FormatSigFigs.h"
#include "app/FileAnalysis.h"
#include "app/JsonList.h"
#include "explanation/Explanation.h"

/// "exact" to "certainFigures", of a truss with at least one unknown force, then "checks", "steps" and
/// "byJoint"; without unknown forces (`explanation` is empty) "checks" alone.
void AddExplanation(JsonStream& object, const AnalysedFile& file,
                    const std::optional<Explanation>& explanation, const ReportFormat& format);
