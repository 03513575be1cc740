// What could be added to stop a motion, and what could be left out without starting one. Each piece of advice
// has been followed on a copy of the truss and judged exactly before it is given.
#pragma once

#include <vector>

#include "explanation/ExactVerdict.h"
#include "explanation/TrussGraph.h"

enum class AdviceKind { AddMember, AddRoller, Remove };

struct Advice {
  AdviceKind Kind = AdviceKind::AddMember;
  int JointA = 0;        ///< of a member; of a roller: the joint
  int JointB = 0;        ///< of a member
  Axis Along = Axis::X;  ///< of a roller: the axis along which it holds the joint
  int Unknown = 0;       ///< to remove: a member, or a reaction
};

inline constexpr int MostAdvice = 5;  ///< of additions, and of removals

/// Of them, reactions.
inline constexpr int MostReactionsAdvised = 3;

/// Rollers for the motions of the whole truss, members between existing joints (the shortest first, none
/// through a third joint) for internal ones; each stops a motion. A roller is advised where no support
/// stands; where all that move have one, at a joint with a roller along the other axis. Then what can be left
/// out: first reactions (a roller will do instead of a clamp, or none instead of a roller), then members, the
/// longest first. Each is part of a state of self-stress, and without it there are no more motions than
/// before.
std::vector<Advice> AdviceFor(const TrussGraph& graph, const ExactReasons& reasons);

/// Whether there is a reaction at the joint other than `except`.
bool IsSupported(const TrussGraph& graph, int joint, int except = 0);
