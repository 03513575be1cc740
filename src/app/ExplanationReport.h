// What stands behind the answer, for the command line: as sections of the text report and as keys of the JSON
// object.
#pragma once

#include <ostream>

#include "analysis/FormatSigFigs.h"
#include "app/FileAnalysis.h"
#include "explanation/DrawingChecks.h"
#include "explanation/ExplanationText.h"

/// What stands in place of the section "why" for a truss without an unknown force.
inline constexpr const char* NothingToExplainText =
    "There is nothing to explain: a truss without members and supports has no unknown force.";

/// The section "why", in UTF-8 with line ends LF; for a truss with at least one unknown force.
void WriteWhy(std::ostream& out, const Explanation& explanation, const ReportFormat& format);

/// The checks of the drawing on a canvas of the usual size, as the file would be opened.
std::vector<DrawingCheck> ChecksOf(const AnalysedFile& file, const ReportFormat& format);

/// The section "checks": a line for each finding, or that there is none.
void WriteChecks(std::ostream& out, const AnalysedFile& file, const ReportFormat& format);
