#include "analysis/FormatSigFigs.h"

#include <algorithm>
#include <cmath>

#include "text/CodePage.h"
#include "text/NumberText.h"

namespace {

constexpr int MaxFigures = 17;

template <class Number>
std::string Format(Number value, const ReportFormat& format) {
  const double magnitude = std::abs(double{value});
  if (magnitude < 1E-08) return "0";
  if (!std::isfinite(value)) return "overflow";
  const int figures = std::clamp(format.SigFigs, 1, MaxFigures);
  DecimalDigits digits = DecimalDigits::Of(value);
  digits.RoundToSignificant(figures);
  const std::string& separator = format.Numbers.DecimalSeparator;
  const bool plain = 1E-05 < magnitude && magnitude < 100000;
  return plain ? PlainText(digits, separator) : ScientificText(digits, figures, separator);
}

std::string WithEnDash(std::string text) {
  if (text.starts_with('-')) text[0] = EnDash;
  return text;
}

}  // namespace

std::string FormatSigFigs(float value, const ReportFormat& format) { return Format(value, format); }
std::string FormatSigFigs(double value, const ReportFormat& format) { return Format(value, format); }

std::string TableNumber(float value, const ReportFormat& format) { return WithEnDash(Format(value, format)); }
std::string TableNumber(double value, const ReportFormat& format) {
  return WithEnDash(Format(value, format));
}
