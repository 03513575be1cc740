// The one rule for values: three ranges, their exact bounds, and rounding on the digits that are seen.
#include "analysis/FormatSigFigs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace {

template <class Number>
std::string Shown(Number value, int figures, const std::string& separator = ".") {
  return FormatSigFigs(value, ReportFormat{figures, NumberFormat{separator}});
}

template <class Number>
std::string InTable(Number value, int figures) {
  return TableNumber(value, ReportFormat{figures, NumberFormat{}});
}

// How often a text has a digit, a separator, a sign.
std::array<std::ptrdiff_t, 3> Characters(const std::string& text) {
  const std::ptrdiff_t digits = std::ranges::count_if(text, [](char c) { return c >= '0' && c <= '9'; });
  const std::ptrdiff_t separators = std::ranges::count(text, ',');
  return {digits, separators, static_cast<std::ptrdiff_t>(text.size()) - digits - separators};
}

template <class Number>
void ExpectNoLongerThanItsShape(Number value, const ReportFormat& format) {
  const std::string text = TableNumber(value, format);
  const std::optional<int> shape = NumberShape(double{value}, format);
  if (!shape) {
    EXPECT_TRUE(text.find('E') != std::string::npos || text == "overflow") << text;
    return;
  }
  ASSERT_TRUE(*shape >= 0 && *shape < NumNumberShapes) << value;
  const auto has = Characters(text), most = Characters(LongestOfShape(*shape, format));
  EXPECT_TRUE(has[0] <= most[0] && has[1] <= most[1] && has[2] <= most[2])
      << text << " is longer than " << LongestOfShape(*shape, format);
}

TEST(NumberShape, NoTextIsLongerThanThatOfItsShape) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> leading(1, 10), power(-10, 8);
  for (int figures = -1; figures <= 18; ++figures) {
    const ReportFormat format{figures, NumberFormat{","}};
    const auto expect = [&](double value) {
      for (const double v : {value, -value, std::nextafter(value, 0.0), std::nextafter(value, 2 * value)}) {
        ExpectNoLongerThanItsShape(v, format);
        ExpectNoLongerThanItsShape(static_cast<float>(v), format);
      }
    };
    for (const double ten :
         {1e-9, 1e-8, 1e-7, 1e-5, 1e-4, 1e-3, 1e-2, 0.1, 1.0, 10.0, 1e2, 1e3, 1e4, 1e5, 1e6}) {
      for (const double near : {1.0, 0.95, 0.949999, 0.9, 0.89999, 0.99, 0.995, 0.9999999, 1.0000001, 0.5})
        expect(ten * near);
    }
    for (int times = 0; times < 500; ++times)
      expect(leading(random) * std::pow(10, std::floor(power(random))));
  }
}

TEST(NumberShape, MostNumbersOfAMatrixAreAsLongAsTheirShape) {
  const ReportFormat format{4, NumberFormat{}};
  const auto longest = [&](double value) {
    return LongestOfShape(NumberShape(value, format).value(), format);
  };
  EXPECT_EQ(longest(0.70711), "0.0000");
  EXPECT_EQ(longest(-0.070711), std::string(1, '\x96') + "0.00000");
  EXPECT_EQ(longest(1), "0.000");
  EXPECT_EQ(longest(2500), "0000");
  EXPECT_EQ(longest(9999.9), "00000") << "it is rounded to five digits";
  EXPECT_EQ(longest(0), "0");
  EXPECT_EQ(longest(-1e-9), "0");
  for (const double none : {1e-5, 1e5, std::numeric_limits<double>::quiet_NaN()})
    EXPECT_FALSE(NumberShape(none, format));
}

}  // namespace

TEST(FormatSigFigs, ThreeFigures) {
  EXPECT_EQ(Shown(0.000000001, 3), "0");
  EXPECT_EQ(Shown(12345.0, 3), "12300");
  EXPECT_EQ(Shown(123456.0, 3), "1.23E+5");
  EXPECT_EQ(Shown(0.0000012345, 3), "1.23E-6");
  EXPECT_EQ(Shown(-2.5, 3), "-2.5");
  EXPECT_EQ(Shown(-0.0045, 3), "-0.0045");
  EXPECT_EQ(Shown(1.0, 3), "1");
  EXPECT_EQ(Shown(0.7071067811865476, 3), "0.707");
}

