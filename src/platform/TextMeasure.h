// How large a text comes out in one of the drawing's fonts.
#pragma once

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

/// The extent of a single-byte text. It is asked for every label at every redraw, so whoever gives it keeps
/// the answers.
using TextMeasure = std::function<TextExtent(const TextFont& font, std::string_view text)>;
