// Shortest digits come from the standard library; rounding works on them as text.
#include "text/DecimalDigits.h"

#include <array>
#include <charconv>
#include <cstdlib>

namespace {

void Trim(DecimalDigits& value) {
  while (!value.Digits.empty() && value.Digits.back() == '0') value.Digits.pop_back();
  if (value.Digits.empty()) value.Exponent = 0;
}

template <class Float>
DecimalDigits ShortestDigits(Float value) {
  std::array<char, 64> text{};
  const auto written =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific);
  DecimalDigits result;
  const char* at = text.data();
  if (*at == '-') {
    result.Negative = true;
    ++at;
  }
  for (; at != written.ptr && *at != 'e'; ++at) {
    if (*at != '.') result.Digits += *at;
  }
  if (at != written.ptr) {
    ++at;
    if (*at == '+') ++at;  // there is always a sign
    int power = 0;
    std::from_chars(at, written.ptr, power);
    result.Exponent = power + 1;
  }
  Trim(result);
  if (result.IsZero()) result.Negative = false;
  return result;
}

}  // namespace

DecimalDigits DecimalDigits::Of(float value) { return ShortestDigits(value); }
DecimalDigits DecimalDigits::Of(double value) { return ShortestDigits(value); }

void DecimalDigits::RoundToSignificant(int count) {
  if (count < 0) {
    *this = DecimalDigits{};
    return;
  }
  const auto keep = static_cast<std::size_t>(count);
  if (Digits.size() <= keep) return;
  const bool up = Digits[keep] >= '5';
  Digits.resize(keep);
  if (up) {
    std::size_t at = keep;
    while (at > 0 && Digits[at - 1] == '9') Digits[--at] = '0';
    if (at > 0) {
      ++Digits[at - 1];
    } else {
      Digits.insert(Digits.begin(), '1');
      ++Exponent;
    }
  }
  Trim(*this);
  if (IsZero()) Negative = false;
}

void DecimalDigits::RoundToDecimals(int decimals) {
  if (!IsZero()) RoundToSignificant(Exponent + decimals);
}

char DecimalDigits::DigitAt(int power) const {
  const int index = Exponent - 1 - power;
  return index >= 0 && index < static_cast<int>(Digits.size()) ? Digits[static_cast<std::size_t>(index)]
                                                               : '0';
}
