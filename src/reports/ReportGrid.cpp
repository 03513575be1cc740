// A name is shown in one line, so line breaks and tabs in it never split a copied field.
#include "reports/ReportGrid.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <algorithm>
#include <array>
#include <numeric>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "platform/qt/QtText.h"
#include "reports/ReportGridParts.h"

namespace {

constexpr int MinColumnWidth = 30;  // pixels
constexpr int TextPadding = 10;     // pixels

// The toolkit adds up section sizes in an int and has a largest section.
int LargestColumnWidth(int numColumns) {
  constexpr int largestSum = 1 << 30;
  constexpr int largestSection = (1 << 20) - 1;
  return std::min(largestSection, largestSum / std::max(1, numColumns));
}

// A name as a field of a copied line. A spreadsheet takes a quotation mark at its beginning for the beginning
// of a quoted field, which would run over the tabs and lines behind it.
QString FieldOfName(const QString& name) {
  QString field = OneLineText(name);
  if (field.startsWith(QLatin1Char('"')))
    field = QLatin1Char('"') + field.replace(u'"', QLatin1String("\"\"")) + u'"';
  return field;
}

// The table shows negative numbers with an en dash; a spreadsheet takes that for a word, and cannot reckon
// with it. The decimal separator stays that of the user's country, as the spreadsheet's.
QString FieldOfNumber(QString cell) {
  if (cell.startsWith(QChar(0x2013))) cell[0] = QLatin1Char('-');
  return cell;
}

// Whether a text of digits and signs is as wide as those together, and each digit as any other.
bool HasEvenFigures(const QFontMetricsF& metrics, const QString& signs) {
  const QString digits = QStringLiteral("0123456789");
  const double digit = metrics.horizontalAdvance(u'0');
  for (const QChar a : digits) {
    if (metrics.horizontalAdvance(a) != digit) return false;
  }
  const QString all = digits + signs;
  for (const QChar a : all) {
    for (const QChar b : all) {
      const double apart = metrics.horizontalAdvance(a) + metrics.horizontalAdvance(b);
      if (metrics.horizontalAdvance(QString(a) + b) != apart) return false;
    }
  }
  return true;
}

// Pixels that columns need for numbers, without laying each out; of none where the font does not allow that.
class NumberWidths {
 public:
  NumberWidths(const ReportTable& table, const QFont& font) {
    std::string signs;
    for (int shape = 0; shape < NumNumberShapes; ++shape) {
      for (const char c : table.LongestText(shape)) {
        if (c != '0' && signs.find(c) == std::string::npos) signs += c;
      }
    }
    const QFontMetricsF metrics(font);
    const std::string withPowers = signs + "E+-";
    if (HasEvenFigures(metrics, OneLineText(ToQt(withPowers)))) {
      signs = withPowers;
    } else if (!HasEvenFigures(metrics, OneLineText(ToQt(signs)))) {
      return;
    }
    for (const char c : "0123456789" + signs)
      advance_[static_cast<unsigned char>(c)] =
          metrics.horizontalAdvance(OneLineText(ToQt(std::string(1, c))).front());
    for (int shape = 0; shape < NumNumberShapes; ++shape)
      ofShapes_[static_cast<std::size_t>(shape)] = Of(table.LongestText(shape)).value_or(0);
    isKnown_ = true;
  }

  /// Whether no number of that shape needs more than that.
  bool Fits(int shape, int width) const {
    return isKnown_ && ofShapes_[static_cast<std::size_t>(shape)] <= width;
  }

  /// Nothing for a text with other letters.
  std::optional<int> Of(std::string_view text) const {
    double width = 0;
    for (const char c : text) {
      const double advance = advance_[static_cast<unsigned char>(c)];
      if (advance == 0) return std::nullopt;
      width += advance;
    }
    return qRound(width) + TextPadding;
  }

 private:
  std::array<double, 256> advance_{};  // of the letters of numbers
  std::array<int, NumNumberShapes> ofShapes_{};
  bool isKnown_ = false;
};

}  // namespace

ReportGrid::ReportGrid(QWidget* parent) : QTableView(parent) {
  setShowGrid(false);              // the cells draw their lines
  setFrameShape(QFrame::NoFrame);  // the natural size leaves no room for one
  setHorizontalHeader(new ReportHeader(Qt::Horizontal, this));
  setVerticalHeader(new ReportHeader(Qt::Vertical, this));
  setHorizontalScrollBar(new ThinScrollBar(Qt::Horizontal, this));
  setVerticalScrollBar(new ThinScrollBar(Qt::Vertical, this));
  setHorizontalScrollMode(ScrollPerPixel);
  setVerticalScrollMode(ScrollPerPixel);
  setItemDelegate(new ReportCellDelegate(this));
  setEditTriggers(NoEditTriggers);
  setSelectionMode(ContiguousSelection);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setModel(&model_);
  if (auto* button = findChild<QAbstractButton*>({}, Qt::FindDirectChildrenOnly)) {
    corner_ = new ReportCorner(model_, button);
  }

  auto* copy = new QAction(QStringLiteral("&Copy"), this);
  copy->setShortcut(QKeySequence::Copy);
  auto* copyCells = new QAction(QStringLiteral("Copy without &names"), this);
  copyCells->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C));
  auto* all = new QAction(QStringLiteral("Select &all"), this);
  all->setShortcut(QKeySequence::SelectAll);
  for (QAction* action : {copy, copyCells, all}) {
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    addAction(action);
  }
  setContextMenuPolicy(Qt::ActionsContextMenu);
  connect(copy, &QAction::triggered, this, [this] { CopyCells(true); });
  connect(copyCells, &QAction::triggered, this, [this] { CopyCells(false); });
  connect(all, &QAction::triggered, this, &QTableView::selectAll);
}

