// The general form, the fixed patterns, and reading numbers back.
#include "text/NumberText.h"

#include <bit>
#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr float LargestSingle = std::numeric_limits<float>::max();

void ExpectNoNumber(const std::string& text) {
  EXPECT_EQ(ReadSingle(text), std::nullopt) << text;
  EXPECT_EQ(ReadDouble(text), std::nullopt) << text;
}

}  // namespace

TEST(GeneralText, ShowsTheShortestDigitsThatReadBack) {
  EXPECT_EQ(GeneralText(0.1F), "0.1");
  EXPECT_EQ(GeneralText(0.1), "0.1");
  EXPECT_EQ(GeneralText(-0.5F), "-0.5");
  EXPECT_EQ(GeneralText(20.0F), "20");
  EXPECT_EQ(GeneralText(1234.567F), "1234.567");
  EXPECT_EQ(GeneralText(1.0F / 3), "0.33333334");
  EXPECT_EQ(GeneralText(1.0 / 3), "0.3333333333333333");
}

TEST(GeneralText, OfBothZerosIsZero) {
  EXPECT_EQ(GeneralText(0.0F), "0");
  EXPECT_EQ(GeneralText(-0.0F), "0");
  EXPECT_EQ(GeneralText(-0.0), "0");
}

TEST(GeneralText, TakesAnExponentOutsideThePlainRange) {
  EXPECT_EQ(GeneralText(9999999.0F), "9999999");
  EXPECT_EQ(GeneralText(1e7F), "1E+7");
  EXPECT_EQ(GeneralText(2.5e9F), "2.5E+9");
  EXPECT_EQ(GeneralText(1e-5F), "0.00001");
  EXPECT_EQ(GeneralText(9.5e-6F), "9.5E-6");
  EXPECT_EQ(GeneralText(1e14), "100000000000000");
  EXPECT_EQ(GeneralText(1e15), "1E+15");
  EXPECT_EQ(GeneralText(-1e22), "-1E+22");
}

TEST(GeneralText, ReachesTheEndsOfTheRange) {
  EXPECT_EQ(GeneralText(LargestSingle), "3.4028235E+38");
  EXPECT_EQ(GeneralText(std::numeric_limits<float>::denorm_min()), "1E-45");
  EXPECT_EQ(GeneralText(std::numeric_limits<double>::denorm_min()), "5E-324");
}

TEST(GeneralText, ShowsTheSeparatorItIsGiven) {
  EXPECT_EQ(GeneralText(1.2F, ","), "1,2");
  EXPECT_EQ(GeneralText(2.5e9F, ","), "2,5E+9");
  EXPECT_EQ(GeneralText(1e9F, ","), "1E+9");
}

TEST(GeneralText, OfAnySingleReadsBackToItsBits) {
  constexpr std::uint32_t seed = 20260101;
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  for (int i = 0; i < 200000; ++i) {
    const auto bits = static_cast<std::uint32_t>(random());
    const auto value = std::bit_cast<float>(bits);
    if (!std::isfinite(value) || value == 0) continue;
    const auto read = ReadSingle(GeneralText(value));
    ASSERT_TRUE(read) << value;
    ASSERT_EQ(std::bit_cast<std::uint32_t>(*read), bits) << value;
  }
}

TEST(GeneralText, OfAnyDoubleInSingleRangeReadsBackToItsValue) {
  constexpr std::uint32_t seed = 20260102;
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  for (int i = 0; i < 50000; ++i) {
    const double value =
        std::ldexp(static_cast<double>(random()) + static_cast<double>(random()) / 4294967296.0,
                   static_cast<int>(random() % 180U) - 90);
    ASSERT_EQ(ReadDouble(GeneralText(value)), value);
  }
}

