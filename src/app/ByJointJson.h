// The truss solved joint by joint, as a JSON array.
#pragma once

#include <string>

#include "analysis/FormatSigFigs.h"
#include "app/FileAnalysis.h"

/// An object for each step: its kind, its joint where it is about one, the forces that it gives with their
/// values, and its text, whose lines end with LF.
std::string ByJointJson(const AnalysedFile& file, const ReportFormat& format);
