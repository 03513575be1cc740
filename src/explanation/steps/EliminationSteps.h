// The plain elimination as a value: the operations, one after the other, that lead from the equations to the
// reduced matrix. Each can be carried out by itself (StepMatrix), and told in a sentence (StepText).
#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

#include "analysis/Elimination.h"
#include "analysis/SparseMatrix.h"

enum class StepKind {
  Begin,            ///< the equations as they were assembled
  Pivot,            ///< the largest magnitude left is chosen
  ExchangeRows,     ///< two rows change places
  ExchangeColumns,  ///< two columns change places
  Divide,           ///< the row of the pivot is divided by it
  Clear,            ///< a multiple of the pivot's row is subtracted from another one
  PivotsEnd,        ///< there is no further pivot
  Clean,            ///< numbers below PivotTolerance become 0
  RestoreColumns,   ///< the columns take the order of the unknowns again
  RestoreRows,      ///< the rows follow them, so that the pivots stand on the diagonal
  Read,             ///< the rows are read
};

/// Whether carrying the step out changes the matrix; the others only look at it.
constexpr bool Changes(StepKind kind) {
  return kind != StepKind::Begin && kind != StepKind::Pivot && kind != StepKind::PivotsEnd &&
         kind != StepKind::Read;
}

/// Rows and columns are numbered as they were before any exchange: row r is equation r of the analysis,
/// column c is unknown c.
struct EliminationStep {
  StepKind Kind = StepKind::Begin;
  int Row = 0;          ///< Pivot, ExchangeRows, Divide, Clear: the row; PivotsEnd: as Number
  int OtherRow = 0;     ///< ExchangeRows: the other one; Clear: the pivot's row, of which a multiple goes
  int Column = 0;       ///< Pivot, Divide, Clear: the pivot's; ExchangeColumns: one; PivotsEnd: as Number
  int OtherColumn = 0;  ///< ExchangeColumns
  double Number = 0;    ///< Pivot, Divide: the pivot; Clear: the factor; PivotsEnd: the largest number left,
                        ///< where one is (0 with row and column 0 where none is); Clean: how many it makes 0
  bool IsTied = false;  ///< Pivot: another number left is as large

  friend bool operator==(const EliminationStep&, const EliminationStep&) = default;
};

/// A row that has lost its last coefficient, or had none from the beginning.
struct EmptiedRow {
  std::size_t Step = 0;  ///< by which of the steps
  int Row = 0;
  double RightHandSide = 0;  ///< after it

  /// Whether it says that 0 is another number; what is smaller in magnitude will be cleaned.
  bool Contradicts() const { return std::abs(RightHandSide) >= PivotTolerance; }

  friend bool operator==(const EmptiedRow&, const EmptiedRow&) = default;
};

/// With more equations or more unknowns than this only the pivots are told.
inline constexpr int MostToldInSteps = 200;

struct EliminationInSteps {
  SparseMatrix<double> Equations;        ///< the augmented matrix as it was assembled
  std::vector<EliminationPivot> Pivots;  ///< in their order
  std::vector<EliminationStep> Steps;    ///< empty where only the pivots are told
  std::vector<EmptiedRow> Emptied;       ///< by ascending steps and rows

  bool IsToldInSteps() const { return !Steps.empty(); }

  /// Of the rows that steps 0 .. `step` have emptied those that decide what the rows say, in the order in
  /// which they were emptied: those that contradict or, where none does in the end, those that say 0 = 0.
  std::vector<EmptiedRow> DecidingRows(std::size_t step) const;
};
