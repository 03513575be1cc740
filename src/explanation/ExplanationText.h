// The explanation as text: why the conclusion is what it is. The same sections stand in the window, in the
// printable report and in the command line's output.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "analysis/FormatSigFigs.h"
#include "explanation/Explanation.h"

/// Single-byte texts without line breaks.
struct ExplanationSection {
  std::string Heading;
  std::vector<std::string> Paragraphs;
};

inline constexpr const char* VerdictHeading = "The exact verdict:";
inline constexpr const char* MotionsHeading = "How it can move:";

/// Under MotionsHeading each of the first motions has a paragraph of its own, in their order; of more than
/// these it is only said how many there are.
inline constexpr std::size_t MostMotionsTold = 12;

/// The four kinds of trusses: whether there are motions, and whether there is self-stress.
struct TrussKinds {
  static constexpr std::array Rows = {"no motion", "motions"};
  static constexpr std::array Columns = {"no self-stress", "self-stress"};
  /// Each in two lines, so that the table is narrow enough for letters of the text's size.
  static constexpr std::array<std::array<std::array<const char*, 2>, 2>, 2> Names = {
      {{{{"rigid, forces", "determined"}, {"rigid, forces", "left open"}}},
       {{{"movable", ""}, {"movable and", "self-stressed"}}}}};
  int Row = 0;     ///< of this truss, 0 or 1
  int Column = 0;  ///< of this truss, 0 or 1
};
TrussKinds KindOf(const ExactVerdict& verdict);

/// The table of kinds, line by line in columns; this truss's kind is marked.
std::vector<std::string> KindTable(const ExactVerdict& verdict);

/// The sections that have something to say, in their order. The first is the verdict; the table of kinds
/// stands below its heading, and then what the verdict says. What may be a slip of the drawing is told before
/// the motions that it lets free. The last is what rounding has to do with the conclusion.
std::vector<ExplanationSection> ExplanationText(const Explanation& explanation, const ReportFormat& format);
