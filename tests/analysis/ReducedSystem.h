// A reduced system written down by hand, for the reading of matrices and for their tables.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "analysis/Analysis.h"

/// A matrix from its rows, the right-hand side last. Zeros are not stored.
template <class Number>
SparseMatrix<Number> MatrixFromRows(const std::vector<std::vector<Number>>& rows) {
  SparseMatrix<Number> matrix(static_cast<int>(rows.size()), static_cast<int>(rows.front().size()));
  for (int row = 1; row <= matrix.NumRows(); ++row) {
    for (int column = 1; column <= matrix.NumColumns(); ++column) {
      const Number value = rows[static_cast<std::size_t>(row - 1)][static_cast<std::size_t>(column - 1)];
      if (value != 0) matrix.Set(row, column, value);
    }
  }
  return matrix;
}

/// A system whose reduced matrix is `rows` and whose unknowns are called U1, U2, ... Without a column order
/// the columns stand in the unknowns' own order.
inline EquationSystem ReducedSystem(const std::vector<std::vector<double>>& rows,
                                    const std::vector<std::int16_t>& columnOrder = {}) {
  EquationSystem system;
  system.EquationMatrix = MatrixFromRows(rows);
  const int numUnknowns = system.EquationMatrix.NumColumns() - 1;
  system.NumMemberForces = static_cast<std::int16_t>(numUnknowns);
  system.UnknownList.Resize(numUnknowns);
  system.ColumnOrder.Resize(numUnknowns);
  for (int k = 1; k <= numUnknowns; ++k) {
    std::string name("U");
    name += std::to_string(k);
    system.UnknownList[k] = Unknown{static_cast<LabelIndex>(k), name};
    system.ColumnOrder[k] =
        columnOrder.empty() ? static_cast<std::int16_t>(k) : columnOrder[static_cast<std::size_t>(k - 1)];
  }
  return system;
}

/// That system with its rows read.
inline TrussAnalysis ReducedAnalysis(const std::vector<std::vector<double>>& rows,
                                     const std::vector<std::int16_t>& columnOrder = {}) {
  TrussAnalysis analysis;
  analysis.System = ReducedSystem(rows, columnOrder);
  analysis.Reading = ClassifyRREF(analysis.System);
  return analysis;
}
