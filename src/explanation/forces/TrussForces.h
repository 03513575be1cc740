// The forces of a truss as its solutions give them: which members push, which pull, which do neither, and
// which nobody can tell; each with the texts that stand at it.
#pragma once

#include <string>
#include <vector>

#include "analysis/Analysis.h"
#include "analysis/FormatSigFigs.h"
#include "document/Table.h"
#include "explanation/Explanation.h"
#include "explanation/TrussGraph.h"

/// What an unknown force turned out to be. A member that pushes its joints apart is in compression, one that
/// pulls them together in tension; a reaction that pushes acts in the direction of its support's type, one
/// that pulls against it.
enum class ForceSense { Pushing, Pulling, Zero, Undetermined };

struct ForceFound {
  ForceSense Sense = ForceSense::Undetermined;
  double Value = 0;  ///< force units, positive when pushing; exactly 0 when zero or undetermined
  /// Its name (unless it has none) with the magnitude and for a member the letter C or T, then in brackets
  /// the number of the solutions where that says more: "AB 1875 T" and "(-1875)" with an en dash; "AC 0"; "AD
  /// ?".
  std::vector<std::string> Lines;
};

struct TrussForces {
  TrussGraph Graph;
  Outcome Code = Outcome::Neither;   ///< of the reduced matrix, whose forces are drawn
  Outcome Exact = Outcome::Neither;  ///< of the exact verdict, which rounding may hide
  Table<ForceFound> Unknowns{};  ///< of the graph's unknowns; none is determined when there is no solution
  std::vector<std::string> Loads{};  ///< the text of each of the graph's loads, empty for a load of 0
  double Largest = 0;                ///< magnitude of the largest unknown force, force units

  /// That fewer figures are sure than are shown, as a sentence; empty where all are.
  std::string FiguresText{};

  /// Whether exactly no forces balance the loads, not within the figures of the drawing either, though there
  /// are numbers.
  bool HoldsNoNumber = false;
  bool HasMotion = false;        ///< whether exactly the truss is a mechanism
  bool ShowsOpenForces = false;  ///< whether there are numbers for forces that exactly are left open
  bool HidesForces = false;  ///< whether forces are exactly determined that the reduced matrix leaves open

  bool HasSolution() const { return Code != Outcome::Inconsistent; }
};

/// A force is zero when the solutions show it as 0; everything else keeps its sense, however small.
ForceSense SenseOf(double value);

/// The texts that stand at an unknown with this force: see ForceFound.
std::vector<std::string> LinesOf(const PlacedUnknown& unknown, const ForceFound& force,
                                 const ReportFormat& format);

/// `format` is that of the solutions.
TrussForces ForcesOf(ExplanationOnDemand& reasons, const ReportFormat& format);
TrussForces ForcesOf(ExplanationOnDemand&& reasons, const ReportFormat& format);

/// What a force with "?" is: "undetermined" where the equations leave it open; where no force has a value,
/// because there is "no solution", or because rounding has left none, "not found".
const char* WordForUnknown(const TrussForces& forces);

/// What must be known beside the forces, each a sentence: that there are none, that exactly it is otherwise,
/// that they hold for these loads only, that some are undetermined or so small that they may be remnants of
/// rounding, that not every figure is sure.
std::vector<std::string> RemarksOn(const TrussForces& forces);

/// The text of a load: the magnitude, and for one that slopes also its angle in degrees from the x axis,
/// counter-clockwise: "500 at 53.13" and a degree sign, with an en dash before a negative angle. Empty for a
/// load of 0.
std::string LoadText(float fx, float fy, const ReportFormat& format);
