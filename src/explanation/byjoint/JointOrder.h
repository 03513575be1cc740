// Which joints can be solved while a truss is solved by hand, and which of them comes next.
#pragma once

#include <set>

#include "explanation/byjoint/TrussBalance.h"

/// Knows of each joint that it was told to look at what the joint's equations give. A joint that it answers
/// with is 0 when there is none.
class JointOrder {
 public:
  /// Both must outlive it. `isOut` says of a joint (from 1) that its part is done with.
  JointOrder(const TrussBalance& balance, const Table<char>& isOut) : balance_(balance), isOut_(isOut) {}

  /// Puts the joint where it belongs now; to be called whenever something was learnt at it.
  void LookAt(int joint);

  /// Whose equations hold one sought force at a time: a neighbour of joint `last` (0: none) where that is
  /// possible, else the first.
  int OneByOne(int last) const { return Next(oneByOne_, last); }

  /// At which the sum along x or y gives one of several sought forces, since all others lie in one line.
  int Across() const { return across_.empty() ? 0 : *across_.begin(); }

  /// The same where that line is slanted, so that the sum across it is none of the joint's two equations.
  int AcrossSlanted() const { return slanted_.empty() ? 0 : *slanted_.begin(); }

  /// Whose two equations hold the same two sought forces; as OneByOne.
  int Pair(int last) const { return Next(pairs_, last); }

  /// The one of those that would divide by nearly nothing that divides by the most.
  int Poor() const;
  int PoorAcross() const { return poorAcross_.empty() ? 0 : *poorAcross_.begin(); }

  /// All of whose sought forces lie in one line, across which the sum is false.
  int False() const { return false_.empty() ? 0 : *false_.begin(); }

 private:
  void LookAcross(int joint);
  int Next(const std::set<int>& joints, int last) const;

  const TrussBalance& balance_;
  const Table<char>& isOut_;
  std::set<int> oneByOne_, across_, slanted_, pairs_, poor_, poorAcross_, false_;
};
