// The reports as plain text and the tables as CSV, in UTF-8 with the window's wording.
#pragma once

#include <ostream>
#include <vector>

#include "analysis/FormatSigFigs.h"
#include "app/CommandLine.h"
#include "app/FileAnalysis.h"
#include "reports/ReportTables.h"

/// What to print: the usual sections in their order, then the others as they were named.
struct WantedSections {
  ReportSections Usual;
  std::vector<ExplainedSection> Explained;
};

/// Prints the sections, a blank line between them; one that is empty is left out. Line ends are LF.
void WriteReport(std::ostream& out, const AnalysedFile& file, const WantedSections& sections,
                 const ReportFormat& format);

/// Prints one table as RFC 4180 tells: CR LF, fields quoted where they must be. The solutions of a system
/// that has none are the header row alone.
void WriteCsv(std::ostream& out, const AnalysedFile& file, CsvTable table, const ReportFormat& format);
