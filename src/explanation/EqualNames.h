// Names that were given more than once, so that the tables show them alike.
#pragma once

#include <string>
#include <vector>

#include "explanation/DistinctNames.h"

/// What bears one name, and where the second of them is, world coordinates.
struct EqualNames {
  SharedText Name;
  std::vector<std::string> Bearers;  ///< at least two: "the joint at (3, 4)", "the member from A to C"
  bool AreJoints = false;            ///< else they are members and reactions, in any mixture
  float X = 0, Y = 0;
};

/// Joints of one name, then members and reactions of one name, as they are met first. Nothing is told of
/// those that have no name. `drawn` has the joints and the live members, in their order, and `names` are its.
std::vector<EqualNames> FindEqualNames(const Truss& truss, const TrussGraph& drawn,
                                       const DistinctNames& names);
