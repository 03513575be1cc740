// The matrix of a step as a table: rows under the names of their equations, columns under those of their
// unknowns, and marks on the numbers that the step is about.
#pragma once

#include <QAbstractTableModel>
#include <QPalette>
#include <QStyledItemDelegate>

#include "explanation/steps/StepWalk.h"

class StepsTour;

/// The letters and the ground of a marked number; also as much set apart by its letters alone.
struct MarkLook {
  QColor Letters;
  QColor Ground;
  bool IsBold = false;
  bool IsItalic = false;
};

/// On a light or a dark ground, as the palette has it.
MarkLook LookOf(CellMark mark, const QPalette& palette);

class StepMatrixModel final : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  /// Another elimination (it must outlive what is shown of it), or none.
  void Show(const StepsTour* tour);

  /// The tour has gone elsewhere.
  void Follow();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  /// Of the cell.
  CellMark MarkAt(const QModelIndex& index) const;

  /// The cells that are marked the most: the pivot if there is one, else the first one marked; invalid
  /// without any.
  QModelIndex FirstMarked() const;

 private:
  int RowOf(int place) const;
  int ColumnOf(int place) const;
  QString CellName(int row, int column) const;

  const StepsTour* tour_ = nullptr;
};

class StepCellDelegate final : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};
