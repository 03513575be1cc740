// The painted parts of the report grid: header sections, the corner where they meet, cells and thin scroll
// bars. The toolkit's own leave margins that the close rows have no room for.
#pragma once

#include <QHeaderView>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include "reports/GridFitting.h"
#include "reports/ReportTableModel.h"

/// Paints a section as plain text on the button colour; sections that meet the selection are tinted.
class ReportHeader final : public QHeaderView {
  Q_OBJECT

 public:
  ReportHeader(Qt::Orientation orientation, QWidget* parent);

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int section) const override;
};

/// Shows the text of the first cell of the fixed row and column over the view's corner button, which keeps
/// its clicks.
class ReportCorner final : public QWidget {
  Q_OBJECT

 public:
  ReportCorner(const ReportTableModel& model, QWidget* cornerButton);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const ReportTableModel& model_;
};

class ReportCellDelegate final : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

/// Of the thickness that the fitting rule reckons with, in every style.
class ThinScrollBar final : public QScrollBar {
  Q_OBJECT

 public:
  using QScrollBar::QScrollBar;
  QSize sizeHint() const override;
};
