// Writing works on decimal digits; reading checks the form first and lets the standard library convert.
#include "text/NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace {

// The general form is plain up to this many digits before the separator.
constexpr int PlainSingleExponent = 7;
constexpr int PlainDoubleExponent = 15;

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

// What one number text consists of, once its form has been found right.
struct NumberForm {
  std::string_view Convertible;  // without a leading "+", which the standard conversion refuses
  bool IsZero = true;            // all digits are zeros
  bool IsSmall = false;          // the magnitude is below 1; tells underflow from overflow
};

// The exponent's value, held at a bound that no number of digits can bring back into range.
long BoundedExponent(std::string_view digits, bool negative) {
  long value = 0;
  for (const char digit : digits) value = std::min(value * 10 + (digit - '0'), 1'000'000'000L);
  return negative ? -value : value;
}

std::optional<NumberForm> Analyse(std::string_view text) {
  NumberForm form;
  std::size_t at = 0;
  if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
  form.Convertible = text.substr(!text.empty() && text[0] == '+' ? 1 : 0);

  long numDigits = 0;
  long firstNonZeroPower = 0;  // power of ten of the first digit that is not 0, once the period is known
  long digitsSinceNonZero = 0;
  bool periodSeen = false;
  long decimals = 0;
  for (; at < text.size() && (IsDigit(text[at]) || (text[at] == '.' && !periodSeen)); ++at) {
    if (text[at] == '.') {
      periodSeen = true;
      continue;
    }
    ++numDigits;
    if (periodSeen) ++decimals;
    if (text[at] != '0') form.IsZero = false;
    if (!form.IsZero) ++digitsSinceNonZero;
  }
  if (numDigits == 0) return std::nullopt;
  firstNonZeroPower = digitsSinceNonZero - 1 - decimals;

  long exponent = 0;
  if (at < text.size() && (text[at] == 'E' || text[at] == 'e')) {
    ++at;
    const bool negative = at < text.size() && text[at] == '-';
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
    const std::size_t first = at;
    while (at < text.size() && IsDigit(text[at])) ++at;
    if (at == first) return std::nullopt;
    exponent = BoundedExponent(text.substr(first, at - first), negative);
  }
  if (at != text.size()) return std::nullopt;
  form.IsSmall = firstNonZeroPower + exponent < 0;
  return form;
}

template <class Float>
std::optional<Float> Read(std::string_view text) {
  const std::optional<NumberForm> form = Analyse(text);
  if (!form) return std::nullopt;
  if (form->IsZero) return Float{0};
  Float value{};
  const char* first = form->Convertible.data();
  const auto read = std::from_chars(first, first + form->Convertible.size(), value);
  if (read.ec == std::errc::result_out_of_range) {
    return form->IsSmall ? std::optional<Float>(Float{0}) : std::nullopt;
  }
  return value;  // its form is right, so there is no other failure
}

// Without limits on the number of places: callers round first.
std::string FixedDigits(const DecimalDigits& value, int decimals, bool forcedZero,
                        std::string_view decimalSeparator, bool separatorAlways) {
  std::string text;
  if (value.Negative) text += '-';
  if (value.Exponent <= 0) {
    if (forcedZero) text += '0';
  } else {
    for (int power = value.Exponent - 1; power >= 0; --power) text += value.DigitAt(power);
  }
  if (decimals > 0 || separatorAlways) text += decimalSeparator;
  for (int power = -1; power >= -decimals; --power) text += value.DigitAt(power);
  return text;
}

std::string General(const DecimalDigits& digits, int plainBelowExponent, std::string_view decimalSeparator) {
  if (digits.IsZero() || (digits.Exponent > -5 && digits.Exponent <= plainBelowExponent)) {
    return PlainText(digits, decimalSeparator);
  }
  std::string text = ScientificText(digits, static_cast<int>(digits.Digits.size()), decimalSeparator);
  if (digits.Digits.size() == 1) text.erase(text.find(decimalSeparator), decimalSeparator.size());
  return text;
}

template <class Float>
std::string Fixed(Float value, int decimals, std::string_view decimalSeparator) {
  DecimalDigits digits = DecimalDigits::Of(value);
  digits.RoundToDecimals(decimals);
  return FixedDigits(digits, decimals, true, decimalSeparator, false);
}

}  // namespace

std::string PlainText(const DecimalDigits& value, std::string_view decimalSeparator) {
  const int decimals = std::max(0, static_cast<int>(value.Digits.size()) - value.Exponent);
  return FixedDigits(value, decimals, true, decimalSeparator, false);
}

std::string ScientificText(const DecimalDigits& value, int figures, std::string_view decimalSeparator) {
  std::string text;
  if (value.Negative) text += '-';
  const int first = value.Exponent - 1;
  text += value.DigitAt(first);
  text += decimalSeparator;
  for (int i = 1; i < figures; ++i) text += value.DigitAt(first - i);
  const int power = value.IsZero() ? 0 : first;
  text += power < 0 ? "E-" : "E+";
  return text + std::to_string(std::abs(power));
}

std::string GeneralText(float value, std::string_view decimalSeparator) {
  return General(DecimalDigits::Of(value), PlainSingleExponent, decimalSeparator);
}
std::string GeneralText(double value, std::string_view decimalSeparator) {
  return General(DecimalDigits::Of(value), PlainDoubleExponent, decimalSeparator);
}

std::string SevenDigitText(double value, std::string_view decimalSeparator) {
  const bool isSingle = std::abs(value) <= double{std::numeric_limits<float>::max()};
  // Rounded from the single's full value: from its shortest digits the largest single would round out of
  // range.
  DecimalDigits digits = DecimalDigits::Of(isSingle ? double{static_cast<float>(value)} : value);
  digits.RoundToSignificant(7);
  return General(digits, PlainSingleExponent, decimalSeparator);
}

std::string FixedText(double value, int decimals, std::string_view decimalSeparator) {
  return Fixed(value, decimals, decimalSeparator);
}
std::string FixedText(float value, int decimals, std::string_view decimalSeparator) {
  return Fixed(value, decimals, decimalSeparator);
}

std::string SharpText(float value, std::string_view decimalSeparator) {
  DecimalDigits digits = DecimalDigits::Of(value);
  digits.RoundToDecimals(1);
  const bool hasDecimal = digits.DigitAt(-1) != '0';
  return FixedDigits(digits, hasDecimal ? 1 : 0, false, decimalSeparator, true);
}

std::optional<float> ReadSingle(std::string_view text) { return Read<float>(text); }

std::optional<double> ReadDouble(std::string_view text) {
  if (!ReadSingle(text)) return std::nullopt;
  return Read<double>(text);
}
