// The preview in which any document is looked at before it is printed.
#pragma once

#include <QString>
#include <functional>

#include "platform/MessageBox.h"
#include "reports/DocumentPages.h"

struct PrintedDocument {
  const char* What;  ///< what it is called, in titles and messages: "report"
  QString Name;      ///< of the printer's job

  /// Paints all pages; false when the progress or the device has ended it.
  std::function<bool(const PageTarget& target, const DocumentProgress& progress)> Paint;

  /// All that stands on them, for readers aloud.
  std::function<QString()> InWords;
};

/// On this country's paper; returns when the preview is closed. The user can end the making of the pages,
/// which shows its progress after `progressDelay` milliseconds, and is told when the printer refuses them.
void ShowPrintPreview(const PrintedDocument& document, int progressDelay, MessageBox& messages,
                      QWidget& parent);
