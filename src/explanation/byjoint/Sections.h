// Cuts through a truss that leave one sought force in an equation: all others that they meet pass through a
// point or are parallel.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "explanation/byjoint/TrussBalance.h"

struct SectionCut {
  std::vector<int> Joints;  ///< of the part on one side, ascending; two or more
  Measure Equation;
  int Unknown = 0;  ///< the one that it leaves
  int NumCut = 0;   ///< members that run out of the part
};

/// Looks for cuts. Around each joint, and across each direction, the members through it are taken away; a
/// member (or the reaction of a support, which joins a joint to the ground) that then alone holds two parts
/// together can be cut for its force. So each cut of that kind is found in a time proportional to the number
/// of joints times the number of members. Then the rigid parts that triangles form are cut out, which finds
/// three links whose lines meet where no joint is.
///
/// Of the cuts found the one through the fewest members is taken. A search looks at a bounded number of
/// members before it takes the best so far; and all searches together do, before no further cut is found.
class SectionSearch {
 public:
  /// Both must outlive it. `isOut` says of a joint (from 1) that its part is done with.
  SectionSearch(const TrussBalance& balance, const Table<char>& isOut) : balance_(balance), isOut_(isOut) {}

  /// A cut whose equation divides by no less than `leastShare`, see TrussBalance::ArmShare and Sine.
  std::optional<SectionCut> Find(double leastShare);

  /// A cut whose equation contains no sought force and is false, so that it shows why no forces balance the
  /// loads: Unknown is 0.
  std::optional<SectionCut> FindFalse();

  bool IsExhausted() const { return left_ <= 0; }

 private:
  struct CutGraph;
  bool IsSought(int unknown) const;
  CutGraph GraphWith(bool known) const;
  void SearchAll();
  void Search(CutGraph& graph);
  void AboutJoint(CutGraph& graph, int joint);
  void AcrossDirection(CutGraph& graph, const std::vector<int>& parallel);
  void Single(CutGraph& graph);
  template <class Share, class MakeMeasure>
  void TakeBridges(CutGraph& graph, const Share& share, const MakeMeasure& measure);
  template <class MakeMeasure>
  void TakeFalseParts(const CutGraph& graph, const MakeMeasure& measure);
  void AroundParts();
  void AroundPart(const std::vector<int>& joints);
  void Offer(std::vector<int> joints, const Measure& measure, int unknown);
  int NumCut(const std::vector<int>& joints);
  bool MayGoOn() const { return left_ > 0 && (!best_ || leftForThis_ > 0); }
  void Spend(std::size_t members);

  const TrussBalance& balance_;
  const Table<char>& isOut_;
  std::int64_t left_ = 30'000'000;  // members to look at, in all searches
  std::int64_t leftForThis_ = 0;    // and in this one once a cut is found
  double leastShare_ = 0;
  bool seeksFalse_ = false;
  std::optional<SectionCut> best_;
};
