// A small truss whose elements have any names.
#pragma once

#include "InputBytes.h"
#include "app/FileAnalysis.h"

/// Analysed, and named with the texts that follow in the input.
AnalysedFile AnalysedSmallTruss(InputBytes& input);
