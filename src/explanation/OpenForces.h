// Of a truss whose equations leave forces open: which of them can be chosen freely, and which then follow.
#pragma once

#include <vector>

#include "explanation/ModularElimination.h"
#include "explanation/Motions.h"
#include "explanation/TrussGraph.h"

/// A force that the equations leave open, and that is known when some free forces are.
struct DependentForce {
  int Unknown = 0;
  std::vector<int> On;  ///< the free forces on which it depends, ascending, at least one
};

struct OpenForces {
  /// As many as there are states of self-stress, ascending: whatever they are, there is just one solution of
  /// the equations, if there is any.
  std::vector<int> Free;
  std::vector<DependentForce> Dependent;  ///< ascending by unknown

  friend bool operator==(const OpenForces&, const OpenForces&) = default;
};

/// From vectors that are a basis of the states of self-stress, column k - 1 for unknown k. Exact. As free
/// forces such are preferred as hang together with few others: those of one vector alone; of these members,
/// the longest first.
template <class Field>
OpenForces OpenForcesOf(const TrussGraph& graph, std::vector<ModularRow> vectors);

/// The solution of the equations in which the free forces are 0, by unknown from 1, force units. There must
/// be a solution, and `rank` must be that of the equations. In double precision; what is nothing but
/// rounding beside the largest force or load is 0. What depends on no free force has its only value here.
Table<double> ForcesWithFreeAt0(const TrussGraph& graph, const std::vector<int>& free, int rank);
