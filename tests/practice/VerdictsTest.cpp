// What a number is worth against the solution.
#include "practice/Verdicts.h"

#include <gtest/gtest.h>

#include "PracticeFixture.h"

namespace {

TEST(Verdict, IsRightWithinOnePercentAndCloseWithinFive) {
  for (const double sign : {1.0, -1.0}) {
    const auto of = [&](double given) { return JudgeValue(sign * given, sign * 500, 1000); };
    EXPECT_EQ(of(500), Verdict::Right);
    EXPECT_EQ(of(505), Verdict::Right) << "just one percent";
    EXPECT_EQ(of(495), Verdict::Right);
    EXPECT_EQ(of(505.01), Verdict::Close);
    EXPECT_EQ(of(494.9), Verdict::Close);
    EXPECT_EQ(of(525), Verdict::Close) << "just five percent";
    EXPECT_EQ(of(475), Verdict::Close);
    EXPECT_EQ(of(525.1), Verdict::Wrong);
    EXPECT_EQ(of(474.9), Verdict::Wrong);
    EXPECT_EQ(of(0), Verdict::Wrong);
  }
}

TEST(Verdict, OfZeroIsMeasuredAgainstTheLargestForce) {
  for (const double solution : {0.0, 1e-5, -3e-5}) {
    EXPECT_EQ(JudgeValue(0, solution, 1000), Verdict::Right);
    EXPECT_EQ(JudgeValue(1, solution, 1000), Verdict::Right) << "a thousandth of the largest force";
    EXPECT_EQ(JudgeValue(-1, solution, 1000), Verdict::Right);
    EXPECT_EQ(JudgeValue(1.1, solution, 1000), Verdict::Close);
    EXPECT_EQ(JudgeValue(5.1, solution, 1000), Verdict::Wrong);
  }
  EXPECT_EQ(JudgeValue(0, 0.5, 1000), Verdict::Wrong) << "a small force is not 0";
  EXPECT_EQ(JudgeValue(0, 0, 0), Verdict::Right) << "nothing is loaded";
  EXPECT_EQ(JudgeValue(1, 0, 0), Verdict::Wrong);
}

TEST(Verdict, TellsTheWrongSense) {
  EXPECT_EQ(JudgeValue(-500, 500, 1000), Verdict::Sense);
  EXPECT_EQ(JudgeValue(504, -500, 1000), Verdict::Sense);
  EXPECT_EQ(JudgeValue(520, -500, 1000), Verdict::Wrong) << "the size is not right either";
}

TEST(Verdict, TellsAPowerOfTen) {
  for (const double given : {0.5, 5.0, 50.0, 5000.0, 50000.0, 4999.0, 5.02})
    EXPECT_EQ(JudgeValue(given, 500, 1000), Verdict::Power) << given;
  EXPECT_EQ(JudgeValue(-50, 500, 1000), Verdict::Wrong) << "the sense is wrong, too";
  EXPECT_EQ(JudgeValue(55, 500, 1000), Verdict::Wrong);
}

TEST(Verdict, OfNothingIsEmpty) { EXPECT_EQ(JudgeValue(std::nullopt, 500, 1000), Verdict::Empty); }

TEST(Verdict, HasTheWordThatProgramsRead) {
  EXPECT_STREQ(VerdictWord(Verdict::Right), "right");
  EXPECT_STREQ(VerdictWord(Verdict::Close), "close");
  EXPECT_STREQ(VerdictWord(Verdict::Sense), "sense");
  EXPECT_STREQ(VerdictWord(Verdict::Power), "power");
  EXPECT_STREQ(VerdictWord(Verdict::Wrong), "wrong");
  EXPECT_STREQ(VerdictWord(Verdict::Empty), "empty");
}

TEST(Verdict, OfTheSolutionsThemselvesIsRight) {
  const AskedTruss asked = Asked(RoundTriangle());
  const Table<Verdict> verdicts = Judge(asked.Solutions, asked.Solutions);
  for (int k = 1; k <= verdicts.Size(); ++k) EXPECT_EQ(verdicts[k], Verdict::Right) << k;
}

TEST(Verdict, OfAForceThatIsNotDeterminedIsEmpty) {
  ForceValues given(1), solutions(1);
  given[1] = 5;
  EXPECT_EQ(Judge(given, solutions)[1], Verdict::Empty);
}

bool CountsTension(const std::map<std::string, double>& answers) {
  const AskedTruss asked = Asked(RoundTriangle());
  const ForceValues given = ValuesOf(asked.Graph, answers);
  return CountsTensionPositive(asked.Graph, Judge(given, asked.Solutions), asked.Solutions);
}

TEST(CountingTensionPositive, IsToldWhenEveryMemberIsTurned) {
  EXPECT_TRUE(CountsTension(AnswersWith({{"AB", 375}, {"AC", -625}, {"BC", -625}})));
  EXPECT_TRUE(CountsTension({{"AB", 375}, {"AC", -625}})) << "nothing is said of the third";
}

TEST(CountingTensionPositive, IsNotToldOfASlip) {
  EXPECT_FALSE(CountsTension(RightAnswers()));
  EXPECT_FALSE(CountsTension(AnswersWith({{"AB", 375}})));
  EXPECT_FALSE(CountsTension(AnswersWith({{"AB", 375}, {"AC", -625}, {"BC", -600}})));
  EXPECT_FALSE(CountsTension({{"AB", 375}})) << "one alone may be a slip";
  EXPECT_FALSE(CountsTension({{"Ay", -500}, {"B", -500}})) << "reactions have no tension";
  EXPECT_FALSE(CountsTension({}));
}

}  // namespace
