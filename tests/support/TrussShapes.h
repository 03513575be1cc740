// Trusses of any size for tests and benchmarks: as joints and members, and as the equations of their joints.
#pragma once

#include <utility>
#include <vector>

#include "analysis/SparseMatrix.h"

/// A truss with 2 J - 3 members, a clamp and a roller, so that it has as many unknowns as equations.
/// Joints are numbered from 0.
struct TrussShape {
  struct Joint {
    float X;
    float Y;
  };
  struct Load {
    int AtJoint;
    float Fx;
    float Fy;
  };
  std::vector<Joint> Joints;
  std::vector<std::pair<int, int>> Members;
  int ClampJoint = 0;
  int RollerJoint = 1;  ///< held in y
  std::vector<Load> Loads;

  int NumEquations() const { return 2 * static_cast<int>(Joints.size()); }
  int NumUnknowns() const { return 3 + static_cast<int>(Members.size()); }
};

/// A strip of equilateral triangles.
TrussShape WarrenStrip(int numUnknowns);

/// Each new joint lies anywhere and is joined to two earlier ones.
TrussShape RandomSimpleTruss(int numUnknowns, unsigned seed);

/// A square grid with a diagonal in every cell, cut off when it has its members; the last joints hang in the
/// air, so the equations depend on each other.
TrussShape TriangulatedGrid(int numUnknowns);

/// A square grid with just enough diagonals to be rigid.
TrussShape BracedGrid(int numUnknowns);

/// The augmented matrix: two equations for each joint; the three reactions and then the members as unknowns.
SparseMatrix<double> EquationsOf(const TrussShape& shape);
