// The door between the program's single-byte texts and what a widget shows or gives back.
#pragma once

#include <QString>
#include <string>
#include <string_view>

/// A single-byte text (code page Windows-1252) as a widget takes it. Every byte has a character.
QString ToQt(std::string_view singleByteText);

/// What a widget gives back as a single-byte text. Characters outside the code page become "?".
std::string FromQt(const QString& text);

/// A text as it stands in one line: control characters (line breaks, tabs) are blanks.
QString OneLineText(QString text);

/// Drops control characters but tabs and line ends, and replaces what else may not stand in a document by
/// what may: paragraph separators by line separators, characters that XML or a text document forbids by
/// U+FFFD.
void MakePrintable(QString& text);

/// A tool tip that shows the text as it is written, even if it looks like markup, and only the beginning of a
/// very long one. Empty for an empty text.
QString PlainToolTip(const QString& text);
