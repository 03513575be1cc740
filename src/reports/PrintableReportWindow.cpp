#include "reports/PrintableReportWindow.h"

#include <QAction>
#include <QCheckBox>
#include <QEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLocale>
#include <QPaintEngine>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextEdit>
#include <algorithm>
#include <utility>

#include "document/DocumentLifecycle.h"
#include "document/FileWriting.h"
#include "explanation/RoundingText.h"
#include "paper/qt/DocumentFiles.h"
#include "paper/qt/PaperPages.h"
#include "paper/qt/SmoothPictures.h"
#include "platform/FileBytes.h"
#include "platform/qt/FittedText.h"
#include "platform/qt/QtClipboard.h"
#include "platform/qt/ScreenRoom.h"
#include "platform/qt/WindowInFront.h"
#include "reports/ReportProgressDialog.h"
#include "reports/ReportWindow.h"
#include "text/ControlCharacters.h"
#include "text/Sentence.h"

namespace {

// Pixels. The document leaves 31 beside it and 62 above and below it.
constexpr int DocumentLeft = 15;
constexpr int DocumentTop = 10;
constexpr int BesideDocument = 31;
constexpr int BelowDocument = 62;
constexpr int DocumentMargin = 10;
constexpr int ButtonTop = 20;     // below the document's height, from the top of the window
constexpr int HalfGap = 20;       // from the centre to Copy and to Close
constexpr int ButtonWidth = 73;   // Copy and Close
constexpr int ButtonHeight = 36;  // at most, so that a margin stays below the buttons
constexpr int ButtonGap = 8;
constexpr int CheckBoxWidth = 120;  // at most
constexpr int SmallestHeight = 200;
constexpr QSize StartSize(720, 620);
constexpr QSize PreviewSize(900, 720);

// A document with more characters keeps the width that it was laid out for, so that changing the window's
// size does not lay out millions of characters again.
constexpr int LongDocument = 1'000'000;

constexpr auto CopyToolTip =
    "copies the selected text or (if nothing selected) the entire report to the clipboard";
constexpr auto FileFilter =
    "Rich Text (*.rtf)|*.rtf|PDF (*.pdf)|*.pdf|OpenDocument Text (*.odt)|*.odt|Web Page (*.html)|*.html";

QPushButton* MakeButton(const char* name, const char* text, const QString& toolTip, QWidget* parent) {
  auto* button = new QPushButton(QString::fromUtf8(text), parent);
  button->setObjectName(QString::fromUtf8(name));
  button->setToolTip(toolTip);
  button->setAutoDefault(false);
  return button;
}

QPageSize PaperOfThisCountry() {
  return QPageSize(QLocale::system().measurementSystem() == QLocale::ImperialUSSystem ? QPageSize::Letter
                                                                                      : QPageSize::A4);
}

QString DocumentName(const std::string& fileName) {
  const QString name = QFileInfo(QString::fromStdString(WithoutControls(fileName))).completeBaseName();
  return name.isEmpty() ? QStringLiteral("Orvane report") : name;
}

void PreparePaper(QPrinter& printer, const std::string& fileName) {
  printer.setPageSize(PaperOfThisCountry());
  SetPageMargins(printer);
  printer.setDocName(DocumentName(fileName));
  printer.setCreator(QStringLiteral("Orvane"));
}

// The preview records pages as pictures.
bool IsPreview(const QPrinter& printer) { return printer.paintEngine()->type() == QPaintEngine::Picture; }

QSize LargestOf(const std::vector<QCheckBox*>& boxes) {
  QSize largest(0, 0);
  for (const QCheckBox* box : boxes) largest = largest.expandedTo(box->sizeHint());
  return largest;
}

}  // namespace

PrintableReportWindow::PrintableReportWindow(Partners partners, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint),
      on_(std::move(partners)) {
  setObjectName(QStringLiteral("frmReport"));
  setWindowTitle(QStringLiteral("Printable report"));
  MakeTextBox();
  MakeButtons();
  MakeCheckBoxes();
  MakeActions();
  FitButtons();
  FixSmallestSize();
  resize(StartSize.boundedTo(WindowRoom(*this)));
  LayOut();
}

// --- how it is put together

void PrintableReportWindow::MakeTextBox() {
  RichTextBox1 = new QTextEdit(this);
  RichTextBox1->setObjectName(QStringLiteral("RichTextBox1"));
  RichTextBox1->setAccessibleName(QStringLiteral("The report"));
  RichTextBox1->setReadOnly(true);
  RichTextBox1->setTabChangesFocus(true);
  // With a caret, from which the keyboard selects.
  RichTextBox1->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  // The letters are black, so the paper is white in every style of the desktop.
  QPalette paper = RichTextBox1->palette();
  paper.setColor(QPalette::Base, Qt::white);
  paper.setColor(QPalette::Text, Qt::black);
  RichTextBox1->setPalette(paper);
  RichTextBox1->installEventFilter(this);
}

