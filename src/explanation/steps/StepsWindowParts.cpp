// The controls of the window that tells the elimination, and where they stand.
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QListView>
#include <QPlainTextEdit>
#include <QSlider>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "explanation/ListSplitter.h"
#include "explanation/steps/StepListModel.h"
#include "explanation/steps/StepMatrixModel.h"
#include "explanation/steps/StepsTour.h"
#include "explanation/steps/StepsWindow.h"
#include "platform/qt/OnPress.h"
#include "platform/qt/ReadOnlyText.h"
#include "platform/qt/TippedButton.h"

namespace {

// Pixels.
constexpr int CellMargin = 10;   // beside a number, both sides together
constexpr int RowMargin = 6;     // above and below, together
constexpr int WidestName = 130;  // the tool tip has all of it

struct NotedMark {
  CellMark Mark;
  const char* Name;
  const char* Text;
};
constexpr std::array NotedMarks = {NotedMark{CellMark::Pivot, "lblMark(1)", "pivot, or what decides"},
                                   NotedMark{CellMark::Source, "lblMark(2)", "is subtracted"},
                                   NotedMark{CellMark::Target, "lblMark(3)", "changes"}};

}  // namespace

void StepsWindow::CreateList() {
  lstSteps_ = new QListView(this);
  lstSteps_->setObjectName(QStringLiteral("lstSteps"));
  lstSteps_->setAccessibleName(QStringLiteral("All operations"));
  operations_ = new StepListModel(this);
  lstSteps_->setModel(operations_);
  lstSteps_->setItemDelegate(new StepListDelegate(*operations_, this));
  lstSteps_->setUniformItemSizes(true);
  lstSteps_->setTextElideMode(Qt::ElideNone);
  lstSteps_->setMinimumSize(120, 80);
  connect(lstSteps_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& chosen) {
            if (!tour_ || !chosen.isValid()) return;
            StopPlaying();
            GoTo(tour_->PlaceOf(chosen.row()));
          });
}

