// What any document is built with, as rich text: the printable report, exercise sheets.
#pragma once

#include <functional>

#include "paper/RichText.h"
#include "platform/TextMeasure.h"
#include "reports/RTBPicture.h"

/// All of it lives as long as the call that builds the document.
struct DocumentTools {
  RichText& Document;
  ClipboardAccess Clipboard;  ///< the one that `Document` pastes from
  TextMeasure Measure;        ///< for the texts in the pictures
  float TableRoom = 0;        ///< width of the paper's text, points

  /// Told how much is done, 0 .. 1; false when the user wants no more, or the device refuses pages.
  std::function<bool(double done)> Progress;
};
