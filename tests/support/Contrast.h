// How well a colour can be read on another: the ratio of their luminances, from 1 to 21.
#pragma once

#include <algorithm>
#include <cmath>

#include "platform/Palette.h"

/// Letters of the usual size are read well from this on, by those with weak eyes too.
inline constexpr double ReadableContrast = 4.5;

/// Of red, green and blue from 0 to 255.
inline double Luminance(int red, int green, int blue) {
  const auto linear = [](int channel) {
    const double share = channel / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(red) + 0.7152 * linear(green) + 0.0722 * linear(blue);
}

inline double ContrastOf(double luminance1, double luminance2) {
  return (std::max(luminance1, luminance2) + 0.05) / (std::min(luminance1, luminance2) + 0.05);
}

inline double ContrastOf(const PaletteColour& a, const PaletteColour& b) {
  return ContrastOf(Luminance(a.Red, a.Green, a.Blue), Luminance(b.Red, b.Green, b.Blue));
}
