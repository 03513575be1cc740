// Values as reports show them, but with more figures where these would make them a number that they are not.
#pragma once

#include <string>

#include "analysis/FormatSigFigs.h"

/// As FormatSigFigs, but only 0 is "0": what is smaller than reports show is written like 2.665E-15.
std::string NumberNot0(double value, const ReportFormat& format);

/// The same, and only 1 and -1 are "1" and "-1": what would be rounded to them has as many figures more as it
/// takes to be told from them, as in 0.99998.
std::string NumberNot1(double value, const ReportFormat& format);
