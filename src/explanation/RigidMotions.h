// How the whole truss can move on its supports, as one piece. This is decided by comparing coordinates: it
// slides along an axis when no reaction holds that axis, and turns about a point through which the lines of
// all reactions pass.
#pragma once

#include <cstdint>
#include <vector>

#include "explanation/RigidityMatrix.h"
#include "explanation/TrussGraph.h"

struct RigidMotion {
  double Ux = 0, Uy = 0;            ///< displacement of a sliding truss: (1, 0) or (0, 1)
  bool Turns = false;               ///< anticlockwise, about the centre
  double CentreX = 0, CentreY = 0;  ///< world coordinates
  // The centre is the middle between two coordinates as they are written.
  float CentreX1 = 0, CentreX2 = 0, CentreY1 = 0, CentreY2 = 0;
};

/// At most three, independent; sliding along x, along y, turning.
std::vector<RigidMotion> RigidMotions(const TrussGraph& graph);

/// The displacements of all joints by column: of a turn by 1, for a turning truss.
std::vector<double> Displacements(const RigidMotion& motion, const TrussGraph& graph);

/// The same exactly, as a sparse vector.
template <class Field>
ModularRow ExactDisplacements(const RigidMotion& motion, const TrussGraph& graph);