void PrintableReportWindow::MakeButtons() {
  cmdReportPrint = MakeButton("cmdReportPrint", "&Print ...",
                              QStringLiteral("shows the pages and prints them (Ctrl+P)"), this);
  cmdCopyToClipboard = MakeButton("cmdCopyToClipboard", "&Copy", QString::fromUtf8(CopyToolTip), this);
  cmdReportClose = MakeButton("cmdReportClose", "Close", QStringLiteral("closes this window (Esc)"), this);
  cmdReportSaveAs = MakeButton("cmdReportSaveAs", "&Save as ...",
                               QStringLiteral("saves the report in a file (Ctrl+S)"), this);
  cmdReportClose->setDefault(true);
  connect(cmdReportPrint, &QPushButton::clicked, this, &PrintableReportWindow::cmdReportPrint_Click);
  connect(cmdCopyToClipboard, &QPushButton::clicked, this, &PrintableReportWindow::cmdCopyToClipboard_Click);
  connect(cmdReportClose, &QPushButton::clicked, this, &QDialog::reject);
  connect(cmdReportSaveAs, &QPushButton::clicked, this, &PrintableReportWindow::cmdReportSaveAs_Click);
}

// What the document has beyond the usual sections; nothing at first.
void PrintableReportWindow::MakeCheckBoxes() {
  for (const ReportExtraKind& kind : AllReportExtras) {
    auto* box = new QCheckBox(QString::fromUtf8(kind.Caption), this);
    box->setObjectName(QStringLiteral("chkReportWith(%1)").arg(chkReportWith.size() + 1));
    box->setToolTip(QString::fromUtf8(kind.ToolTip));
    connect(box, &QCheckBox::toggled, this, &PrintableReportWindow::ChooseExtras);
    chkReportWith.push_back(box);
  }
  QWidget* last = RichTextBox1;
  const auto goOnTo = [&last](QWidget* next) {
    setTabOrder(last, next);
    last = next;
  };
  goOnTo(cmdReportPrint);
  for (QCheckBox* box : chkReportWith) goOnTo(box);
  for (QPushButton* button : {cmdCopyToClipboard, cmdReportClose, cmdReportSaveAs}) goOnTo(button);
}

void PrintableReportWindow::MakeActions() {
  const auto add = [this](QWidget* to, const char* text, QKeySequence::StandardKey keys, auto handler) {
    auto* action = new QAction(QString::fromUtf8(text), to);
    action->setShortcuts(keys);
    connect(action, &QAction::triggered, this, handler);
    to->addAction(action);
  };
  add(RichTextBox1, "&Copy", QKeySequence::Copy, [this] { cmdCopyToClipboard_Click(); });
  add(RichTextBox1, "Select &All", QKeySequence::SelectAll, [this] { RichTextBox1->selectAll(); });
  RichTextBox1->setContextMenuPolicy(Qt::ActionsContextMenu);
  add(this, "Print", QKeySequence::Print, [this] { cmdReportPrint_Click(); });
  add(this, "Save as", QKeySequence::Save, [this] { cmdReportSaveAs_Click(); });
  add(this, "Close", QKeySequence::Close, [this] { reject(); });
}

// Copy and Close have a fixed width, and all four a height that leaves a margin below them.
void PrintableReportWindow::FitButtons() {
  const QList<QPushButton*> fixed = {cmdCopyToClipboard, cmdReportClose};
  for (QPushButton* button : fixed) button->resize(ButtonWidth, ButtonHeight);
  FitCaptions(fixed, font());
  for (QPushButton* button : {cmdReportPrint, cmdReportSaveAs}) button->setFont(fixed.front()->font());
  FitCheckBoxes();
}

// All in one font, in which they stand one below the other beside a button.
void PrintableReportWindow::FitCheckBoxes() {
  const QSize room(CheckBoxWidth, ButtonHeight / static_cast<int>(chkReportWith.size()));
  const QFont fitting = LargestFont(font(), [&](const QFont& font) {
    return std::ranges::all_of(chkReportWith, [&](QCheckBox* box) {
      box->setFont(font);
      const QSize needed = box->sizeHint();
      return needed.width() <= room.width() && needed.height() <= room.height();
    });
  });
  for (QCheckBox* box : chkReportWith) box->setFont(fitting);
}

void PrintableReportWindow::FixSmallestSize() {
  const int beside = std::max(cmdReportPrint->sizeHint().width(), cmdReportSaveAs->sizeHint().width());
  const int boxes = ButtonGap + LargestOf(chkReportWith).width();
  const int half = HalfGap + ButtonWidth + ButtonGap + boxes + beside + BesideDocument - DocumentLeft;
  setMinimumSize(2 * half, SmallestHeight);
}

