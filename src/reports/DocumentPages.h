// Any document that is built as rich text, on pages: of a printer, of a preview, or of a PDF file.
#pragma once

#include <QByteArray>
#include <QPagedPaintDevice>
#include <QString>
#include <functional>
#include <optional>

#include "paper/qt/RecordedPages.h"
#include "reports/DocumentTools.h"

/// Appends the document, with a shelf of its own for pictures, which never fails; false when it was ended.
using DocumentBuilder = std::function<bool(const DocumentTools&)>;

/// Told how much is done, 0 .. 1; returns false when the user wants no more.
using DocumentProgress = std::function<bool(double done)>;

/// Where a document is painted: on a device, or on pages that are recorded as they would come out there.
struct PageTarget {
  PageTarget(QPagedPaintDevice& device) : Device(device) {}  // a device is a target as it is
  PageTarget(QPagedPaintDevice& device, RecordedPages& recording) : Device(device), Recording(&recording) {}

  QPagedPaintDevice& Device;
  RecordedPages* Recording = nullptr;  ///< null: the device itself
};

/// Paints the document, with the title and the page's number in the footer. False when `progress` or the
/// device ended it; then nothing is left of the pages, as far as that can be had.
bool PrintDocument(const PageTarget& target, const QString& title, const DocumentBuilder& build,
                   const DocumentProgress& progress = {});

/// What stands on the pages as text, UTF-8, with the pictures in words.
std::string DocumentInWords(const DocumentBuilder& build);

/// The same as a PDF file on A4, the same bytes for the same document. Nothing when `progress` ended it;
/// empty bytes when they could not be made.
std::optional<QByteArray> PdfOfDocument(const QString& title, const DocumentBuilder& build,
                                        const DocumentProgress& progress = {});
