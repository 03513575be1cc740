// The forces of a truss in words and as a list, for those who cannot see the drawing and for copying it.
#pragma once

#include <string>
#include <vector>

#include "analysis/FormatSigFigs.h"
#include "explanation/forces/TrussForces.h"

/// One unknown as the list beside the drawing shows it. Single-byte texts.
struct ForceRow {
  std::string Name;    ///< "[ ]" without one
  std::string Where;   ///< "member from A to B", "reaction at A, up"
  std::string Force;   ///< "1875 T", "0", "?"; of a reaction with the direction in which it acts: "500 up"
  std::string Number;  ///< as in the table of the solutions
};

/// In the order of the solutions.
std::vector<ForceRow> ForceRows(const TrussForces& forces, const ReportFormat& format);

/// Whether all numbers of the drawing have their places: "2 of 19 numbers have no room at this size ...".
std::string RoomText(int leftOut, int all);

/// The heads of the list's columns.
inline constexpr const char* ForceRowHeads[] = {"Force", "Where", "Magnitude", "Number"};

/// The drawing in a few sentences: how many members push, pull and so on, and the forces of the first
/// members.
std::string DescribeForces(const TrussForces& forces, const ReportFormat& format);