TEST(FormatSigFigs, EveryNumberOfFigures) {
  const double value = 1234.5678;
  EXPECT_EQ(Shown(value, 1), "1000");
  EXPECT_EQ(Shown(value, 2), "1200");
  EXPECT_EQ(Shown(value, 3), "1230");
  EXPECT_EQ(Shown(value, 4), "1235");
  EXPECT_EQ(Shown(value, 5), "1234.6");
  EXPECT_EQ(Shown(value, 6), "1234.57");
  EXPECT_EQ(Shown(value, 7), "1234.568");
  EXPECT_EQ(Shown(value * 1000, 7), "1.234568E+6");
  EXPECT_EQ(Shown(value * 1000, 1), "1.E+6");
}

TEST(FormatSigFigs, ScientificFormHasExactlyItsFiguresAndAShortExponent) {
  EXPECT_EQ(Shown(200000.0, 4), "2.000E+5");
  EXPECT_EQ(Shown(-123456.0, 3), "-1.23E+5");
  EXPECT_EQ(Shown(1.5e10, 4), "1.500E+10");
  EXPECT_EQ(Shown(1e100, 3), "1.00E+100");
  EXPECT_EQ(Shown(2e-8, 3), "2.00E-8");
  EXPECT_EQ(Shown(1e-5, 1), "1.E-5");
}

TEST(FormatSigFigs, BelowTheSmallestValueIsZero) {
  EXPECT_EQ(Shown(0.0, 3), "0");
  EXPECT_EQ(Shown(-0.0, 3), "0");
  EXPECT_EQ(Shown(-0.0F, 3), "0");
  EXPECT_EQ(Shown(-1e-9, 3), "0");
  EXPECT_EQ(Shown(9.999e-9, 3), "0");
  EXPECT_EQ(Shown(std::nextafter(1e-8, 0.0), 3), "0");
  EXPECT_EQ(Shown(1e-8, 3), "1.00E-8");
  EXPECT_EQ(Shown(-1e-8, 3), "-1.00E-8");
}

TEST(FormatSigFigs, TheUpperBoundOfPlainDecimalsIsScientific) {
  EXPECT_EQ(Shown(100000.0, 3), "1.00E+5");
  EXPECT_EQ(Shown(-100000.0, 3), "-1.00E+5");
  EXPECT_EQ(Shown(std::nextafter(100000.0, 0.0), 3), "100000");
  EXPECT_EQ(Shown(99999.0, 7), "99999");
}

TEST(FormatSigFigs, TheLowerBoundOfPlainDecimalsIsScientific) {
  EXPECT_EQ(Shown(1e-5, 3), "1.00E-5");
  EXPECT_EQ(Shown(-1e-5, 3), "-1.00E-5");
  EXPECT_EQ(Shown(std::nextafter(1e-5, 1.0), 3), "0.00001");
  EXPECT_EQ(Shown(0.0000123456, 3), "0.0000123");
}

TEST(FormatSigFigs, BoundsAreThoseOfTheValueBeforeItIsRounded) {
  EXPECT_EQ(Shown(99999.96, 4), "100000");
  EXPECT_EQ(Shown(99999.96, 7), "99999.96");
  EXPECT_EQ(Shown(0.00000999999, 3), "1.00E-5");
  EXPECT_EQ(Shown(999999.0, 3), "1.00E+6");
}

