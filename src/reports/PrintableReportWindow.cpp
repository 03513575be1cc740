#include "reports/PrintableReportWindow.h"

#include <QCheckBox>
#include <QEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextEdit>
#include <utility>

#include "document/DocumentLifecycle.h"
#include "explanation/RoundingText.h"
#include "paper/qt/DocumentFiles.h"
#include "paper/qt/SmoothPictures.h"
#include "platform/qt/QtClipboard.h"
#include "platform/qt/ScreenRoom.h"
#include "platform/qt/TextInWords.h"
#include "reports/PrintPreview.h"
#include "reports/ReportProgressDialog.h"
#include "reports/ReportWindow.h"
#include "text/ControlCharacters.h"

namespace {

// Pixels.
constexpr int DocumentMargin = 10;
constexpr QSize StartSize(720, 620);

// A document with more characters keeps the width that it was laid out for, so that changing the window's
// size does not lay out millions of characters again.
constexpr int LongDocument = 1'000'000;

constexpr auto FileFilter =
    "Rich Text (*.rtf)|*.rtf|PDF (*.pdf)|*.pdf|OpenDocument Text (*.odt)|*.odt|Web Page (*.html)|*.html";

QString DocumentName(const std::string& fileName) {
  const QString name = QFileInfo(QString::fromStdString(WithoutControls(fileName))).completeBaseName();
  return name.isEmpty() ? QStringLiteral("Orvane report") : name;
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
  on_.Report.LoadGridWithSolutions(on_.Subject.Analysis, on_.Subject.Document.Settings.SigFigs);
  on_.Report.ShowNotice(Notice());
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
  ShowPrintPreview({.What = "report",
                    .Name = DocumentName(on_.Subject.Document.FileName),
                    .Paint =
                        [this](const PageTarget& target, const DocumentProgress& progress) {
                          return PrintReport(on_.Subject, target, progress);
                        },
                    .InWords = [this] { return TextInWords(*RichTextBox1->document()); }},
                   on_.ProgressDelay, on_.Access.Messages, *this);
}

void PrintableReportWindow::cmdReportSaveAs_Click() {
  if (busy_ || !HasDocument()) return;
  const QScopedValueRollback busy(busy_, true);
  const SavingAs saving = Saving();
  const std::optional<std::string> path = ChoosePath(saving, on_.Chooser, on_.Access.Messages);
  if (path) SaveAs(*path, DocumentFormatOf(*path).value_or(DocumentFileFormat::Rtf), saving);
}

SavingAs PrintableReportWindow::Saving() const {
  const std::string& fileName = on_.Subject.Document.FileName;
  return {.What = "The report",
          .Request = {.Filter = FileFilter,
                      .FilterIndex = 1,
                      .InitialDirectory = ChooserDirectory(fileName, on_.Directory),
                      .ProposedName = DocumentName(fileName).toStdString() + ".rtf"},
          .HasEnding = [](const std::string& path) { return DocumentFormatOf(path).has_value(); },
          .UsualEnding = ".rtf"};
}

void PrintableReportWindow::SaveAs(const std::string& path, DocumentFileFormat format,
                                   const SavingAs& saving) {
  std::optional<QByteArray> bytes;
  {
    ReportProgressDialog progress(QStringLiteral("Saving the report ..."), on_.ProgressDelay, this);
    bytes = ReportFile(on_.Subject, format, std::ref(progress));
    if (progress.wasCanceled()) return;
  }
  SaveBytes(path, bytes.value_or(QByteArray()).toStdString(), saving, on_.Access.Messages);
}
