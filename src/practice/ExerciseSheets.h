// Sheets for a class: for each variant a page with the truss and room for its forces, and behind them what
// the lecturer keeps, the values and the working.
#pragma once

#include <string>
#include <vector>

#include "platform/NumberFormat.h"
#include "practice/Variants.h"
#include "reports/DocumentTools.h"

struct ExerciseSet {
  std::string Name;  ///< UTF-8: what the truss is called, "pratt"; empty: it has no name
  VariantWishes Wishes;
  std::vector<Variant> All;
};

/// The set's name with its seed: "pratt, seed 42". UTF-8.
std::string TitleOf(const ExerciseSet& set);

/// Appends all sheets, each with its variant, and the seed with which it can be made again; false when it was
/// ended.
bool AppendExercise(const ExerciseSet& set, const NumberFormat& numbers, const DocumentTools& paper);
