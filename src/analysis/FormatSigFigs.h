// The one rule by which computed values become text, in every report and table.
#pragma once

#include <optional>
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

/// Values of one shape, 0 .. NumNumberShapes - 1, have the same sign and so many digits before the separator,
/// or zeros behind it. Told without rounding, so that the width of a table of millions of values does not
/// wait for the text of each. Empty for what is written with a power of ten or as "overflow".
std::optional<int> NumberShape(double value, const ReportFormat& format);
inline constexpr int NumNumberShapes = 24;

/// As a table cell, with "0" for each digit, the longest text that a value of this shape can have: sign and
/// separator are the same or missing, and there are no more digits.
std::string LongestOfShape(int shape, const ReportFormat& format);
