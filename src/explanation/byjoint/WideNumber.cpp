#include "explanation/byjoint/WideNumber.h"

#include <algorithm>
#include <cmath>

#include "text/DecimalDigits.h"

namespace {

__extension__ using TwoLimbs = unsigned __int128;

constexpr int LimbBits = 64;

}  // namespace

WideNumber::WideNumber(double value) {
  if (value == 0) return;
  isNegative_ = value < 0;
  int bits = 0;
  const double mantissa = std::frexp(std::abs(value), &bits);  // 0.5 and more, below 1
  // So that the highest limb holds 1 to 64 bits of it.
  exponent_ = (bits - 1 >= 0 ? bits - 1 : bits - LimbBits) / LimbBits;
  const int above = bits - exponent_ * LimbBits;
  double left = std::ldexp(mantissa, above);
  for (std::size_t i = 0; i < 3; ++i) {
    const double whole = std::floor(left);
    limbs_[i] = static_cast<std::uint64_t>(whole);
    left = std::ldexp(left - whole, LimbBits);
  }
}

WideNumber WideNumber::Whole(std::int64_t value) {
  WideNumber whole;
  whole.isNegative_ = value < 0;
  whole.limbs_.front() =
      value < 0 ? ~static_cast<std::uint64_t>(value) + 1 : static_cast<std::uint64_t>(value);
  return whole;
}

WideNumber WideNumber::Of(float value) {
  const DecimalDigits decimal = DecimalDigits::Of(value);
  const WideNumber ten = Whole(10);
  WideNumber number;
  for (const char digit : decimal.Digits) number = number * ten + Whole(digit - '0');
  const int power = decimal.Exponent - static_cast<int>(decimal.Digits.size());
  WideNumber scale = Whole(1);
  for (int i = std::abs(power); i > 0; --i) scale = scale * ten;
  number = power < 0 ? number / scale : number * scale;
  return decimal.Negative ? -number : number;
}

double WideNumber::ToDouble() const {
  double sum = 0;
  for (std::size_t i = 3; i-- > 0;) sum = std::ldexp(sum, -LimbBits) + static_cast<double>(limbs_[i]);
  const double magnitude = std::ldexp(sum, exponent_ * LimbBits);
  return isNegative_ ? -magnitude : magnitude;
}

WideNumber WideNumber::operator-() const {
  WideNumber negated = *this;
  negated.isNegative_ = !isNegative_ && !IsZero();
  return negated;
}

// The limb that stands at `index` of a number whose exponent is larger by `shift`.
std::uint64_t WideNumber::LimbBelow(std::size_t index, std::int64_t shift) const {
  const auto at = static_cast<std::int64_t>(index) - shift;
  return at < 0 ? 0 : limbs_[static_cast<std::size_t>(at)];
}

bool WideNumber::IsSmaller(const WideNumber& a, const WideNumber& b) {
  if (a.IsZero() || b.IsZero()) return !b.IsZero();
  return a.exponent_ != b.exponent_ ? a.exponent_ < b.exponent_ : a.limbs_ < b.limbs_;
}

WideNumber WideNumber::Sum(const WideNumber& a, const WideNumber& b, bool isBNegative) {
  const bool isSwapped = IsSmaller(a, b);
  const WideNumber& large = isSwapped ? b : a;
  const WideNumber& small = isSwapped ? a : b;
  const bool isLargeNegative = isSwapped ? isBNegative : a.isNegative_;
  WideNumber sum = large;
  if (!small.IsZero()) sum = a.isNegative_ == isBNegative ? Added(large, small) : Subtracted(large, small);
  sum.isNegative_ = isLargeNegative && !sum.IsZero();
  return sum;
}

WideNumber WideNumber::Added(const WideNumber& a, const WideNumber& b) {
  WideNumber sum = a;
  const std::int64_t shift = std::int64_t{a.exponent_} - b.exponent_;
  bool carry = false;
  for (std::size_t i = NumLimbs; i-- > 0;) {
    const TwoLimbs limb = TwoLimbs{a.limbs_[i]} + b.LimbBelow(i, shift) + (carry ? 1 : 0);
    sum.limbs_[i] = static_cast<std::uint64_t>(limb);
    carry = (limb >> LimbBits) != 0;
  }
  if (!carry) return sum;
  std::copy_backward(sum.limbs_.begin(), sum.limbs_.end() - 1, sum.limbs_.end());
  sum.limbs_.front() = 1;
  ++sum.exponent_;
  return sum;
}

WideNumber WideNumber::Subtracted(const WideNumber& a, const WideNumber& b) {
  WideNumber difference = a;
  const std::int64_t shift = std::int64_t{a.exponent_} - b.exponent_;
  bool borrow = false;
  for (std::size_t i = NumLimbs; i-- > 0;) {
    const TwoLimbs taken = TwoLimbs{b.LimbBelow(i, shift)} + (borrow ? 1 : 0);
    borrow = a.limbs_[i] < taken;
    difference.limbs_[i] = a.limbs_[i] - static_cast<std::uint64_t>(taken);
  }
  difference.Normalize();
  return difference;
}

void WideNumber::Normalize() {
  const auto* const first =
      std::find_if(limbs_.data(), limbs_.data() + NumLimbs, [](std::uint64_t limb) { return limb != 0; });
  const auto leading = static_cast<std::int32_t>(first - limbs_.data());
  if (leading == NumLimbs) {
    *this = {};
  } else if (leading > 0) {
    std::rotate(limbs_.begin(), limbs_.begin() + leading, limbs_.end());  // zeros come last
    exponent_ -= leading;
  }
}

WideNumber operator*(const WideNumber& a, const WideNumber& b) {
  constexpr std::size_t num = WideNumber::NumLimbs;
  if (a.IsZero() || b.IsZero()) return {};
  std::array<std::uint64_t, 2 * num> product{};  // the highest first
  for (std::size_t i = num; i-- > 0;) {
    if (a.limbs_[i] == 0) continue;
    std::uint64_t carry = 0;
    for (std::size_t j = num; j-- > 0;) {
      const TwoLimbs limb = TwoLimbs{a.limbs_[i]} * b.limbs_[j] + product[i + j + 1] + carry;
      product[i + j + 1] = static_cast<std::uint64_t>(limb);
      carry = static_cast<std::uint64_t>(limb >> LimbBits);
    }
    product[i] = carry;
  }
  WideNumber result;
  const std::size_t leading = product.front() == 0 ? 1 : 0;
  std::copy_n(product.begin() + static_cast<std::ptrdiff_t>(leading), num, result.limbs_.begin());
  result.exponent_ = a.exponent_ + b.exponent_ + (leading == 0 ? 1 : 0);
  result.isNegative_ = a.isNegative_ != b.isNegative_;
  return result;
}

// By the reciprocal of the divisor, which is found as a double and doubles its figures three times.
WideNumber operator/(const WideNumber& a, const WideNumber& b) {
  if (b.IsZero()) return {};
  WideNumber divisor = b;
  divisor.exponent_ = 0;
  const WideNumber two = WideNumber::Whole(2);
  WideNumber reciprocal(1 / divisor.ToDouble());
  for (int i = 0; i < 4; ++i) reciprocal = reciprocal * (two - divisor * reciprocal);
  WideNumber quotient = a * reciprocal;
  if (!quotient.IsZero()) quotient.exponent_ -= b.exponent_;
  return quotient;
}
