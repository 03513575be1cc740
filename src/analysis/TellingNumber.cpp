#include "analysis/TellingNumber.h"

#include <algorithm>
#include <cmath>

#include "text/NumberText.h"

namespace {

constexpr int MostFigures = 17;  // with so many every double differs from all others

}  // namespace

std::string NumberNot0(double value, const ReportFormat& format) {
  std::string text = FormatSigFigs(value, format);
  if (text != "0" || value == 0) return text;
  const int figures = std::clamp(format.SigFigs, 1, MostFigures);
  DecimalDigits digits = DecimalDigits::Of(value);
  digits.RoundToSignificant(figures);
  return ScientificText(digits, figures, format.Numbers.DecimalSeparator);
}

std::string NumberNot1(double value, const ReportFormat& format) {
  std::string text = NumberNot0(value, format);
  if (std::abs(value) == 1) return text;
  ReportFormat longer = format;
  while (text == "1" || text == "-1") {
    ++longer.SigFigs;
    text = FormatSigFigs(value, longer);
  }
  return text;
}
