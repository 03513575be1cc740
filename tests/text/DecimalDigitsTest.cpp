// Shortest digits, and rounding on them: ties go away from zero.
#include "text/DecimalDigits.h"

#include <cmath>
#include <limits>

#include "text/NumberText.h"

namespace {

template <class Float>
void ExpectDigits(Float value, const std::string& digits, int exponent, bool negative = false) {
  const DecimalDigits found = DecimalDigits::Of(value);
  EXPECT_EQ(found.Digits, digits) << value;
  EXPECT_EQ(found.Exponent, exponent) << value;
  EXPECT_EQ(found.Negative, negative) << value;
}

std::string Significant(double value, int count) {
  DecimalDigits digits = DecimalDigits::Of(value);
  digits.RoundToSignificant(count);
  return PlainText(digits, ".");
}

std::string Decimals(double value, int decimals) {
  DecimalDigits digits = DecimalDigits::Of(value);
  digits.RoundToDecimals(decimals);
  return PlainText(digits, ".");
}

}  // namespace

TEST(DecimalDigits, AreTheFewestThatReadBack) {
  ExpectDigits(0.1, "1", 0);
  ExpectDigits(0.1F, "1", 0);
  ExpectDigits(0.05F, "5", -1);
  ExpectDigits(-1234.5, "12345", 4, true);
  ExpectDigits(100.0, "1", 3);
  ExpectDigits(16777216.0F, "16777216", 8);
  ExpectDigits(1.0 / 3, "3333333333333333", 0);
}

TEST(DecimalDigits, OfASingleAndOfTheSameDoubleDiffer) {
  ExpectDigits(0.1F, "1", 0);
  ExpectDigits(double{0.1F}, "10000000149011612", 0);
}

TEST(DecimalDigits, ReachTheEndsOfTheRange) {
  ExpectDigits(1e22, "1", 23);
  ExpectDigits(std::numeric_limits<double>::max(), "17976931348623157", 309);
  ExpectDigits(std::numeric_limits<double>::denorm_min(), "5", -323);
  ExpectDigits(std::numeric_limits<float>::max(), "34028235", 39);
  ExpectDigits(std::numeric_limits<float>::min(), "11754944", -37);
  ExpectDigits(std::numeric_limits<float>::denorm_min(), "1", -44);
}

TEST(DecimalDigits, OfBothZerosAreNoneWithoutASign) {
  ExpectDigits(0.0, "", 0);
  ExpectDigits(-0.0F, "", 0);
  EXPECT_TRUE(DecimalDigits::Of(-0.0).IsZero());
  EXPECT_EQ(DecimalDigits::Of(0.0).DigitAt(0), '0');
}

TEST(DecimalDigits, DigitAtCountsPowersOfTen) {
  const DecimalDigits digits = DecimalDigits::Of(305.27);
  EXPECT_EQ(digits.DigitAt(3), '0');
  EXPECT_EQ(digits.DigitAt(2), '3');
  EXPECT_EQ(digits.DigitAt(1), '0');
  EXPECT_EQ(digits.DigitAt(0), '5');
  EXPECT_EQ(digits.DigitAt(-1), '2');
  EXPECT_EQ(digits.DigitAt(-2), '7');
  EXPECT_EQ(digits.DigitAt(-3), '0');
}

TEST(DecimalDigits, TiesInDecimalsGoAwayFromZero) {
  EXPECT_EQ(Decimals(0.125, 2), "0.13");
  EXPECT_EQ(Decimals(-0.125, 2), "-0.13");
  EXPECT_EQ(Decimals(0.375, 2), "0.38");
  EXPECT_EQ(Decimals(2.5, 0), "3");
  EXPECT_EQ(Decimals(-2.5, 0), "-3");
  EXPECT_EQ(Decimals(0.5, 0), "1");
}

TEST(DecimalDigits, TiesAreThoseOfTheShortestDigitsNotOfTheBinaryValue) {
  EXPECT_EQ(Decimals(2.675, 2), "2.68");  // in binary a little below
  EXPECT_EQ(Decimals(1.005, 2), "1.01");  // in binary a little below
  EXPECT_EQ(Decimals(0.15, 1), "0.2");
  EXPECT_EQ(Decimals(2.6749999, 2), "2.67");
  EXPECT_EQ(Decimals(0.4999999999999999, 0), "0");
}

TEST(DecimalDigits, ACarryRunsThroughNines) {
  EXPECT_EQ(Decimals(9.995, 2), "10");
  EXPECT_EQ(Decimals(0.9999, 3), "1");
  EXPECT_EQ(Decimals(199.95, 1), "200");
  EXPECT_EQ(Significant(99999, 4), "100000");
  EXPECT_EQ(Significant(0.099996, 4), "0.1");
}

TEST(DecimalDigits, ValuesBelowThePlaceRoundToTheirHalf) {
  EXPECT_EQ(Decimals(0.05, 1), "0.1");
  EXPECT_EQ(Decimals(0.049, 1), "0");
  EXPECT_EQ(Decimals(0.009, 1), "0");
  EXPECT_EQ(Decimals(-0.009, 1), "0");
  EXPECT_EQ(Decimals(5e-324, 3), "0");
}

TEST(DecimalDigits, SignificantDigitsCountFromTheFirst) {
  EXPECT_EQ(Significant(123456, 3), "123000");
  EXPECT_EQ(Significant(1235, 3), "1240");
  EXPECT_EQ(Significant(0.00012345, 4), "0.0001235");
  EXPECT_EQ(Significant(12, 4), "12");
  EXPECT_EQ(Significant(7, 0), "10");
  EXPECT_EQ(Significant(4, 0), "0");
}

TEST(DecimalDigits, EveryThousandthRoundsAsItsDecimalsSay) {
  for (int n = 0; n < 100000; ++n) {
    const int hundredths = (n + 5) / 10;
    std::string expected = std::to_string(hundredths / 100) + ".";
    expected += static_cast<char>('0' + hundredths / 10 % 10);
    expected += static_cast<char>('0' + hundredths % 10);
    ASSERT_EQ(FixedText(n / 1000.0, 2), expected) << n;
    ASSERT_EQ(FixedText(static_cast<float>(n) / 1000.0F, 2), expected) << n;
    ASSERT_EQ(FixedText(n / -1000.0, 2), (hundredths == 0 ? "" : "-") + expected) << n;
  }
}
