// Forward elimination of a block that has filled: the rows are full arrays, and a row that cannot hold the
// next pivot is left behind until it might.
#pragma once

#include <vector>

#include "analysis/Echelon.h"
#include "analysis/EliminationTuning.h"
#include "analysis/SparseForward.h"

/// Takes all the pivots that remain after EliminateSparse, from the rows that it left.
void EliminateDense(std::vector<SparseRow>& rows, Echelon& echelon, const EliminationTuning& tuning);
