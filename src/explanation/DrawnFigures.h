// What the answer owes to rounding: the verdict within the figures that the drawing shows, how many figures
// of the forces are sure, and the motion that is nearly free where a truss is nearly a mechanism.
#pragma once

#include <optional>
#include <vector>

#include "analysis/Analysis.h"
#include "explanation/ExactVerdict.h"
#include "explanation/Motions.h"
#include "explanation/SureFigures.h"

/// A force that the equations determine, exactly, and that the reduced matrix leaves open.
struct HiddenForce {
  int Unknown = 0;
  /// Force units, with directions that are not rounded; empty when double precision does not tell it either.
  std::optional<double> Value;
  /// The largest magnitude beside the 1 of its row in the reduced matrix; 0 when it has no row there.
  double Remnant = 0;

  friend bool operator==(const HiddenForce&, const HiddenForce&) = default;
};

struct DrawnFigures {
  /// The outcome when whatever is smaller than a millionth of its scale counts as nothing.
  Outcome Within = Outcome::Neither;

  /// How many leading figures of the forces are sure, 0 .. 7: what directions rounded to single precision
  /// change, measured against the largest force. Empty when no force is determined, or none is shown.
  std::optional<int> CertainFigures;

  /// The determined forces that the reduced matrix shows, ascending; none where there is no solution, exactly
  /// or shown.
  std::vector<ComparedForce> Forces;

  /// Whether a force is determined, exactly, and the reduced matrix shows no value for it.
  bool IsOneMissing = false;

  /// Ascending; none where there is no solution, exactly or shown.
  std::vector<HiddenForce> Hidden;

  /// The largest force by the largest load; 0 without loads or forces.
  double Magnification = 0;

  /// The motion that costs the forces least: of a truss with a unique solution whose forces are more than
  /// NearlyAMechanism times its loads, or more than LargeForces times and not sure in every figure of a
  /// single.
  std::optional<Motion> NearlyFree;
};

inline constexpr double NothingWithinFigures = 1e-6;
inline constexpr double NearlyAMechanism = 1000;
inline constexpr double LargeForces = 100;

DrawnFigures FiguresOf(const TrussGraph& graph, const TrussAnalysis& analysis, const ExactVerdict& verdict);
