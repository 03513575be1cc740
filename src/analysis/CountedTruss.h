// What the equations of a truss are about: its joints and its unknown forces, as they were when they were
// counted. Redrawing a truss puts its joint list into another order, so nobody who reads the equations asks
// the truss for it again.
#pragma once

#include "document/Table.h"
#include "document/Truss.h"
#include "text/SharedText.h"

/// A joint with the name that it had when it was counted.
struct CountedJoint {
  float X = 0, Y = 0;  ///< world coordinates
  LabelIndex Label = 0;
  SharedText Name;

  friend bool operator==(const CountedJoint&, const CountedJoint&) = default;
};

/// Names are single-byte texts.
struct CountedTruss {
  Table<CountedJoint> Joints;        ///< in the order of the equations: joint j has rows 2j-1 and 2j
  Table<SharedText> MemberForces;    ///< names of the live members' forces in table order
  Table<SharedText> ReactionForces;  ///< of the live supports in table order; a clamp has two, x before y

  int NumUnknowns() const { return MemberForces.Size() + ReactionForces.Size(); }
  int NumEquations() const { return 2 * Joints.Size(); }

  friend bool operator==(const CountedTruss&, const CountedTruss&) = default;
};

/// Counts the joints in their present order.
CountedTruss CountTruss(const Truss& truss);

/// The joint that carries this label; null if there is none.
const CountedJoint* JointWithLabel(const CountedTruss& counted, LabelIndex label);
