// What could be done to stop a motion, and what could be left out without starting one. Each piece of advice
// has been followed on a copy of the truss and judged exactly before it is given.
#pragma once

#include <vector>

#include "explanation/ExactVerdict.h"
#include "explanation/NearPlaces.h"
#include "explanation/TrussGraph.h"

enum class AdviceKind {
  MoveForce,       ///< a force off the truss acts on another joint
  SplitMember,     ///< a member across joints ends at each of them
  ClampForRoller,  ///< a clamp stands in place of a roller
  JoinEnds,        ///< two joints that nearly meet are drawn to one place
  TurnRoller,      ///< a roller that stands holds along the other axis
  AddMember,
  AddRoller,
  Remove,
};

struct Advice {
  AdviceKind Kind = AdviceKind::AddMember;
  int JointA = 0;        ///< of a member, and of ends to be joined; of a roller, or a force: the joint
  int JointB = 0;        ///< of a member, and of ends to be joined
  Axis Along = Axis::X;  ///< of a roller: the axis along which it holds the joint then
  int Unknown = 0;       ///< to remove: a member, or a reaction; to turn: the reaction; to split: the member
  int Stops = 0;         ///< how many motions fewer there are then
  std::vector<int> Through{};  ///< to split: the joints, in their order from the member's end 1

  bool IsAddition() const { return Kind == AdviceKind::AddMember || Kind == AdviceKind::AddRoller; }
};

inline constexpr int MostAdvice = 5;  ///< of additions, of removals, and of ends to be joined

/// Of removals, reactions.
inline constexpr int MostReactionsAdvised = 3;

inline constexpr int MostRollersTurned = 3;
inline constexpr int MostClampsForRollers = 2;

/// In this order:
/// Forces where nothing else is to be moved to a joint; members that pass joints to be split there.
/// Ends that nearly meet, not farther apart than a quarter of any member that ends there and without a member
/// between them, to be joined where that stops a motion.
/// Rollers that stand alone to be turned where that does.
/// Where none is turned, clamps in place of rollers; not where a roller that is to be added makes one.
/// Rollers to be added for the motions of the whole truss. One is advised where no support stands; where all
/// that move have one, at a joint with a roller along the other axis.
/// Members to be added for internal motions, between existing joints, the shortest first; none passes through
/// a third joint, or lies on another member, or joins ends that nearly meet, or joints without any member.
/// Where there is none, a roller; for a motion of a part that stands apart, a roller there too. Then what can
/// be left out: first reactions (a roller will do instead of a clamp, or none instead of a roller), then
/// members, the longest first. Each is part of a state of self-stress, and without it there are no more
/// motions than before.
std::vector<Advice> AdviceFor(const TrussGraph& graph, const ExactReasons& reasons, const NearPlaces& near);

/// Whether there is a reaction at the joint other than `except`.
bool IsSupported(const TrussGraph& graph, int joint, int except = 0);
