// Digits are added and multiplied as on paper; the numbers are short and few.
#include "text/ExactDecimal.h"

#include <algorithm>
#include <vector>

#include "text/DecimalDigits.h"
#include "text/NumberText.h"

namespace {

// A digit of a number whose digits end at the text's end; 0 before its first one.
int DigitFromEnd(const std::string& digits, std::size_t place) {
  return place < digits.size() ? digits[digits.size() - 1 - place] - '0' : 0;
}

char DigitOf(int value) { return static_cast<char>('0' + value); }

std::string WithoutLeadingZeros(const std::string& digits) {
  return digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
}

// Both without leading zeros.
bool IsLess(const std::string& a, const std::string& b) {
  return a.size() != b.size() ? a.size() < b.size() : a < b;
}

std::string Sum(const std::string& a, const std::string& b) {
  std::string sum;
  int carry = 0;
  for (std::size_t place = 0; place < std::max(a.size(), b.size()) || carry != 0; ++place) {
    const int digit = DigitFromEnd(a, place) + DigitFromEnd(b, place) + carry;
    sum += DigitOf(digit % 10);
    carry = digit / 10;
  }
  std::ranges::reverse(sum);
  return sum;
}

// `b` is not greater than `a`.
std::string Difference(const std::string& a, const std::string& b) {
  std::string difference;
  int borrow = 0;
  for (std::size_t place = 0; place < a.size(); ++place) {
    const int digit = DigitFromEnd(a, place) - DigitFromEnd(b, place) - borrow;
    borrow = digit < 0 ? 1 : 0;
    difference += DigitOf(digit + 10 * borrow);
  }
  std::ranges::reverse(difference);
  return difference;
}

std::string Product(const std::string& a, const std::string& b) {
  std::vector<int> places(a.size() + b.size());  // from the last digit on
  for (std::size_t i = 0; i < a.size(); ++i) {
    for (std::size_t j = 0; j < b.size(); ++j) places[i + j] += DigitFromEnd(a, i) * DigitFromEnd(b, j);
  }
  std::string product;
  int carry = 0;
  for (const int place : places) {
    product += DigitOf((place + carry) % 10);
    carry = (place + carry) / 10;
  }
  std::ranges::reverse(product);
  return product;
}

}  // namespace

ExactDecimal::ExactDecimal(bool negative, std::string digits, int power)
    : negative_(negative), digits_(WithoutLeadingZeros(digits)), power_(power) {
  if (!digits_.empty()) return;
  negative_ = false;
  power_ = 0;
}

ExactDecimal ExactDecimal::Of(float value) {
  const DecimalDigits shortest = DecimalDigits::Of(value);
  return {shortest.Negative, shortest.Digits, shortest.Exponent - static_cast<int>(shortest.Digits.size())};
}

ExactDecimal ExactDecimal::Of(double value) {
  const DecimalDigits shortest = DecimalDigits::Of(value);
  return {shortest.Negative, shortest.Digits, shortest.Exponent - static_cast<int>(shortest.Digits.size())};
}

ExactDecimal operator+(const ExactDecimal& a, const ExactDecimal& b) {
  if (a.digits_.empty()) return b;
  if (b.digits_.empty()) return a;
  const int power = std::min(a.power_, b.power_);
  const auto aligned = [power](const ExactDecimal& number) {
    return number.digits_ + std::string(static_cast<std::size_t>(number.power_ - power), '0');
  };
  const std::string first = aligned(a);
  const std::string second = aligned(b);
  if (a.negative_ == b.negative_) return {a.negative_, Sum(first, second), power};
  if (IsLess(first, second)) return {b.negative_, Difference(second, first), power};
  return {a.negative_, Difference(first, second), power};
}

ExactDecimal operator-(const ExactDecimal& a, const ExactDecimal& b) {
  return a + ExactDecimal(!b.negative_, b.digits_, b.power_);
}

ExactDecimal operator*(const ExactDecimal& a, const ExactDecimal& b) {
  return {a.negative_ != b.negative_, Product(a.digits_, b.digits_), a.power_ + b.power_};
}

std::optional<float> ExactDecimal::ToSingle() const {
  if (digits_.empty()) return 0.0F;
  return ReadSingle((negative_ ? "-" : "") + digits_ + "E" + std::to_string(power_));
}
