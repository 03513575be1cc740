// The elimination as it is defined, slow and step by step: what the fast one is compared with.
#pragma once

#include <cstdint>

#include "explanation/steps/PlainElimination.h"

/// A reduced matrix whose rows and columns stand at their places. Zeros are not stored.
struct ReducedMatrix {
  SparseMatrix<double> Equations;
  Table<std::int16_t> ColumnOrder;
};

ReducedMatrix AtItsPlaces(const StepMatrix& matrix);

ReducedMatrix ReducedPlainly(const SparseMatrix<double>& equations);
