// How a student may write a force.
#include "practice/Answer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::HasSubstr;
using testing::Optional;

Answer ReadAnswer(const char* text, AnswerOf of = AnswerOf::Member, const char* separator = ".") {
  return ReadAnswer(text, of, NumberFormat{separator});
}

TEST(Answer, IsASignedNumberWithCompressionPositive) {
  EXPECT_THAT(ReadAnswer("1875").Value, Optional(1875));
  EXPECT_THAT(ReadAnswer("-1875").Value, Optional(-1875));
  EXPECT_THAT(ReadAnswer("+12.5").Value, Optional(12.5));
  EXPECT_THAT(ReadAnswer("  7e2 ").Value, Optional(700));
}

TEST(Answer, IsAMagnitudeWithTOrC) {
  EXPECT_THAT(ReadAnswer("1875 T").Value, Optional(-1875));
  EXPECT_THAT(ReadAnswer("1875T").Value, Optional(-1875));
  EXPECT_THAT(ReadAnswer("1875 t").Value, Optional(-1875));
  EXPECT_THAT(ReadAnswer("1875 C").Value, Optional(1875));
  EXPECT_THAT(ReadAnswer("0.5c").Value, Optional(0.5));
  EXPECT_THAT(ReadAnswer("0 T").Value, Optional(0));
}

TEST(Answer, TrailingZerosNeverMatter) {
  EXPECT_EQ(ReadAnswer("625").Value, ReadAnswer("625.000").Value);
  EXPECT_EQ(ReadAnswer("0.50 T").Value, ReadAnswer(".5 T").Value);
}

TEST(Answer, TakesTheDashesOfTablesAndBlanksThatCannotBreak) {
  EXPECT_THAT(ReadAnswer("\xE2\x80\x93"
                         "375")
                  .Value,
              Optional(-375))
      << "en dash";
  EXPECT_THAT(ReadAnswer("\xE2\x88\x92"
                         "375")
                  .Value,
              Optional(-375))
      << "minus sign";
  EXPECT_THAT(ReadAnswer("375\xC2\xA0T").Value, Optional(-375));
}

TEST(Answer, HasTheNumbersOfTheLocale) {
  EXPECT_THAT(ReadAnswer("707,1 C", AnswerOf::Member, ",").Value, Optional(testing::DoubleNear(707.1, 1e-4)));
  EXPECT_TRUE(ReadAnswer("707,1").IsWrong());
  EXPECT_TRUE(ReadAnswer("1.875", AnswerOf::Member, ",").IsWrong()) << "may be a group of thousands";
}

TEST(Answer, ASignAndALetterContradictEachOther) {
  for (const char* text : {"-5 T", "-5C", "+5 T",
                           "\xE2\x80\x93"
                           "5 C"}) {
    EXPECT_FALSE(ReadAnswer(text).Value) << text;
    EXPECT_THAT(ReadAnswer(text).Why, HasSubstr("has a sign and a letter")) << text;
  }
}

TEST(Answer, ReactionsAreNeitherInTensionNorInCompression) {
  EXPECT_THAT(ReadAnswer("500", AnswerOf::Reaction).Value, Optional(500));
  EXPECT_THAT(ReadAnswer("500 T", AnswerOf::Reaction).Why, HasSubstr("for members, not for reactions"));
}

TEST(Answer, OfBlanksAloneIsEmpty) {
  for (const char* text : {"", "   ", "\t", "\xC2\xA0"}) EXPECT_TRUE(ReadAnswer(text).IsEmpty()) << text;
  EXPECT_FALSE(ReadAnswer("0").IsEmpty());
}

TEST(Answer, AnythingElseIsNoForce) {
  for (const char* text :
       {"T", "C", "abc", "5 K", "5 T T", "5..2", "nan", "inf", "0x10", "1e99", "--5", "5 000", "="}) {
    EXPECT_TRUE(ReadAnswer(text).IsWrong()) << text;
    EXPECT_FALSE(ReadAnswer(text).Value) << text;
  }
}

}  // namespace
