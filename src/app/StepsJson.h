// The pivots of the elimination, as a JSON array.
#pragma once

#include "app/FileAnalysis.h"
#include "app/JsonList.h"

/// An object for each pivot, in their order: the row by its joint and axis, the unknown of the column, and
/// the value before the row is divided by it.
void WritePivots(JsonStream& list, const AnalysedFile& file);
