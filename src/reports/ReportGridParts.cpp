#include "reports/ReportGridParts.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QStyleOption>
#include <algorithm>
#include <cmath>

#include "platform/qt/QtText.h"
#include "reports/OutlineColor.h"

namespace {

// The last pixel of a cell to the right and below is the grid line; the text has 4 more on either side.
constexpr int TextMargin = 4;
constexpr int LineWidth = 1;

// A line of whole device pixels, so that all lines are alike on a screen with a fractional scale.
double LineThickness(const QPainter& painter) {
  const double scale = painter.device()->devicePixelRatioF();
  return std::max(1.0, std::floor(scale)) / scale;
}

void DrawEdges(QPainter& painter, const QRect& cell, Qt::Edges edges, const QColor& color) {
  const double line = LineThickness(painter);
  const QRectF area(cell);
  if (edges.testFlag(Qt::RightEdge)) {
    painter.fillRect(QRectF(area.right() - line, area.top(), line, area.height()), color);
  }
  if (edges.testFlag(Qt::BottomEdge)) {
    painter.fillRect(QRectF(area.left(), area.bottom() - line, area.width(), line), color);
  }
  if (edges.testFlag(Qt::LeftEdge)) {
    painter.fillRect(QRectF(area.left(), area.top(), line, area.height()), color);
  }
  if (edges.testFlag(Qt::TopEdge)) {
    painter.fillRect(QRectF(area.left(), area.top(), area.width(), line), color);
  }
}

void DrawCellText(QPainter& painter, const QRect& cell, const QString& text, Qt::Alignment alignment) {
  if (text.isEmpty()) return;
  const QRect room = cell.adjusted(TextMargin, 0, -TextMargin - LineWidth, -LineWidth);
  QString shown = OneLineText(text);
  const QFontMetrics metrics = painter.fontMetrics();
  if (metrics.horizontalAdvance(shown) > room.width() + 1) {
    shown = metrics.elidedText(shown, Qt::ElideRight, room.width());
    alignment = Qt::AlignLeft | Qt::AlignVCenter;
  }
  // Rows are a little lower than the line height of most fonts; only the blank above and below is missing.
  painter.drawText(room, static_cast<int>(alignment) | Qt::TextSingleLine | Qt::TextDontClip, shown);
}

// The header's outer edges are the outer edges of the table.
void DrawHeaderCell(QPainter& painter, const QRect& cell, const QPalette& palette, Qt::Edges outerEdges,
                    bool marked) {
  const QColor plain = palette.color(QPalette::Button);
  painter.fillRect(cell, marked ? MixedColor(plain, palette.color(QPalette::Highlight), 0.3F) : plain);
  DrawEdges(painter, cell, outerEdges | Qt::RightEdge | Qt::BottomEdge, OutlineColor(palette));
  painter.setPen(palette.color(QPalette::ButtonText));
}

}  // namespace

ReportHeader::ReportHeader(Qt::Orientation orientation, QWidget* parent) : QHeaderView(orientation, parent) {
  setMinimumSectionSize(1);
  setSectionResizeMode(QHeaderView::Fixed);
  setSectionsClickable(true);
  setHighlightSections(true);  // repaints when the selection moves
}

void ReportHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
  const QItemSelectionModel* selection = selectionModel();
  const bool horizontal = orientation() == Qt::Horizontal;
  const bool marked = selection && (horizontal ? selection->columnIntersectsSelection(section)
                                               : selection->rowIntersectsSelection(section));
  DrawHeaderCell(*painter, rect, palette(), horizontal ? Qt::TopEdge : Qt::LeftEdge, marked);
  painter->setFont(font());
  const QVariant alignment = model()->headerData(section, orientation(), Qt::TextAlignmentRole);
  DrawCellText(*painter, rect, model()->headerData(section, orientation(), Qt::DisplayRole).toString(),
               alignment.value<Qt::Alignment>());
}

ReportCorner::ReportCorner(const ReportTableModel& model, QWidget* cornerButton)
    : QWidget(cornerButton), model_(model) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  auto* layout = new QHBoxLayout(cornerButton);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(this);
}

void ReportCorner::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  DrawHeaderCell(painter, rect(), palette(), Qt::TopEdge | Qt::LeftEdge, false);
  DrawCellText(painter, rect(), model_.CornerText(), Qt::AlignLeft | Qt::AlignVCenter);
}

void ReportCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
  painter->save();
  const bool selected = option.state.testFlag(QStyle::State_Selected);
  const QPalette::ColorGroup group =
      option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
  if (selected) painter->fillRect(option.rect, option.palette.color(group, QPalette::Highlight));
  DrawEdges(*painter, option.rect, Qt::RightEdge | Qt::BottomEdge, OutlineColor(option.palette));
  painter->setFont(option.font);
  painter->setPen(option.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text));
  DrawCellText(*painter, option.rect, index.data(Qt::DisplayRole).toString(),
               index.data(Qt::TextAlignmentRole).value<Qt::Alignment>());
  painter->restore();
  if (!option.state.testFlag(QStyle::State_HasFocus)) return;
  QStyleOptionFocusRect focus;
  focus.QStyleOption::operator=(option);
  focus.rect.adjust(0, 0, -LineWidth, -LineWidth);
  focus.backgroundColor = option.palette.color(group, selected ? QPalette::Highlight : QPalette::Base);
  option.widget->style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, option.widget);
}

QSize ThinScrollBar::sizeHint() const {
  constexpr int thickness = static_cast<int>(ScrollBarThickness);
  const QSize hint = QScrollBar::sizeHint();
  return orientation() == Qt::Horizontal ? QSize(hint.width(), thickness) : QSize(thickness, hint.height());
}
