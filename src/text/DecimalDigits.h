// Decimal rounding as a person does it: on the digits that are seen. A value is taken as its shortest decimal
// form (the fewest digits that read back to the same value), and ties there go away from zero; so 0.125
// rounds to 0.13 and 2.5 to 3, on every machine, whatever lies behind the digits in binary.
#pragma once

#include <string>

/// A finite value as sign, digits and decimal exponent: 0.d1d2d3... times 10 to the power of Exponent, so
/// Exponent is the number of digits before the decimal point. Zero has no digits and Exponent 0; otherwise
/// neither the first nor the last digit is "0".
struct DecimalDigits {
  bool Negative = false;
  std::string Digits;
  int Exponent = 0;

  /// The shortest digits that read back to the same single or double. The value must be finite.
  static DecimalDigits Of(float value);
  static DecimalDigits Of(double value);

  bool IsZero() const { return Digits.empty(); }

  /// Rounds to `count` (at least 0) digits from the first one on; ties go away from zero.
  void RoundToSignificant(int count);

  /// Rounds to `decimals` (at least 0) digits after the decimal point; ties go away from zero.
  void RoundToDecimals(int decimals);

  /// The digit at 10 to the power of `power`, '0' where none is stored.
  char DigitAt(int power) const;
};
