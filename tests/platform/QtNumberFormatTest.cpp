// Number conventions as they come from the toolkit's locales.
#include "platform/qt/QtNumberFormat.h"

#include <gtest/gtest.h>

namespace {

TEST(NumberFormatOf, TakesPeriodAndCommaAsTheyAre) {
  EXPECT_EQ(NumberFormatOf(QLocale(QLocale::English, QLocale::UnitedStates)).DecimalSeparator, ".");
  EXPECT_EQ(NumberFormatOf(QLocale(QLocale::German, QLocale::Germany)).DecimalSeparator, ",");
  EXPECT_FALSE(NumberFormatOf(QLocale(QLocale::German, QLocale::Germany)).IsSeparatorReplaced);
}

TEST(NumberFormatOf, ASeparatorOutsideTheCodePageIsWrittenAsAPeriodAndRulersAreWhole) {
  const QLocale arabic(QLocale::Arabic, QLocale::Egypt);
  ASSERT_EQ(QString(arabic.decimalPoint()), QString(QChar(0x066B)));
  const NumberFormat numbers = NumberFormatOf(arabic);
  EXPECT_EQ(numbers.DecimalSeparator, ".");
  EXPECT_EQ(DecimalSeparator(numbers), "unknown");
  EXPECT_EQ(DecimalPlaces(0.25F, -2.5F, numbers), 0);
}

}  // namespace
