// Horizontal and vertical rulers differ in where a tick and a text go; the walk along them is the same.
#include "canvas/Rulers.h"

#include <algorithm>
#include <cmath>

#include "canvas/Paper.h"
#include "text/NumberText.h"

namespace {

// Ticks are no closer than a pixel, and no canvas is wider.
constexpr int MostTicks = 1'000'000;

bool IsHorizontal(std::int16_t side) { return side == BottomSide || side == TopSide; }

void Print(Surface& surface, double left, double top, const std::string& text) {
  surface.PrintText(OntoPaper(FiniteSingle(left)), OntoPaper(FiniteSingle(top)), text);
}

void DrawTick(Surface& surface, const RulerAxis& axis, std::int16_t side, double offset, float tickLength) {
  if (IsHorizontal(side)) {
    const float x = FiniteSingle(axis.X + offset);
    DrawLine(surface, {x, axis.Y, x, axis.Y + static_cast<float>(2 * side - 3) * tickLength});
  } else {
    const float y = FiniteSingle(axis.Y - offset);
    DrawLine(surface, {axis.X, y, axis.X + static_cast<float>(2 * side - 7) * tickLength, y});
  }
}

// Numbers stand outside the frame, a quarter of a text height away from the axis.
void PrintNumber(Surface& surface, const RulerAxis& axis, std::int16_t side, double offset,
                 const std::string& text) {
  const TextExtent extent = surface.Extent(text);
  const double width = extent.Width;
  const double height = extent.Height;
  if (IsHorizontal(side)) {
    Print(surface, axis.X + offset - width / 2, axis.Y + (1.75 - 1.5 * side) * height, text);
  } else {
    Print(surface, axis.X + (1.75 - 0.5 * side) * height + (3 - side) * width, axis.Y - offset - height / 2,
          text);
  }
}

// Empty for what has no number.
std::string NumberText(float value, const RulerStyle& style) {
  if (!std::isfinite(value) || (value == 0 && !style.LabelZero)) return {};
  return FixedText(value, style.Decimals, style.Numbers.DecimalSeparator);
}

// In single precision, step by step: three steps of 0.1 from -0.3 are then exactly 0.
float ValueAt(const RulerAxis& axis, int tick) {
  const float steps = static_cast<float>(tick) * axis.Spacing;
  return steps + axis.FirstValue;
}

// The room along the ruler that a number takes, with the gap to the next one. Numbers are longest at one of
// the ruler's ends.
double RoomForNumber(Surface& surface, const RulerAxis& axis, std::int16_t side, const RulerStyle& style,
                     int lastTick) {
  const TextExtent first = surface.Extent(NumberText(ValueAt(axis, 0), style));
  if (!IsHorizontal(side)) return first.Height;
  const TextExtent last = surface.Extent(NumberText(ValueAt(axis, lastTick), style));
  return std::max(first.Width, last.Width) + 0.25 * first.Height;
}

// 1, 2, 5, 10, 20, 50 ... ; `place` from 0, below it fractions of one.
double RoundNumber(int place) {
  const int inDecade = (place % 3 + 3) % 3;
  return (inDecade == 0 ? 1 : inDecade == 1 ? 2 : 5) * std::pow(10, (place - inDecade) / 3);
}

constexpr double RoundingError = 1e-3;  // of a number of ticks

bool IsWhole(double ticks) { return std::abs(ticks - std::round(ticks)) < RoundingError; }

// The fewest ticks from one number to the next that need no less than `fewest` and lead from one round value
// to another. 0 when the spacing meets no round values.
int TicksToRoundValue(double spacing, double fewest) {
  if (!(spacing > 0) || !std::isfinite(spacing)) return 0;
  constexpr int placesOfMostTicks = 20;
  const int first = 3 * static_cast<int>(std::floor(std::log10(spacing)));
  for (int place = first; place < first + placesOfMostTicks; ++place) {
    const double ticks = RoundNumber(place) / spacing;
    if (ticks >= fewest && ticks > 1 - RoundingError && ticks < MostTicks && IsWhole(ticks)) {
      return static_cast<int>(std::round(ticks));
    }
  }
  return 0;
}

// Every how many ticks a number stands.
int TicksPerNumber(Surface& surface, const RulerAxis& axis, std::int16_t side, const RulerStyle& style,
                   int lastTick) {
  const double room = RoomForNumber(surface, axis, side, style, lastTick);
  const double pixelsPerTick = std::abs(double{axis.Length} / double{style.NumIntervals});
  if (pixelsPerTick >= room) return 1;
  if (const int ticks = TicksToRoundValue(axis.Spacing, room / pixelsPerTick)) return ticks;
  for (int decade = 1; decade < MostTicks; decade *= 10) {
    for (const int step : {1, 2, 5}) {
      if (step * decade * pixelsPerTick >= room) return step * decade;
    }
  }
  return MostTicks;
}

// How many ticks the first one is from 0, so that 0 is among the numbers that stay when some are left out. 0
// when no tick stands at 0.
int TicksFromZero(const RulerAxis& axis) {
  const double ticks = double{axis.FirstValue} / double{axis.Spacing};
  const bool tickAtZero = std::abs(ticks) <= MostTicks && IsWhole(ticks);
  return tickAtZero ? static_cast<int>(std::round(ticks)) : 0;
}

// Not closer than a pixel.
bool TicksCanBeSeen(float numIntervals, float length) { return numIntervals <= std::abs(length); }

void PrintCaption(Surface& surface, const RulerAxis& axis, std::int16_t side, const RulerStyle& style) {
  const std::string& caption = style.Caption;
  const TextExtent extent = surface.Extent(caption);
  const double width = extent.Width;
  const double height = extent.Height;
  const double x = axis.X;
  const double y = axis.Y;
  const double length = axis.Length;
  if (IsHorizontal(side)) {
    if (style.CentreCaption) {
      const double down = side == BottomSide ? 1.75 : -2.7;
      Print(surface, x + length / 2 - width / 2, y + down * height, caption);
    } else {
      Print(surface, x + length + height / 2, y - 0.6 * height, caption);
    }
  } else if (style.CentreCaption) {
    const double right =
        side == RightSide ? surface.Extent("    ").Width : -surface.Extent("    " + caption).Width;
    Print(surface, x + right, y - length / 2 - 0.7 * height, caption);
  } else {
    Print(surface, x - width / 2, y - length - 1.75 * height, caption);
  }
}

}  // namespace

