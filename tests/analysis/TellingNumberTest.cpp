// No number is written as 0 or 1 that is neither.
#include "analysis/TellingNumber.h"

#include <gtest/gtest.h>

#include <cmath>

TEST(TellingNumber, Only0IsWrittenAs0) {
  EXPECT_EQ(NumberNot0(0, {}), "0");
  EXPECT_EQ(NumberNot0(-2.66453526e-15, {}), "-2.665E-15");
  EXPECT_EQ(NumberNot0(2.66e-15, {.SigFigs = 2, .Numbers = {","}}), "2,7E-15");
  EXPECT_EQ(NumberNot0(1.00001, {}), "1");
}

TEST(TellingNumber, Only1IsWrittenAs1) {
  EXPECT_EQ(NumberNot1(1, {}), "1");
  EXPECT_EQ(NumberNot1(-1, {}), "-1");
  EXPECT_EQ(NumberNot1(0.99997778, {}), "0.99998");
  EXPECT_EQ(NumberNot1(-1.0000321, {}), "-1.00003");
  EXPECT_EQ(NumberNot1(0.99997778, {.SigFigs = 1, .Numbers = {","}}), "0,99998");
  EXPECT_EQ(NumberNot1(0.9, {.SigFigs = 1, .Numbers = {}}), "0.9");
  EXPECT_EQ(NumberNot1(1.2, {.SigFigs = 1, .Numbers = {}}), "1.2");
  EXPECT_NE(NumberNot1(std::nextafter(1, 0), {}), "1");
  EXPECT_NE(NumberNot1(std::nextafter(1, 2), {}), "1");
}

TEST(TellingNumber, OtherNumbersAreAsInReports) {
  for (const double value : {0.70710678, -12345.678, 1234567.0, 2.0, 1.01, 0.99})
    EXPECT_EQ(NumberNot1(value, {}), FormatSigFigs(value, {}));
}
