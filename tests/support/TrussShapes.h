// Trusses of any size for tests and benchmarks: as joints and members, and as the equations of their joints.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "analysis/SparseMatrix.h"

/// A truss on a clamp and a roller. With 2 J - 3 members it has as many unknowns as equations. Joints are
/// numbered from 0.
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

/// Points anywhere, joined to those that they see best (the Delaunay triangulation): about three members for
/// two equations, all of them short.
TrussShape DelaunayTruss(int numUnknowns, unsigned seed);

/// Joints anywhere, joined along two random tours: no part of it hangs on the rest by few members, so that
/// an elimination fills in.
TrussShape TwoTours(int numUnknowns, unsigned seed);

/// Every joint of a circle joined to every other: many more members than equations. The largest one that has
/// not more than so many unknowns.
TrussShape CompleteTruss(int numUnknowns);

/// A strip of triangles in which every fourth member is missing: more equations than unknowns.
TrussShape GappedStrip(int numUnknowns);

struct NamedShape {
  std::string Name;
  std::function<TrussShape(int numUnknowns)> Make;
};

/// All of the above. What they are asked for is the larger one of the numbers of their unknowns and
/// equations, as near as the shape allows it.
const std::vector<NamedShape>& AllShapes();

/// The augmented matrix: two equations for each joint; the three reactions and then the members as unknowns.
SparseMatrix<double> EquationsOf(const TrussShape& shape);