void ReportGrid::SetTable(std::unique_ptr<ReportTable> table, int rowHeight) {
  setUpdatesEnabled(false);
  model_.SetTable(std::move(table));
  if (corner_) corner_->setAccessibleName(model_.CornerText());
  SetRowHeight(rowHeight);
  horizontalScrollBar()->setValue(0);
  verticalScrollBar()->setValue(0);
  setUpdatesEnabled(true);
}

void ReportGrid::SetRowHeight(int rowHeight) {
  if (!model_.Table()) return;
  rowHeight_ = rowHeight;
  MeasureColumns();

  // With updates off the headers do not look for what to repaint after each section.
  QHeaderView& columns = *horizontalHeader();
  QHeaderView& rows = *verticalHeader();
  columns.setUpdatesEnabled(false);
  rows.setUpdatesEnabled(false);
  columns.setDefaultSectionSize(MinColumnWidth);
  for (int column = 0; column < columns.count(); ++column) {
    columns.resizeSection(column, columnWidths_[static_cast<std::size_t>(column) + 1]);
  }
  rows.setDefaultSectionSize(rowHeight_);
  columns.setFixedHeight(rowHeight_);
  ShowHeaderColumn(columnWidths_.front());
  columns.setUpdatesEnabled(true);
  rows.setUpdatesEnabled(true);

  naturalSize_ = QSize(std::accumulate(columnWidths_.begin(), columnWidths_.end(), 0),
                       rowHeight_ * model_.Table()->NumRows());
}

void ReportGrid::MeasureColumns() {
  const ReportTable& table = *model_.Table();
  const QFontMetrics metrics = fontMetrics();
  const int largest = LargestColumnWidth(table.NumColumns());
  columnWidths_.assign(static_cast<std::size_t>(table.NumColumns()), MinColumnWidth);
  const NumberWidths numbers(table, font());
  std::unordered_map<std::string, int> widths;  // many cells show one of a few texts
  table.VisitCells([&](int row, int column, std::optional<int> shape) {
    int& width = columnWidths_[static_cast<std::size_t>(column)];
    if (shape && numbers.Fits(*shape, width)) return;
    std::string text = table.Text(row, column);
    if (const std::optional<int> ofNumber = numbers.Of(text)) {
      width = std::min(largest, std::max(width, *ofNumber));
      return;
    }
    const auto [entry, isNew] = widths.try_emplace(std::move(text), 0);
    if (isNew) entry->second = metrics.horizontalAdvance(OneLineText(ToQt(entry->first))) + TextPadding;
    width = std::min(largest, std::max(width, entry->second));
  });
}

void ReportGrid::Clear() {
  model_.SetTable(nullptr);
  columnWidths_.clear();
  naturalSize_ = QSize(0, 0);
}

int ReportGrid::NaturalColumnWidth(int column) const {
  return columnWidths_[static_cast<std::size_t>(column)];
}

void ReportGrid::Fit(const GridFit& fit) {
  setHorizontalScrollBarPolicy(fit.HorizontalBar ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(fit.VerticalBar ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
  const int width = std::max(0, static_cast<int>(fit.Width));
  resize(width, std::max(0, static_cast<int>(fit.Height)));
  if (columnWidths_.empty()) return;
  // A very long joint name must not push the numbers out of the window.
  const int largest = fit.HorizontalBar ? std::max(MinColumnWidth, width / 2) : columnWidths_.front();
  ShowHeaderColumn(std::min(columnWidths_.front(), largest));
}

void ReportGrid::ShowHeaderColumn(int width) {
  if (verticalHeader()->width() != width || verticalHeader()->minimumWidth() != width) {
    verticalHeader()->setFixedWidth(width);
    updateGeometries();
  }
}

QItemSelectionRange ReportGrid::CellsToCopy() const {
  const QItemSelection ranges = selectionModel()->selection();
  if (!ranges.isEmpty()) return ranges.first();  // selections are contiguous
  if (model_.rowCount() == 0 || model_.columnCount() == 0) return {};
  return {model_.index(0, 0), model_.index(model_.rowCount() - 1, model_.columnCount() - 1)};
}

void ReportGrid::CopyCells(bool withNames) {
  const QItemSelectionRange range = CellsToCopy();
  if (!range.isValid()) return;
  QApplication::setOverrideCursor(Qt::WaitCursor);  // a whole large matrix is millions of cells
  QStringList lines;
  if (withNames) {
    QStringList names{FieldOfName(model_.CornerText())};
    for (int column = range.left(); column <= range.right(); ++column) {
      names.append(FieldOfName(model_.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString()));
    }
    lines.append(names.join(QLatin1Char('\t')));
  }
  for (int row = range.top(); row <= range.bottom(); ++row) {
    QStringList cells;
    if (withNames)
      cells.append(FieldOfName(model_.headerData(row, Qt::Vertical, Qt::DisplayRole).toString()));
    for (int column = range.left(); column <= range.right(); ++column) {
      cells.append(FieldOfNumber(model_.data(model_.index(row, column), Qt::DisplayRole).toString()));
    }
    lines.append(cells.join(QLatin1Char('\t')));
  }
  QApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
  QApplication::restoreOverrideCursor();
}
