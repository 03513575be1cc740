// One truss as an exercise for many: the same truss under other loads, so that every student reckons with
// numbers of his own and the solution takes the same steps.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "analysis/Analysis.h"
#include "document/Truss.h"

struct VariantWishes {
  int NumVariants = 1;  ///< 1 .. MostVariants
  std::uint64_t Seed = 1;
  bool Mirrors = false;  ///< some are seen in a mirror, left for right
  bool Renames = false;  ///< names are given to other joints and forces
};

inline constexpr int MostVariants = 1000;

struct Variant {
  int Number = 1;  ///< from 1
  Truss Document;  ///< its joints are those of the analysis
  TrussAnalysis Analysis;
};

struct Variants {
  std::vector<Variant> All;
  std::string Why;  ///< UTF-8, the rest of a sentence; empty when there are as many as wished
};

/// Variant k of a seed is the same however many are made. Of each:
/// - every load points as in the original (up to rounding to three figures) and is between half and twice as
///   large, a round number; each by itself or, where that does not do, all by one ratio;
/// - no two have the same loads, nor has one those of the original;
/// - the same members carry nothing;
/// - the solutions give every force, and the exact verdict says that there is just one solution.
/// The joint list of the truss must be up to date (CheckJoints).
/// `goOn` is told how much is done, 0 .. 1, and ends it when it returns false.
Variants MakeVariants(const Truss& original, const VariantWishes& wishes,
                      const std::function<bool(double done)>& goOn = {});

/// Why a truss cannot be an exercise whose answers are judged, the rest of a sentence; empty when it can.
std::string WhyNotSolvable(const Truss& truss, const TrussAnalysis& analysis);
