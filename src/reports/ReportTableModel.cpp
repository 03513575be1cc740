#include "reports/ReportTableModel.h"

#include <utility>

#include "platform/qt/QtText.h"

void ReportTableModel::SetTable(std::unique_ptr<ReportTable> table) {
  beginResetModel();
  table_ = std::move(table);
  cornerText_.clear();
  rowNames_.clear();
  columnNames_.clear();
  if (table_) {
    cornerText_ = ToQt(table_->Text(0, 0));
    for (int row = 1; row < table_->NumRows(); ++row) rowNames_.append(ToQt(table_->Text(row, 0)));
    for (int column = 1; column < table_->NumColumns(); ++column) {
      columnNames_.append(ToQt(table_->Text(0, column)));
    }
  }
  endResetModel();
}

int ReportTableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rowNames_.size());
}

int ReportTableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columnNames_.size());
}

QVariant ReportTableModel::data(const QModelIndex& index, int role) const {
  if (!table_ || !index.isValid()) return {};
  if (role == Qt::DisplayRole) return ToQt(table_->Text(index.row() + 1, index.column() + 1));
  if (role == Qt::TextAlignmentRole) return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
  return {};
}

QVariant ReportTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  const QStringList& names = orientation == Qt::Horizontal ? columnNames_ : rowNames_;
  if (section < 0 || section >= names.size()) return {};
  if (role == Qt::DisplayRole) return names[section];
  if (role == Qt::AccessibleTextRole && names[section].isEmpty()) {
    return (orientation == Qt::Horizontal ? QStringLiteral("Column %1") : QStringLiteral("Row %1"))
        .arg(section + 1);
  }
  if (role == Qt::ToolTipRole && !names[section].isEmpty()) return PlainToolTip(names[section]);
  if (role == Qt::TextAlignmentRole) {
    // A column's heading stands above its numbers.
    return QVariant::fromValue((orientation == Qt::Horizontal ? Qt::AlignRight : Qt::AlignLeft) |
                               Qt::AlignVCenter);
  }
  return {};
}
