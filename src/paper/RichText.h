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

/// What a line is, whatever it looks like: for outlines, for readers aloud, and for where pages end.
enum class LineRole {
  Text,
  Title,        ///< the heading of the whole document
  PageTitle,    ///< the heading of a part that begins on a page of its own
  Heading,      ///< the heading of a section
  Joined,       ///< stands whole on one page with the line that follows
  JoinedLast,   ///< ends what Joined began
  TableHeader,  ///< the first row of another table, shown again on each page that the table goes on to
  TableRow,     ///< one more row of the table above
  JoinedRow     ///< the same, on the page of the row below: for tables so small that they stand whole
};

/// 1 for titles, 2 for a section, 0 for what is no heading.
constexpr int HeadingLevel(LineRole role) {
  if (role == LineRole::Title || role == LineRole::PageTitle) return 1;
  return role == LineRole::Heading ? 2 : 0;
}
constexpr bool IsHeading(LineRole role) { return HeadingLevel(role) > 0; }
/// One below the header.
constexpr bool IsBodyRow(LineRole role) { return role == LineRole::TableRow || role == LineRole::JoinedRow; }
constexpr bool IsRow(LineRole role) { return role == LineRole::TableHeader || IsBodyRow(role); }

/// Whether a page never ends below such a line, nor below blank lines that follow it.
constexpr bool StaysWithNext(LineRole role) {
  return IsHeading(role) || role == LineRole::Joined || role == LineRole::TableHeader ||
         role == LineRole::JoinedRow;
}

/// A line break is CR LF; a CR or an LF alone is one too. A line that is monospaced throughout is part of a
/// table and never wraps.
inline constexpr std::string_view LineBreak = "\r\n";

class RichText {
 public:
  virtual ~RichText() = default;

  /// `text` is UTF-8; tabs and line breaks mean what they say. `role` is that of the lines that begin with
  /// letters of this text; blank lines have none.
  void Append(std::string_view text, const CharacterFormat& format, LineRole role = LineRole::Text) {
    AppendText(text, format, role);
  }

  /// Puts in the picture that the document's clipboard holds, and returns whether it holds one. A picture
  /// wider than the text, or higher than a page, is shown smaller. `description` (UTF-8) says what it shows,
  /// for those who cannot see it.
  bool Paste(std::string_view description = {}) { return PastePicture(description); }

 private:
  virtual void AppendText(std::string_view text, const CharacterFormat& format, LineRole role) = 0;
  virtual bool PastePicture(std::string_view description) = 0;
};
