// Numbers of many figures, held against what whole numbers and doubles say.
#include "explanation/byjoint/WideNumber.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

WideNumber Power(double base, int exponent) {
  WideNumber power(1);
  for (int i = 0; i < exponent; ++i) power = power * WideNumber(base);
  return power;
}

// A sign, any exponent that products of singles reach, and all bits of a double.
double AnyDouble(std::mt19937_64& random) {
  const double mantissa = 1 + std::ldexp(static_cast<double>(random() >> 12U), -52);
  return std::ldexp(random() % 2 == 0 ? mantissa : -mantissa, static_cast<int>(random() % 600) - 300);
}

TEST(WideNumber, HoldsADoubleAsItIs) {
  std::mt19937_64 random(1);
  for (int run = 0; run < 5000; ++run) {
    const double value = AnyDouble(random);
    EXPECT_EQ(WideNumber(value).ToDouble(), value);
    EXPECT_EQ((-WideNumber(value)).ToDouble(), -value);
  }
  for (const double value : {0.0, 1.0, -1.0, 0x1p64, 0x1p-64, 0x1p63, 0x1.fffffffffffffp63, 0x1p128, 1e300})
    EXPECT_EQ(WideNumber(value).ToDouble(), value);
  EXPECT_TRUE(WideNumber().IsZero());
  EXPECT_TRUE(WideNumber(0).IsZero());
  EXPECT_FALSE(WideNumber(1e-300).IsZero());
}

TEST(WideNumber, SumsAndProductsOfTwoDoublesRoundAsDoublesDo) {
  std::mt19937_64 random(2);
  for (int run = 0; run < 20000; ++run) {
    const double a = AnyDouble(random);
    const double b = run % 2 == 0 ? AnyDouble(random) : a * (static_cast<double>(random() % 7) - 3.25);
    EXPECT_DOUBLE_EQ((WideNumber(a) + WideNumber(b)).ToDouble(), a + b);
    EXPECT_DOUBLE_EQ((WideNumber(a) - WideNumber(b)).ToDouble(), a - b);
    EXPECT_DOUBLE_EQ((WideNumber(a) * WideNumber(b)).ToDouble(), a * b);
    EXPECT_DOUBLE_EQ((WideNumber(a) / WideNumber(b)).ToDouble(), a / b);
  }
}

TEST(WideNumber, KeepsWhatIsSmallBesideWhatCancels) {
  const WideNumber large = Power(10, 100);
  for (const double small : {1.0, -3.0, 0.125}) {
    EXPECT_EQ((large + WideNumber(small) - large).ToDouble(), small);
    EXPECT_EQ((WideNumber(small) - large + large).ToDouble(), small);
    EXPECT_EQ((-large + (WideNumber(small) + large)).ToDouble(), small);
  }
  EXPECT_TRUE((large - large).IsZero());
  EXPECT_TRUE((-large + large).IsZero());
}

TEST(WideNumber, AProductIsExact) {
  // (10^50 + 1)(10^50 - 1) = 10^100 - 1.
  const WideNumber power = Power(10, 50);
  const WideNumber one(1);
  EXPECT_TRUE(((power + one) * (power - one) - Power(10, 100) + one).IsZero());
  // All bits of two limbs are set: (2^128 - 1)^2 = 2^256 - 2^129 + 1.
  const WideNumber full = Power(2, 128) - one;
  EXPECT_TRUE((full * full - Power(2, 256) + Power(2, 129) - one).IsZero());
  EXPECT_TRUE((full + one - Power(2, 128)).IsZero());
}

TEST(WideNumber, AQuotientHasMoreThanAHundredFigures) {
  std::mt19937_64 random(3);
  for (int run = 0; run < 2000; ++run) {
    const WideNumber a(AnyDouble(random));
    const WideNumber b(AnyDouble(random));
    const double off = ((a / b * b - a) / a).ToDouble();
    EXPECT_LT(std::abs(off), 1e-110);
  }
  EXPECT_TRUE((WideNumber(1) / WideNumber(0)).IsZero());
  EXPECT_TRUE((WideNumber(0) / WideNumber(5)).IsZero());
}

TEST(WideNumber, ASingleIsTheDecimalThatIsWritten) {
  const WideNumber tenth = WideNumber(1) / WideNumber(10);
  EXPECT_LT(std::abs((WideNumber::Of(0.1F) - tenth).ToDouble()), 1e-110);
  EXPECT_LT(std::abs((WideNumber::Of(-0.7F) + tenth * WideNumber(7)).ToDouble()), 1e-110);
  EXPECT_TRUE((WideNumber::Of(1e30F) - Power(10, 30)).IsZero());
  EXPECT_EQ(WideNumber::Of(-12345.5F).ToDouble(), -12345.5);
  EXPECT_DOUBLE_EQ(WideNumber::Of(1e-45F).ToDouble(), 1e-45);
  EXPECT_TRUE(WideNumber::Of(0).IsZero());
  EXPECT_EQ(WideNumber::Whole(-3).ToDouble(), -3);
}

}  // namespace
