// Reckoning on decimal digits.
#include "text/ExactDecimal.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

ExactDecimal Of(float value) { return ExactDecimal::Of(value); }

}  // namespace

TEST(ExactDecimal, ANumberIsItsShortestDecimalForm) {
  for (const float value : {0.0F, 1.0F, -0.7F, 0.1F, 123.456F, 1e-45F, -3.4028235e38F, 16777216.0F}) {
    EXPECT_EQ(Of(value).ToSingle(), value);
    EXPECT_EQ(ExactDecimal::Of(double{value}).ToSingle(), value);
  }
  // A tenth is meant, not the binary number behind it.
  EXPECT_EQ((Of(0.1F) * Of(9)).ToSingle(), 0.9F);
  EXPECT_NE(static_cast<float>(double{0.1F} * 9), 0.9F);
}

TEST(ExactDecimal, SumsAndDifferencesCarryAndBorrow) {
  EXPECT_EQ((Of(0.1F) + Of(0.2F)).ToSingle(), 0.3F);
  EXPECT_EQ((Of(999) + Of(0.001F)).ToSingle(), 999.001F);
  EXPECT_EQ((Of(99.5F) + Of(0.5F)).ToSingle(), 100);
  EXPECT_EQ((Of(100) - Of(0.01F)).ToSingle(), 99.99F);
  EXPECT_EQ((Of(0.01F) - Of(100)).ToSingle(), -99.99F);
  EXPECT_EQ((Of(-2.5F) + Of(-2.5F)).ToSingle(), -5);
  EXPECT_EQ((Of(-3.7F) + Of(5)).ToSingle(), 1.3F);
}

TEST(ExactDecimal, WhatCancelsIsZeroAndHasNoSign) {
  const auto zero = (Of(-0.3F) + Of(0.1F) + Of(0.2F)).ToSingle();
  EXPECT_EQ(zero, 0);
  EXPECT_FALSE(std::signbit(*zero));
  EXPECT_FALSE(std::signbit(*(Of(-1) * Of(0)).ToSingle()));
  EXPECT_EQ((Of(0) - Of(5)).ToSingle(), -5);
}

TEST(ExactDecimal, ProductsKeepEveryDigit) {
  EXPECT_EQ((Of(0.9F) * Of(1000)).ToSingle(), 900);
  EXPECT_EQ((Of(-1.25F) * Of(0.8F)).ToSingle(), -1);
  EXPECT_EQ((Of(-1.25F) * Of(-0.8F)).ToSingle(), 1);
  // Nines carry through every place.
  const ExactDecimal nines = ExactDecimal::Of(999999999999999.0);
  EXPECT_EQ((nines * nines - ExactDecimal::Of(999999999999998e15)).ToSingle(), 1);
}

TEST(ExactDecimal, RoundsOnceToTheNearestSingleAndHalvesToEven) {
  // 16777217 lies between two singles.
  EXPECT_EQ((Of(16777216) + Of(1)).ToSingle(), 16777216.0F);
  EXPECT_EQ((Of(16777216) + Of(1.0001F)).ToSingle(), 16777218.0F);
  EXPECT_EQ((Of(16777216) + Of(3)).ToSingle(), 16777220.0F);
  EXPECT_EQ((Of(-16777216) - Of(3)).ToSingle(), -16777220.0F);
}

TEST(ExactDecimal, WhatNoSingleHoldsIsNothingAndWhatIsTooSmallIsZero) {
  const ExactDecimal largest = Of(std::numeric_limits<float>::max());
  EXPECT_EQ((largest + largest).ToSingle(), std::nullopt);
  EXPECT_EQ((Of(0) - largest * largest).ToSingle(), std::nullopt);
  const ExactDecimal smallest = Of(std::numeric_limits<float>::denorm_min());
  EXPECT_EQ((smallest * smallest).ToSingle(), 0);
}