void StepsWindow::CreateMatrix() {
  txtStep_ = MakeReadOnlyText(QStringLiteral("txtStep"), QStringLiteral("What is done"), 8, this);
  txtStep_->setMinimumSize(160, 60);
  tblMatrix_ = new QTableView(this);
  tblMatrix_->setObjectName(QStringLiteral("tblMatrix"));
  tblMatrix_->setAccessibleName(QStringLiteral("The matrix, with what is concerned marked"));
  numbers_ = new StepMatrixModel(this);
  tblMatrix_->setModel(numbers_);
  tblMatrix_->setItemDelegate(new StepCellDelegate(this));
  tblMatrix_->setSelectionMode(QAbstractItemView::NoSelection);
  tblMatrix_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  tblMatrix_->setTabKeyNavigation(false);
  tblMatrix_->setWordWrap(false);
  tblMatrix_->setMinimumSize(160, 80);
  for (QHeaderView* header : {tblMatrix_->horizontalHeader(), tblMatrix_->verticalHeader()}) {
    header->setSectionResizeMode(QHeaderView::Fixed);
    header->setHighlightSections(false);
    header->setSectionsClickable(false);
    header->setMinimumSectionSize(1);
  }
  tblMatrix_->verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
  tblMatrix_->horizontalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void StepsWindow::CreateControls() {
  cmdFirst_ = TippedButton("cmdFirst", "&First", "The equations as they were assembled (Alt+F)", this);
  cmdBack_ = TippedButton("cmdBack", "&Back", "What was shown before (Alt+B)", this);
  cmdPlay_ = TippedButton("cmdPlay", "&Play", "", this);
  cmdNext_ = TippedButton("cmdNextStep", "&Next",
                          "Carries the operation out, or chooses the next one (Alt+N)", this);
  cmdLast_ = TippedButton("cmdLast", "&Last", "The reduced matrix, as in the RREF report (Alt+L)", this);
  cmdCopy_ = TippedButton("cmdCopy", "&Copy", "Copies all steps as text (Alt+C)", this);
  const auto goes = [this](QPushButton* from, auto where) {
    OnPress(from, this, [this, where] {
      StopPlaying();
      GoTo(where());
    });
  };
  goes(cmdFirst_, [] { return 0; });
  goes(cmdBack_, [this] { return tour_->Place() - 1; });
  goes(cmdNext_, [this] { return tour_->Place() + 1; });
  goes(cmdLast_, [this] { return tour_->NumPlaces() - 1; });
  OnPress(cmdPlay_, this, &StepsWindow::PlayOrStop);
  OnPress(cmdCopy_, this, [this] { QApplication::clipboard()->setText(CopiedText()); });
  sldStep_ = new QSlider(Qt::Horizontal, this);
  sldStep_->setObjectName(QStringLiteral("sldStep"));
  sldStep_->setAccessibleName(QStringLiteral("Place in the elimination"));
  sldStep_->setToolTip(QStringLiteral("From the equations to the reduced matrix"));
  connect(sldStep_, &QSlider::valueChanged, this, [this](int place) {
    StopPlaying();
    GoTo(place);
  });
  lblStep_ = new QLabel(this);
  lblStep_->setObjectName(QStringLiteral("lblStep"));
}

void StepsWindow::CreateChoice() {
  lblUnknown_ = new QLabel(QStringLiteral("&Go to the pivot of:"), this);
  cmbUnknown_ = new QComboBox(this);
  cmbUnknown_->setObjectName(QStringLiteral("cmbUnknown"));
  cmbUnknown_->setAccessibleName(QStringLiteral("Unknown to whose pivot to go"));
  cmbUnknown_->setToolTip(
      QStringLiteral("Choosing an unknown goes to the step in which its pivot is chosen"));
  cmbUnknown_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  cmbUnknown_->setMinimumContentsLength(8);
  lblUnknown_->setBuddy(cmbUnknown_);
  connect(cmbUnknown_, &QComboBox::activated, this, [this](int index) { GoToPivot(index + 1); });
  lblPivot_ = new QLabel(this);
  lblPivot_->setObjectName(QStringLiteral("lblPivot"));
  lblPivot_->setTextFormat(Qt::PlainText);
  lblPivot_->setWordWrap(true);
}

// What the marks mean, each in its own look.
QWidget* StepsWindow::MakeMarkNotes() {
  auto* notes = new QWidget(this);
  auto* layout = new QHBoxLayout(notes);
  layout->setContentsMargins(0, 0, 0, 0);
  for (const NotedMark& noted : NotedMarks) {
    auto* label = new QLabel(QString::fromLatin1(noted.Text), notes);
    label->setObjectName(QString::fromLatin1(noted.Name));
    label->setAutoFillBackground(true);
    label->setMargin(2);
    label->setContentsMargins(4, 0, 4, 0);
    layout->addWidget(label);
  }
  layout->addStretch(1);
  return notes;
}

void StepsWindow::ShowMarkLooks() {
  for (const NotedMark& noted : NotedMarks) {
    auto* label = marks_->findChild<QLabel*>(QString::fromLatin1(noted.Name));
    const MarkLook look = LookOf(noted.Mark, tblMatrix_->palette());
    QPalette colours = marks_->palette();
    colours.setColor(QPalette::Window, look.Ground);
    colours.setColor(QPalette::WindowText, look.Letters);
    label->setPalette(colours);
    QFont letters = marks_->font();
    letters.setBold(look.IsBold);
    letters.setItalic(look.IsItalic);
    label->setFont(letters);
  }
  tblMatrix_->viewport()->update();
}

void StepsWindow::LayOut() {
  marks_ = MakeMarkNotes();
  beside_ = new ListSplitter(*lstSteps_, this);
  auto* below = new QSplitter(Qt::Vertical, beside_);
  beside_->addWidget(below);
  below->addWidget(txtStep_);
  below->addWidget(tblMatrix_);
  beside_->setStretchFactor(0, 3);
  beside_->setStretchFactor(1, 5);
  below->setStretchFactor(0, 2);
  below->setStretchFactor(1, 5);
  auto* choice = new QHBoxLayout;
  choice->addWidget(lblUnknown_);
  choice->addWidget(cmbUnknown_);
  choice->addStretch(1);
  auto* place = new QHBoxLayout;
  place->addWidget(sldStep_, 1);
  place->addWidget(lblStep_);
  auto* buttons = new QHBoxLayout;
  for (QPushButton* button : {cmdFirst_, cmdBack_, cmdPlay_, cmdNext_, cmdLast_}) buttons->addWidget(button);
  buttons->addStretch(1);
  buttons->addWidget(cmdCopy_);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(beside_, 1);
  layout->addWidget(marks_);
  layout->addLayout(choice);
  layout->addWidget(lblPivot_);
  layout->addLayout(place);
  layout->addLayout(buttons);
  ShowMarkLooks();
}

void StepsWindow::SetLetters(float points) {
  const QFont letters = LettersAt96(*this, points);
  for (QWidget* widget : std::initializer_list<QWidget*>{lstSteps_, txtStep_, tblMatrix_})
    widget->setFont(letters);
}

// Every line has the size of the longest.
void StepsWindow::FitList() { beside_->FitLines(lstSteps_->sizeHintForIndex(operations_->index(0)).width()); }

// All columns are as wide as the longest number of all steps, so that nothing moves from step to step.
void StepsWindow::FitMatrix() {
  if (!tour_->IsToldInSteps()) return;
  QFont bold = tblMatrix_->font();
  bold.setBold(true);
  const QFontMetrics letters(bold);
  int width = letters.horizontalAdvance(QString::fromStdString(tour_->LongestNumber()));
  for (int column = 0; column < numbers_->columnCount(); ++column)
    width = std::max(
        width,
        std::min(WidestName, letters.horizontalAdvance(
                                 numbers_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString())));
  tblMatrix_->horizontalHeader()->setDefaultSectionSize(width + CellMargin);
  tblMatrix_->verticalHeader()->setDefaultSectionSize(letters.height() + RowMargin);
}
