// Tables as spreadsheets write them: with commas, semicolons or tabs, with or without quotes and a byte order
// mark, in UTF-8 or in code page 1252.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct CsvLine {
  int Number = 0;                  ///< of its first line in the file, from 1
  std::vector<std::string> Cells;  ///< UTF-8, without the outer blanks
};

struct AnswerTable {
  std::vector<CsvLine> Lines;  ///< those that are not blank
  std::string Why;             ///< why the text is no table, UTF-8, e.g. "line 3: ..."; empty when it is one
};

/// Whether a heading is this one, which is in small letters; it may have a capital where it begins.
bool IsHeading(std::string_view heading, std::string_view smallLetters);

/// `expected` is a heading that the first line must have: the separator is the one with which it has. A first
/// line like "sep=;", with which spreadsheets are told the separator, is passed over.
AnswerTable ReadCsv(std::string_view bytes, std::string_view expected);

/// A field as it is written: in quotes where it must be. A text that a spreadsheet would take for a formula
/// gets an apostrophe in front, which makes it a text there, and control characters are signs (VisibleText):
/// a terminal would obey them.
std::string CsvTextField(const std::string& utf8Text);