void PrintableReportWindow::LayOut() {
  const QSize document(std::max(0, width() - BesideDocument), std::max(0, height() - BelowDocument));
  RichTextBox1->setGeometry(QRect(QPoint(DocumentLeft, DocumentTop), document));
  const int top = document.height() + ButtonTop;
  const int height = std::min(cmdReportSaveAs->sizeHint().height(), ButtonHeight);
  const int middle = width() / 2;
  const int printWidth = cmdReportPrint->sizeHint().width();
  const int saveAsWidth = cmdReportSaveAs->sizeHint().width();
  cmdReportPrint->setGeometry(DocumentLeft, top, printWidth, height);
  cmdCopyToClipboard->setGeometry(middle - HalfGap - ButtonWidth, top, ButtonWidth, height);
  cmdReportClose->setGeometry(middle + HalfGap, top, ButtonWidth, height);
  cmdReportSaveAs->setGeometry(DocumentLeft + document.width() - saveAsWidth, top, saveAsWidth, height);
  // Beside Print, one below the other.
  const QSize boxSize = LargestOf(chkReportWith);
  const int boxesHeight = boxSize.height() * static_cast<int>(chkReportWith.size());
  QRect box(QPoint(DocumentLeft + printWidth + ButtonGap, top + (height - boxesHeight) / 2), boxSize);
  for (QCheckBox* checkBox : chkReportWith) {
    checkBox->setGeometry(box);
    box.translate(0, boxSize.height());
  }
}

// --- window events

void PrintableReportWindow::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  LayOut();
}

bool PrintableReportWindow::event(QEvent* event) {
  // A build whose own messages brought it about would never end where a picture cannot be had.
  if (event->type() == QEvent::WindowActivate && !busy_ && !std::exchange(regainsActivation_, false)) {
    BuildLater();
  }
  return QDialog::event(event);
}

void PrintableReportWindow::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (event->spontaneous()) return;
  RichTextBox1->setFocus();
  // A desktop may show a window without ever telling that it is active.
  BuildLater();
}

bool PrintableReportWindow::eventFilter(QObject* watched, QEvent* event) {
  // The text box would copy in its own way, and nothing without a selection.
  if (event->type() == QEvent::ShortcutOverride &&
      static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
    event->ignore();
    return true;
  }
  return QDialog::eventFilter(watched, event);
}

// --- the document

PrintableReportWindow::Basis PrintableReportWindow::Present() const {
  const Truss& truss = on_.Subject.Document;
  return {
      .FileName = truss.FileName, .Settings = truss.Settings, .View = truss.View, .With = on_.Subject.With};
}

void PrintableReportWindow::ChooseExtras() {
  on_.Subject.With.clear();
  for (std::size_t i = 0; i < chkReportWith.size(); ++i) {
    if (chkReportWith[i]->isChecked()) on_.Subject.With.push_back(AllReportExtras[i].Extra);
  }
  BuildLater();
}

// Not at once: the window is still being shown, and could not be closed by a build that is cancelled.
void PrintableReportWindow::BuildLater() {
  if (std::exchange(isToBeBuilt_, true)) return;
  QMetaObject::invokeMethod(this, &PrintableReportWindow::Build, Qt::QueuedConnection);
}

void PrintableReportWindow::Build() {
  isToBeBuilt_ = false;
  if (busy_ || !isVisible() || (built_ == Present() && !lacksAPicture_)) return;
  const QScopedValueRollback busy(busy_, true);
  const Basis basis = Present();
  on_.Report.ChooseFontSet(basis.Settings.ReportFontSize);
  ReportDocument report;
  {
    const ClipboardKeeper keeper;
    ReportProgressDialog progress(QStringLiteral("Building the report ..."), on_.ProgressDelay, this);
    report = BuildReportDocument(on_.Subject, on_.Access, on_.Bitmap, 0,
                                 [&](double done) { return progress(done) && isVisible(); });
  }
  if (report.Text == nullptr) return reject();  // there is nothing to show
  ShowDocument(std::move(report.Text));
  lacksAPicture_ = report.State == BuiltReport::LacksAPicture;
  regainsActivation_ = lacksAPicture_ && !isActiveWindow();
  on_.Report.LoadGridWithSolutions(on_.Subject.Analysis, on_.Subject.Document.Settings.SigFigs, Notice());
  built_ = basis;
}

std::string PrintableReportWindow::Notice() const {
  if (on_.Subject.Reasons == nullptr) return {};
  return NoticeBelowConclusion(
      on_.Subject.Reasons->Graph(), on_.Subject.Reasons->Rounded(),
      {.SigFigs = on_.Subject.Document.Settings.SigFigs, .Numbers = on_.Subject.Numbers});
}

