#include "explanation/byjoint/ByJointWindow.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHideEvent>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QSplitter>
#include <QVBoxLayout>
#include <algorithm>

#include "explanation/ListSplitter.h"
#include "explanation/ShownText.h"
#include "explanation/byjoint/HandSolution.h"
#include "explanation/byjoint/HandView.h"
#include "platform/qt/AccessibleRole.h"
#include "platform/qt/FittedText.h"
#include "platform/qt/OnPress.h"
#include "platform/qt/QtText.h"
#include "platform/qt/ReadOnlyText.h"
#include "platform/qt/TippedButton.h"

ByJointWindow::ByJointWindow(QWidget* parent)
    : LearnWindow(QStringLiteral("ByJoint"), QStringLiteral("Joint by joint"), parent) {
  CreateControls();
  LayOut();
  Clear();
}

void ByJointWindow::CreateControls() {
  lstSteps_ = new QListWidget(this);
  lstSteps_->setObjectName(QStringLiteral("lstSteps"));
  lstSteps_->setAccessibleName(QStringLiteral("Steps"));
  lstSteps_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  lstSteps_->setWordWrap(true);
  lstSteps_->setTextElideMode(Qt::ElideNone);
  lstSteps_->setResizeMode(QListView::Adjust);
  lstSteps_->setMinimumSize(120, 80);
  connect(lstSteps_, &QListWidget::currentRowChanged, this, &ByJointWindow::ShowStep);
  picStep_ = new HandView(this);
  picStep_->setObjectName(QStringLiteral("picStep"));
  SetAccessibleRole(*picStep_, QAccessible::Graphic);
  picStep_->setAccessibleName(QStringLiteral("Picture of the step"));
  lblArrows_ = new QLabel(this);
  lblArrows_->setObjectName(QStringLiteral("lblArrows"));
  lblArrows_->setWordWrap(true);
  txtStep_ = MakeReadOnlyText(QStringLiteral("txtStep"), QStringLiteral("Equations of the step"), 10, this);
  txtStep_->setMinimumSize(160, 80);
  lblStep_ = new QLabel(this);
  lblStep_->setObjectName(QStringLiteral("lblStep"));
  lblStep_->setAlignment(Qt::AlignCenter);

  cmdBack_ = TippedButton("cmdBack", "&Back", "The step before (Alt+B)", this);
  cmdNext_ = TippedButton("cmdNextStep", "&Next", "The next step (Alt+N)", this);
  cmdCopy_ = TippedButton("cmdCopy", "&Copy", "Copies all steps as text (Alt+C)", this);
  OnPress(cmdBack_, this, [this] { GoTo(lstSteps_->currentRow() - 1); });
  OnPress(cmdNext_, this, [this] { GoTo(lstSteps_->currentRow() + 1); });
  OnPress(cmdCopy_, this, [this] { QApplication::clipboard()->setText(CopiedText()); });
}

void ByJointWindow::LayOut() {
  beside_ = new ListSplitter(*lstSteps_, this);
  auto* below = new QSplitter(Qt::Vertical, beside_);
  beside_->addWidget(below);
  below->addWidget(picStep_);
  below->addWidget(txtStep_);
  beside_->setStretchFactor(0, 1);
  beside_->setStretchFactor(1, 3);
  below->setStretchFactor(0, 1);
  below->setStretchFactor(1, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdBack_);
  buttons->addWidget(lblStep_, 1);
  buttons->addWidget(cmdNext_);
  buttons->addSpacing(12);
  buttons->addWidget(cmdCopy_);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(beside_, 1);
  layout->addWidget(lblArrows_);
  layout->addLayout(buttons);
}

void ByJointWindow::ShowSubject(const LearnSubject& subject) {
  auto solved = std::make_shared<SolvedByHand>();
  solved->Graph = subject.Reasons->Graph();
  solved->Solution = SolveByHand(solved->Graph);
  solved->Format = subject.Format;
  report_ =
      ReportByHand(solved->Graph, solved->Solution, subject.Reasons->Analysis().Reading, solved->Format);
  solved_ = std::move(solved);
  lstSteps_->setFont(LettersAt96(*this, subject.Points));
  txtStep_->setFont(LettersAt96(*this, subject.Points));
  {
    const QSignalBlocker silent(lstSteps_);
    lstSteps_->clear();
    int number = 0;
    for (const HandStepText& step : report_.Steps) {
      auto* item =
          new QListWidgetItem(QStringLiteral("%1.  ").arg(++number) + ShownText(step.Heading), lstSteps_);
      item->setToolTip(PlainToolTip(ShownText(step.Heading)));
    }
    lstSteps_->addItem(QStringLiteral("What is found"));
    lstSteps_->setCurrentRow(0);
  }
  FitList();
  ShowStep();
}

