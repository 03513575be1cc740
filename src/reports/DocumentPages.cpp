#include "reports/DocumentPages.h"

#include <QBuffer>
#include <QFile>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <utility>

#include "paper/PlainText.h"
#include "paper/qt/PagedText.h"
#include "paper/qt/PaperPages.h"
#include "paper/qt/PreviewPages.h"
#include "paper/qt/SteadyPdf.h"
#include "platform/qt/QtTextMeasure.h"
#include "reports/QuietShelf.h"

namespace {

bool Begin(QPainter& painter, const PageTarget& target) {
  return target.Recording != nullptr ? target.Recording->Begin(painter, target.Device)
                                     : painter.begin(&target.Device);
}

// What begins each of the next pages; none where the device does.
std::function<bool()> NextPage(QPainter& painter, const PageTarget& target) {
  if (target.Recording == nullptr) return {};
  return [&painter, &pages = *target.Recording] { return pages.Next(painter); };
}

// Nothing is left of a document of which only the beginning was painted, as far as that can be had.
void Abandon(const PageTarget& target, QPainter& painter) {
  if (target.Recording != nullptr) {
    painter.end();
    return target.Recording->Clear();
  }
  auto* printer = IsPreview(target.Device) ? nullptr : dynamic_cast<QPrinter*>(&target.Device);
  if (printer != nullptr) printer->abort();
  painter.end();
  if (printer != nullptr && printer->outputFormat() == QPrinter::PdfFormat) {
    QFile::remove(printer->outputFileName());
  }
}

}  // namespace

bool PrintDocument(const PageTarget& target, const QString& title, const DocumentBuilder& build,
                   const DocumentProgress& progress) {
  QPainter painter;
  if (!Begin(painter, target)) return false;
  QuietShelf shelf;
  QtTextMeasure measure;
  PagedText pages(target.Device, painter, shelf.Shelf(), title, NextPage(painter, target));
  const bool isWhole =
      build({.Document = pages,
             .Clipboard = shelf.Access(),
             .Measure = [&measure](const TextFont& font,
                                   std::string_view text) { return measure.Measure(font, text); },
             .TableRoom = TextWidth(target.Device),
             .Progress = [&](double done) { return !pages.Refused() && (!progress || progress(done)); }});
  if (isWhole) {
    pages.Finish();
    if (target.Recording != nullptr) target.Recording->End(painter);
  } else {
    Abandon(target, painter);
  }
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
