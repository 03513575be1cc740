// The result of the analysis as one value: the unknown forces in column order, the equations as they were
// assembled, and the same matrix in reduced row echelon form.
#pragma once

#include <cstdint>

#include "analysis/SparseMatrix.h"
#include "document/Table.h"
#include "document/Truss.h"
#include "text/SharedText.h"

/// One unknown force. Its name is the caption that its label had when the unknowns were counted.
struct Unknown {
  LabelIndex Label = 0;
  SharedText Name;
};

struct EquationSystem {
  /// 1 .. N: first the reaction components, then the member forces, each group sorted by name.
  Table<Unknown> UnknownList;
  std::int16_t NumReactionForces = 0;
  std::int16_t NumMemberForces = 0;

  /// Rows 2j-1 and 2j are the x and the y equation of joint j of the list that it was assembled from; column
  /// k is unknown k; column N + 1 is the right-hand side. Empty when there is no unknown.
  SparseMatrix<float> DisplayEquations;

  /// The same matrix in reduced row echelon form; its columns stand in ColumnOrder.
  SparseMatrix<double> EquationMatrix;

  /// Entry k: the unknown whose coefficients stand in column k of EquationMatrix.
  Table<std::int16_t> ColumnOrder;

  int NumUnknowns() const { return NumReactionForces + NumMemberForces; }
};
