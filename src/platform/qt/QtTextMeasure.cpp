#include "platform/qt/QtTextMeasure.h"

#include <algorithm>
#include <cmath>

#include "platform/qt/QtText.h"

namespace {

constexpr std::size_t MostKept = 50'000;

}  // namespace

QFont CanvasFont(const TextFont& font) {
  QFont qtFont(QStringLiteral("Arial"));
  qtFont.setPixelSize(static_cast<int>(std::lround(font.Points * 96 / 72)));
  qtFont.setBold(font.Bold);
  return qtFont;
}

QString CanvasText(std::string_view singleByteText) {
  QString text = ToQt(ShownBeginning(singleByteText));
  for (QChar& character : text) {
    if (character.category() == QChar::Other_Control) character = QLatin1Char(' ');
  }
  constexpr auto longest = static_cast<qsizetype>(LongestShownText);
  if (text.size() > longest) text = text.left(longest - 1) + QChar(0x2026);
  return text;
}

TextExtent ExtentOf(const QFontMetricsF& metrics, std::string_view singleByteText) {
  return TextExtent{static_cast<float>(metrics.horizontalAdvance(CanvasText(singleByteText))),
                    static_cast<float>(metrics.height())};
}

TextExtent QtTextMeasure::Measure(const TextFont& font, std::string_view singleByteText) {
  OneFont& measured = In(font);
  if (measured.Extents.size() > MostKept) measured.Extents.clear();
  const auto [place, isNew] = measured.Extents.try_emplace(std::string(ShownBeginning(singleByteText)));
  if (isNew) place->second = ExtentOf(measured.Metrics, singleByteText);
  return place->second;
}

QtTextMeasure::OneFont& QtTextMeasure::In(const TextFont& font) {
  const auto found = std::ranges::find(fonts_, font, &OneFont::Font);
  if (found != fonts_.end()) return *found;
  fonts_.push_back(OneFont{font, QFontMetricsF(CanvasFont(font)), {}});
  return fonts_.back();
}
