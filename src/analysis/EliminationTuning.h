// When the elimination changes its methods. The result does not depend on these numbers, only the time does;
// tests change them in order to send small systems through every phase.
#pragma once

#include <cstdint>
#include <vector>

#include "analysis/Elimination.h"
#include "analysis/SparseMatrix.h"
#include "document/Table.h"

struct EliminationTuning {
  double DenseFill = 0.04;              ///< the dense phase takes over when more of the cells are not 0
  unsigned Window = 32;                 ///< pivots whose updates the dense phase may leave pending, 1 .. 64
  unsigned FewestRowsForThreads = 600;  ///< smaller jobs run on the calling thread alone
  unsigned MostThreads = 0;             ///< 0: as many as the machine has
};

/// SolveToRREF with numbers of the caller's own.
void SolveToRREF(int R, int N, SparseMatrix<double>& EquationMatrix, Table<std::int16_t>& ColumnOrder,
                 const EliminationTuning& tuning);

/// PivotsOf with numbers of the caller's own.
std::vector<EliminationPivot> PivotsOf(const SparseMatrix<double>& equations,
                                       const EliminationTuning& tuning);