void ShowRulers(Surface& surface, const Graph& graph, const DocumentSettings& settings,
                const DerivedView& view, const NumberFormat& numbers) {
  const float hatchSpacing = FiniteSingle(ValueOf(settings.HatchSpacing));
  RulerStyle alongX;
  alongX.NumIntervals = view.HatchCountX;
  alongX.Decimals = DecimalPlaces(hatchSpacing, settings.XMin, numbers);
  alongX.Numbers = numbers;
  RulerStyle alongY = alongX;
  alongY.NumIntervals = view.HatchCountY;
  alongY.Decimals = DecimalPlaces(hatchSpacing, settings.YMin, numbers);

  RulerOnSide(surface, graph, BottomSide, alongX);
  RulerOnSide(surface, graph, TopSide, alongX);
  RulerOnSide(surface, graph, RightSide, alongY);
  RulerOnSide(surface, graph, LeftSide, alongY);
}

void RulerOnSide(Surface& surface, const Graph& graph, std::int16_t side, const RulerStyle& style) {
  const auto spacing = [&style](float first, float last) {
    if (style.NumIntervals == 0) return 0.0F;
    return FiniteSingle((double{last} - double{first}) / double{style.NumIntervals});
  };
  RulerAxis axis;
  if (IsHorizontal(side)) {
    axis = {graph.PixelX1, side == BottomSide ? graph.PixelY1 : graph.PixelY2, graph.PixelX2 - graph.PixelX1,
            graph.WorldX1, spacing(graph.WorldX1, graph.WorldX2)};
  } else if (side == RightSide || side == LeftSide) {
    axis = {side == RightSide ? graph.PixelX2 : graph.PixelX1, graph.PixelY1, graph.PixelY1 - graph.PixelY2,
            graph.WorldY1, spacing(graph.WorldY1, graph.WorldY2)};
  }
  DrawRuler(surface, axis, side, style);
}

void DrawRuler(Surface& surface, const RulerAxis& axis, std::int16_t side, const RulerStyle& style) {
  if (side < BottomSide || side > LeftSide) return;
  DrawLine(surface, IsHorizontal(side) ? PixelLine{axis.X, axis.Y, axis.X + axis.Length, axis.Y}
                                       : PixelLine{axis.X, axis.Y, axis.X, axis.Y - axis.Length});

  const bool ticksCanBeSeen = style.NumIntervals != 0 && TicksCanBeSeen(style.NumIntervals, axis.Length);
  const int last = ticksCanBeSeen ? static_cast<int>(std::floor(std::max(style.NumIntervals, -1.0F))) : -1;
  const bool hasNumbers = last >= 0 && style.Decimals >= 0;
  const int ticksPerNumber = hasNumbers ? TicksPerNumber(surface, axis, side, style, last) : 1;
  const int ticksFromZero = hasNumbers ? TicksFromZero(axis) : 0;
  for (int k = 0; k <= last; ++k) {
    const double offset = k * double{axis.Length} / double{style.NumIntervals};
    DrawTick(surface, axis, side, offset, style.TickLength);
    if (!hasNumbers || (k + ticksFromZero) % ticksPerNumber != 0) continue;
    const std::string text = NumberText(ValueAt(axis, k), style);
    if (!text.empty()) PrintNumber(surface, axis, side, offset, text);
  }
  PrintCaption(surface, axis, side, style);
}

bool TicksAreLeftOut(const Graph& graph, const DerivedView& view) {
  const auto areLeftOut = [](float numIntervals, float length) {
    return length != 0 && !TicksCanBeSeen(numIntervals, length);
  };
  return areLeftOut(view.HatchCountX, graph.PixelX2 - graph.PixelX1) ||
         areLeftOut(view.HatchCountY, graph.PixelY1 - graph.PixelY2);
}
