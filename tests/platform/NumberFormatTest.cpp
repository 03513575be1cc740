// The locale's separator and the decimals that ruler labels need.
#include "platform/NumberFormat.h"

namespace {

const NumberFormat Period{"."};
const NumberFormat Comma{","};
const NumberFormat Other{"'"};

}  // namespace

TEST(DecimalSeparator, IsNamedAfterTheSecondCharacterOfOnePointTwo) {
  EXPECT_EQ(DecimalSeparator(Period), "period");
  EXPECT_EQ(DecimalSeparator(Comma), "comma");
  EXPECT_EQ(DecimalSeparator(Other), "unknown");
}

TEST(DecimalSeparator, OfAnEmptyTextIsUnknown) { EXPECT_EQ(DecimalSeparator(NumberFormat{""}), "unknown"); }

TEST(DecimalPlaces, AreThoseOfTheNumberThatNeedsMore) {
  EXPECT_EQ(DecimalPlaces(0.25F, 0, Period), 2);
  EXPECT_EQ(DecimalPlaces(1, -2.5F, Period), 1);
  EXPECT_EQ(DecimalPlaces(-2.5F, 0.125F, Period), 3);
  EXPECT_EQ(DecimalPlaces(0.125F, -2.5F, Period), 3);
  EXPECT_EQ(DecimalPlaces(2, 0, Period), 0);
  EXPECT_EQ(DecimalPlaces(0.1F, 0.2F, Period), 1);
}

TEST(DecimalPlaces, CountUnderACommaToo) { EXPECT_EQ(DecimalPlaces(0.25F, -2.5F, Comma), 2); }

TEST(DecimalPlaces, AreNoneUnderAnUnknownSeparator) {
  EXPECT_EQ(DecimalPlaces(0.25F, -2.5F, Other), 0);
  EXPECT_EQ(DecimalPlaces(0.25F, -2.5F, NumberFormat{""}), 0);
  EXPECT_EQ(DecimalPlaces(0.25F, -2.5F, NumberFormat{"',"}), 0);
}

TEST(DecimalPlaces, CountEveryCharacterBehindTheSeparator) {
  EXPECT_EQ(DecimalPlaces(2.5E-7F, 0, Period), 4);  // "5E-7"
  EXPECT_EQ(DecimalPlaces(1E-7F, 0, Period), 0);    // "1E-7" has no separator
  EXPECT_EQ(DecimalPlaces(0.00001F, 0, Period), 5);
}
