// What the equations of a truss say when nothing is rounded: every coordinate and load is the number that its
// shortest decimal form says, which is what file and window show.
//
// The rank is found by elimination over whole numbers modulo a prime near 2^61. Such a rank is never larger
// than the true one; so when it is full, there is provably no motion (or no state of self-stress). That it is
// not too small is shown by a second prime and by the motions themselves, each of which is checked to
// lengthen no member.
#pragma once

#include <vector>

#include "analysis/Classification.h"
#include "explanation/Motions.h"
#include "explanation/OpenForces.h"
#include "explanation/TrussGraph.h"

struct ExactVerdict {
  int NumEquations = 0;
  int NumUnknowns = 0;
  int Rank = 0;                 ///< of the coefficients
  int AugmentedRank = 0;        ///< with the right-hand side; larger when no forces balance the loads
  std::vector<int> Determined;  ///< unknowns that are 0 in every state of self-stress, ascending

  int Mechanisms() const { return NumEquations - Rank; }   ///< independent motions
  int SelfStresses() const { return NumUnknowns - Rank; }  ///< independent states of self-stress

  /// Inconsistent when the augmented rank is larger; else Redundant when there is a motion; else Neither.
  Outcome Code() const;
};

/// One word for the verdict: "unique", "redundant", "no solution" or "undetermined"; the last also when the
/// truss is redundant as well.
const char* VerdictWord(const ExactVerdict& verdict);

/// The verdict with what shows it. As many motions and states of self-stress as it counts, together
/// independent: first the motions of the whole truss on its supports, then the internal ones, each as local
/// as can be.
struct ExactReasons {
  ExactVerdict Verdict;
  std::vector<Motion> Motions;
  std::vector<SelfStress> SelfStresses;
  OpenForces Open;  ///< nothing without self-stress
};

/// Only the verdict, which takes a fraction of the time.
ExactVerdict JudgeExactly(const TrussGraph& graph);

ExactReasons ReasonExactly(const TrussGraph& graph);
