#include "reports/PrintPreview.h"

#include <QLocale>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>

#include "paper/qt/PaperPages.h"
#include "paper/qt/PreviewInWords.h"
#include "paper/qt/PreviewPages.h"
#include "platform/qt/ScreenRoom.h"
#include "platform/qt/WindowInFront.h"
#include "reports/ReportProgressDialog.h"

namespace {

constexpr QSize PreviewSize(900, 720);  // pixels

QPageSize PaperOfThisCountry() {
  return QPageSize(QLocale::system().measurementSystem() == QLocale::ImperialUSSystem ? QPageSize::Letter
                                                                                      : QPageSize::A4);
}

// The pages of a preview are recorded. False when the user has cancelled.
bool PaintOn(QPrinter& printer, RecordedPages& recording, const PrintedDocument& document, int progressDelay,
             MessageBox& messages) {
  const bool onPaper = !IsPreview(printer);
  const QString what = onPaper ? QStringLiteral("Printing the %1 ...").arg(QLatin1String(document.What))
                               : QStringLiteral("Making the pages ...");
  ReportProgressDialog progress(what, progressDelay, WindowInFront());
  const PageTarget target = onPaper ? PageTarget(printer) : PageTarget(printer, recording);
  const bool isPainted = document.Paint(target, std::ref(progress));
  if (!onPaper) PaintEmptyPages(printer, recording);
  if (isPainted || progress.wasCanceled()) return isPainted;
  progress.hide();
  if (onPaper) {
    messages.Show({.Text = std::string("The ") + document.What + " could not be printed.",
                   .Icon = MessageIcon::Exclamation});
  }
  return true;
}

}  // namespace

void ShowPrintPreview(const PrintedDocument& document, int progressDelay, MessageBox& messages,
                      QWidget& parent) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageSize(PaperOfThisCountry());
  SetPageMargins(printer);
  printer.setDocName(document.Name);
  printer.setCreator(QStringLiteral("Orvane"));
  RecordedPages pages;
  QPrintPreviewDialog preview(&printer, &parent, Qt::Window);
  preview.setObjectName(QStringLiteral("printPreview"));
  preview.setWindowTitle(QStringLiteral("Print the %1").arg(QLatin1String(document.What)));
  preview.resize(PreviewSize.boundedTo(WindowRoom(parent)));
  QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview, [&](QPrinter* target) {
    // The preview may be about to open, so it is told to close only once it is there.
    if (!PaintOn(*target, pages, document, progressDelay, messages))
      QMetaObject::invokeMethod(&preview, &QDialog::reject, Qt::QueuedConnection);
  });
  if (auto* widget = preview.findChild<QPrintPreviewWidget*>()) ShowOnPages(*widget, printer, pages);
  PutInWords(preview, QStringLiteral("Pages"), document.InWords);
  preview.exec();
}
