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

/// Letters of tables that are fitted to paper are not made smaller than this, points.
inline constexpr float SmallestTablePoints = 6;

/// Removes blanks at both ends, and then every other one. Control characters count as blanks.
void StripBlanks(std::string& text);

/// Brings a single-byte text to a width in characters: cut when longer, padded with blanks when shorter. A
/// number (a cell that begins with a digit, or with a sign or separator before one) is padded on its left, a
/// name on its right.
void FillUp(std::string& text, int width);

/// Told of each row that has been written; returns false when the user wants no more.
using RowWritten = std::function<bool()>;

/// Appends the table. Where `roomPoints` is more than 0 it is the width of the paper's text: a wider table is
/// set smaller, in steps of half a point, and one that is too wide even so is broken into blocks of columns,
/// each with the first column again. Returns false when `rowWritten` ended it.
bool RTBTable(const ReportTable& table, const ReportText& report, TableKind kind, float roomPoints = 0,
              const RowWritten& rowWritten = {});

/// How many times `rowWritten` is going to be called.
int RowsToWrite(const ReportTable& table, const ReportText& report, float roomPoints);
