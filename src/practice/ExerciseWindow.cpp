#include "practice/ExerciseWindow.h"

#include <QCheckBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QRegularExpressionValidator>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QSplitter>
#include <QVBoxLayout>
#include <utility>

#include "document/DocumentLifecycle.h"
#include "paper/qt/PaperPages.h"
#include "paper/qt/PreviewInWords.h"
#include "platform/qt/OnPress.h"
#include "platform/qt/ScreenRoom.h"
#include "platform/qt/TippedButton.h"
#include "practice/ExerciseFile.h"
#include "practice/QuestionBank.h"
#include "reports/PrintPreview.h"
#include "reports/ReportProgressDialog.h"
#include "text/ControlCharacters.h"
#include "text/Sentence.h"

namespace {

constexpr int UsualNumVariants = 10;

// Milliseconds. While a number is typed every digit would make other variants.
constexpr int RemakeDelay = 400;

QString NameOf(const Truss& truss) {
  return QFileInfo(QString::fromStdString(WithoutControls(truss.FileName))).completeBaseName();
}

}  // namespace

ExerciseWindow::ExerciseWindow(Partners partners, QWidget* parent)
    : LearnWindow(QStringLiteral("Exercise"), QStringLiteral("Exercise sheets"), parent),
      on_(std::move(partners)),
      paper_(std::make_unique<QPrinter>(QPrinter::HighResolution)) {
  paper_->setPageSize(QPageSize(QPageSize::A4));
  SetPageMargins(*paper_);
  CreateControls();
  CreatePreview();
  LayOut();
  remake_.setSingleShot(true);
  remake_.setInterval(RemakeDelay);
  connect(&remake_, &QTimer::timeout, this, &ExerciseWindow::Make);
  Clear();
}

ExerciseWindow::~ExerciseWindow() = default;

