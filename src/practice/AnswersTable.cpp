#include "practice/AnswersTable.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <algorithm>

#include "platform/qt/QtText.h"

namespace {

QTableWidgetItem* ReadOnly(const QString& text) {
  auto* item = new QTableWidgetItem(text);
  item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
  return item;
}

// Who does not see the row hears whose box has the keys.
class NamingDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override {
    QWidget* editor = QStyledItemDelegate::createEditor(parent, option, index);
    if (editor != nullptr)
      editor->setAccessibleName(QStringLiteral("Your value of ") +
                                index.siblingAtColumn(0).data().toString());
    return editor;
  }
};

}  // namespace

AnswersTable::AnswersTable(QWidget* parent) : QTableWidget(0, NumColumns, parent) {
  setHorizontalHeaderLabels(
      {QStringLiteral("Force"), QStringLiteral("Your value"), QStringLiteral("What it is")});
  verticalHeader()->hide();
  horizontalHeader()->setStretchLastSection(true);
  horizontalHeader()->setHighlightSections(false);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::AllEditTriggers);
  setTabKeyNavigation(false);
  setItemDelegate(new NamingDelegate(this));
  setWordWrap(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);  // what is said of a value wraps
  connect(this, &QTableWidget::cellChanged, this, [this](int row, int column) {
    if (column == Box) Q_EMIT ValueChanged(row);
  });
}

void AnswersTable::ShowForces(const QStringList& names) {
  const QSignalBlocker silent(this);
  clearContents();
  setRowCount(static_cast<int>(names.size()));
  for (int row = 0; row < names.size(); ++row) {
    setItem(row, Name, ReadOnly(names[row]));
    auto* box = new QTableWidgetItem;
    box->setData(Qt::AccessibleTextRole, QStringLiteral("Your value of ") + names[row]);
    setItem(row, Box, box);
    setItem(row, Verdict, ReadOnly(QString()));
  }
  if (!names.isEmpty()) verticalHeader()->setDefaultSectionSize(sizeHintForRow(0));
  resizeColumnToContents(Name);
  setColumnWidth(Box, std::max(fontMetrics().horizontalAdvance(QStringLiteral("-88888.888 T")),
                               horizontalHeader()->sectionSizeHint(Box)));
  if (!names.isEmpty()) setCurrentCell(0, Box);
}

void AnswersTable::TakeOver() {
  QWidget* editor = QApplication::focusWidget();
  if (state() != EditingState || editor == nullptr || editor == this || !isAncestorOf(editor)) return;
  commitData(editor);
  QTableWidget::closeEditor(editor, QAbstractItemDelegate::NoHint);
}

QString AnswersTable::Value(int row) const { return item(row, Box)->text(); }

std::vector<std::string> AnswersTable::Written() const {
  std::vector<std::string> written;
  for (int row = 0; row < rowCount(); ++row) written.push_back(Value(row).toStdString());
  return written;
}

void AnswersTable::ShowVerdict(int row, const QString& words) {
  const QSignalBlocker silent(this);
  item(row, Verdict)->setText(words);
  item(row, Verdict)->setToolTip(PlainToolTip(words));
  resizeRowToContents(row);
  const QString value = Value(row);
  item(row, Box)->setData(Qt::AccessibleTextRole,
                          QStringLiteral("Your value of %1: %2%3")
                              .arg(item(row, Name)->text(), value.isEmpty() ? QStringLiteral("empty") : value,
                                   words.isEmpty() ? QString() : QStringLiteral(", ") + words));
}

void AnswersTable::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  const bool goesBack = hint == QAbstractItemDelegate::EditPreviousItem;
  const bool goesOn =
      hint == QAbstractItemDelegate::SubmitModelCache || hint == QAbstractItemDelegate::EditNextItem;
  QTableWidget::closeEditor(editor, goesOn || goesBack ? QAbstractItemDelegate::NoHint : hint);
  const int row = currentRow() + int{goesOn} - int{goesBack};
  if (row >= 0 && row < rowCount()) setCurrentCell(row, Box);
}

void AnswersTable::keyPressEvent(QKeyEvent* event) {
  const bool writes = !event->text().isEmpty() && event->text().front().isPrint() &&
                      (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0;
  if (writes && currentRow() >= 0 && currentColumn() != Box) setCurrentCell(currentRow(), Box);
  QTableWidget::keyPressEvent(event);
}

void AnswersTable::resizeEvent(QResizeEvent* event) {
  QTableWidget::resizeEvent(event);
  for (int row = 0; row < rowCount(); ++row) {
    if (!item(row, Verdict)->text().isEmpty()) resizeRowToContents(row);
  }
}
