// The proof that no forces balance the loads: some of the equations, each times a factor, whose left sides
// cancel and whose right sides do not.
#pragma once

#include <optional>
#include <vector>

#include "explanation/Motions.h"
#include "explanation/TrussGraph.h"

struct WeightedEquation {
  int Joint = 0;
  Axis Along = Axis::X;
  double Factor = 0;
};

struct ContradictionProof {
  std::vector<WeightedEquation> Equations;  ///< in the order of the rows
  double Sum = 0;             ///< of the right-hand sides times the factors, force units; positive
  bool IsWhole = false;       ///< the factors are small whole numbers, and cancel the left sides exactly
  bool IsExact = false;       ///< the factors cancel the left sides exactly, small or not
  int MotionNumber = 0;       ///< the motion whose displacements the factors are, from 1
  double FactorOfMotion = 0;  ///< times this; negative
};

/// From the motion on which the loads work and which moves the fewest joints; empty when they work on none.
/// The factors are the displacements with the sign turned, times whatever makes them small whole numbers
/// where that is possible; else as large whole numbers as doubles hold, times a power of two, so that they
/// are exact too; else as near as double precision comes. With the unknowns as force densities the left sides
/// cancel exactly.
std::optional<ContradictionProof> ProveContradiction(const TrussGraph& graph,
                                                     const std::vector<Motion>& motions);
