// The motions and the states of self-stress of a truss, as values.
//
// A motion is a set of small displacements of the joints under which no member changes its length and no
// support gives way, to first order. A state of self-stress is a set of forces in members and supports that
// are in balance without any load.
#pragma once

#include <vector>

#include "explanation/TrussGraph.h"

struct JointDisplacement {
  int Joint = 0;
  double Dx = 0, Dy = 0;  ///< the largest magnitude of a displacement of the motion is 1
};

enum class MotionKind {
  Rigid,     ///< the whole truss moves on its supports, as one piece
  Internal,  ///< parts of the truss move against each other, or a part alone
};

/// What becomes of a motion that is continued.
enum class MotionExtent {
  Tightens,  ///< a state of self-stress does work on it at second order: it ends after a tiny displacement
  MovesOn,   ///< it can be continued
  Small,     ///< not decided: it holds for small displacements
};

struct Motion {
  MotionKind Kind = MotionKind::Internal;
  MotionExtent Extent = MotionExtent::Small;
  std::vector<JointDisplacement> Joints;  ///< those that move, ascending
  /// Work of the loads on the motion; not negative, and exactly 0 when the loads do none.
  double Work = 0;
};

struct UnknownForce {
  int Unknown = 0;
  double Value = 0;  ///< compression positive; the largest magnitude of the state is 1
};

struct SelfStress {
  std::vector<UnknownForce> Forces;  ///< those that are not 0, ascending
};

/// The displacements of all joints by column (see RigidityMatrix.h), 0 where the motion moves nothing.
std::vector<double> DisplacementsByColumn(const TrussGraph& graph, const Motion& motion);

/// Turns the motion so that the loads' work is not negative; without work its first displacement goes to the
/// right, or straight up.
void TurnWithLoads(Motion& motion);