TEST(FormatSigFigs, SinglesAreComparedWithTheBoundsAsTheyAre) {
  // The singles nearest to 1E-08 and to 1E-05 lie just below them.
  EXPECT_EQ(Shown(1e-8F, 3), "0");
  EXPECT_EQ(Shown(std::nextafter(1e-8F, 1.0F), 3), "1.00E-8");
  EXPECT_EQ(Shown(1e-5F, 3), "1.00E-5");
  EXPECT_EQ(Shown(std::nextafter(1e-5F, 1.0F), 3), "0.00001");
  EXPECT_EQ(Shown(100000.0F, 3), "1.00E+5");
  EXPECT_EQ(Shown(std::nextafter(100000.0F, 0.0F), 7), "99999.99");
}

TEST(FormatSigFigs, SinglesShowTheDigitsOfASingle) {
  EXPECT_EQ(Shown(0.1F, 10), "0.1");
  EXPECT_EQ(Shown(double{0.1F}, 10), "0.1000000015");
  EXPECT_EQ(Shown(-0.6F, 7), "-0.6");
  EXPECT_EQ(Shown(std::numeric_limits<float>::max(), 4), "3.403E+38");
}

TEST(FormatSigFigs, TiesAreRoundedAwayFromZero) {
  EXPECT_EQ(Shown(2.5, 1), "3");
  EXPECT_EQ(Shown(-2.5, 1), "-3");
  EXPECT_EQ(Shown(0.125, 2), "0.13");
  EXPECT_EQ(Shown(1234.5, 4), "1235");
  EXPECT_EQ(Shown(12345.0, 4), "12350");
  EXPECT_EQ(Shown(122500.0, 3), "1.23E+5");
}

TEST(FormatSigFigs, TiesAreThoseOfTheDigitsThatAreSeen) {
  // In binary 1.005 lies below and 0.15F above the tie.
  EXPECT_EQ(Shown(1.005, 3), "1.01");
  EXPECT_EQ(Shown(0.35F, 1), "0.4");
  EXPECT_EQ(Shown(double{0.35F}, 1), "0.3");
}

TEST(FormatSigFigs, PlainDecimalsHaveNoTrailingZeros) {
  EXPECT_EQ(Shown(2.50, 7), "2.5");
  EXPECT_EQ(Shown(10.0, 7), "10");
  EXPECT_EQ(Shown(0.999999, 3), "1");
}

TEST(FormatSigFigs, TheSeparatorIsTheLocales) {
  EXPECT_EQ(Shown(0.5, 3, ","), "0,5");
  EXPECT_EQ(Shown(-1234.5, 7, ","), "-1234,5");
  EXPECT_EQ(Shown(123456.0, 3, ","), "1,23E+5");
  EXPECT_EQ(Shown(123456.0, 1, ","), "1,E+5");
  EXPECT_EQ(Shown(12345.0, 3, ","), "12300");
}

TEST(FormatSigFigs, FiguresThatMakeNoSenseCountAsTheNearestThatDo) {
  EXPECT_EQ(Shown(123456.0, 0), "1.E+5");
  EXPECT_EQ(Shown(123456.0, -3), "1.E+5");
  EXPECT_EQ(Shown(123456.0, 32767), Shown(123456.0, 17));
}

TEST(FormatSigFigs, AValueBeyondAllNumbersIsAnOverflow) {
  EXPECT_EQ(Shown(std::numeric_limits<double>::infinity(), 3), "overflow");
  EXPECT_EQ(Shown(-std::numeric_limits<float>::infinity(), 3), "overflow");
  EXPECT_EQ(Shown(std::numeric_limits<double>::quiet_NaN(), 3), "overflow");
}

TEST(TableNumber, ALeadingMinusIsAnEnDash) {
  EXPECT_EQ(InTable(-2.5, 3),
            "\x96"
            "2.5");
  EXPECT_EQ(InTable(-2.5F, 3),
            "\x96"
            "2.5");
  EXPECT_EQ(InTable(2.5, 3), "2.5");
  EXPECT_EQ(InTable(-0.0, 3), "0");
}

TEST(TableNumber, TheMinusOfAnExponentStays) {
  EXPECT_EQ(InTable(0.0000012345, 3), "1.23E-6");
  EXPECT_EQ(InTable(-0.0000012345, 3),
            "\x96"
            "1.23E-6");
}
