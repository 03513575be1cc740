// Which figures of the forces that the table of the solutions shows are sure.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "analysis/FormatSigFigs.h"

/// A force that the equations determine.
struct ComparedForce {
  int Unknown = 0;
  double Shown = 0;      ///< what the reduced matrix says, force units
  double Unrounded = 0;  ///< the same when directions are not rounded to single precision

  friend bool operator==(const ComparedForce&, const ComparedForce&) = default;
};

/// How many leading figures of a force are sure, from 0 to those that the reports show. So many are sure as
/// the rounding of directions changes the force by less than a fifth of the last of them: a difference of
/// more shows in it, or does so only by chance not. All that are shown are sure only where the force is shown
/// alike with and without the rounding; or where it lies at the edge between two roundings, less than a
/// hundredth of the last figure apart.
int SureFiguresOf(const ComparedForce& force, const ReportFormat& format);

struct SureFigures {
  /// So many leading figures are sure of every force that is not small (below a thousandth of the largest),
  /// and no more than FiguresOfLargest. As many as the reports show when all are.
  int Count = 0;
  std::optional<ComparedForce> Example;  ///< where fewer are sure than are shown: a force that shows it

  /// Small forces of which fewer figures are sure, but some; and how many of each at least.
  std::vector<int> SmallUnknowns;
  int CountOfSmall = 0;

  /// Small forces of which none is sure: what is shown is a remnant of rounding.
  std::vector<int> Remnants;

  /// Forces that are not 0 but shown as "0", with and without the rounding; they are counted nowhere else.
  std::vector<int> ShownAsZero;

  bool AreAll(const ReportFormat& format) const {
    return Count >= ShownFigures(format) && SmallUnknowns.empty() && Remnants.empty() && ShownAsZero.empty();
  }

  /// The significant figures that the reports show.
  static int ShownFigures(const ReportFormat& format);
};

inline constexpr int MostSureFigures = 7;  // no single has more

/// How many leading figures are sure, 0 .. MostSureFigures, as the largest difference is measured against the
/// largest force; empty without forces.
std::optional<int> FiguresOfLargest(const std::vector<ComparedForce>& forces);

/// How many leading figures are sure of every force that is not exactly 0 (which has no leading figure),
/// small or not, 0 .. MostSureFigures; never more than JudgeFigures says. Empty without forces.
std::optional<int> LeastSureFigures(const std::vector<ComparedForce>& forces, const ReportFormat& format);

/// "the first figure", "the first 3 figures".
std::string FirstFigures(int count);

/// With figures beyond those that the reports show, so that a difference can be seen.
std::string AtLength(double value, const ReportFormat& format);

SureFigures JudgeFigures(const std::vector<ComparedForce>& forces, const ReportFormat& format);
