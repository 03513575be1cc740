// Number conventions as they come from the toolkit's locales.
#include "platform/qt/QtNumberFormat.h"

#include <gtest/gtest.h>

namespace {

TEST(QtNumberFormat, PeriodAndCommaAreTakenAsTheyAre) {
  const QLocale english(QLocale::English, QLocale::UnitedStates);
  const QLocale german(QLocale::German, QLocale::Germany);
  EXPECT_EQ(NumbersOf(english).DecimalSeparator, ".");
  EXPECT_EQ(RulerNumbersOf(english).DecimalSeparator, ".");
  EXPECT_EQ(NumbersOf(german).DecimalSeparator, ",");
  EXPECT_EQ(DecimalPlaces(0.25F, -2.5F, RulerNumbersOf(german)), 2);
}

TEST(QtNumberFormat, ASeparatorOutsideTheCodePageIsWrittenAsAPeriodButRulersAreWhole) {
  const QLocale arabic(QLocale::Arabic, QLocale::Egypt);
  ASSERT_EQ(QString(arabic.decimalPoint()), QString(QChar(0x066B)));
  EXPECT_EQ(NumbersOf(arabic).DecimalSeparator, ".");
  EXPECT_EQ(DecimalSeparator(RulerNumbersOf(arabic)), "unknown");
  EXPECT_EQ(DecimalPlaces(0.25F, -2.5F, RulerNumbersOf(arabic)), 0);
}

}  // namespace