void PrintableReportWindow::ShowDocument(std::unique_ptr<QTextDocument> document) {
  if (document->characterCount() > LongDocument) {
    RichTextBox1->setLineWrapMode(QTextEdit::FixedPixelWidth);
    RichTextBox1->setLineWrapColumnOrWidth(RichTextBox1->viewport()->width() -
                                           RichTextBox1->verticalScrollBar()->sizeHint().width());
  } else {
    RichTextBox1->setLineWrapMode(QTextEdit::WidgetWidth);
  }
  document->setDocumentMargin(DocumentMargin);
  ShowPicturesSmoothly(*document);
  document->setParent(RichTextBox1);
  RichTextBox1->setDocument(document.release());
  RichTextBox1->moveCursor(QTextCursor::Start);
}

// --- commands

void PrintableReportWindow::cmdCopyToClipboard_Click() {
  if (busy_ || !HasDocument()) return;
  const QScopedValueRollback busy(busy_, true);
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  const RichTextForms forms = ToForms(RichTextBox1->textCursor());
  QGuiApplication::restoreOverrideCursor();
  CopyToClipboard(forms, on_.Access);
}

void PrintableReportWindow::cmdReportPrint_Click() {
  if (busy_ || !HasDocument()) return;
  const QScopedValueRollback busy(busy_, true);
  QPrinter printer(QPrinter::HighResolution);
  PreparePaper(printer, on_.Subject.Document.FileName);
  QPrintPreviewDialog preview(&printer, this, Qt::Window);
  preview.setObjectName(QStringLiteral("printPreview"));
  preview.setWindowTitle(QStringLiteral("Print the report"));
  preview.resize(PreviewSize.boundedTo(WindowRoom(*this)));
  connect(&preview, &QPrintPreviewDialog::paintRequested, &preview, [this, &preview](QPrinter* target) {
    // The preview may be about to open, so it is told to close only once it is there.
    if (!PrintOn(*target)) QMetaObject::invokeMethod(&preview, &QDialog::reject, Qt::QueuedConnection);
  });
  preview.exec();
}

// False when the user has cancelled.
bool PrintableReportWindow::PrintOn(QPrinter& printer) {
  const bool onPaper = !IsPreview(printer);
  const QString what =
      onPaper ? QStringLiteral("Printing the report ...") : QStringLiteral("Making the pages ...");
  ReportProgressDialog progress(what, on_.ProgressDelay, WindowInFront());
  const bool printed = PrintReport(on_.Subject, printer, std::ref(progress));
  if (printed || progress.wasCanceled()) return printed;
  progress.hide();
  if (onPaper) {
    on_.Access.Messages.Show({.Text = "The report could not be printed.", .Icon = MessageIcon::Exclamation});
  }
  return true;
}

void PrintableReportWindow::cmdReportSaveAs_Click() {
  if (busy_ || !HasDocument()) return;
  const QScopedValueRollback busy(busy_, true);
  std::optional<std::string> path;
  try {
    path = on_.Chooser.ChooseForSaving(
        {.Filter = FileFilter,
         .FilterIndex = 1,
         .InitialDirectory = ChooserDirectory(on_.Subject.Document.FileName, on_.Directory),
         .ProposedName = DocumentName(on_.Subject.Document.FileName).toStdString() + ".rtf"});
  } catch (const std::exception&) {
    on_.Access.Messages.Show({.Text = "A file for the report cannot be chosen on this desktop.",
                              .Icon = MessageIcon::Exclamation});
  }
  if (!path) return;
  std::optional<DocumentFileFormat> format = DocumentFormatOf(*path);
  if (!format) {
    // The chooser has not asked about the file with this ending.
    *path += ".rtf";
    format = DocumentFileFormat::Rtf;
    const Message question{.Text = *path + " already exists.\nDo you want to replace it?",
                           .Buttons = MessageButtons::YesNo,
                           .Icon = MessageIcon::Exclamation};
    if (FileExists(*path) && on_.Access.Messages.Show(question) != MessageAnswer::Yes) return;
  }
  SaveAs(*path, *format);
}

void PrintableReportWindow::SaveAs(const std::string& path, DocumentFileFormat format) {
  std::optional<QByteArray> bytes;
  {
    ReportProgressDialog progress(QStringLiteral("Saving the report ..."), on_.ProgressDelay, this);
    bytes = ReportFile(on_.Subject, format, std::ref(progress));
    if (progress.wasCanceled()) return;
  }
  std::string why;
  if (bytes && !bytes->isEmpty()) {
    why = WriteWholeFile(path, {bytes->constData(), static_cast<std::size_t>(bytes->size())});
    if (why.empty()) return;
  }
  on_.Access.Messages.Show({.Text = "The report could not be saved as " + path + ".",
                            .Icon = MessageIcon::Exclamation,
                            .Details = AsSentence(why)});
}
