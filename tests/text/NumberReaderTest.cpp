// Typed numbers: what counts as a number under which decimal separator.
#include "text/NumberReader.h"

#include <limits>

namespace {

using testing::Optional;

std::optional<float> UnderPeriod(std::string_view text) { return ReadTypedNumber(text, "."); }
std::optional<float> UnderComma(std::string_view text) { return ReadTypedNumber(text, ","); }

TEST(NumberReader, ReadsWholeNumbersAndDecimals) {
  EXPECT_THAT(UnderPeriod("20"), Optional(20.0F));
  EXPECT_THAT(UnderPeriod("-0.5"), Optional(-0.5F));
  EXPECT_THAT(UnderPeriod("+3"), Optional(3.0F));
  EXPECT_THAT(UnderPeriod(".5"), Optional(0.5F));
  EXPECT_THAT(UnderPeriod("5."), Optional(5.0F));
  EXPECT_THAT(UnderPeriod("1.500"), Optional(1.5F));
}

TEST(NumberReader, ReadsExponentForms) {
  EXPECT_THAT(UnderPeriod("1e3"), Optional(1000.0F));
  EXPECT_THAT(UnderPeriod("2.5E-4"), Optional(2.5e-4F));
  EXPECT_THAT(UnderComma("2,5E+9"), Optional(2.5e9F));
}

TEST(NumberReader, OuterBlanksDoNotMatter) {
  EXPECT_THAT(UnderPeriod("  7\t"), Optional(7.0F));
  EXPECT_THAT(UnderPeriod("7\r\n"), Optional(7.0F));
  EXPECT_THAT(UnderPeriod("\xA0"
                          "7"),
              Optional(7.0F))
      << "a no-break space, pasted along";
}

TEST(NumberReader, BlankTextIsNoNumber) {
  EXPECT_EQ(UnderPeriod(""), std::nullopt);
  EXPECT_EQ(UnderPeriod("   "), std::nullopt);
}

class NotANumber : public testing::TestWithParam<const char*> {};

TEST_P(NotANumber, IsRefusedUnderEitherSeparator) {
  EXPECT_EQ(UnderPeriod(GetParam()), std::nullopt);
  EXPECT_EQ(UnderComma(GetParam()), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Texts, NotANumber,
                         testing::Values("abc", "5 m", "1 5", "- 5", "--5", ".", ",", "-", "+", "e3", "1e",
                                         "1e+", "1e3.5", "0x10", "inf", "-inf", "infinity", "nan", "NaN",
                                         "1d3", "5%", "1.2.3", "1,2,3", "1'500", "1 500",
                                         "1\xA0"
                                         "500",
                                         "1_500", "(5)", "1.500,5", "1,500.5", "5-", "&H10", "#5", "?5"));

TEST(NumberReader, AGroupSeparatorIsRefusedWhereThePeriodIsDecimal) {
  EXPECT_EQ(UnderPeriod("1,500"), std::nullopt);
  EXPECT_EQ(UnderPeriod("0,5"), std::nullopt);
}

TEST(NumberReader, TheSeparatorOfTheLocaleIsDecimal) {
  EXPECT_THAT(UnderComma("0,5"), Optional(0.5F));
  EXPECT_THAT(UnderComma("-1,500"), Optional(-1.5F));
  EXPECT_THAT(UnderComma(",5"), Optional(0.5F));
}

TEST(NumberReader, UnderACommaAPeriodIsDecimalWhereItCannotGroupThousands) {
  EXPECT_THAT(UnderComma("0.5"), Optional(0.5F));
  EXPECT_THAT(UnderComma("1.25"), Optional(1.25F));
  EXPECT_THAT(UnderComma("12.3456"), Optional(12.3456F));
  EXPECT_THAT(UnderComma(".500"), Optional(0.5F));
  EXPECT_THAT(UnderComma("1."), Optional(1.0F));
  EXPECT_THAT(UnderComma("1234.500"), Optional(1234.5F)) << "a first group has at most three digits";
  EXPECT_THAT(UnderComma("-0.125"), Optional(-0.125F)) << "a first group does not begin with 0";
  EXPECT_THAT(UnderComma("1.5e3"), Optional(1500.0F));
}

TEST(NumberReader, UnderACommaAPeriodThatCouldGroupThousandsIsRefused) {
  EXPECT_EQ(UnderComma("1.500"), std::nullopt);
  EXPECT_EQ(UnderComma("-12.500"), std::nullopt);
  EXPECT_EQ(UnderComma(" +123.456 "), std::nullopt);
  EXPECT_EQ(UnderComma("1.500e2"), std::nullopt);
  EXPECT_EQ(UnderComma("1.500.000"), std::nullopt);
}

TEST(NumberReader, ValuesBeyondSinglePrecisionAreRefused) {
  EXPECT_THAT(UnderPeriod("3.4028235e38"), Optional(std::numeric_limits<float>::max()));
  EXPECT_EQ(UnderPeriod("3.5e38"), std::nullopt);
  EXPECT_EQ(UnderPeriod("-1e39"), std::nullopt);
  EXPECT_EQ(UnderPeriod("1e999999999999999999999"), std::nullopt);
}

TEST(NumberReader, ValuesTooSmallForASingleBecomeZero) { EXPECT_THAT(UnderPeriod("1e-60"), Optional(0.0F)); }

TEST(NumberReader, VeryLongTextsAreReadOrRefusedLikeOthers) {
  EXPECT_THAT(UnderPeriod("0." + std::string(10'000, '1')), Optional(0.111111112F));
  EXPECT_EQ(UnderPeriod(std::string(10'000, '1')), std::nullopt);
  EXPECT_EQ(UnderPeriod(std::string(10'000, '-')), std::nullopt);
}

TEST(NumberReader, ASeparatorOfItsOwnIsFollowed) {
  EXPECT_THAT(ReadTypedNumber("1'5", "'"), Optional(1.5F));
  EXPECT_THAT(ReadTypedNumber("1.5", "'"), Optional(1.5F));
  EXPECT_THAT(ReadTypedNumber("1.5", ""), Optional(1.5F));
}

}  // namespace
