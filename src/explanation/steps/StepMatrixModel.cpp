#include "explanation/steps/StepMatrixModel.h"

#include "explanation/ShownText.h"
#include "explanation/steps/StepsTour.h"
#include "platform/qt/MixedColor.h"
#include "platform/qt/QtText.h"

namespace {

const char* WordFor(CellMark mark) {
  switch (mark) {
    case CellMark::None:
      break;
    case CellMark::Source:
      return ", is subtracted";
    case CellMark::Target:
      return ", changes";
    case CellMark::Pivot:
      return ", decides";
  }
  return "";
}

}  // namespace

MarkLook LookOf(CellMark mark, const QPalette& palette) {
  const QColor letters = palette.color(QPalette::Text);
  const bool isDark = palette.color(QPalette::Base).lightness() < letters.lightness();
  switch (mark) {
    case CellMark::Pivot:
      return isDark ? MarkLook{Qt::black, QColor(0x8a, 0xb8, 0xe6), true}
                    : MarkLook{Qt::white, QColor(0x00, 0x44, 0x88), true};
    case CellMark::Target:
      return {letters, isDark ? QColor(0x5c, 0x47, 0x00) : QColor(0xff, 0xe8, 0xa3), true};
    case CellMark::Source:
      return {letters, isDark ? QColor(0x24, 0x3b, 0x5c) : QColor(0xd3, 0xe3, 0xf5), false, true};
    case CellMark::None:
      break;
  }
  return {letters, palette.color(QPalette::Base)};
}

void StepMatrixModel::Show(const StepsTour* tour) {
  beginResetModel();
  tour_ = tour != nullptr && tour->IsToldInSteps() ? tour : nullptr;
  endResetModel();
}

void StepMatrixModel::Follow() {
  if (tour_ == nullptr) return;
  Q_EMIT headerDataChanged(Qt::Vertical, 0, rowCount() - 1);
  Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
  Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

int StepMatrixModel::rowCount(const QModelIndex& parent) const {
  return tour_ == nullptr || parent.isValid() ? 0 : tour_->Matrix().NumRows();
}

int StepMatrixModel::columnCount(const QModelIndex& parent) const {
  return tour_ == nullptr || parent.isValid() ? 0 : tour_->Matrix().NumUnknowns() + 1;
}

int StepMatrixModel::RowOf(int place) const { return tour_->Matrix().RowAt(place + 1); }

int StepMatrixModel::ColumnOf(int place) const {
  const StepMatrix& matrix = tour_->Matrix();
  return place < matrix.NumUnknowns() ? matrix.ColumnAt(place + 1) : place + 1;
}

QString StepMatrixModel::CellName(int row, int column) const {
  return ShownText(tour_->Text().Row(row)) + QStringLiteral(", ") + ShownText(tour_->Text().Column(column));
}

CellMark StepMatrixModel::MarkAt(const QModelIndex& index) const {
  return tour_->Mark(RowOf(index.row()), ColumnOf(index.column()));
}

QVariant StepMatrixModel::data(const QModelIndex& index, int role) const {
  if (tour_ == nullptr || !index.isValid()) return {};
  const int row = RowOf(index.row());
  const int column = ColumnOf(index.column());
  const QString number = ShownText(tour_->Text().Number(tour_->Matrix()(row, column)));
  switch (role) {
    case Qt::DisplayRole:
      return number;
    case Qt::AccessibleTextRole:
      return QString(number + QString::fromLatin1(WordFor(tour_->Mark(row, column))));
    case Qt::AccessibleDescriptionRole:
      return CellName(row, column);
    case Qt::ToolTipRole:
      return PlainToolTip(CellName(row, column));
    case Qt::TextAlignmentRole:
      return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    default:
      return {};
  }
}

QVariant StepMatrixModel::headerData(int section, Qt::Orientation orientation, int role) const {
  const int count = orientation == Qt::Vertical ? rowCount() : columnCount();
  if (section < 0 || section >= count || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
  const QString name = ShownText(orientation == Qt::Vertical ? tour_->Text().Row(RowOf(section))
                                                             : tour_->Text().Column(ColumnOf(section)));
  return role == Qt::ToolTipRole ? PlainToolTip(name) : name;
}

QModelIndex StepMatrixModel::FirstMarked() const {
  QModelIndex first;
  for (int row = 0; row < rowCount(); ++row) {
    for (int column = 0; column < columnCount(); ++column) {
      const QModelIndex at = index(row, column);
      const CellMark mark = MarkAt(at);
      if (mark == CellMark::Pivot) return at;
      if (mark == CellMark::Target && !first.isValid()) first = at;
    }
  }
  return first;
}

void StepCellDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  const auto* model = qobject_cast<const StepMatrixModel*>(index.model());
  if (model == nullptr) return;
  const CellMark mark = model->MarkAt(index);
  if (mark == CellMark::None) {
    // What is 0 stands back behind the numbers.
    if (option->text == QLatin1String("0"))
      option->palette.setColor(QPalette::Text, FaintLetters(option->palette));
    return;
  }
  const MarkLook look = LookOf(mark, option->palette);
  option->palette.setColor(QPalette::Text, look.Letters);
  option->backgroundBrush = look.Ground;
  option->font.setBold(look.IsBold);
  option->font.setItalic(look.IsItalic);
}
