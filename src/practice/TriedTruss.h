// A truss whose forces a student tries to find: worked out once, judged as often as he likes. Nothing is kept
// of what he writes.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/FormatSigFigs.h"
#include "explanation/DistinctNames.h"
#include "explanation/TrussGraph.h"
#include "explanation/byjoint/HandSteps.h"
#include "practice/Answer.h"
#include "practice/FollowThrough.h"
#include "practice/Hints.h"
#include "practice/Verdicts.h"

/// What is said of a student's values. Single-byte texts.
struct Judgement {
  Table<std::string> Words;  ///< of each unknown, "right", "right size, wrong sense"; empty without a value
  std::vector<std::string> Lines;  ///< sentences: how many are right, what hangs together, where the slip is
};

class TriedTruss {
 public:
  /// `solutions` are those of every unknown, empty for what is not determined.
  TriedTruss(TrussGraph graph, ForceValues solutions, const ReportFormat& format);
  TriedTruss(const TriedTruss&) = delete;
  TriedTruss& operator=(const TriedTruss&) = delete;

  const TrussGraph& Graph() const { return graph_; }
  const std::string& NameOf(int unknown) const { return names_.Force(unknown); }

  /// What a box says, in the locale's numbers.
  Answer Read(int unknown, std::string_view utf8Text) const;

  /// `numUnreadable` boxes hold no force, and count as empty but for this.
  Judgement JudgeAll(const ForceValues& given, int numUnreadable = 0) const;

  /// What to do next; empty when nothing is left that is found by hand.
  std::optional<Hint> HintFor(const ForceValues& given) const;

 private:
  std::string CountText(const ForceValues& given, const Table<Verdict>& verdicts, int numUnreadable) const;
  void AddReactions(const ForceValues& given, std::vector<std::string>& lines) const;
  void AddJoints(const ForceValues& given, const Table<Verdict>& verdicts,
                 std::vector<std::string>& lines) const;

  const std::vector<int>& UnknownsAt(int joint) const { return atJoint_[joint]; }

  TrussGraph graph_;
  Table<std::vector<int>> atJoint_;
  ForceValues solutions_;
  ReportFormat format_;
  DistinctNames names_;
  HandSolution byHand_;
  std::vector<int> order_;
};
