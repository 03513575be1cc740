// The parts of a truss that keep their shape in a motion.
#pragma once

#include <vector>

#include "explanation/Motions.h"
#include "explanation/TrussGraph.h"

/// Members that move as one piece.
struct MovingPiece {
  std::vector<int> Members;         ///< unknowns, ascending
  bool Turns = false;               ///< else it slides
  double CentreX = 0, CentreY = 0;  ///< world coordinates, of a turn
  bool Anticlockwise = false;
  double Dx = 0, Dy = 0;  ///< of a slide
};

/// The pieces into which a motion parts the members that move, by their first members. Members that stand
/// still are in none.
std::vector<MovingPiece> PiecesThatMove(const TrussGraph& graph, const Motion& motion);
