#include "explanation/steps/StepsWindow.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QTableView>
#include <algorithm>

#include "explanation/ShownText.h"
#include "explanation/steps/PlainElimination.h"
#include "explanation/steps/StepLines.h"
#include "explanation/steps/StepListModel.h"
#include "explanation/steps/StepMatrixModel.h"
#include "explanation/steps/StepsTour.h"
#include "platform/qt/AccessibleEvents.h"
#include "platform/qt/FittedText.h"
#include "platform/qt/QtText.h"

StepsWindow::StepsWindow(const AnimationWish& animation, QWidget* parent)
    : LearnWindow(QStringLiteral("Steps"), QStringLiteral("Elimination, step by step"), parent),
      animation_(animation) {
  CreateList();
  CreateMatrix();
  CreateControls();
  CreateChoice();
  LayOut();
  player_.setObjectName(QStringLiteral("tmrPlay"));
  player_.setInterval(PlayTime);
  connect(&player_, &QTimer::timeout, this, [this] {
    GoTo(tour_->Place() + 1);
    if (tour_->Place() + 1 == tour_->NumPlaces()) StopPlaying();
  });
  Clear();
}

// The widgets go last and may ask their models until then.
StepsWindow::~StepsWindow() {
  operations_->Show(nullptr);
  numbers_->Show(nullptr);
}

void StepsWindow::ShowSubject(const LearnSubject& subject) {
  Clear();
  const TrussAnalysis& analysis = subject.Reasons->Analysis();
  tour_ = std::make_unique<StepsTour>(subject.Reasons->Graph(), EquationsOf(*subject.Document, analysis),
                                      analysis.Reading, subject.Reasons->Rounded(), subject.Format);
  SetLetters(subject.Points);
  operations_->Show(tour_.get());
  numbers_->Show(tour_.get());
  tblMatrix_->setVisible(tour_->IsToldInSteps());
  marks_->setVisible(tour_->IsToldInSteps());
  {
    const QSignalBlocker silent(cmbUnknown_);
    for (int k = 1; k <= subject.Reasons->Graph().NumUnknowns(); ++k)
      cmbUnknown_->addItem(OneLineText(ToQt(tour_->Text().Column(k))));
    cmbUnknown_->setCurrentIndex(0);
    const QSignalBlocker still(sldStep_);
    sldStep_->setRange(0, std::max(0, tour_->NumPlaces() - 1));
    sldStep_->setPageStep(std::max(1, tour_->NumPlaces() / 10));
  }
  FitList();
  FitMatrix();
  ShowPlace();
}

void StepsWindow::Clear() {
  StopPlaying();
  operations_->Show(nullptr);
  numbers_->Show(nullptr);
  tour_.reset();
  {
    const QSignalBlocker silent(cmbUnknown_);
    cmbUnknown_->clear();
    const QSignalBlocker still(sldStep_);
    sldStep_->setRange(0, 0);
  }
  ShowPlace();
}

QString StepsWindow::CopiedText() const {
  if (!tour_) return {};
  QString text;
  for (const std::string& line : PlainStepLines(tour_->Text())) text += ShownText(line) + QLatin1Char('\n');
  return text;
}

void StepsWindow::GoTo(int place) {
  if (!tour_ || place < 0 || place >= tour_->NumPlaces()) return;
  tour_->GoTo(place);
  ShowPlace();
}

void StepsWindow::GoToPivot(int unknown) {
  StopPlaying();
  if (const std::optional<int> place = tour_->PlaceOfPivot(unknown)) {
    GoTo(*place);
  } else {
    ShowPivotLine();
  }
}

