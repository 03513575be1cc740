// The elimination step by step, for the command line: as a section of the text report.
#pragma once

#include <ostream>

#include "analysis/FormatSigFigs.h"
#include "app/FileAnalysis.h"
#include "explanation/Explanation.h"

/// The section "steps", in UTF-8 with line ends LF; for a truss with at least one unknown force.
void WriteSteps(std::ostream& out, const AnalysedFile& file, ExplanationOnDemand& reasons,
                const ReportFormat& format);
