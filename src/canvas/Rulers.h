// The four rulers that frame the drawing area: an axis line with ticks and their numbers on each side.
#pragma once

#include <cstdint>
#include <string>

#include "canvas/Graph.h"
#include "document/DocumentSettings.h"
#include "platform/NumberFormat.h"
#include "platform/Surface.h"

/// Sides of the frame: 1 bottom, 2 top, 3 right, 4 left.
enum RulerSide : std::int16_t { BottomSide = 1, TopSide = 2, RightSide = 3, LeftSide = 4 };

/// How a ruler looks, apart from where it lies.
struct RulerStyle {
  std::string Caption;        ///< printed even when empty
  float TickLength = 5;       ///< pixels, into the frame
  bool LabelZero = true;      ///< whether the tick at 0 gets a number
  bool CentreCaption = true;  ///< in the middle of the ruler, or else at its end
  float NumIntervals = 0;     ///< between ticks, not rounded
  std::int16_t Decimals = 0;  ///< of the numbers; below 0 there are no numbers
  NumberFormat Numbers{};     ///< of the user's locale
};

/// Where a ruler lies: it runs from its start to the right, or upward on the right and left side.
struct RulerAxis {
  float X = 0, Y = 0;    ///< pixels: the start
  float Length = 0;      ///< pixels
  float FirstValue = 0;  ///< world units, at the start
  float Spacing = 0;     ///< world units from tick to tick
};

/// Draws the four rulers of the mapped area, in the order of their side numbers.
void ShowRulers(Surface& surface, const Graph& graph, const DocumentSettings& settings,
                const DerivedView& view, const NumberFormat& numbers);

/// Draws the ruler of one side of the mapped area; other side numbers draw nothing.
void RulerOnSide(Surface& surface, const Graph& graph, std::int16_t side, const RulerStyle& style);

/// Draws one ruler in the foreground colour and the current font. Where numbers would run into each other
/// only those at multiples of a round distance (1, 2 or 5 times a power of ten) keep theirs, or, where ticks
/// meet no such distance, every 2nd, 5th, 10th ... one; both counted from 0 if a tick stands there. With
/// ticks closer than a pixel (or without a number of intervals to divide by) there is the axis line and the
/// caption only.
void DrawRuler(Surface& surface, const RulerAxis& axis, std::int16_t side, const RulerStyle& style);

/// Whether ticks are left out of the four rulers because they would be closer than a pixel. False
/// before the mapping is set.
bool TicksAreLeftOut(const Graph& graph, const DerivedView& view);
