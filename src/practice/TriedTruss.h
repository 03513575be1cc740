// A truss whose forces a student tries to find: worked out once, judged as often as he likes. Nothing is kept
// of what he writes.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/Classification.h"
#include "analysis/FormatSigFigs.h"
#include "explanation/DistinctNames.h"
#include "explanation/TrussGraph.h"
#include "explanation/byjoint/HandSteps.h"
#include "practice/Answer.h"
#include "practice/FollowThrough.h"
#include "practice/Hints.h"
#include "practice/Verdicts.h"

/// What the boxes say, in the order of the unknowns and as many, in the locale's numbers. UTF-8.
using WrittenForces = std::vector<std::string>;

/// What is said of a student's values.
struct Judgement {
  Table<std::string> Words;  ///< of each unknown, "right", or why it is no force; UTF-8; empty: nothing said

  /// Sentences: how many are right, what hangs together, where the slip is. Single-byte texts.
  std::vector<std::string> Lines;
};

class TriedTruss {
 public:
  /// `reading` is that of the truss's solutions; where rounding alone contradicts, values are judged by
  /// joints.
  TriedTruss(TrussGraph graph, const Classification& reading, const ReportFormat& format);
  TriedTruss(const TriedTruss&) = delete;
  TriedTruss& operator=(const TriedTruss&) = delete;

  const TrussGraph& Graph() const { return graph_; }
  const SharedText& NameOf(int unknown) const { return names_.Force(unknown); }

  /// False when, exactly, no forces hold the truss under its loads: then there are none to find.
  bool HasForces() const { return hasForces_; }

  /// What there is to know before anything is asked: where the joints are, or that there are no forces. A
  /// single-byte text.
  std::string Opening() const;

  /// What is no force counts as empty, but is told.
  Judgement JudgeAll(const WrittenForces& written) const;

  /// What to do next; empty when nothing is left that is found by hand.
  std::optional<Hint> HintFor(const WrittenForces& written) const;

 private:
  Table<Answer> Read(const WrittenForces& written) const;
  std::string CountText(const Table<Answer>& answers, const Table<Verdict>& verdicts) const;
  void AddReactions(const ForceValues& given, std::vector<std::string>& lines) const;
  void AddJoints(const ForceValues& given, const Table<Verdict>& verdicts,
                 std::vector<std::string>& lines) const;

  const std::vector<int>& UnknownsAt(int joint) const { return atJoint_[joint]; }

  TrussGraph graph_;
  Table<std::vector<int>> atJoint_;
  bool hasForces_;
  ForceValues solutions_;
  ReportFormat format_;
  DistinctNames names_;
  HandSolution byHand_;
  std::vector<int> order_;
};
