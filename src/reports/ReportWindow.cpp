#include "reports/ReportWindow.h"

#include <QAction>
#include <QEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QResizeEvent>
#include <algorithm>
#include <utility>

#include "platform/qt/AccessibleRole.h"
#include "platform/qt/FittedText.h"
#include "platform/qt/QtText.h"
#include "platform/qt/ReadOnlyText.h"
#include "reports/ReportGrid.h"
#include "reports/ReportTables.h"

namespace {

// Pixels. The fitting rule leaves 32 beside the grid and 64 above and below it.
constexpr int GridLeft = 16;
constexpr int GridTop = 44;
constexpr int HeadingTop = 12;
constexpr int TextBoxMargin = 8;
constexpr int RedundantLinesOffset = 60;  // below the height of the grid, from the top of the window
constexpr int NoticeMargin = 6;           // of its text
constexpr double LargestNotice = 0.4;     // of the window's height; beyond that the notice is scrolled

constexpr QSize SmallestSize(320, 200);

QString RedundantConclusion() {
  QStringList lines;
  for (const char* line : RedundantLines) lines.append(QString::fromLatin1(line));
  return lines.join(QLatin1Char('\n'));
}

QLabel* PlainLabel(const QString& name, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  return label;
}

}  // namespace

ReportWindow::ReportWindow(NumberFormat numbers, QWidget* parent)
    : QWidget(parent, Qt::Window),
      numbers_(std::move(numbers)),
      txtReport1_(MakeReadOnlyText(QStringLiteral("txtReport1"), QStringLiteral("Report text"), 10, this)),
      label17_(PlainLabel(QStringLiteral("Label17"), this)),
      eqnGrid_(new ReportGrid(this)),
      redundantLines_(PlainLabel(QStringLiteral("lblRedundant"), this)),
      txtNotice_(MakeReadOnlyText(QStringLiteral("txtNotice"), QStringLiteral("Below the conclusion"),
                                  NoticeMargin, this)) {
  setObjectName(QStringLiteral("Report"));
  setWindowTitle(QStringLiteral("Report"));
  SetAccessibleRole(*this, QAccessible::Dialog);
  setMinimumSize(SmallestSize);
  resize(760, 540);

  eqnGrid_->setObjectName(QStringLiteral("EqnGrid"));
  eqnGrid_->setToolTip(
      QStringLiteral("Ctrl+C copies the selected cells, or the whole table, for a spreadsheet"));
  redundantLines_->setText(RedundantConclusion());
  redundantLines_->setTextInteractionFlags(Qt::TextSelectableByMouse);

  auto* close = new QAction(QStringLiteral("Close"), this);
  close->setShortcuts({QKeySequence(Qt::Key_Escape), QKeySequence(QKeySequence::Close)});
  connect(close, &QAction::triggered, this, &QWidget::close);
  addAction(close);

  ChooseFontSet(fontSize_);
  ShowText({});
}

void ReportWindow::ChooseFontSet(float pointSize) {
  fontSize_ = pointSize;
  // Row heights are pixels of a screen of 96 to the inch.
  const QFont font = LettersAt96(*this, pointSize);
  setFont(font);
  txtReport1_->setFont(font);
  txtNotice_->setFont(font);
  eqnGrid_->setFont(font);
  eqnGrid_->SetRowHeight(RowHeight());
  LayOut();
}

int ReportWindow::RowHeight() const { return qRound(1.5F * fontSize_) + extraRowHeight_; }

ReportFormat ReportWindow::Format(int sigFigs) const {
  return ReportFormat{.SigFigs = sigFigs, .Numbers = numbers_};
}

void ReportWindow::ReportCounting(const CountedTruss& counted) {
  counting_ = ::ReportCounting(counted);
  ShowText(ToQt(counting_.Text()));
  if (counted.NumUnknowns() > 0) setWindowTitle(QString::fromLatin1(CountingCaption));
}

void ReportWindow::LoadGridWithEquations(const TrussAnalysis& analysis, int sigFigs) {
  ShowTable(::LoadGridWithEquations(analysis, Format(sigFigs)), 0, false);
}

void ReportWindow::LoadGridWithRREF(const TrussAnalysis& analysis, int sigFigs) {
  ShowTable(::LoadGridWithRREF(analysis, Format(sigFigs)), 0, false);
}

Outcome ReportWindow::LoadGridWithSolutions(const TrussAnalysis& analysis, int sigFigs) {
  const Outcome outcome = analysis.Reading.Code;
  std::unique_ptr<ReportTable> table = ::LoadGridWithSolutions(analysis, Format(sigFigs));
  if (outcome == Outcome::Inconsistent) {
    setWindowTitle(QString::fromLatin1(table->Caption()));
    ShowText(QString::fromLatin1(InconsistentText));
  } else {
    ShowTable(std::move(table), 3, outcome == Outcome::Redundant);
  }
  return outcome;
}