TEST(SevenDigitText, RoundsASingleToSevenDigitsAtMost) {
  EXPECT_EQ(SevenDigitText(1.0 / 3), "0.3333333");
  EXPECT_EQ(SevenDigitText(2.0 / 3), "0.6666667");
  EXPECT_EQ(SevenDigitText(1234567.5), "1234568");
  EXPECT_EQ(SevenDigitText(53.13010235), "53.1301");
  EXPECT_EQ(SevenDigitText(0.1F), "0.1");
  EXPECT_EQ(SevenDigitText(-0.5), "-0.5");
  EXPECT_EQ(SevenDigitText(-0.0), "0");
  EXPECT_EQ(SevenDigitText(100), "100");
}

TEST(SevenDigitText, TakesAnExponentOutsideThePlainRangeOfSingles) {
  EXPECT_EQ(SevenDigitText(9999999), "9999999");
  EXPECT_EQ(SevenDigitText(9999999.7), "1E+7");
  EXPECT_EQ(SevenDigitText(16777217), "1.677722E+7");
  EXPECT_EQ(SevenDigitText(1e-5), "0.00001");
  EXPECT_EQ(SevenDigitText(-2.5e-7), "-2.5E-7");
}

TEST(SevenDigitText, OfTheLargestSingleIsANumberAgain) {
  EXPECT_EQ(SevenDigitText(double{LargestSingle}), "3.402823E+38");
  EXPECT_TRUE(ReadSingle(SevenDigitText(double{LargestSingle})));
}

TEST(SevenDigitText, BeyondSinglesKeepsTheSize) { EXPECT_EQ(SevenDigitText(-6e38), "-6E+38"); }

TEST(SevenDigitText, OfWhatIsTooSmallForASingleIsZero) { EXPECT_EQ(SevenDigitText(1e-60), "0"); }

TEST(SevenDigitText, ShowsTheSeparatorItIsGiven) { EXPECT_EQ(SevenDigitText(0.25, ","), "0,25"); }

TEST(ScientificText, HasOneDigitBeforeTheSeparator) {
  DecimalDigits digits = DecimalDigits::Of(-0.0045);
  EXPECT_EQ(ScientificText(digits, 3, "."), "-4.50E-3");
  EXPECT_EQ(ScientificText(DecimalDigits::Of(12300.0), 3, ","), "1,23E+4");
  EXPECT_EQ(ScientificText(DecimalDigits::Of(10000.0), 1, "."), "1.E+4");
  EXPECT_EQ(ScientificText(DecimalDigits::Of(0.0), 3, "."), "0.00E+0");
}

TEST(FixedText, HasExactlyTheDecimalsAskedFor) {
  EXPECT_EQ(FixedText(0.25, 2), "0.25");
  EXPECT_EQ(FixedText(3.0, 2), "3.00");
  EXPECT_EQ(FixedText(0.0, 2), "0.00");
  EXPECT_EQ(FixedText(0.0, 0), "0");
  EXPECT_EQ(FixedText(-12.5, 1, ","), "-12,5");
  EXPECT_EQ(FixedText(1e22, 0), "10000000000000000000000");
}

TEST(FixedText, RoundsTiesAwayFromZeroOnTheDigitsSeen) {
  EXPECT_EQ(FixedText(9.995, 2), "10.00");
  EXPECT_EQ(FixedText(0.05F, 1), "0.1");
  EXPECT_EQ(FixedText(2.5F, 0), "3");
  EXPECT_EQ(FixedText(-0.5, 0), "-1");
}

TEST(FixedText, OfWhatRoundsToZeroHasNoSign) {
  EXPECT_EQ(FixedText(-0.04, 1), "0.0");
  EXPECT_EQ(FixedText(-0.0F, 1), "0.0");
}

TEST(SharpText, ShowsAtMostOneDecimalAndAlwaysTheSeparator) {
  EXPECT_EQ(SharpText(12), "12.");
  EXPECT_EQ(SharpText(0.5F), ".5");
  EXPECT_EQ(SharpText(12.34F), "12.3");
  EXPECT_EQ(SharpText(0.05F), ".1");
  EXPECT_EQ(SharpText(0.95F), "1.");
  EXPECT_EQ(SharpText(100.04F), "100.");
  EXPECT_EQ(SharpText(0.04F), ".");
  EXPECT_EQ(SharpText(12, ","), "12,");
}

