#include "explanation/WhyWindow.h"

#include <QComboBox>
#include <QEvent>
#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QSplitter>
#include <QTextBlock>
#include <QTextCursor>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <utility>

#include "explanation/MotionPlayer.h"
#include "explanation/MotionView.h"
#include "platform/qt/AccessibleRole.h"
#include "platform/qt/FittedText.h"
#include "platform/qt/OnPress.h"
#include "platform/qt/QtText.h"
#include "platform/qt/ReadOnlyText.h"

namespace {

constexpr int FullSwing = 100;  // of the slider, to either side

const char* WhyNotPlayed(const MotionChoice* choice) {
  if (choice == nullptr || choice->What != MotionChoice::Kind::Motion)
    return "A state of self-stress moves nothing";
  return "The desktop asks for less motion: the picture stands still, and the slider moves it";
}

QString PlainTextOf(const std::vector<WhyLine>& lines) {
  QStringList texts;
  for (const WhyLine& line : lines) texts.append(QString::fromStdString(line.Text));
  return texts.join(QLatin1Char('\n'));
}

}  // namespace

WhyWindow::WhyWindow(const AnimationWish& animation, QWidget* parent)
    : LearnWindow(QStringLiteral("Why"), QStringLiteral("Why this conclusion"), parent),
      animation_(animation),
      player_(new MotionPlayer(this)) {
  CreateControls();
  CreateText();
  LayOut();
  connect(player_, &MotionPlayer::Swung, this, &WhyWindow::FollowPlayer);
  Clear();
}

void WhyWindow::CreateControls() {
  lblMotion_ = new QLabel(QStringLiteral("&Draw:"), this);
  cmbMotion_ = new QComboBox(this);
  cmbMotion_->setObjectName(QStringLiteral("cmbMotion"));
  cmbMotion_->setAccessibleName(QStringLiteral("Motion or state of self-stress to be drawn"));
  cmbMotion_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  cmbMotion_->setMinimumContentsLength(12);
  lblMotion_->setBuddy(cmbMotion_);
  connect(cmbMotion_, &QComboBox::currentIndexChanged, this, [this] {
    ShowChoice();
    if (const MotionChoice* choice = Chosen()) ShowParagraphOf(*choice);
  });

  lblSwing_ = new QLabel(QStringLiteral("S&wing:"), this);
  sldSwing_ = new QSlider(Qt::Horizontal, this);
  sldSwing_->setObjectName(QStringLiteral("sldSwing"));
  sldSwing_->setAccessibleName(QStringLiteral("How far the motion swings, per cent to either side"));
  sldSwing_->setRange(-FullSwing, FullSwing);
  sldSwing_->setSingleStep(FullSwing / 10);
  sldSwing_->setPageStep(FullSwing / 2);
  sldSwing_->setTickPosition(QSlider::TicksBelow);
  sldSwing_->setTickInterval(FullSwing);
  lblSwing_->setBuddy(sldSwing_);
  // Whatever is done with it ends the play, also what leaves its value as it was.
  connect(sldSwing_, &QSlider::actionTriggered, this, [this] { StopPlaying(); });
  connect(sldSwing_, &QSlider::valueChanged, this, [this](int value) {
    StopPlaying();
    picMotion_->Swing(static_cast<double>(value) / FullSwing);
  });

  cmdPlay_ = new QPushButton(this);
  cmdPlay_->setObjectName(QStringLiteral("cmdPlay"));
  OnPress(cmdPlay_, this, [this] { player_->IsPlaying() ? StopPlaying() : Play(); });

  lblNote_ = new QLabel(this);
  lblNote_->setObjectName(QStringLiteral("lblNote"));
  lblNote_->setTextFormat(Qt::PlainText);
  lblNote_->setWordWrap(true);
}

void WhyWindow::CreateText() {
  picMotion_ = new MotionView(this);
  picMotion_->setObjectName(QStringLiteral("picMotion"));
  SetAccessibleRole(*picMotion_, QAccessible::Graphic);
  picMotion_->setAccessibleName(QStringLiteral("Drawing of the truss"));
  txtWhy_ = MakeReadOnlyText(QStringLiteral("txtWhy"), QStringLiteral("Explanation"), 10, this);
  txtWhy_->setToolTip(QStringLiteral("Ctrl+A and Ctrl+C copy the text"));
  txtWhy_->setUndoRedoEnabled(false);
  txtWhy_->setVerticalScrollBarPolicy(
      Qt::ScrollBarAlwaysOn);  // so that the width is known before the text is
  txtWhy_->setMinimumSize(120, 60);
  txtWhy_->viewport()->installEventFilter(this);
}

