// The three tables of the analysis as values: how many rows and columns, and what text stands in a cell. A
// cell is formatted when it is asked for, so that a table of millions of zeros costs nothing until it is
// looked at.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "analysis/Analysis.h"
#include "analysis/FormatSigFigs.h"

/// Rows and columns run from 0; row 0 and column 0 are the fixed header row and column. Texts are in the
/// single-byte code page. What a table refers to must outlive it.
class ReportTable {
 public:
  virtual ~ReportTable() = default;

  virtual const char* Caption() const = 0;  ///< of the report window
  virtual const char* Heading() const = 0;  ///< the line above the table
  virtual int NumRows() const = 0;
  virtual int NumColumns() const = 0;
  virtual std::string Text(int row, int column) const = 0;

  /// Calls `visit` for the cells of a row from the first column to the last, both inclusive, but for cells
  /// that are known to show "0".
  virtual void VisitRow(int row, int firstColumn, int lastColumn,
                        const std::function<void(int column)>& visit) const = 0;

  /// A cell with the shape of its number, where it has one (FormatSigFigs.h): its text is not longer than
  /// that of its shape, and need not be asked for where only the longest matters.
  using CellVisit = std::function<void(int row, int column, std::optional<int> shape)>;

  /// The same for every cell, row by row. Lets widths be measured without asking for each zero.
  virtual void VisitCells(const CellVisit& visit) const;
  virtual std::string LongestText(int shape) const;

 protected:
  /// VisitRow of a row of which nothing is known.
  static void VisitAll(int firstColumn, int lastColumn, const std::function<void(int column)>& visit);
};

/// The augmented matrix as assembled.
std::unique_ptr<ReportTable> LoadGridWithEquations(const TrussAnalysis& analysis, const ReportFormat& format);

/// The augmented matrix in reduced row echelon form, its columns in ColumnOrder.
std::unique_ptr<ReportTable> LoadGridWithRREF(const TrussAnalysis& analysis, const ReportFormat& format);

/// Each unknown force with its value or "undetermined". Not to be shown when the outcome is Inconsistent: the
/// conclusion then stands in its place.
std::unique_ptr<ReportTable> LoadGridWithSolutions(const TrussAnalysis& analysis, const ReportFormat& format);

/// Printed below the solutions of a redundant system, line by line.
inline constexpr const char* RedundantLines[] = {"  The truss is in equilibrium (static) for these",
                                                 "  particular applied forces but not for others.",
                                                 "  Thus the truss is unstable."};
