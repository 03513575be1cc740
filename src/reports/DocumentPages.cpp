#include "reports/DocumentPages.h"

#include <QBuffer>
#include <QFile>
#include <QPaintEngine>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <utility>

#include "paper/PlainText.h"
#include "paper/qt/PagedText.h"
#include "paper/qt/PaperPages.h"
#include "paper/qt/SteadyPdf.h"
#include "platform/qt/QtTextMeasure.h"
#include "reports/QuietShelf.h"

namespace {

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

bool PrintDocument(QPagedPaintDevice& device, const QString& title, const DocumentBuilder& build,
                   const DocumentProgress& progress) {
  QPainter painter;
  if (!painter.begin(&device)) return false;
  QuietShelf shelf;
  QtTextMeasure measure;
  PagedText pages(device, painter, shelf.Shelf(), title);
  const bool isWhole =
      build({.Document = pages,
             .Clipboard = shelf.Access(),
             .Measure = [&measure](const TextFont& font,
                                   std::string_view text) { return measure.Measure(font, text); },
             .TableRoom = TextWidth(device),
             .Progress = [&](double done) { return !pages.Refused() && (!progress || progress(done)); }});
  if (isWhole) pages.Finish();
  if (!isWhole) Abandon(device, painter);
  return isWhole && !pages.Refused();
}

std::string DocumentInWords(const DocumentBuilder& build) {
  PlainText words;
  QuietShelf shelf;
  QtTextMeasure measure;
  constexpr float width = 540;  // points, about what a sheet has
  build({.Document = words,
         .Clipboard = shelf.Access(),
         .Measure = [&measure](const TextFont& font,
                               std::string_view text) { return measure.Measure(font, text); },
         .TableRoom = width,
         .Progress = [](double /*done*/) { return true; }});
  return words.Text();
}

std::optional<QByteArray> PdfOfDocument(const QString& title, const DocumentBuilder& build,
                                        const DocumentProgress& progress) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  if (!buffer.open(QIODevice::WriteOnly)) return QByteArray();
  {
    QPdfWriter writer(&buffer);
    writer.setPageSize(QPageSize(QPageSize::A4));
    SetPageMargins(writer);
    DescribePdf(writer, title);
    if (!PrintDocument(writer, title, build, progress)) return std::nullopt;
  }
  return SteadyPdf(std::move(bytes));
}
