// Forward elimination of rows that store only what is not 0. It chooses pivots and clears the columns below
// them; the rows above wait for the upward phase, since no choice of a pivot looks at them.
#pragma once

#include <vector>

#include "analysis/Echelon.h"

/// Takes pivots until none is left or until more than `denseFill` of the remaining block is not 0.
/// Returns true when the elimination has found all its pivots.
bool EliminateSparse(std::vector<SparseRow>& rows, Echelon& echelon, double denseFill);
