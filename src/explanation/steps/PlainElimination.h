// Gauss-Jordan elimination with complete pivoting as it is defined, operation by operation. The fast
// elimination of the analysis gives the same bits and cannot say how; this one can.
#pragma once

#include <functional>

#include "analysis/Analysis.h"
#include "explanation/TrussGraph.h"
#include "explanation/steps/EliminationSteps.h"
#include "explanation/steps/StepMatrix.h"

/// Carries out one step after the other on the equations in `matrix` and tells each when it is done. The time
/// grows with the third power of the size.
void EliminatePlainly(StepMatrix& matrix, const std::function<void(const EliminationStep&)>& done);

/// All steps; for matrices that are too large to be told in steps the pivots alone.
EliminationInSteps EliminateInSteps(SparseMatrix<double> equations);

/// Whose equation row r is: the joint, and the direction in which its forces are in balance.
inline int JointOfRow(int row) { return (row + 1) / 2; }
inline Axis AxisOfRow(int row) { return row % 2 == 1 ? Axis::X : Axis::Y; }

/// The equations of an analysis before they were reduced.
SparseMatrix<double> EquationsOf(const Truss& truss, const TrussAnalysis& analysis);
