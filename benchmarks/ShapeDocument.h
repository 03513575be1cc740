// The truss shapes as documents and as files.
#pragma once

#include <string>

#include "document/Truss.h"
#include "support/TrussShapes.h"

/// 2048 joints and 4093 members; their labels and arrow lines just fit 16-bit counters.
inline constexpr int LargestNumUnknowns = 4096;

/// The elements drawn in the shape's order, all named. The joint list is up to date.
Truss DocumentOf(const TrussShape& shape);

/// The bytes of its file.
std::string FileTextOf(const TrussShape& shape);
