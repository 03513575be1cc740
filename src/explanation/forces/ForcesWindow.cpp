#include "explanation/forces/ForcesWindow.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <iterator>
#include <utility>

#include "explanation/forces/ForcesPicture.h"
#include "explanation/forces/ForcesText.h"
#include "explanation/forces/ForcesView.h"
#include "platform/qt/AccessibleRole.h"
#include "platform/qt/OnPress.h"
#include "platform/qt/QtPicture.h"
#include "platform/qt/QtText.h"
#include "platform/qt/ReadOnlyText.h"
#include "platform/qt/TippedButton.h"

namespace {

// Letters on drawings are this share of those in reports.
constexpr float LettersOfDrawing = 0.8F;

// Of the list, where it has as many.
constexpr int FewestRowsSeen = 4;

constexpr int NumColumns = static_cast<int>(std::size(ForceRowHeads));

}  // namespace

ForcesWindow::ForcesWindow(QWidget* parent)
    : LearnWindow(QStringLiteral("Forces"), QStringLiteral("Forces on the truss"), parent) {
  CreateControls();
  CreateList();
  LayOut();
  CreateKeys();
  Clear();
}

void ForcesWindow::CreateControls() {
  picForces_ = new ForcesView(this);
  picForces_->setObjectName(QStringLiteral("picForces"));
  SetAccessibleRole(*picForces_, QAccessible::Graphic);
  picForces_->setAccessibleName(QStringLiteral("Drawing of the truss with its forces"));
  connect(picForces_, &ForcesView::Clicked, this, &ForcesWindow::Choose);
  connect(picForces_, &ForcesView::DrawnAnew, this, &ForcesWindow::ShowState);
  cmdZoomIn_ = TippedButton("cmdZoomIn", "Zoom &in", "Larger (Ctrl++, or the mouse wheel)", this);
  cmdZoomOut_ = TippedButton("cmdZoomOut", "Zoom &out", "Smaller (Ctrl+-, or the mouse wheel)", this);
  cmdZoomWhole_ = TippedButton("cmdZoomWhole", "&Whole truss", "All of the truss (Ctrl+0)", this);
  cmdCopyForces_ =
      TippedButton("cmdCopyForces", "Copy &picture",
                   "Copies the drawing with its legend (Ctrl+C while the drawing has the keys)", this);
  OnPress(cmdZoomIn_, picForces_, &ForcesView::ZoomIn);
  OnPress(cmdZoomOut_, picForces_, &ForcesView::ZoomOut);
  OnPress(cmdZoomWhole_, picForces_, &ForcesView::ShowWhole);
  OnPress(cmdCopyForces_, this, &ForcesWindow::CopyPicture);
  chkSwapHues_ = new QCheckBox(QStringLiteral("&Swap colours"), this);
  chkSwapHues_->setObjectName(QStringLiteral("chkSwapHues"));
  chkSwapHues_->setToolTip(
      QStringLiteral("Compression red and tension blue, as some books and countries have it"));
  connect(chkSwapHues_, &QCheckBox::toggled, picForces_, &ForcesView::SwapHues);
  lblRoom_ = new QLabel(this);
  lblRoom_->setObjectName(QStringLiteral("lblRoom"));
  lblRoom_->setTextFormat(Qt::PlainText);
  lblRoom_->setWordWrap(true);
}

void ForcesWindow::CreateList() {
  lstForces_ = new QTableWidget(0, NumColumns, this);
  lstForces_->setObjectName(QStringLiteral("lstForces"));
  lstForces_->setAccessibleName(QStringLiteral("List of the forces"));
  lstForces_->setToolTip(
      QStringLiteral("Choose a force to see it on the drawing; Ctrl+C copies what is chosen, or all"));
  QStringList heads;
  for (const char* head : ForceRowHeads) heads.append(QString::fromLatin1(head));
  lstForces_->setHorizontalHeaderLabels(heads);
  lstForces_->verticalHeader()->hide();
  lstForces_->horizontalHeader()->setStretchLastSection(true);
  lstForces_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  lstForces_->setSelectionBehavior(QAbstractItemView::SelectRows);
  lstForces_->setTabKeyNavigation(false);
  lstForces_->setWordWrap(false);
  lstForces_->setMinimumWidth(160);
  connect(lstForces_, &QTableWidget::itemSelectionChanged, this, [this] {
    const QList<QTableWidgetItem*> chosen = lstForces_->selectedItems();
    picForces_->Mark(chosen.isEmpty() ? 0 : chosen.front()->row() + 1);
  });
}

void ForcesWindow::CreateKeys() {
  const auto add = [](QWidget* widget, const QList<QKeySequence>& keys, Qt::ShortcutContext context,
                      auto handler) {
    auto* action = new QAction(widget);
    action->setShortcuts(keys);
    action->setShortcutContext(context);
    connect(action, &QAction::triggered, widget, handler);
    widget->addAction(action);
  };
  add(this, {QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)},
      Qt::WindowShortcut, [this] { picForces_->ZoomIn(); });
  add(this, {QKeySequence(Qt::CTRL | Qt::Key_Minus)}, Qt::WindowShortcut, [this] { picForces_->ZoomOut(); });
  add(this, {QKeySequence(Qt::CTRL | Qt::Key_0)}, Qt::WindowShortcut, [this] { picForces_->ShowWhole(); });
  add(picForces_, {QKeySequence(QKeySequence::Copy)}, Qt::WidgetShortcut, [this] { CopyPicture(); });
  add(lstForces_, {QKeySequence(QKeySequence::Copy)}, Qt::WidgetShortcut, [this] { CopyList(); });
}

