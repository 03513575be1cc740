#include "analysis/Classification.h"

Classification ClassifyRREF(const EquationSystem& system) {
  const SparseMatrix<double>& matrix = system.EquationMatrix;
  const int N = system.NumUnknowns();
  Classification result;
  result.Values.Resize(N);

  for (int row = 1; row <= matrix.NumRows(); ++row) {
    int ones = 0;
    int nonZeros = 0;
    int columnOfOne = 0;
    double rightHandSide = 0;
    for (const auto& [column, value] : matrix.Row(row)) {
      if (column == N + 1) {
        rightHandSide = value;
      } else if (value != 0) {
        ++nonZeros;
        if (value == 1) {
          ++ones;
          columnOfOne = column;
        }
      }
    }
    if (nonZeros == 0 && rightHandSide != 0) {
      result.Code = Outcome::Inconsistent;
      return result;
    }
    if (nonZeros == 0) {
      result.Code = Outcome::Redundant;
    } else if (nonZeros == 1 && ones == 1) {
      result.Values[system.ColumnOrder[columnOfOne]] = rightHandSide;
    }
  }
  return result;
}

const char* ConclusionText(Outcome outcome) {
  switch (outcome) {
    case Outcome::Inconsistent:
      return InconsistentText;
    case Outcome::Redundant:
      return RedundantText;
    case Outcome::Neither:
      break;
  }
  return "";
}
