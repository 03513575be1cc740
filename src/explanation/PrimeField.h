// Whole numbers modulo a prime near 2^61, for deciding exactly what rounding would blur. A rank modulo a
// prime is never larger than the rank over the rational numbers, so a full rank found here proves a full
// rank; that a smaller rank is no accident of the prime is shown by a second prime and by the vector itself.
#pragma once

#include <cstdint>

#include "text/DecimalDigits.h"

/// The field of residues modulo 2^61 - `Below`, which must be a prime. Residues are 0 .. Prime - 1.
template <std::uint64_t Below>
struct PrimeField {
  static constexpr std::uint64_t Prime = (std::uint64_t{1} << 61U) - Below;

  static constexpr std::uint64_t Add(std::uint64_t a, std::uint64_t b) { return Wrap(a + b); }
  static constexpr std::uint64_t Subtract(std::uint64_t a, std::uint64_t b) { return Wrap(a + (Prime - b)); }
  static constexpr std::uint64_t Negate(std::uint64_t a) { return a == 0 ? 0 : Prime - a; }

  static constexpr std::uint64_t Multiply(std::uint64_t a, std::uint64_t b) {
    // 2^61 is congruent to Below, so what stands above bit 61 is folded down, twice.
    const Wide product = Wide{a} * b;
    const Wide once = (product & Mask) + (product >> 61U) * Below;
    return Wrap(static_cast<std::uint64_t>(once & Mask) + static_cast<std::uint64_t>(once >> 61U) * Below);
  }

  static constexpr std::uint64_t Power(std::uint64_t base, std::uint64_t exponent) {
    std::uint64_t power = 1;
    for (; exponent > 0; exponent >>= 1U, base = Multiply(base, base)) {
      if ((exponent & 1U) != 0) power = Multiply(power, base);
    }
    return power;
  }

  /// Of a residue that is not 0.
  static constexpr std::uint64_t Inverse(std::uint64_t a) { return Power(a, Prime - 2); }

  static constexpr std::uint64_t FromWhole(std::int64_t value) {
    const auto magnitude = static_cast<std::uint64_t>(value < 0 ? -value : value) % Prime;
    return value < 0 ? Negate(magnitude) : magnitude;
  }

  /// The number that the shortest decimal form of a finite single says, which is what file and window show:
  /// 0.1 is a tenth here.
  static std::uint64_t FromDecimal(float value) {
    const DecimalDigits decimal = DecimalDigits::Of(value);
    std::uint64_t residue = 0;
    for (const char digit : decimal.Digits) {
      residue = Add(Multiply(residue, 10), static_cast<std::uint64_t>(digit - '0'));
    }
    const int power = decimal.Exponent - static_cast<int>(decimal.Digits.size());
    const std::uint64_t scale = Power(10, static_cast<std::uint64_t>(power < 0 ? -power : power));
    residue = Multiply(residue, power < 0 ? Inverse(scale) : scale);
    return decimal.Negative ? Negate(residue) : residue;
  }

 private:
  __extension__ using Wide = unsigned __int128;
  static constexpr std::uint64_t Mask = (std::uint64_t{1} << 61U) - 1;
  static constexpr std::uint64_t Wrap(std::uint64_t a) { return a >= Prime ? a - Prime : a; }
};

/// The two primes on which verdicts rest: 2^61 - 1 and 2^61 - 31.
using FirstField = PrimeField<1>;
using SecondField = PrimeField<31>;
