// Appending text to the printable report: the format codes, the title, and single pieces of formatted text.
#pragma once

#include <string>
#include <string_view>

#include "paper/RichText.h"

/// A format code has four characters: "T" first for bold, second for italic, third for underlined (anything
/// else is not), and a digit that selects the palette colour.
inline constexpr std::string_view BoldBlack = "TFF0";
inline constexpr std::string_view PlainBlack = "FFF0";
inline constexpr std::string_view SectionHeading = "TFF4";

/// The format that a code stands for; proportional. A code that is too short has its missing characters as
/// "F", and a colour that is no digit is black.
CharacterFormat FormatOf(std::string_view code, float points);

/// A document under construction and the size of its letters.
struct ReportText {
  RichText& Document;
  float Points = 10;  ///< the report font size
};

/// The title's letters are this much larger than the text, points.
inline constexpr float TitleEnlargement = 8;

/// A single-byte text as documents take it, UTF-8: without control characters, so that a name stays on its
/// line.
std::string PrintableText(std::string text);

/// Appends the document's title between line breaks: bold, and larger than the text. It stands on a line of
/// its own, so the end of that line belongs to it and is not one of the line breaks after. UTF-8.
void RTBTitle(const ReportText& report, std::string_view title, int breaksBefore, int breaksAfter);

/// Appends line breaks, the text in the format of the code, and line breaks. `text` is UTF-8. The line breaks
/// are plain and black.
void RTBText(const ReportText& report, std::string_view text, int breaksBefore, int breaksAfter,
             std::string_view formatCode, LineRole role = LineRole::Text);
