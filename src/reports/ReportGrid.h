// The table control of the report window: a fixed header row and column, columns as wide as their texts, rows
// close together, scroll bars only where the fitting rule puts them. Texts are never taken as markup.
#pragma once

#include <QItemSelectionRange>
#include <QSize>
#include <QTableView>
#include <memory>
#include <vector>

#include "reports/GridFitting.h"
#include "reports/ReportTableModel.h"

class ReportGrid final : public QTableView {
  Q_OBJECT

 public:
  explicit ReportGrid(QWidget* parent = nullptr);

  /// Shows a table from its first cell on, with rows (the header row too) of `rowHeight` pixels.
  void SetTable(std::unique_ptr<ReportTable> table, int rowHeight);

  /// Measures the columns again, after a change of the font.
  void SetRowHeight(int rowHeight);

  void Clear();

  /// Pixels of a column 0 .. NumColumns() - 1 of the table (0 is the header column): at least 30, and 10 more
  /// than its widest text. The sum over all columns is kept within what the toolkit can address.
  int NaturalColumnWidth(int column) const;

  /// Pixels without scroll bars: the sums of the column widths and of the row heights.
  QSize NaturalSize() const { return naturalSize_; }

  /// Takes the size and the scroll bars of the fit.
  void Fit(const GridFit& fit);

  /// Puts the selected cells, or the whole table when none is selected, on the clipboard as a spreadsheet
  /// reads them: tabs between the columns, a line for each row, a hyphen before negative numbers; with or
  /// without the names of their rows and columns. An empty grid leaves the clipboard alone.
  void CopyCells(bool withNames);

 private:
  QItemSelectionRange CellsToCopy() const;
  void MeasureColumns();
  void ShowHeaderColumn(int width);

  ReportTableModel model_;
  QWidget* corner_ = nullptr;
  std::vector<int> columnWidths_;  // of the table's columns, the header column first
  int rowHeight_ = 15;
  QSize naturalSize_{0, 0};
};
