// A rich-text document that grows at its end: the box of a window, a text document for a file, or pages. What
// is appended stands at the caret, which moves to the new end.
#pragma once

#include <string_view>

#include "platform/Palette.h"

/// "Arial" and "Courier New".
enum class FontFamily { Proportional, Monospaced };

struct CharacterFormat {
  bool Bold = false;
  bool Italic = false;
  bool Underlined = false;
  int Colour = Black;  ///< palette index
  FontFamily Family = FontFamily::Proportional;
  float Points = 10;

  friend bool operator==(const CharacterFormat&, const CharacterFormat&) = default;
};

/// A line break is CR LF; a CR or an LF alone is one too. A line that is monospaced throughout is part of a
/// table and never wraps.
inline constexpr std::string_view LineBreak = "\r\n";

class RichText {
 public:
  virtual ~RichText() = default;

  /// `text` is UTF-8; tabs and line breaks mean what they say.
  virtual void Append(std::string_view text, const CharacterFormat& format) = 0;

  /// Puts in the picture that the document's clipboard holds; nothing when it holds none. A picture wider
  /// than the text, or higher than a page, is shown smaller.
  virtual void Paste() = 0;
};
