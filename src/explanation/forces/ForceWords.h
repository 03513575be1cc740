// What the solutions say of one element, in a few words, for those who read the drawing element by element.
#pragma once

#include <string>
#include <unordered_map>

#include "analysis/Analysis.h"
#include "analysis/FormatSigFigs.h"
#include "document/ElementWords.h"

class ForceWords {
 public:
  /// Both must outlive it; the truss must be as it was analysed.
  ForceWords(const Truss& truss, const TrussAnalysis& analysis, ReportFormat format);

  /// Of a member "tension 1875", "compression 500", "force 0"; of a support each of its forces, "Ax 0, Ay 500
  /// up"
  /// ("x 0, y 500 up" without names); "undetermined" where the solutions leave it open, "no value" where they
  /// contradict each other. Empty for everything else.
  std::string Of(const Element& element) const;

 private:
  enum class Kind : char { Known, Open, Contradicted };
  Kind Find(LabelIndex label, double& value) const;
  std::string OfMember(const MemberRec& member) const;
  std::string OfReaction(const SupportRec& support, int component) const;

  const Truss& truss_;
  const TrussAnalysis& analysis_;
  ReportFormat format_;
  std::unordered_map<int, int> unknowns_;  // by label
};
