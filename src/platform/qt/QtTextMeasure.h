// The extents of texts in the drawing's fonts, measured once and kept.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QString>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/TextMeasure.h"

/// The drawing's font (Arial) in one of its sizes. Points are those of a 96 dpi screen whatever the screen
/// is, so that a drawing looks the same everywhere; device pixel ratios are the painter's business.
QFont CanvasFont(const TextFont& font);

/// How a single-byte text is shown on one line of the drawing: control characters become blanks, and what is
/// longer than a drawing can hold is cut and ends in an ellipsis.
QString CanvasText(std::string_view singleByteText);

/// The extent of that text in a font.
TextExtent ExtentOf(const QFontMetricsF& metrics, std::string_view singleByteText);

/// Gives a TextMeasure that keeps its answers.
class QtTextMeasure {
 public:
  TextExtent Measure(const TextFont& font, std::string_view singleByteText);

 private:
  struct OneFont {
    TextFont Font;
    QFontMetricsF Metrics;
    std::unordered_map<std::string, TextExtent> Extents;
  };

  OneFont& In(const TextFont& font);

  std::vector<OneFont> fonts_;
};
