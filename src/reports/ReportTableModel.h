// A report table as the toolkit's views ask for it. A cell is formatted when a view asks for it and is not
// kept.
#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <memory>

#include "reports/ReportTables.h"

/// Row 0 and column 0 of the table are the headers here, so cell (r, c) of the model is cell (r + 1, c + 1)
/// of the table. The header texts are copied when the table is set; what the other cells refer to must
/// outlive the table.
class ReportTableModel final : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  /// Shows another table; none empties the model.
  void SetTable(std::unique_ptr<ReportTable> table);

  /// Null while the model is empty.
  const ReportTable* Table() const { return table_.get(); }

  /// The text where the header row and the header column meet.
  const QString& CornerText() const { return cornerText_; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  std::unique_ptr<ReportTable> table_;
  QString cornerText_;
  QStringList rowNames_;
  QStringList columnNames_;
};
