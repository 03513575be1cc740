// Sheets for a class: for each variant a page with the truss and room for its forces, and behind them what
// the lecturer keeps, the values and the working.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "paper/RichText.h"
#include "platform/NumberFormat.h"
#include "platform/TextMeasure.h"
#include "practice/Variants.h"
#include "reports/RTBPicture.h"

struct ExerciseSet {
  std::string Name;  ///< UTF-8: what the truss is called, "pratt"; empty: it has no name
  VariantWishes Wishes;
  std::vector<Variant> All;
};

/// The set's name with its seed: "pratt, seed 42". UTF-8.
std::string TitleOf(const ExerciseSet& set);

struct ExercisePaper {
  RichText& Document;
  ClipboardAccess Clipboard;  ///< the one that `Document` pastes from
  TextMeasure Measure;        ///< for the texts in the pictures
  NumberFormat Numbers;
  float TableRoom = 0;  ///< width of the paper's text in points

  /// Told how much is done, 0 .. 1; returns false when the user wants no more.
  std::function<bool(double done)> Progress;
};

/// Appends all sheets, each with its variant, and the seed with which it can be made again; false when
/// `Progress` ended it.
bool AppendExercise(const ExerciseSet& set, const ExercisePaper& paper);
