// The equilibrium equations of all joints as an augmented matrix. A member force is positive in compression,
// so that it pushes into the pin at each end; reaction components are positive in the direction that the
// support type gives; applied forces are known and stand on the right-hand side with reversed sign.
#pragma once

#include "analysis/CountedTruss.h"
#include "analysis/EquationSystem.h"
#include "document/Truss.h"

/// The difference of two coordinates, rounded to single precision (the largest single where it would not
/// fit).
float SingleDifference(float a, float b);

/// Direction ratios of a member as seen at its end 1 or 2: the direction from the other end towards this end,
/// in which a compressive force acts on the pin there. 0 for a member of zero length, which has none.
float Sine(const MemberRec& member, int end);
float Cosine(const MemberRec& member, int end);

/// Fills DisplayEquations and EquationMatrix (two rows for each joint, N + 1 columns) for the unknowns
/// counted before and the joints in the order of their list. At most MaxJoints joints.
void LoadArrays(const Truss& truss, const Table<CountedJoint>& joints, EquationSystem& system);