void ForcesWindow::LayOut() {
  auto* buttons = new QGridLayout;
  buttons->addWidget(cmdZoomIn_, 0, 0);
  buttons->addWidget(cmdZoomOut_, 0, 1);
  buttons->addWidget(cmdZoomWhole_, 0, 2);
  buttons->addWidget(chkSwapHues_, 1, 0, 1, 2);
  buttons->addWidget(cmdCopyForces_, 1, 2);
  buttons->setColumnStretch(3, 1);
  auto* splitter = new QSplitter(Qt::Vertical, this);
  splitter->addWidget(picForces_);
  splitter->addWidget(lstForces_);
  splitter->setStretchFactor(0, 3);
  splitter->setStretchFactor(1, 1);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(buttons);
  layout->addWidget(lblRoom_);
  layout->addWidget(splitter, 1);
}

void ForcesWindow::ShowSubject(const LearnSubject& subject) {
  auto shown = std::make_shared<ShownForces>();
  shown->Document = subject.Document;
  shown->Forces = ForcesOf(*subject.Reasons, subject.Format);
  shown->Points = LettersOfDrawing * subject.Points;
  shown_ = std::move(shown);
  lstForces_->setFont(LettersAt96(*this, subject.Points));
  FillList(subject.Format);
  picForces_->Show(shown_);
  picForces_->setAccessibleDescription(ToQt(DescribeForces(shown_->Forces, subject.Format)));
  for (QWidget* control : std::initializer_list<QWidget*>{cmdCopyForces_, chkSwapHues_})
    control->setEnabled(true);
}

void ForcesWindow::Clear() {
  shown_.reset();
  {
    const QSignalBlocker silent(lstForces_);
    lstForces_->setRowCount(0);
  }
  picForces_->Show(nullptr);
  picForces_->setAccessibleDescription({});
  for (QWidget* control : std::initializer_list<QWidget*>{cmdCopyForces_, chkSwapHues_})
    control->setEnabled(false);
}

QWidget& ForcesWindow::FirstControl() { return *picForces_; }

void ForcesWindow::FillList(const ReportFormat& format) {
  const QSignalBlocker silent(lstForces_);
  lstForces_->clearSelection();
  const std::vector<ForceRow> rows = ForceRows(shown_->Forces, format);
  lstForces_->setRowCount(static_cast<int>(rows.size()));
  int at = 0;
  for (const ForceRow& row : rows) {
    int column = 0;
    for (const std::string* text : {&row.Name, &row.Where, &row.Force, &row.Number}) {
      auto* item = new QTableWidgetItem(OneLineText(ToQt(*text)));
      lstForces_->setItem(at, column++, item);
    }
    ++at;
  }
  lstForces_->resizeColumnsToContents();
  lstForces_->setMinimumHeight(HeightForRows(std::min(at, FewestRowsSeen)));
  lstForces_->scrollToTop();
}

// Also with the scroll bar for columns that are too wide.
int ForcesWindow::HeightForRows(int rows) const {
  int height = 2 * lstForces_->frameWidth() + lstForces_->horizontalHeader()->sizeHint().height() +
               lstForces_->horizontalScrollBar()->sizeHint().height();
  for (int row = 0; row < rows; ++row) height += lstForces_->rowHeight(row);
  return height;
}

void ForcesWindow::ShowState() {
  const std::optional<ForcesDrawing>& drawn = picForces_->Drawn();
  const int leftOut = drawn ? drawn->NumLeftOut : 0;
  const auto all = leftOut + static_cast<int>(drawn ? drawn->Labels.size() : 0);
  lblRoom_->setText(ToQt(RoomText(leftOut, all)));
  const double zoom = picForces_->Zoom();
  cmdZoomIn_->setEnabled(drawn && picForces_->MayZoomIn());
  cmdZoomOut_->setEnabled(drawn && zoom > 1);
  cmdZoomWhole_->setEnabled(drawn.has_value());
}

// A force that is clicked is shown in the list, which marks it on the drawing.
void ForcesWindow::Choose(int unknown) {
  if (unknown == 0) {
    lstForces_->clearSelection();
    return;
  }
  lstForces_->selectRow(unknown - 1);
  lstForces_->scrollToItem(lstForces_->item(unknown - 1, 0));
}

QString ForcesWindow::ListText() const {
  const bool all = lstForces_->selectedItems().isEmpty();
  QStringList lines;
  if (all) {
    QStringList heads;
    for (const char* head : ForceRowHeads) heads.append(QString::fromLatin1(head));
    lines.append(heads.join(u'\t'));
  }
  for (int row = 0; row < lstForces_->rowCount(); ++row) {
    if (!all && !lstForces_->item(row, 0)->isSelected()) continue;
    QStringList cells;
    for (int column = 0; column < NumColumns; ++column) cells.append(lstForces_->item(row, column)->text());
    lines.append(cells.join(u'\t'));
  }
  return lines.join(u'\n');
}

void ForcesWindow::CopyList() { QApplication::clipboard()->setText(ListText()); }

// As files and documents show it, on white; whoever pastes it where only text may stand gets the list.
void ForcesWindow::CopyPicture() {
  if (!shown_) return;
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  QtTextMeasure measure;
  const Picture picture = ForcesPicture(
      {.Document = *shown_->Document, .Forces = shown_->Forces, .Points = shown_->Points},
      [&measure](const TextFont& font, std::string_view text) { return measure.Measure(font, text); },
      WidestForcesPicture, chkSwapHues_->isChecked());
  auto* copied = new QMimeData;
  copied->setImageData(ToImage(picture));
  copied->setText(ListText());
  QApplication::clipboard()->setMimeData(copied);
  QGuiApplication::restoreOverrideCursor();
}
