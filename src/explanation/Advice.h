// What could be done to stop a motion, and what could be left out without starting one. Each piece of advice
// has been followed on a copy of the truss and judged exactly before it is given.
#pragma once

#include <vector>

#include "explanation/ExactVerdict.h"
#include "explanation/NearPlaces.h"
#include "explanation/TrussGraph.h"

enum class AdviceKind {
  JoinEnds,    ///< two joints that nearly meet are drawn to one place
  TurnRoller,  ///< a roller that stands holds along the other axis
  AddMember,
  AddRoller,
  Remove,
};

struct Advice {
  AdviceKind Kind = AdviceKind::AddMember;
  int JointA = 0;        ///< of a member, and of ends to be joined; of a roller: the joint
  int JointB = 0;        ///< of a member, and of ends to be joined
  Axis Along = Axis::X;  ///< of a roller: the axis along which it holds the joint then
  int Unknown = 0;       ///< to remove: a member, or a reaction; to turn: the reaction
  int Stops = 0;         ///< how many motions fewer there are then

  bool IsAddition() const { return Kind == AdviceKind::AddMember || Kind == AdviceKind::AddRoller; }
};

inline constexpr int MostAdvice = 5;  ///< of additions, of removals, and of ends to be joined

/// Of removals, reactions.
inline constexpr int MostReactionsAdvised = 3;

inline constexpr int MostRollersTurned = 3;

/// In this order:
/// Ends that nearly meet, without a member between them, to be joined where that stops a motion.
/// Rollers that stand alone to be turned where that does.
/// Rollers to be added for the motions of the whole truss. One is advised where no support stands; where all
/// that move have one, at a joint with a roller along the other axis.
/// Members to be added for internal motions, between existing joints, the shortest first; none passes through
/// a third joint, or lies on another member, or joins ends that nearly meet. Where there is none, a roller.
/// Then what can be left out: first reactions (a roller will do instead of a clamp, or none instead of a
/// roller), then members, the longest first. Each is part of a state of self-stress, and without it there are
/// no more motions than before.
std::vector<Advice> AdviceFor(const TrussGraph& graph, const ExactReasons& reasons, const NearPlaces& near);

/// Whether there is a reaction at the joint other than `except`.
bool IsSupported(const TrussGraph& graph, int joint, int except = 0);
