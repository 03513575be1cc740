// What might be advised: looked for, not yet judged.
#pragma once

#include <set>
#include <utility>
#include <vector>

#include "explanation/Advice.h"

class AdviceCandidates {
 public:
  /// All must outlive it.
  AdviceCandidates(const TrussGraph& graph, const ExactReasons& reasons, const NearPlaces& near);

  /// Ends that nearly meet, beside the members that end there and without a member between them.
  std::vector<Advice> EndsToJoin() const;

  /// Rollers that stand alone, those first whose joints move most where they do not hold them.
  std::vector<Advice> RollersToTurn() const;

  /// Against a motion: the two at the joints with the largest displacements, so that they hold as well as can
  /// be. A support that stands there already is in the way.
  std::vector<Advice> Rollers(const Motion& motion) const;

  /// Members that the motion would lengthen or shorten, the shortest first.
  std::vector<Advice> Members(const Motion& motion) const;

  /// Parts of self-stresses: a few reactions, then members, the longest first.
  std::vector<Advice> ToRemove() const;

  /// Whether the motion moves a part that stands apart from the rest of the truss, as one piece.
  bool IsOfAPartApart(const Motion& motion) const;

  /// Of a member that is advised the squared length, world units; 0 of other advice.
  double SquaredLengthOf(const Advice& advice) const;

 private:
  struct PossibleMember {
    double Length;
    std::pair<int, int> Joints;
  };

  bool IsAGap(int first, int second) const;
  double LargestDisplacement(int joint, Axis axis) const;
  bool IsHeld(int joint, Axis axis) const { return held_.contains({joint, axis}); }
  std::vector<PossibleMember> MembersAgainst(const Motion& motion) const;
  bool IsADrawingMistake(int a, int b) const;
  bool AreClose(int a, int b) const;
  bool IsBetween(int j, int a, int b) const;

  const TrussGraph& graph_;
  const ExactReasons& reasons_;
  const NearPlaces& near_;
  Table<double> shortestAt_;  // by joint: squared, of the members that end there
  std::set<int> hasMember_;
  std::set<std::pair<int, int>> joined_;  // the lower joint first
  std::set<std::pair<int, Axis>> held_;   // by a support that stands there, whatever it holds
};
