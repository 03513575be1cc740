// A table of the printable report: monospaced rows whose columns line up.
#pragma once

#include <functional>
#include <string>

#include "reports/RTBText.h"
#include "reports/ReportTables.h"

/// What stands in light blue beside the black cells.
enum class TableKind { HeaderRow = 1, HeaderRowAndFirstColumn = 2 };

/// No more columns of a table are written; a line below it says how many there are besides.
inline constexpr int MaxTableColumns = 200;

/// Blanks between one column and the next.
inline constexpr int BlanksBetweenColumns = 2;

/// Letters of tables that are fitted to paper are not made smaller than this, points.
inline constexpr float SmallestTablePoints = 6;

/// Width of every character of the monospaced font, in parts of its size.
inline constexpr double MonospacedAdvance = 1229.0 / 2048;

/// Removes blanks at both ends, and then every other one. Control characters count as blanks.
void StripBlanks(std::string& text);

/// Brings a single-byte text to a width in characters: cut when longer, padded with blanks when shorter. A
/// number as tables write it (a sign or none, digits, a decimal separator with or without digits behind it,
/// an exponent or none) is padded on its left; everything else is a name and padded on its right.
void FillUp(std::string& text, int width);

/// The size of the letters of a row of so many characters: `points`, or what is needed to get the row into
/// `roomPoints` (0: any width), in steps of half a point, but not less than SmallestTablePoints.
float TablePoints(int characters, float points, float roomPoints);

/// Told, while widths are measured and for each row that was written, which part of the table is done (0 ..
/// 1, never less than before); returns false when the user wants no more.
using TableProgress = std::function<bool(double done)>;

/// Appends the table, row by row; rows end with line breaks, and the first one is the header of each block.
/// The caret should be at the start of a line. Where `roomPoints` is more than 0 it is the width of the
/// paper's text: a wider table is set smaller, in steps of half a point, and one that is too wide even so is
/// broken into blocks of columns, an empty line between them, each with the first column again and at least
/// one other. Returns false when `progress` ended it.
bool RTBTable(const ReportTable& table, const ReportText& report, TableKind kind, float roomPoints = 0,
              const TableProgress& progress = {});
