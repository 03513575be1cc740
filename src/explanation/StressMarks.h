// What marks a state of self-stress on a drawing: a band under each member that takes part, an arrow for each
// reaction, and beside them in letters what the colours say.
#pragma once

#include <string>
#include <vector>

#include "analysis/FormatSigFigs.h"
#include "canvas/Drawing.h"
#include "explanation/Motions.h"
#include "explanation/TrussGraph.h"
#include "platform/TextMeasure.h"

struct StressMark {
  int Unknown = 0;
  bool IsCompression = false;  ///< of a member
  PixelLine Line;              ///< along the member; of a reaction its arrow, to the head
  std::string Text;            ///< "AB 0.7071 C" or, in tension, "T"; of a reaction "Ax -0.5". Empty: none
  PixelPoint TextTopLeft;
};

/// More texts than this would cover each other.
inline constexpr std::size_t MostMarkTexts = 120;

/// One for each unknown of the state that can be drawn, in the order of the state. Texts stand on their
/// members, away from each other where there is room.
std::vector<StressMark> MarksOf(const SelfStress& stress, const TrussGraph& graph, const Graph& mapping,
                                const ReportFormat& format, const TextMeasure& measure);

/// The bands, to be painted before the truss.
void PaintStressBands(Surface& surface, const std::vector<StressMark>& marks, const TrussGraph& graph);

/// Arrows and texts, to be painted over the truss. Leaves a black foreground, a line width of 1 and the font
/// TextFont{}.
void PaintStressTexts(Surface& surface, const std::vector<StressMark>& marks, const TrussGraph& graph);
