#include "reports/PrintableReportFiles.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QPaintEngine>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <utility>

#include "paper/Page.h"
#include "paper/PictureShelf.h"
#include "paper/qt/DocumentFiles.h"
#include "paper/qt/PagedText.h"
#include "paper/qt/PaperPages.h"
#include "paper/qt/QtRichText.h"
#include "paper/qt/RtfWriter.h"
#include "paper/qt/SteadyPdf.h"
#include "platform/qt/QtPicture.h"
#include "platform/qt/QtText.h"
#include "platform/qt/QtTextMeasure.h"
#include "text/ControlCharacters.h"

namespace {

QString Title(const Truss& truss) {
  QString name = QFileInfo(QString::fromStdString(WithoutControls(truss.FileName))).fileName();
  MakePrintable(name);
  return name.isEmpty() ? QStringLiteral("Orvane") : name;
}

// A shelf in place of the desktop's clipboard. It never fails, so nobody waits and nothing is told.
class QuietShelf final : private Clock, private MessageBox {
 public:
  ClipboardAccess Access() { return {shelf_, *this, *this}; }
  const PictureShelf& Shelf() const { return shelf_; }
  QImage Bitmap() const { return shelf_.Held() == nullptr ? QImage() : ToImage(*shelf_.Held()); }

 private:
  void Pause(int) override {}
  MessageAnswer Show(const Message&) override { return MessageAnswer::Ok; }

  PictureShelf shelf_;
};

BuiltReport BuildReport(const ReportSubject& subject, RichText& document, const ClipboardAccess& access,
                        float tableRoom, const ReportProgress& progress) {
  QtTextMeasure measure;
  const auto measureText = [&measure](const TextFont& font, std::string_view text) {
    return measure.Measure(font, text);
  };
  return BuildPrintableReport(subject.Document, subject.Analysis,
                              {.Document = document,
                               .Clipboard = access,
                               .Measure = measureText,
                               .Numbers = subject.Numbers,
                               .TableRoom = tableRoom,
                               .Progress = progress,
                               .With = subject.With,
                               .Reasons = subject.Reasons});
}

std::optional<QByteArray> PdfFile(const ReportSubject& subject, const ReportProgress& progress) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  if (!buffer.open(QIODevice::WriteOnly)) return QByteArray();
  {
    QPdfWriter writer(&buffer);
    writer.setPageSize(QPageSize(QPageSize::A4));
    SetPageMargins(writer);
    DescribePdf(writer, Title(subject.Document));
    if (!PrintReport(subject, writer, progress)) return std::nullopt;
  }
  return SteadyPdf(std::move(bytes));
}

// Nothing is left of a document of which only the beginning was painted, as far as that can be had.
void Abandon(QPagedPaintDevice& device, QPainter& painter) {
  // A preview records pictures, and must not be aborted: the toolkit would delete them twice.
  const bool isPreview = painter.paintEngine()->type() == QPaintEngine::Picture;
  auto* printer = isPreview ? nullptr : dynamic_cast<QPrinter*>(&device);
  if (printer != nullptr) printer->abort();
  painter.end();
  if (printer != nullptr && printer->outputFormat() == QPrinter::PdfFormat) {
    QFile::remove(printer->outputFileName());
  }
}

}  // namespace

ReportDocument BuildReportDocument(const ReportSubject& subject, const ClipboardAccess& access,
                                   std::function<QImage()> clipboard, float tableRoom,
                                   const ReportProgress& progress) {
  ReportDocument report{.Text = std::make_unique<QTextDocument>()};
  report.Text->setMetaInformation(QTextDocument::DocumentTitle, Title(subject.Document));
  QtRichText text(*report.Text, std::move(clipboard));
  report.State = BuildReport(subject, text, access, tableRoom, progress);
  if (report.State == BuiltReport::Ended) report.Text = nullptr;
  return report;
}

std::optional<QByteArray> ReportFile(const ReportSubject& subject, DocumentFileFormat format,
                                     const ReportProgress& progress) {
  if (format == DocumentFileFormat::Pdf) return PdfFile(subject, progress);
  QuietShelf shelf;
  const float tableRoom =
      format == DocumentFileFormat::Html ? 0 : static_cast<float>(PointsOf(PageTextWidth));
  const auto [document, state] = BuildReportDocument(
      subject, shelf.Access(), [&shelf] { return shelf.Bitmap(); }, tableRoom, progress);
  if (document == nullptr) return std::nullopt;
  switch (format) {
    case DocumentFileFormat::Rtf:
      return ToRtf(*document);
    case DocumentFileFormat::Odt:
      return ToOdt(*document);
    default:
      return ToHtml(*document);
  }
}

bool PrintReport(const ReportSubject& subject, QPagedPaintDevice& device, const ReportProgress& progress) {
  QPainter painter;
  if (!painter.begin(&device)) return false;
  QuietShelf shelf;
  PagedText pages(device, painter, shelf.Shelf(), Title(subject.Document));
  const auto goOn = [&](double done) { return !pages.Refused() && (!progress || progress(done)); };
  const bool isWhole =
      BuildReport(subject, pages, shelf.Access(), TextWidth(device), goOn) != BuiltReport::Ended;
  if (isWhole) pages.Finish();
  if (!isWhole) Abandon(device, painter);
  return isWhole && !pages.Refused();
}
