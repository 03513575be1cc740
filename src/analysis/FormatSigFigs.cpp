#include "analysis/FormatSigFigs.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "text/CodePage.h"
#include "text/NumberText.h"

namespace {

constexpr int MaxFigures = 17;

int FiguresOf(const ReportFormat& format) { return std::clamp(format.SigFigs, 1, MaxFigures); }

template <class Number>
std::string Format(Number value, const ReportFormat& format) {
  const double magnitude = std::abs(double{value});
  if (magnitude < 1E-08) return "0";
  if (!std::isfinite(value)) return "overflow";
  const int figures = FiguresOf(format);
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

// Shapes are numbered by what stands before and behind the separator, twice each: positive and negative.
constexpr int ZeroShape = 0;
constexpr int MostWholeDigits = 6;  // of a value just below 100000 that is rounded to it
constexpr int MostZeros = 4;        // behind the separator, of a value just above 1E-05
static_assert(NumNumberShapes == 2 * (1 + MostWholeDigits + MostZeros + 1));

// Of a magnitude from 1 on; one more where rounding may add one and nothing behind the separator goes for it.
int MostDigitsBefore(double magnitude, int figures) {
  int digits = 1;
  double next = 10;
  for (; magnitude >= next; next *= 10) ++digits;
  constexpr double mayBeRoundedUp = 0.9;  // from 0.95 on with one figure
  return digits >= figures && magnitude >= mayBeRoundedUp * next ? digits + 1 : digits;
}

// Of a magnitude below 1.
int ZerosBehind(double magnitude) {
  constexpr std::array<double, MostZeros> first{0.1, 0.01, 0.001, 0.0001};
  return static_cast<int>(std::ranges::count_if(first, [=](double least) { return magnitude < least; }));
}

}  // namespace

std::optional<int> NumberShape(double value, const ReportFormat& format) {
  const double magnitude = std::abs(value);
  if (magnitude < 1E-08) return ZeroShape;
  if (!(1E-05 < magnitude && magnitude < 100000)) return std::nullopt;
  const int kind = magnitude >= 1 ? MostDigitsBefore(magnitude, FiguresOf(format))
                                  : 1 + MostWholeDigits + ZerosBehind(magnitude);
  return 2 * kind + (value < 0 ? 1 : 0);
}

std::string LongestOfShape(int shape, const ReportFormat& format) {
  if (shape == ZeroShape) return "0";
  const int figures = FiguresOf(format), kind = shape / 2;
  const auto digits = [](int number) { return std::string(static_cast<std::size_t>(number), '0'); };
  std::string text(shape % 2 == 1 ? 1 : 0, EnDash);
  if (kind > MostWholeDigits)
    return text + "0" + format.Numbers.DecimalSeparator + digits(kind - MostWholeDigits - 1 + figures);
  text += digits(kind);
  return kind < figures ? text + format.Numbers.DecimalSeparator + digits(figures - kind) : text;
}

std::string FormatSigFigs(float value, const ReportFormat& format) { return Format(value, format); }
std::string FormatSigFigs(double value, const ReportFormat& format) { return Format(value, format); }

std::string TableNumber(float value, const ReportFormat& format) { return WithEnDash(Format(value, format)); }
std::string TableNumber(double value, const ReportFormat& format) {
  return WithEnDash(Format(value, format));
}
