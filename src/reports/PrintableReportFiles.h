// The printable report as a whole: as a text document, on pages, and as the bytes of a file.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QTextDocument>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "paper/FileFormats.h"
#include "platform/ManyBytes.h"
#include "reports/DocumentPages.h"
#include "reports/PrintableReport.h"

/// What is reported on, and with which sections beyond the usual ones. All of it must outlive the calls.
struct ReportSubject {
  const Truss& Document;
  const TrussAnalysis& Analysis;
  NumberFormat Numbers;
  std::vector<ReportExtra> With{};
  ExplanationOnDemand* Reasons = nullptr;  ///< as in PrintableReportContext
};

struct ReportDocument {
  std::unique_ptr<QTextDocument> Text;  ///< null when the progress ended it
  BuiltReport State = BuiltReport::Ended;
};

/// The report as a text document, titled with the file's name. Pictures go over the clipboard of `access`;
/// `clipboard` gives the bitmap that it holds. `tableRoom` is as in PrintableReportContext.
ReportDocument BuildReportDocument(const ReportSubject& subject, const ClipboardAccess& access,
                                   std::function<QImage()> clipboard, float tableRoom,
                                   const ReportProgress& progress = {});

/// The bytes of the report as a file; the same subject gives the same bytes. Tables are fitted to A4 paper
/// but for HTML, which has no pages. Nothing when `progress` ended it; empty bytes when they could not be
/// made.
std::optional<QByteArray> ReportFile(const ReportSubject& subject, DocumentFileFormat format,
                                     const ReportProgress& progress = {});

/// The same for whoever writes them: what is long is kept in a temporary file, but for pages.
std::optional<ManyBytes> LongReportFile(const ReportSubject& subject, DocumentFileFormat format,
                                        const ReportProgress& progress = {});

/// Paints the report on a printer's pages with the file's name and the page's number in the footer. False
/// when `progress` or the device ended it.
bool PrintReport(const ReportSubject& subject, const PageTarget& target, const ReportProgress& progress = {});