void WhyWindow::LayOut() {
  auto* choice = new QHBoxLayout;
  choice->addWidget(lblMotion_);
  choice->addWidget(cmbMotion_, 1);
  auto* swing = new QHBoxLayout;
  swing->addWidget(lblSwing_);
  swing->addWidget(sldSwing_, 1);
  swing->addWidget(cmdPlay_);
  auto* splitter = new QSplitter(Qt::Vertical, this);
  splitter->addWidget(picMotion_);
  splitter->addWidget(txtWhy_);
  splitter->setStretchFactor(0, 1);
  splitter->setStretchFactor(1, 1);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(choice);
  layout->addLayout(swing);
  layout->addWidget(lblNote_);
  layout->addWidget(splitter, 1);
}

void WhyWindow::ShowSubject(const LearnSubject& subject) {
  ShowExplanation(subject.Document,
                  std::shared_ptr<const Explanation>(subject.Reasons, &subject.Reasons->Whole()),
                  subject.Format, subject.Points);
}

void WhyWindow::ShowExplanation(std::shared_ptr<const Truss> truss,
                                std::shared_ptr<const Explanation> explanation, const ReportFormat& format,
                                float points) {
  StopPlaying();
  truss_ = std::move(truss);
  explanation_ = std::move(explanation);
  format_ = format;
  choices_ = MotionChoices(explanation_->Graph, explanation_->Exact, format_);
  txtWhy_->setFont(LettersAt96(*this, points));
  WriteText(WhyText(*explanation_, format_));
  {
    const QSignalBlocker silent(cmbMotion_);
    cmbMotion_->clear();
    for (const MotionChoice& choice : choices_) cmbMotion_->addItem(OneLineText(ToQt(choice.Title)));
  }
  ShowChoice();
}

void WhyWindow::Clear() {
  StopPlaying();
  picMotion_->Show({});
  picMotion_->setAccessibleDescription({});
  txtWhy_->clear();
  const QSignalBlocker silent(cmbMotion_);
  cmbMotion_->clear();
  choices_.clear();
  lines_.clear();
  lblNote_->clear();
  explanation_.reset();
  truss_.reset();
  ShowControls();
}

QWidget& WhyWindow::FirstControl() {
  return choices_.empty() ? static_cast<QWidget&>(*txtWhy_) : *cmbMotion_;
}

void WhyWindow::WriteText(const std::vector<WhyLine>& lines) {
  lines_ = lines;
  // A new text takes the letters of the old one's last place, which may be bold.
  txtWhy_->clear();
  txtWhy_->setCurrentCharFormat(QTextCharFormat());
  txtWhy_->setPlainText(PlainTextOf(lines));
  QTextCursor cursor(txtWhy_->document());
  QTextCharFormat bold;
  bold.setFontWeight(QFont::Bold);
  for (const WhyLine& line : lines) {
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    if (line.Kind == WhyLineKind::Heading) cursor.mergeCharFormat(bold);
    cursor.movePosition(QTextCursor::NextBlock);
  }
  FitTable();
  txtWhy_->moveCursor(QTextCursor::Start);
}

// The table keeps its columns: its letters are all of one width, and as large as lets its lines stand whole.
void WhyWindow::FitTable() {
  QStringList rows;
  for (const WhyLine& line : lines_) {
    if (line.Kind == WhyLineKind::Table) rows.append(QString::fromStdString(line.Text));
  }
  if (rows.isEmpty()) return;
  QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  fixed.setPointSizeF(PointsOf(txtWhy_->font()));
  const int margins = 2 * static_cast<int>(txtWhy_->document()->documentMargin()) + 2;
  const QSize room(txtWhy_->viewport()->width() - margins, QWIDGETSIZE_MAX);
  const QString table = rows.join(QLatin1Char('\n'));
  QFont fitting = LargestFont(fixed, [&](const QFont& font) { return TextFits(font, table, room, 0); });
  // In a very narrow window even the smallest letters are too wide; narrow ones can still be read.
  for (int stretch = 95; stretch >= 60 && !TextFits(fitting, table, room, 0); stretch -= 5)
    fitting.setStretch(stretch);
  QTextCharFormat format;
  format.setFont(fitting);
  QTextCursor cursor(txtWhy_->document());
  for (const WhyLine& line : lines_) {
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    if (line.Kind == WhyLineKind::Table) cursor.mergeCharFormat(format);
    cursor.movePosition(QTextCursor::NextBlock);
  }
}

const MotionChoice* WhyWindow::Chosen() const {
  const auto index = static_cast<std::size_t>(std::max(0, cmbMotion_->currentIndex()));
  return index < choices_.size() ? &choices_[index] : nullptr;
}

