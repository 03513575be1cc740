// Recorded pages in the toolkit's print preview, which would keep a picture of every page.
#pragma once

#include <QPrintPreviewWidget>
#include <QPrinter>

#include "paper/qt/RecordedPages.h"

/// Whether what is painted on the device is kept for a preview. Such a printer must not be aborted: the
/// toolkit would delete its pages twice.
bool IsPreview(const QPaintDevice& device);

/// Gives the preview's printer as many empty pages as are recorded, at least one. To be called when the
/// preview asks for its pages.
void PaintEmptyPages(QPrinter& printer, const RecordedPages& pages);

/// From now on the preview's pages, which are empty ones of `printer`, show the recorded ones while they are
/// seen. All of it must outlive the preview.
void ShowOnPages(QPrintPreviewWidget& preview, const QPrinter& printer, const RecordedPages& pages);
