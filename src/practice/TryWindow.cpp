#include "practice/TryWindow.h"

#include <QHBoxLayout>
#include <QHideEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QVBoxLayout>

#include "explanation/ShownText.h"
#include "platform/qt/OnPress.h"
#include "platform/qt/QtText.h"
#include "platform/qt/QtTextMeasure.h"
#include "platform/qt/ReadOnlyText.h"
#include "platform/qt/TippedButton.h"
#include "practice/AnswersTable.h"
#include "practice/TrussView.h"
#include "reports/DescribePicture.h"
#include "reports/TrussPaint.h"

namespace {

constexpr PictureContent NamesAndLoads{.ForceValues = true, .Names = true};

}  // namespace

TryWindow::TryWindow(QWidget* parent)
    : LearnWindow(QStringLiteral("Try"), QStringLiteral("Try it yourself"), parent) {
  CreateControls();
  LayOut();
  Clear();
}

void TryWindow::CreateControls() {
  lblHow_ =
      new QLabel(QStringLiteral("Write the forces that you have found: numbers, compression positive, or "
                                "magnitudes with T or C. Reactions are positive along their arrows. "
                                "What you write is not saved."),
                 this);
  lblHow_->setObjectName(QStringLiteral("lblHow"));
  lblHow_->setWordWrap(true);
  picTruss_ = new TrussView(this);
  picTruss_->setObjectName(QStringLiteral("picTruss"));
  picTruss_->setAccessibleName(QStringLiteral("Drawing of the truss"));
  lstForces_ = new AnswersTable(this);
  lstForces_->setObjectName(QStringLiteral("lstForces"));
  lstForces_->setAccessibleName(QStringLiteral("Your forces"));
  lstForces_->setMinimumSize(260, 100);
  connect(lstForces_, &AnswersTable::ValueChanged, this, &TryWindow::ForgetVerdict);
  txtSaid_ =
      MakeReadOnlyText(QStringLiteral("txtSaid"), QStringLiteral("What is right, and hints"), 10, this);
  txtSaid_->setMinimumSize(160, 80);
  cmdJudge_ =
      TippedButton("cmdJudge", "&Judge my values", "Says what is right, and where a slip is (Alt+J)", this);
  cmdHint_ =
      TippedButton("cmdHint", "&Hint", "What to do next; again for more, but never the value (Alt+H)", this);
  cmdEmpty_ = TippedButton("cmdEmpty", "&Empty all", "Empties all boxes (Alt+E)", this);
  OnPress(cmdJudge_, this, &TryWindow::JudgeValues);
  OnPress(cmdHint_, this, &TryWindow::GiveHint);
  OnPress(cmdEmpty_, this, &TryWindow::EmptyBoxes);
}

void TryWindow::LayOut() {
  auto* beside = new QSplitter(Qt::Horizontal, this);
  auto* below = new QSplitter(Qt::Vertical, beside);
  beside->addWidget(below);
  beside->addWidget(lstForces_);
  below->addWidget(picTruss_);
  below->addWidget(txtSaid_);
  for (QSplitter* splitter : {beside, below}) {
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);
    splitter->setChildrenCollapsible(false);
  }
  beside->setSizes({440, 320});
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdJudge_);
  buttons->addWidget(cmdHint_);
  buttons->addStretch(1);
  buttons->addWidget(cmdEmpty_);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(lblHow_);
  layout->addWidget(beside, 1);
  layout->addLayout(buttons);
  setTabOrder(lstForces_, cmdJudge_);
  setTabOrder(cmdJudge_, cmdHint_);
  setTabOrder(cmdHint_, cmdEmpty_);
  setTabOrder(cmdEmpty_, txtSaid_);
}

void TryWindow::ShowSubject(const LearnSubject& subject) {
  tried_ = std::make_unique<TriedTruss>(subject.Reasons->Graph(), subject.Reasons->Analysis().Reading,
                                        subject.Format);
  lstForces_->setFont(LettersAt96(*this, subject.Points));
  txtSaid_->setFont(LettersAt96(*this, subject.Points));
  WriteRows();
  QtTextMeasure measure;
  picTruss_->ShowTruss(PaintTruss(
      *subject.Document, subject.Format,
      [&measure](const TextFont& font, std::string_view text) { return measure.Measure(font, text); },
      NamesAndLoads));
  picTruss_->setAccessibleDescription(
      QString::fromStdString(DescribePicture(*subject.Document, NamesAndLoads)));
  hint_.reset();
  Say(ShownText(tried_->Opening()));
  for (QPushButton* button : {cmdJudge_, cmdHint_, cmdEmpty_}) button->setEnabled(tried_->HasForces());
  lstForces_->setEnabled(tried_->HasForces());
}

void TryWindow::Clear() {
  tried_.reset();
  hint_.reset();
  lstForces_->ShowForces({});
  picTruss_->ShowTruss(std::nullopt);
  Say({});
  for (QPushButton* button : {cmdJudge_, cmdHint_, cmdEmpty_}) button->setEnabled(false);
}

void TryWindow::WriteRows() {
  QStringList names;
  for (int k = 1; k <= tried_->Graph().NumUnknowns(); ++k) names.append(ShownText(tried_->NameOf(k)));
  lstForces_->ShowForces(names);
}

// The solutions may have been judged with another value.
void TryWindow::ForgetVerdict(int row) {
  lstForces_->ShowVerdict(row, {});
  hint_.reset();
}

void TryWindow::JudgeValues() {
  if (!tried_) return;
  lstForces_->TakeOver();
  const Judgement judgement = tried_->JudgeAll(lstForces_->Written());
  for (int k = 1; k <= judgement.Words.Size(); ++k)
    lstForces_->ShowVerdict(k - 1, QString::fromStdString(judgement.Words[k]));
  hint_.reset();
  PointAt(0);
  Say(ShownText(judgement.Lines));
}

// Each press says more; a new value begins anew.
void TryWindow::GiveHint() {
  if (!tried_) return;
  lstForces_->TakeOver();
  if (!hint_) {
    hint_ = tried_->HintFor(lstForces_->Written());
    level_ = 0;
  } else {
    level_ = std::min<std::size_t>(level_ + 1, NumHintLevels - 1);
  }
  if (!hint_) {
    Say(QStringLiteral("Nothing is left to be found by hand."));
    return;
  }
  std::vector<std::string> lines(hint_->Texts.begin(),
                                 hint_->Texts.begin() + static_cast<std::ptrdiff_t>(level_) + 1);
  Say(ShownText(lines));
  PointAt(hint_->Joint);
}

// On both drawings: the other one may be covered.
void TryWindow::PointAt(int joint) {
  if (joint == 0) {
    picTruss_->PointAt(std::nullopt);
    Q_EMIT PlaceLeft();
  } else {
    const PlacedJoint& place = tried_->Graph().Joints[joint];
    picTruss_->PointAt(PixelPoint{place.X, place.Y});
    Q_EMIT PlaceChosen(place.X, place.Y);
  }
}

void TryWindow::EmptyBoxes() {
  if (!tried_) return;
  WriteRows();
  hint_.reset();
  PointAt(0);
  Say(ShownText(tried_->Opening()));
  lstForces_->setFocus();
}

void TryWindow::Say(const QString& text) { txtSaid_->setPlainText(text); }

QWidget& TryWindow::FirstControl() { return *lstForces_; }

void TryWindow::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  if (!event->spontaneous()) Q_EMIT PlaceLeft();
}
