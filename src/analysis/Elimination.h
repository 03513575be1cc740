// Gauss-Jordan elimination with complete pivoting: the augmented matrix becomes its reduced row echelon form.
#pragma once

#include <cstdint>
#include <vector>

#include "analysis/EliminationLimits.h"
#include "analysis/SparseMatrix.h"
#include "document/Table.h"

/// Reduces the augmented matrix (R rows; N coefficient columns and the right-hand side in column N + 1) in
/// place. Pivots are exactly 1, eliminated entries exactly 0.
///
/// `ColumnOrder` becomes a table of 1 .. N: entry k is the unknown whose coefficients stand in column k. It
/// is the identity when R >= N (the pivot of unknown u then stands in row u); with fewer equations than
/// unknowns the columns stay as the pivoting left them.
///
/// The result has the bits of the plain algorithm (search the whole remaining block row by row for the
/// largest magnitude, the first one met wins; swap; divide; clear the column above and below), but for the
/// sign of zeros; cells that are 0 are not stored.
void SolveToRREF(int R, int N, SparseMatrix<double>& EquationMatrix, Table<std::int16_t>& ColumnOrder);

/// SolveToRREF with other limits. Entries are still set to 0 below PivotTolerance; coefficients that are left
/// in rows without a pivot are dropped.
void SolveToRREF(int R, int N, SparseMatrix<double>& EquationMatrix, Table<std::int16_t>& ColumnOrder,
                 const EliminationLimits& limits);

struct EliminationPivot {
  int Row = 0;       ///< as it is numbered before any exchange
  int Column = 0;    ///< the same
  double Value = 0;  ///< before its row is divided by it

  friend bool operator==(const EliminationPivot&, const EliminationPivot&) = default;
};

/// The pivots that SolveToRREF takes on this augmented matrix, in their order.
std::vector<EliminationPivot> PivotsOf(const SparseMatrix<double>& equations);
