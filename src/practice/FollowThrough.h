// A student's numbers judged by his own other numbers: put into the equations of each joint, they balance
// there or not.
#pragma once

#include <string>
#include <vector>

#include "analysis/FormatSigFigs.h"
#include "explanation/DistinctNames.h"
#include "explanation/byjoint/HandSteps.h"
#include "practice/Verdicts.h"

/// What is left over at a joint is nothing when it is within this share of the largest force there.
inline constexpr double BalancedWithin = 0.01;

enum class JointVerdict {
  Open,      ///< a force on it has no value yet
  Balances,  ///< with the student's values
  Slips,
};

struct FollowedJoint {
  JointVerdict What = JointVerdict::Open;
  std::vector<int> Missing{};  ///< the unknowns on it without a value, ascending
  /// What the forces on the joint leave over, force units, x to the right and y upward.
  double OverX = 0, OverY = 0;
};

struct Followed {
  Table<FollowedJoint> Joints;  ///< 1 .. J
  std::vector<int> Order;       ///< all joints, in the order in which they are solved by hand
  int Slip = 0;                 ///< the first joint in this order that does not balance; 0: none

  int NumBalanced() const;
  int NumJudged() const;  ///< those that are not Open
};

/// All joints in the order in which the steps look at them; those that they never look at follow by number.
std::vector<int> OrderByHand(const TrussGraph& graph, const HandSolution& solution);

/// `order` is that of OrderByHand. A joint without any force on it balances.
Followed Follow(const TrussGraph& graph, const ForceValues& given, const std::vector<int>& order);

/// Of each joint that does not balance, whether only such equations of it are wrong as the working by hand
/// needs for no force: they check what was found elsewhere, and a slip shows in them again.
Table<char> ChecksThatFail(const Followed& followed, const HandSolution& solution);

/// What can be said of a joint, single-byte text: "C is right with your AC.", "C is right.", "The slip is at
/// A: the vertical forces leave 250 upward.", "C cannot be judged yet: AC and BC are missing."
std::string JointText(int joint, const Followed& followed, const TrussGraph& graph,
                      const Table<Verdict>& verdicts, const DistinctNames& names, const ReportFormat& format);
