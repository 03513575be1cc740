// How much each member would lengthen and each support give way for displacements of the joints: the
// transpose of the equilibrium equations. Row k belongs to unknown k; columns 2j-1 and 2j (counted from 0
// here: 2j-2 and 2j-1) to the displacement of joint j along x and y. A motion is a vector that the matrix
// maps to 0; a state of self-stress is one that its transpose maps to 0.
#pragma once

#include <cstdint>
#include <vector>

#include "analysis/SparseMatrix.h"
#include "explanation/ExtendedDouble.h"
#include "explanation/PrimeField.h"
#include "explanation/TrussGraph.h"

/// One entry of a sparse row over a prime field. Columns count from 0.
struct ModularEntry {
  int Column;
  std::uint64_t Value;  ///< not 0
};
using ModularRow = std::vector<ModularEntry>;  ///< by ascending column

/// The column of a joint's displacement, from 0.
constexpr int ColumnOf(int joint, Axis axis) { return 2 * (joint - 1) + (axis == Axis::Y ? 1 : 0); }

/// Exact rows: the unknown of a member is its force density (force divided by length), so that every entry is
/// a difference of coordinates as they are written.
template <class Field>
std::vector<ModularRow> ExactRigidityRows(const TrussGraph& graph);

/// The loads' components by column, exact. The right-hand side of the equations is their negative.
template <class Field>
std::vector<std::uint64_t> ExactLoads(const TrussGraph& graph);

/// The double nearest to the number that a single's shortest decimal says.
double WrittenValue(float value);

struct WrittenPlace {
  double X = 0, Y = 0;
};

/// The joints' places as they are written.
Table<WrittenPlace> WrittenPlaces(const TrussGraph& graph);

/// The difference of two coordinates as they are written (0.3 - 0.1 is 0.2), rounded once.
double WrittenDifference(float a, float b);

/// The exact rows in twice the figures of a double, entries numbered from 1, those of a member divided by its
/// length in double precision: the unknown of a member is its force. A member of no length has an empty row.
SparseMatrix<ExtendedDouble> ExtendedRigidityRows(const TrussGraph& graph);

/// The same in double precision.
SparseMatrix<double> RigidityRows(const TrussGraph& graph);

/// The loads' components by column as they are written, in double precision.
std::vector<double> LoadVector(const TrussGraph& graph);

/// The magnitude of what acts on the joint that is loaded most, in force units; 0 without loads.
double LargestLoad(const TrussGraph& graph);
