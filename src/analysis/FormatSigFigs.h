// The one rule by which computed values become text, in every report and table.
#pragma once

#include <string>

#include "platform/NumberFormat.h"

/// How reports show values: the document's significant figures and the locale's separator.
struct ReportFormat {
  int SigFigs = 4;
  NumberFormat Numbers;
};

/// "0" below 1E-08 in magnitude; plain decimals rounded to the significant figures, without trailing zeros,
/// strictly between 1E-05 and 100000; otherwise scientific with exactly that many figures (1.23E+6). Ties are
/// rounded away from zero on the shortest decimal form of the value. Fewer than 1 figure counts as 1, more
/// than 17 as 17, since no value has more to show. A value beyond the number range is "overflow".
std::string FormatSigFigs(float value, const ReportFormat& format);
std::string FormatSigFigs(double value, const ReportFormat& format);

/// The same as it stands in table cells: a minus sign is an en dash.
std::string TableNumber(float value, const ReportFormat& format);
std::string TableNumber(double value, const ReportFormat& format);