void ReportWindow::ShowText(const QString& text) {
  eqnGrid_->hide();
  label17_->hide();
  redundantLines_->hide();
  setMinimumSize(SmallestSize);
  eqnGrid_->Clear();
  txtReport1_->setPlainText(text);
  txtReport1_->show();
  setFocusProxy(txtReport1_);
  ShowNotice({});
}

void ReportWindow::ShowTable(std::unique_ptr<ReportTable> table, int extraRowHeight, bool redundant) {
  extraRowHeight_ = extraRowHeight;
  const QString heading = QString::fromLatin1(table->Heading());
  setWindowTitle(QString::fromLatin1(table->Caption()));
  label17_->setText(heading);
  eqnGrid_->setAccessibleName(heading);
  eqnGrid_->SetTable(std::move(table), RowHeight());
  txtReport1_->hide();
  txtReport1_->clear();
  redundantLines_->setVisible(redundant);
  setMinimumSize(SmallestSize);
  label17_->show();
  eqnGrid_->show();
  setFocusProxy(eqnGrid_);
  ShowNotice({});
}

void ReportWindow::ShowNotice(const std::string& notice) {
  txtNotice_->setPlainText(ToQt(notice));
  txtNotice_->setVisible(!notice.empty());
  LayOut();
}

void ReportWindow::Clear() {
  counting_ = {};
  ShowText({});
}

void ReportWindow::BringUp() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
  setFocus();
}

void ReportWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  LayOut();
}

void ReportWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange) LayOut();
}

// What the notice leaves of the window. Without a notice it is all of it.
QRect ReportWindow::Page() const {
  return txtNotice_->isHidden() ? rect() : rect().adjusted(0, 0, 0, -NoticeHeight() - TextBoxMargin);
}

// What its text takes at the window's width. The box reckons in lines, and needs a little air for the last
// one.
int ReportWindow::NoticeNeeds() const {
  const int beside = 2 * (TextBoxMargin + NoticeMargin + txtNotice_->frameWidth());
  const QRect room(0, 0, std::max(1, width() - beside), 1 << 20);
  const QFontMetrics letters(txtNotice_->font());
  return letters.boundingRect(room, Qt::TextWordWrap, txtNotice_->toPlainText()).height() +
         letters.height() / 2 + 2 * (NoticeMargin + txtNotice_->frameWidth());
}

int ReportWindow::NoticeHeight() const {
  return std::min(NoticeNeeds(), static_cast<int>(LargestNotice * height()));
}

void ReportWindow::LayOut() {
  if (isMinimized()) return;
  const QRect page = Page();
  txtReport1_->setGeometry(TextBoxMargin, TextBoxMargin, std::max(0, page.width() - 16),
                           std::max(0, page.height() - 16));
  txtNotice_->setGeometry(TextBoxMargin, page.height(), std::max(0, width() - 16),
                          std::max(0, height() - page.height() - TextBoxMargin));
  txtNotice_->setVerticalScrollBarPolicy(NoticeHeight() < NoticeNeeds() ? Qt::ScrollBarAsNeeded
                                                                        : Qt::ScrollBarAlwaysOff);
  txtNotice_->ensureCursorVisible();  // which is at its beginning, where nobody has moved it
  PlaceHeading();
  const QSizeF natural = eqnGrid_->NaturalSize();
  eqnGrid_->move(GridLeft, GridTop);
  eqnGrid_->Fit(LimitGridSize(static_cast<float>(natural.width()), static_cast<float>(natural.height()),
                              static_cast<float>(page.width() - 32), static_cast<float>(page.height() - 64)));
  PlaceRedundantLines();
}

void ReportWindow::PlaceHeading() {
  label17_->setGeometry(GridLeft, HeadingTop, std::max(0, width() - 32), GridTop - HeadingTop - 4);
  QFont bold = font();
  bold.setBold(true);
  FitLabel(*label17_, bold);
}

void ReportWindow::PlaceRedundantLines() {
  if (redundantLines_->isHidden()) return;  // what is not shown needs no width
  redundantLines_->setFont(font());
  redundantLines_->adjustSize();
  // The lines begin with two blanks, which bring them to the left edge of the grid.
  const int indent = 2 * redundantLines_->fontMetrics().horizontalAdvance(QLatin1Char(' '));
  const QRect below(QPoint(GridLeft - indent, eqnGrid_->height() + RedundantLinesOffset),
                    redundantLines_->size());
  const QRect beside(QPoint(GridLeft + eqnGrid_->width(), GridTop), redundantLines_->size());
  const QRect page = Page();
  if (page.contains(below)) {
    redundantLines_->move(below.topLeft());
  } else if (page.contains(beside)) {
    // A table as high as the window leaves no room below it; the conclusion must still be read.
    redundantLines_->move(beside.topLeft());
  } else {
    // Nor does a wide one beside it. The heading is short.
    const int left = GridLeft + label17_->sizeHint().width();
    redundantLines_->setGeometry(left, 0, std::max(0, width() - left), GridTop);
    FitLabel(*redundantLines_, font());
    // The smallest letters may be wide ones.
    setMinimumWidth(std::max(SmallestSize.width(), left + redundantLines_->sizeHint().width()));
  }
}
