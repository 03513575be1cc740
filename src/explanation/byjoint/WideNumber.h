// Numbers of more than a hundred figures: for sums of forces of so different sizes that a double, which keeps
// sixteen, would lose the small ones, or keep what should cancel.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

/// A sign, and limbs to the base 2^64 with an exponent of the same base. Each operation errs by less than
/// one part in 10^115; sums, differences and products of few figures are exact. A size that needs
/// more than 32 bits of exponent does not come about from singles.
class WideNumber {
 public:
  WideNumber() = default;

  /// Exactly this finite number.
  explicit WideNumber(double value);

  /// The decimal that a finite single is written as.
  static WideNumber Of(float value);
  static WideNumber Whole(std::int64_t value);

  bool IsZero() const { return limbs_.front() == 0; }

  /// The nearest double, or a neighbour of it.
  double ToDouble() const;

  WideNumber operator-() const;
  friend WideNumber operator+(const WideNumber& a, const WideNumber& b) { return Sum(a, b, b.isNegative_); }
  friend WideNumber operator-(const WideNumber& a, const WideNumber& b) { return Sum(a, b, !b.isNegative_); }
  friend WideNumber operator*(const WideNumber& a, const WideNumber& b);
  /// 0 where `b` is 0.
  friend WideNumber operator/(const WideNumber& a, const WideNumber& b);

 private:
  static constexpr std::size_t NumLimbs = 7;

  static WideNumber Sum(const WideNumber& a, const WideNumber& b, bool isBNegative);
  // Of magnitudes, of which the first is not the smaller one.
  static WideNumber Added(const WideNumber& a, const WideNumber& b);
  static WideNumber Subtracted(const WideNumber& a, const WideNumber& b);
  static bool IsSmaller(const WideNumber& a, const WideNumber& b);
  std::uint64_t LimbBelow(std::size_t index, std::int64_t shift) const;
  void Normalize();

  std::array<std::uint64_t, NumLimbs> limbs_{};  // the highest first, which is 0 only in 0
  std::int32_t exponent_ = 0;                    // of the highest
  bool isNegative_ = false;
};