void StepsWindow::ShowPlace() {
  QStringList lines;
  if (tour_) {
    for (const std::string& line : tour_->Lines()) lines.append(ShownText(line));
  }
  txtStep_->setPlainText(lines.join(QLatin1Char('\n')));
  lblStep_->setText(tour_ ? ShownText(tour_->Position()) : QString());
  numbers_->Follow();
  if (tour_ && tour_->NumPlaces() > 0) {
    const QModelIndex operation = operations_->index(tour_->Operation());
    const QSignalBlocker silent(lstSteps_->selectionModel());
    lstSteps_->setCurrentIndex(operation);
    lstSteps_->scrollTo(operation);
    lstSteps_->viewport()->update();
    const QSignalBlocker still(sldStep_);
    sldStep_->setValue(tour_->Place());
  }
  const QModelIndex marked = numbers_->FirstMarked();
  if (marked.isValid()) tblMatrix_->scrollTo(marked);
  // The values are read in the last column.
  const bool isLast = tour_ && tour_->Place() + 1 == tour_->NumPlaces();
  if (isLast && !marked.isValid()) tblMatrix_->scrollTo(numbers_->index(0, numbers_->columnCount() - 1));
  ShowPivotLine();
  ShowButtons();
  if (tour_) Announce(*this, lblStep_->text() + QStringLiteral(": ") + lines.value(0));
}

void StepsWindow::ShowPivotLine() {
  lblPivot_->setText(tour_ && cmbUnknown_->count() > 0
                         ? ShownText(tour_->PivotLine(cmbUnknown_->currentIndex() + 1))
                         : QString());
  KeepWholeHeight(*this);
}

// A button that is switched off gives its focus away; another one, which is on, is at hand.
void StepsWindow::ShowButtons() {
  const bool mayGoBack = tour_ && tour_->Place() > 0;
  const bool mayGoOn = tour_ && tour_->Place() + 1 < tour_->NumPlaces();
  if (mayGoBack) cmdBack_->setEnabled(true);
  if (mayGoOn) cmdNext_->setEnabled(true);
  if (!mayGoBack && (cmdBack_->hasFocus() || cmdFirst_->hasFocus())) cmdNext_->setFocus();
  if (!mayGoOn && (cmdNext_->hasFocus() || cmdLast_->hasFocus())) cmdBack_->setFocus();
  for (QPushButton* button : {cmdFirst_, cmdBack_}) button->setEnabled(mayGoBack);
  for (QPushButton* button : {cmdNext_, cmdLast_}) button->setEnabled(mayGoOn);
  sldStep_->setEnabled(mayGoBack || mayGoOn);
  cmdCopy_->setEnabled(tour_ != nullptr);
  const bool plays = player_.isActive();
  cmdPlay_->setEnabled(MayPlay());
  cmdPlay_->setText(plays ? QStringLiteral("Sto&p") : QStringLiteral("&Play"));
  cmdPlay_->setToolTip(!tour_ || MayPlay()
                           ? QStringLiteral("Goes on by itself, or stops (Alt+P)")
                           : QStringLiteral("The desktop asks for less motion: Next goes from step to step"));
}

bool StepsWindow::MayPlay() const { return tour_ && tour_->NumPlaces() > 1 && animation_.IsWanted(); }

// At the end it begins again.
void StepsWindow::PlayOrStop() {
  if (player_.isActive()) {
    StopPlaying();
    return;
  }
  if (!MayPlay()) return;
  player_.start();
  GoTo(tour_->Place() + 1 == tour_->NumPlaces() ? 0 : tour_->Place() + 1);
}

void StepsWindow::StopPlaying() {
  player_.stop();
  ShowButtons();
}

QWidget& StepsWindow::FirstControl() { return *lstSteps_; }

void StepsWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) ShowMarkLooks();
  if (event->type() != QEvent::StyleChange && event->type() != QEvent::FontChange) return;
  if (!MayPlay()) StopPlaying();
  ShowButtons();
}

// Nobody sees it play.
void StepsWindow::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  StopPlaying();
}

// In a narrow window texts take more lines, and the window more height.
void StepsWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  KeepWholeHeight(*this);
  lstSteps_->scrollTo(lstSteps_->currentIndex());
}
