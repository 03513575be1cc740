// Sums, differences and products of decimal numbers, without any rounding on the way. Coordinates on a
// decimal grid have no exact binary form; what is computed from them is computed as a person does it, on the
// digits, and rounded once at the end.
#pragma once

#include <optional>
#include <string>

class ExactDecimal {
 public:
  /// Zero.
  ExactDecimal() = default;

  /// What a person means by a number: its shortest decimal form, 0.1 for the single next to 0.1. The value
  /// must be finite.
  static ExactDecimal Of(float value);
  static ExactDecimal Of(double value);

  friend ExactDecimal operator+(const ExactDecimal& a, const ExactDecimal& b);
  friend ExactDecimal operator-(const ExactDecimal& a, const ExactDecimal& b);
  friend ExactDecimal operator*(const ExactDecimal& a, const ExactDecimal& b);

  /// The nearest single, ties to even, so that opposite numbers give opposite singles. Nothing beyond the
  /// range of singles; what is too small for one is 0.
  std::optional<float> ToSingle() const;

 private:
  ExactDecimal(bool negative, std::string digits, int power);

  bool negative_ = false;
  std::string digits_;  // '0' to '9', none of them leading zeros; empty for zero
  int power_ = 0;       // the last digit counts 10 to this power
};
