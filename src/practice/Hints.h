// What to do next, for who is stuck: which joint to take, which equation to write there, the equation filled
// in. Never the value.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "analysis/FormatSigFigs.h"
#include "explanation/DistinctNames.h"
#include "explanation/byjoint/HandSteps.h"
#include "practice/Verdicts.h"

inline constexpr int NumHintLevels = 3;

struct Hint {
  int Joint = 0;                                 ///< to be looked at; 0 when it is not about one
  std::array<std::string, NumHintLevels> Texts;  ///< from where to look to what to reckon; single-byte texts
};

/// About the first equation by hand of which a force is not right or close yet; so the numbers in it are
/// forces that the student has found already. Empty when nothing that is found by hand is left.
std::optional<Hint> NextHint(const TrussGraph& graph, const HandSolution& solution,
                             const Table<Verdict>& verdicts, const DistinctNames& names,
                             const ReportFormat& format);