TEST(ReadNumber, TakesASignDigitsAPeriodAndAnExponent) {
  EXPECT_EQ(ReadSingle("0"), 0.0F);
  EXPECT_EQ(ReadSingle("20"), 20.0F);
  EXPECT_EQ(ReadSingle("+20"), 20.0F);
  EXPECT_EQ(ReadSingle(".5"), 0.5F);
  EXPECT_EQ(ReadSingle("-.5"), -0.5F);
  EXPECT_EQ(ReadSingle("+.5"), 0.5F);
  EXPECT_EQ(ReadSingle("5."), 5.0F);
  EXPECT_EQ(ReadSingle("007"), 7.0F);
  EXPECT_EQ(ReadSingle("1E3"), 1000.0F);
  EXPECT_EQ(ReadSingle("1e+3"), 1000.0F);
  EXPECT_EQ(ReadSingle("-2.5E-4"), -2.5E-4F);
  EXPECT_EQ(ReadSingle("5.E2"), 500.0F);
}

TEST(ReadNumber, RefusesEverythingElse) {
  for (const char* text :
       {"",     "+",     "-",   ".",    "-.",  "e5",    ".e5", "1e",   "1e+",   "1e-",   "1.2.3", "--1",
        "+-1",  "-+1",   "1-",  "1,5",  "1 ",  " 1",    "1 2", "nan",  "NaN",   "inf",   "-inf",  "Infinity",
        "0x10", "0x1p3", "1p3", "&H10", "1d5", "12abc", "1f",  "1.5#", "1'000", "1_000", "1e5.5", "#TRUE#"}) {
    ExpectNoNumber(text);
  }
  ExpectNoNumber(std::string("1\0", 2));
}

TEST(ReadNumber, BeyondSinglePrecisionDoesNotConvert) {
  EXPECT_EQ(ReadSingle("3.4028235E38"), LargestSingle);
  EXPECT_EQ(ReadSingle("-3.4028235E38"), -LargestSingle);
  ExpectNoNumber("3.5E38");
  ExpectNoNumber("-1E39");
  ExpectNoNumber("1E99999999999999999999");
  ExpectNoNumber(std::string(60, '9'));
}

TEST(ReadNumber, TooSmallForTheTypeBecomesZero) {
  EXPECT_EQ(ReadSingle("1E-45"), std::numeric_limits<float>::denorm_min());
  EXPECT_EQ(ReadSingle("1E-50"), 0.0F);
  EXPECT_EQ(ReadSingle("-1E-99999999999999999999"), 0.0F);
  EXPECT_EQ(ReadSingle("0." + std::string(400, '0') + "1"), 0.0F);
  EXPECT_EQ(ReadDouble("1E-50"), 1E-50);
  EXPECT_EQ(ReadDouble("1E-400"), 0.0);
}

TEST(ReadNumber, ManyDigitsAndLargeExponentsMayMeetInTheMiddle) {
  EXPECT_EQ(ReadSingle("0." + std::string(60, '0') + "1e61"), 1.0F);
  EXPECT_EQ(ReadSingle("1" + std::string(60, '0') + "e-60"), 1.0F);
  EXPECT_EQ(ReadSingle("0e99999999999"), 0.0F);
  EXPECT_EQ(ReadSingle("0.000e-99999999999"), 0.0F);
  EXPECT_EQ(ReadDouble("0.1000000000000000055511151231257827021181583404541015625"), 0.1);
}

TEST(ReadNumber, RoundsASingleOnlyOnce) {
  // Just above the middle between 1 and the next single; by way of a double it would fall on the middle and
  // then to 1.
  EXPECT_EQ(ReadSingle("1.00000005960464477539062500001"), std::nextafter(1.0F, 2.0F));
}