void ExerciseWindow::CreateControls() {
  const auto number = [this](const char* name, int most, int value, const char* tip) {
    auto* box = new QSpinBox(this);
    box->setObjectName(QString::fromLatin1(name));
    box->setRange(1, most);
    box->setValue(value);
    box->setToolTip(QString::fromLatin1(tip));
    connect(box, &QSpinBox::valueChanged, this, &ExerciseWindow::MakeLater);
    return box;
  };
  txtVariants_ =
      number("txtVariants", MostVariants, UsualNumVariants, "How many sheets, each with other loads");
  txtSeed_ = new QLineEdit(QStringLiteral("1"), this);
  txtSeed_->setObjectName(QStringLiteral("txtSeed"));
  txtSeed_->setMaxLength(20);
  txtSeed_->setValidator(
      new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[1-9][0-9]*")), txtSeed_));
  txtSeed_->setToolTip(QStringLiteral("The same seed makes the same sheets again"));
  connect(txtSeed_, &QLineEdit::textChanged, this, &ExerciseWindow::MakeLater);
  const auto choice = [this](const char* name, const char* caption, const char* tip) {
    auto* box = new QCheckBox(QString::fromLatin1(caption), this);
    box->setObjectName(QString::fromLatin1(name));
    box->setToolTip(QString::fromLatin1(tip));
    connect(box, &QCheckBox::toggled, this, &ExerciseWindow::MakeLater);
    return box;
  };
  chkMirrored_ = choice("chkMirrored", "Some &mirrored", "Some variants are seen in a mirror");
  chkRenamed_ = choice("chkRenamed", "&Other names", "Names are given to other joints and forces");
  lblState_ = new QLabel(this);
  lblState_->setObjectName(QStringLiteral("lblState"));
  lblState_->setTextFormat(Qt::PlainText);
  lblState_->setWordWrap(true);
  const auto button = [this](const char* name, const char* caption, const char* tip,
                             void (ExerciseWindow::*slot)()) {
    auto* made = TippedButton(name, caption, tip, this);
    OnPress(made, this, slot);
    return made;
  };
  cmdSaveSheets_ =
      button("cmdSaveSheets", "Save &sheets ...",
             "All sheets, and behind them the solutions, as a PDF file (Alt+S)", &ExerciseWindow::SaveSheets);
  cmdSaveBank_ = button("cmdSaveBank", "Save &question bank ...", "The same as questions for Moodle (Alt+Q)",
                        &ExerciseWindow::SaveBank);
  cmdPrint_ = button("cmdPrint", "&Print ...", "Shows all pages before they are printed (Alt+P)",
                     &ExerciseWindow::Print);
}

void ExerciseWindow::CreatePreview() {
  lstVariants_ = new QListWidget(this);
  lstVariants_->setObjectName(QStringLiteral("lstVariants"));
  lstVariants_->setAccessibleName(QStringLiteral("Variants"));
  lstVariants_->setMinimumSize(90, 80);
  connect(lstVariants_, &QListWidget::currentRowChanged, this, &ExerciseWindow::ShowVariant);
  picSheet_ = new QPrintPreviewWidget(paper_.get(), this);
  picSheet_->setObjectName(QStringLiteral("picSheet"));
  picSheet_->setMinimumSize(200, 160);
  picSheet_->fitToWidth();
  connect(picSheet_, &QPrintPreviewWidget::paintRequested, this, &ExerciseWindow::PaintVariant);
}

void ExerciseWindow::LayOut() {
  auto* numbers = new QFormLayout;
  numbers->addRow(QStringLiteral("&Variants:"), txtVariants_);
  numbers->addRow(QStringLiteral("S&eed:"), txtSeed_);
  auto* side = new QWidget(this);
  auto* sideLayout = new QVBoxLayout(side);
  sideLayout->setContentsMargins(0, 0, 0, 0);
  sideLayout->addLayout(numbers);
  for (QWidget* control : std::initializer_list<QWidget*>{chkMirrored_, chkRenamed_, lblState_})
    sideLayout->addWidget(control);
  sideLayout->addWidget(lstVariants_, 1);
  for (QPushButton* button : {cmdSaveSheets_, cmdSaveBank_, cmdPrint_}) sideLayout->addWidget(button);
  auto* beside = new QSplitter(Qt::Horizontal, this);
  beside->addWidget(side);
  beside->addWidget(picSheet_);
  beside->setStretchFactor(1, 1);
  beside->setChildrenCollapsible(false);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(beside);
}

void ExerciseWindow::ShowSubject(const LearnSubject& subject) {
  truss_ = subject.Document;
  numbers_ = subject.Format.Numbers;
  // Once the window is there: making the variants of a large truss takes a while.
  remake_.start(0);
}

void ExerciseWindow::Clear() {
  remake_.stop();
  truss_.reset();
  set_ = {};
  lblState_->clear();
  {
    const QSignalBlocker silent(lstVariants_);
    lstVariants_->clear();
  }
  for (QPushButton* button : {cmdSaveSheets_, cmdSaveBank_, cmdPrint_}) button->setEnabled(false);
  ShowVariant();
}

VariantWishes ExerciseWindow::Wishes() const {
  return {.NumVariants = txtVariants_->value(),
          .Seed = txtSeed_->text().toULongLong(),
          .Mirrors = chkMirrored_->isChecked(),
          .Renames = chkRenamed_->isChecked()};
}

void ExerciseWindow::MakeLater() {
  for (QPushButton* button : {cmdSaveSheets_, cmdSaveBank_, cmdPrint_}) button->setEnabled(false);
  if (truss_) remake_.start(RemakeDelay);
}

// While the progress is shown the user may close the window or change a number.
void ExerciseWindow::Make() {
  if (!truss_ || isBusy_) return;
  const QScopedValueRollback busy(isBusy_, true);
  const std::shared_ptr<const Truss> truss = truss_;
  const VariantWishes wishes = Wishes();
  if (wishes.Seed == 0) {  // a number that is none, or too large
    lblState_->setText(QStringLiteral("The seed is a number from 1 to %1.").arg(UINT64_MAX));
    return;
  }
  Variants made;
  {
    ReportProgressDialog progress(QStringLiteral("Making the variants ..."), on_.ProgressDelay, this);
    made = MakeVariants(*truss, wishes, std::ref(progress));
  }
  if (truss != truss_) return;
  set_ = {NameOf(*truss).toStdString(), wishes, std::move(made.All)};
  set_.Wishes.NumVariants = static_cast<int>(set_.All.size());
  lblState_->setText(made.Why.empty() ? QString() : QString::fromStdString(AsSentence(made.Why)));
  {
    const QSignalBlocker silent(lstVariants_);
    lstVariants_->clear();
    for (const Variant& variant : set_.All)
      lstVariants_->addItem(QStringLiteral("Variant %1").arg(variant.Number));
    lstVariants_->setCurrentRow(set_.All.empty() ? -1 : 0);
  }
  for (QPushButton* button : {cmdSaveSheets_, cmdSaveBank_, cmdPrint_}) button->setEnabled(!set_.All.empty());
  ShowVariant();
}

void ExerciseWindow::ShowVariant() {
  picSheet_->updatePreview();
  PutInWords(*picSheet_, QStringLiteral("Sheet and solution of the variant"), [this] {
    const std::optional<ExerciseSet> shown = ShownVariant();
    return shown ? ExerciseInWords(*shown, numbers_) : QString();
  });
}

std::optional<ExerciseSet> ExerciseWindow::ShownVariant() const {
  const int row = lstVariants_->currentRow();
  if (row < 0 || static_cast<std::size_t>(row) >= set_.All.size()) return std::nullopt;
  return ExerciseSet{set_.Name, set_.Wishes, {set_.All[static_cast<std::size_t>(row)]}};
}

void ExerciseWindow::PaintVariant(QPrinter* printer) const {
  if (const std::optional<ExerciseSet> shown = ShownVariant()) {
    PrintExercise(*shown, numbers_, *printer);
  } else {
    QPainter(printer).end();  // an empty page: without any the pages of the last truss would stay
  }
}

SavingAs ExerciseWindow::Saving(const char* what, const char* filter, const char* ending) const {
  const std::string name = set_.Name.empty() ? "exercise" : set_.Name;
  return {.What = what,
          .Request = {.Filter = filter,
                      .FilterIndex = 1,
                      .InitialDirectory = ChooserDirectory(truss_->FileName, on_.Directory),
                      .ProposedName = name + ending},
          .HasEnding = [end = std::string(ending)](const std::string& path) { return path.ends_with(end); },
          .UsualEnding = ending};
}

void ExerciseWindow::SaveSheets() {
  if (isBusy_ || set_.All.empty()) return;
  const QScopedValueRollback busy(isBusy_, true);
  const SavingAs saving = Saving("The exercise", "PDF (*.pdf)|*.pdf", ".pdf");
  const std::optional<std::string> path = ChoosePath(saving, on_.Chooser, on_.Messages);
  if (!path) return;
  std::optional<QByteArray> bytes;
  {
    ReportProgressDialog progress(QStringLiteral("Saving the sheets ..."), on_.ProgressDelay, this);
    bytes = ExercisePdf(set_, numbers_, std::ref(progress));
    if (progress.wasCanceled()) return;
  }
  SaveBytes(*path, bytes.value_or(QByteArray()).toStdString(), saving, on_.Messages);
}

void ExerciseWindow::SaveBank() {
  if (isBusy_ || set_.All.empty()) return;
  const QScopedValueRollback busy(isBusy_, true);
  const SavingAs saving = Saving("The question bank", "Moodle XML (*.xml)|*.xml", ".xml");
  const std::optional<std::string> path = ChoosePath(saving, on_.Chooser, on_.Messages);
  if (!path) return;
  const auto picture = [this](const Variant& variant) { return VariantPng(variant, numbers_); };
  SaveBytes(*path, QuestionBank(set_, picture), saving, on_.Messages);
}

void ExerciseWindow::Print() {
  if (isBusy_ || set_.All.empty()) return;
  const QScopedValueRollback busy(isBusy_, true);
  ShowPrintPreview({.What = "exercise",
                    .Name = QString::fromStdString(WithoutControls(TitleOf(set_))),
                    .Paint =
                        [this](const PageTarget& target, const DocumentProgress& progress) {
                          return PrintExercise(set_, numbers_, target, progress);
                        },
                    .InWords = [this] { return ExerciseInWords(set_, numbers_); }},
                   on_.ProgressDelay, on_.Messages, *this);
}

QWidget& ExerciseWindow::FirstControl() { return *txtVariants_; }
