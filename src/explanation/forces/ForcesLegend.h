// What the strokes and arrows of a drawing of forces mean, and what must be known beside them.
#pragma once

#include <string>
#include <vector>

#include "platform/Picture.h"
#include "platform/TextMeasure.h"

enum class LegendSample { Compression, Tension, Zero, Undetermined, Load, Reaction };

struct LegendItem {
  LegendSample Sample{};
  PixelPoint Left;  ///< of the sample, at the middle of its height
  PixelPoint TextTopLeft;
  std::string Words;
};

struct LegendLine {
  PixelPoint TopLeft;
  std::string Words;
};

/// Pixels from its own top left corner.
struct ForcesLegend {
  float Width = 0, Height = 0;
  float Points = 8;
  std::vector<LegendItem> Items;
  std::vector<LegendLine> Lines;
};

inline constexpr float LegendSampleLength = 30;

/// As wide as `width` at most, unless a single word is wider: the samples, with `unknown` for what has "?";
/// how to read the numbers, and the remarks, each beginning a line.
ForcesLegend LayOutLegend(const std::string& unknown, const std::vector<std::string>& remarks, float width,
                          float points, const TextMeasure& measure);
