#include "reports/PrintableReportFiles.h"

#include <QFileInfo>
#include <utility>

#include "paper/Page.h"
#include "paper/qt/FileText.h"
#include "paper/qt/QtRichText.h"
#include "paper/qt/SpooledBytes.h"
#include "platform/qt/QtText.h"
#include "platform/qt/QtTextMeasure.h"
#include "reports/QuietShelf.h"
#include "text/ControlCharacters.h"

namespace {

QString Title(const Truss& truss) {
  QString name = QFileInfo(QString::fromStdString(WithoutControls(truss.FileName))).fileName();
  MakePrintable(name);
  return name.isEmpty() ? QStringLiteral("Orvane") : name;
}

BuiltReport BuildReport(const ReportSubject& subject, const DocumentTools& tools) {
  return BuildPrintableReport(subject.Document, subject.Analysis,
                              {.Document = tools.Document,
                               .Clipboard = tools.Clipboard,
                               .Measure = tools.Measure,
                               .Numbers = subject.Numbers,
                               .TableRoom = tools.TableRoom,
                               .Progress = tools.Progress,
                               .With = subject.With,
                               .Reasons = subject.Reasons});
}

// Text whose pictures go over the clipboard.
BuiltReport BuildInto(RichText& text, const ReportSubject& subject, const ClipboardAccess& access,
                      float tableRoom, const ReportProgress& progress) {
  QtTextMeasure measure;
  return BuildReport(subject,
                     {.Document = text,
                      .Clipboard = access,
                      .Measure = [&measure](const TextFont& font,
                                            std::string_view word) { return measure.Measure(font, word); },
                      .TableRoom = tableRoom,
                      .Progress = progress});
}

DocumentBuilder BuilderOf(const ReportSubject& subject) {
  return [&subject](const DocumentTools& tools) { return BuildReport(subject, tools) != BuiltReport::Ended; };
}

}  // namespace

ReportDocument BuildReportDocument(const ReportSubject& subject, const ClipboardAccess& access,
                                   std::function<QImage()> clipboard, float tableRoom,
                                   const ReportProgress& progress) {
  ReportDocument report{.Text = std::make_unique<QTextDocument>()};
  report.Text->setMetaInformation(QTextDocument::DocumentTitle, Title(subject.Document));
  QtRichText text(*report.Text, std::move(clipboard));
  report.State = BuildInto(text, subject, access, tableRoom, progress);
  if (report.State == BuiltReport::Ended) report.Text = nullptr;
  return report;
}

std::optional<ManyBytes> LongReportFile(const ReportSubject& subject, DocumentFileFormat format,
                                        const ReportProgress& progress) {
  if (format == DocumentFileFormat::Pdf) {
    std::optional<QByteArray> pdf = PdfOfDocument(Title(subject.Document), BuilderOf(subject), progress);
    if (!pdf) return std::nullopt;
    return ManyBytesOf(*std::move(pdf), {}, {});
  }
  QuietShelf shelf;
  const float tableRoom =
      format == DocumentFileFormat::Html ? 0 : static_cast<float>(PointsOf(PageTextWidth));
  FileText text(format, Title(subject.Document), [&shelf] { return shelf.Bitmap(); });
  if (BuildInto(text, subject, shelf.Access(), tableRoom, progress) == BuiltReport::Ended)
    return std::nullopt;
  return text.Take();
}

std::optional<QByteArray> ReportFile(const ReportSubject& subject, DocumentFileFormat format,
                                     const ReportProgress& progress) {
  const std::optional<ManyBytes> bytes = LongReportFile(subject, format, progress);
  if (!bytes) return std::nullopt;
  return Joined(*bytes);
}

bool PrintReport(const ReportSubject& subject, const PageTarget& target, const ReportProgress& progress) {
  return PrintDocument(target, Title(subject.Document), BuilderOf(subject), progress);
}