void ByJointWindow::FitList() {
  const QFontMetrics letters(lstSteps_->font());
  int widest = 0;
  for (int row = 0; row < lstSteps_->count(); ++row)
    widest = std::max(widest, letters.horizontalAdvance(lstSteps_->item(row)->text()));
  beside_->FitLines(widest);
}

void ByJointWindow::Clear() {
  {
    const QSignalBlocker silent(lstSteps_);
    lstSteps_->clear();
  }
  solved_.reset();
  report_ = {};
  ShowStep();
}

QString ByJointWindow::CopiedText() const {
  QStringList parts = {QString::fromLatin1(HandText::Convention())};
  int number = 0;
  for (const HandStepText& step : report_.Steps)
    parts.append(QStringLiteral("%1.  ").arg(++number) + ShownText(step.Heading) + QLatin1Char('\n') +
                 ShownText(step.Lines));
  parts.append(ShownText(report_.Closing));
  return parts.join(QStringLiteral("\n\n")) + QLatin1Char('\n');
}

void ByJointWindow::GoTo(int row) {
  if (row < 0 || row >= lstSteps_->count()) return;
  lstSteps_->setCurrentRow(row);
}

// Beyond the last step stands what all of them found.
void ByJointWindow::ShowStep() {
  const int row = lstSteps_->currentRow();
  const auto index = static_cast<std::size_t>(std::max(0, row));
  const bool isStep = solved_ && row >= 0 && index < report_.Steps.size();
  picStep_->setVisible(isStep || !solved_);
  lblArrows_->setText(isStep ? QString::fromStdString(NoteOfArrows(solved_->Solution.Steps[index]))
                             : QString());
  picStep_->Show(isStep ? solved_ : nullptr, index);
  const QString description =
      isStep ? ShownText(DescribeHandStep(solved_->Graph, solved_->Solution, index, solved_->Format))
             : QString();
  picStep_->setAccessibleDescription(description);
  picStep_->setToolTip(PlainToolTip(description));
  QString text;
  if (isStep) {
    text = ShownText(report_.Steps[index].Lines);
    if (index == 0) text = QString::fromLatin1(HandText::Convention()) + QStringLiteral("\n\n") + text;
  } else if (solved_) {
    text = ShownText(report_.Closing);
  }
  txtStep_->setPlainText(text);
  lblStep_->setText(solved_ ? QStringLiteral("Step %1 of %2").arg(row + 1).arg(lstSteps_->count())
                            : QString());
  // A button that is switched off gives its focus away; the other one, which is on then, is at hand.
  const bool mayGoBack = row > 0;
  const bool mayGoOn = row + 1 < lstSteps_->count();
  if (mayGoBack) cmdBack_->setEnabled(true);
  if (mayGoOn) cmdNext_->setEnabled(true);
  if (!mayGoBack && cmdBack_->hasFocus()) cmdNext_->setFocus();
  if (!mayGoOn && cmdNext_->hasFocus()) cmdBack_->setFocus();
  cmdBack_->setEnabled(mayGoBack);
  cmdNext_->setEnabled(mayGoOn);
  cmdCopy_->setEnabled(solved_ != nullptr);
  KeepWholeHeight(*this);
  TellPlace();
}

void ByJointWindow::TellPlace() {
  const int row = lstSteps_->currentRow();
  const auto index = static_cast<std::size_t>(std::max(0, row));
  if (!isVisible() || !solved_ || row < 0 || index >= solved_->Solution.Steps.size()) {
    Q_EMIT PlaceLeft();
    return;
  }
  const HandStep& step = solved_->Solution.Steps[index];
  if (step.Joint != 0) {
    const PlacedJoint& joint = solved_->Graph.Joints[step.Joint];
    Q_EMIT PlaceChosen(joint.X, joint.Y);
  } else if (!step.Equations.empty() && step.Equations.front().Kind == BalanceKind::Moment) {
    Q_EMIT PlaceChosen(static_cast<float>(step.Equations.front().AtX),
                       static_cast<float>(step.Equations.front().AtY));
  } else {
    Q_EMIT PlaceLeft();
  }
}

QWidget& ByJointWindow::FirstControl() { return *lstSteps_; }

void ByJointWindow::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!event->spontaneous()) TellPlace();
}

// In a narrow window the note takes more lines, and the window more height.
void ByJointWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  KeepWholeHeight(*this);
}

void ByJointWindow::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  if (!event->spontaneous()) Q_EMIT PlaceLeft();
}
