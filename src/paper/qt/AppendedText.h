// What is appended to rich text, in Qt's terms: its letters and its lines, for documents that are shown and
// for files that are written as the text arrives.
#pragma once

#include <QColor>
#include <QString>
#include <algorithm>
#include <string_view>

#include "paper/RichText.h"
#include "platform/qt/QtText.h"

inline QString FamilyName(FontFamily family) {
  return family == FontFamily::Monospaced ? QStringLiteral("Courier New") : QStringLiteral("Arial");
}

/// Of the letters. The index goes round the palette.
inline QColor ColourOf(const CharacterFormat& format) {
  const PaletteColour& colour = Palette[static_cast<std::size_t>(format.Colour) % Palette.size()];
  return {colour.Red, colour.Green, colour.Blue};
}

/// The text with only such characters as a document can hold, in parts: `letters(QStringView)` for each
/// stretch within a line, never empty, and `lineEnd()` for each CR LF, CR or LF.
template <class OnLetters, class OnLineEnd>
void ReadLines(std::string_view utf8, OnLetters letters, OnLineEnd lineEnd) {
  QString printable = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
  MakePrintable(printable);
  for (QStringView rest = printable; !rest.isEmpty();) {
    const auto end = std::ranges::find_if(rest, [](QChar c) { return c == u'\r' || c == u'\n'; });
    const qsizetype length = end - rest.begin();
    if (length > 0) letters(rest.first(length));
    if (length == rest.size()) return;
    lineEnd();
    const bool pair = rest[length] == u'\r' && length + 1 < rest.size() && rest[length + 1] == u'\n';
    rest = rest.sliced(length + (pair ? 2 : 1));
  }
}