bool WhyWindow::MayPlay() const {
  const MotionChoice* choice = Chosen();
  return choice != nullptr && choice->What == MotionChoice::Kind::Motion && animation_.IsWanted();
}

// At first the picture is the one that documents show: swung as far as it goes.
void WhyWindow::ShowChoice() {
  if (!explanation_) return;
  StopPlaying();
  {
    const QSignalBlocker silent(sldSwing_);
    sldSwing_->setValue(FullSwing);
  }
  const MotionChoice* choice = Chosen();
  picMotion_->Swing(1);
  picMotion_->Show(ShownMotion{.Document = truss_,
                               .Reasons = explanation_,
                               .Choice = choice == nullptr ? std::nullopt : std::optional(*choice),
                               .Format = format_});
  const QString description = ToQt(DescribeChoice(choice, explanation_->Graph, explanation_->Exact, format_));
  picMotion_->setAccessibleDescription(description);
  picMotion_->setToolTip(PlainToolTip(description));
  cmbMotion_->setToolTip(PlainToolTip(cmbMotion_->currentText()));
  cmbMotion_->setAccessibleDescription(cmbMotion_->currentText());
  lblNote_->setText(QString::fromLatin1(NoteOnChoice(choice, explanation_->Graph, explanation_->Exact)));
  ShowControls();
  KeepWholeHeight(*this);
}

// Brings the text of what is drawn into sight, at the top where there is text enough below it.
void WhyWindow::ShowParagraphOf(const MotionChoice& choice) {
  const std::string beginning = BeginningOfText(choice);
  const auto line =
      std::ranges::find_if(lines_, [&](const WhyLine& told) { return told.Text.starts_with(beginning); });
  if (line == lines_.end()) return;
  const QTextBlock block = txtWhy_->document()->findBlockByNumber(static_cast<int>(line - lines_.begin()));
  txtWhy_->moveCursor(QTextCursor::End);
  txtWhy_->setTextCursor(QTextCursor(block));
}

void WhyWindow::ShowControls() {
  const MotionChoice* choice = Chosen();
  const bool moves = choice != nullptr && choice->What == MotionChoice::Kind::Motion;
  for (QWidget* widget :
       std::initializer_list<QWidget*>{lblMotion_, cmbMotion_, lblSwing_, sldSwing_, cmdPlay_})
    widget->setVisible(choice != nullptr);
  lblSwing_->setEnabled(moves);
  sldSwing_->setEnabled(moves);
  sldSwing_->setToolTip(moves ? QStringLiteral("How far the truss is drawn from its place")
                              : QString::fromLatin1(WhyNotPlayed(choice)));
  const bool playing = player_->IsPlaying();
  cmdPlay_->setEnabled(MayPlay());
  cmdPlay_->setText(playing ? QStringLiteral("Sto&p") : QStringLiteral("&Play"));
  cmdPlay_->setAccessibleDescription(playing ? QStringLiteral("The motion is being played")
                                             : QStringLiteral("The motion stands still"));
  cmdPlay_->setToolTip(MayPlay() ? QStringLiteral("Swing to and fro, or stop (Alt+P)")
                                 : QString::fromLatin1(WhyNotPlayed(choice)));
}

void WhyWindow::Play() {
  if (MayPlay()) player_->Start(static_cast<double>(sldSwing_->value()) / FullSwing);
  ShowControls();
}

// The slider's handle goes with the picture. Its value does not, of which a screen reader would tell every
// frame; it is set when the play ends.
void WhyWindow::FollowPlayer(double swing) {
  picMotion_->Swing(swing);
  sldSwing_->setTracking(false);
  sldSwing_->setSliderPosition(static_cast<int>(std::lround(swing * FullSwing)));
  sldSwing_->setTracking(true);
}

void WhyWindow::StopPlaying() {
  if (!player_->IsPlaying()) return;
  player_->Stop();
  const int position = sldSwing_->sliderPosition();
  {
    const QSignalBlocker silent(sldSwing_);
    sldSwing_->setValue(position);
  }
  picMotion_->Swing(static_cast<double>(position) / FullSwing);
  ShowControls();
}

void WhyWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::StyleChange && event->type() != QEvent::FontChange) return;
  if (!MayPlay()) StopPlaying();
  ShowControls();
}

// Nobody sees it play.
void WhyWindow::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  StopPlaying();
}

// In a narrow window the note takes more lines, and the window more height.
void WhyWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  KeepWholeHeight(*this);
}

bool WhyWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == txtWhy_->viewport() && event->type() == QEvent::Resize) FitTable();
  return QWidget::eventFilter(watched, event);
}
