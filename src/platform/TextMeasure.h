// How large a text comes out in one of the drawing's fonts.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

/// A font of the drawing; the family is always the same.
struct TextFont {
  float Points = 8;
  bool Bold = false;

  friend bool operator==(const TextFont&, const TextFont&) = default;
};

/// Pixels.
struct TextExtent {
  float Width = 0, Height = 0;

  friend bool operator==(const TextExtent&, const TextExtent&) = default;
};

/// Of a text with more characters than these the beginning is shown, and an ellipsis.
inline constexpr std::size_t LongestShownText = 200;

/// As much of a single-byte text as decides how it is shown.
inline std::string_view ShownBeginning(std::string_view text) { return text.substr(0, LongestShownText + 1); }

/// The extent of a single-byte text. It is asked for every label at every redraw, so whoever gives it keeps
/// the answers.
using TextMeasure = std::function<TextExtent(const TextFont& font, std::string_view text)>;
