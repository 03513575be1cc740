// What marks a state of self-stress on a drawing: a band under each member that takes part, an arrow for each
// reaction, and beside them in letters what the colours say.
#pragma once

#include <string>
#include <vector>

#include "analysis/FormatSigFigs.h"
#include "canvas/Drawing.h"
#include "explanation/Motions.h"
#include "explanation/TrussGraph.h"
#include "explanation/forces/ForcesDrawing.h"
#include "explanation/forces/TextPlacer.h"

struct StressMark {
  int Unknown = 0;
  bool IsCompression = false;  ///< of a reaction: whether it acts in the direction of its support's type
  PixelLine Line;              ///< along the member; of a reaction its arrow, in the sense in which it acts
  ForceLabel Label;  ///< its texts as in the drawing of forces; no lines where there is no room for them
};

/// More texts than this would cover the drawing.
inline constexpr std::size_t MostMarkTexts = 120;

inline constexpr int StressBandWidth = 8;  ///< pixels

/// One for each unknown of the state that can be drawn, in the order of the state, with texts that have no
/// place yet; none has texts where they would be too many.
std::vector<StressMark> MarksOf(const SelfStress& stress, const TrussGraph& graph, const Graph& mapping,
                                const ReportFormat& format);

/// What texts must not cover of the marks.
void KeepClearOf(const std::vector<StressMark>& marks, LabelRoom& room);

/// Gives the texts their places: those of reactions beside their arrows, then those of members.
void PlaceStressTexts(std::vector<StressMark>& marks, const TrussGraph& graph, const Graph& mapping,
                      TextPlacer& placer, const TextMeasure& measure);

/// The bands, to be painted before the truss.
void PaintStressBands(Surface& surface, const std::vector<StressMark>& marks);

/// Arrows and texts, to be painted over the truss. Leaves a black foreground, a line width of 1 and the font
/// TextFont{}.
void PaintStressTexts(Surface& surface, const std::vector<StressMark>& marks);
