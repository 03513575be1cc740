// The section of the printable report that tells the elimination step by step.
#include <gmock/gmock.h>

#include "support/PrintableReportFixture.h"

namespace {

class StepsSectionTest : public PrintableReportTest {
 protected:
  std::string TextWithSteps(const Truss& truss) {
    document_ = RecordingRichText(clipboard_);
    with_ = {ReportExtra::Steps};
    return TextOf(truss);
  }
};

// Diagonals and chords over a row of joints, on a clamp and a roller.
Truss LongStrip(int numPanels) {
  TrussBuilder builder;
  for (int i = 0; i < numPanels; ++i) {
    const auto x = static_cast<float>(2 * i);
    builder.Member(x, 0, x + 2, 0).Member(x, 0, x + 1, 2).Member(x + 1, 2, x + 2, 0);
    if (i > 0) builder.Member(x - 1, 2, x + 1, 2);
  }
  const auto end = static_cast<float>(2 * numPanels);
  return builder.Clamp(0, 0).Roller(end, 0).Force(2, 0, 0, -1000);
}

TEST_F(StepsSectionTest, StandsBehindTheSolutionWhereItIsAskedFor) {
  const std::string usual = TextOf(Triangle());
  EXPECT_EQ(usual.find("Elimination, step by step:"), std::string::npos);
  const std::string text = TextWithSteps(Triangle());
  ASSERT_TRUE(text.starts_with(usual)) << "what stood there before is the same";
  std::size_t from = usual.size();
  for (const char* part :
       {"Elimination, step by step:", "decimals and not as fractions", "1.  The pivot is the coefficient of ",
        " becomes ", "Every unknown has its pivot.", "Every number smaller than 1E-10", "The rows are read.",
        "says what the unknown of that column is: Ax = 0"}) {
    const std::size_t at = text.find(part, from);
    ASSERT_NE(at, std::string::npos) << part;
    from = at;
  }
}

// The reasons stand before the steps on the same paper, or in the program only.
TEST_F(StepsSectionTest, TheLastStepSaysWhereToReadOnForPaper) {
  const Truss tie = TrussBuilder().Member(0, 0, 1, 3, "AB").Clamp(0, 0, "Ax", "Ay").Force(1, 3, 100, 300);
  const std::string alone = TextWithSteps(tie);
  const auto lastStep = [](const std::string& text) { return text.substr(text.find("The rows are read.")); };
  EXPECT_THAT(lastStep(alone), testing::HasSubstr("In the program read on in the menu Learn"));
  document_ = RecordingRichText(clipboard_);
  with_ = {ReportExtra::Why, ReportExtra::Steps};
  EXPECT_THAT(lastStep(TextOf(tie)),
              testing::HasSubstr("Read on further above under \"Why this conclusion\""));
}

TEST_F(StepsSectionTest, TellsOfALongEliminationOnlyThePivots) {
  const std::string text = TextWithSteps(LongStrip(16));
  EXPECT_THAT(text, testing::HasSubstr(" steps, which would fill too many pages: only the pivots follow"));
  EXPECT_EQ(text.find(" becomes "), std::string::npos);
}

TEST_F(StepsSectionTest, LeavesOutThePivotsThatWouldFillABookAndSaysSo) {
  const std::string text = TextWithSteps(LongStrip(160));
  EXPECT_THAT(text,
              testing::HasSubstr("Of systems with more than 200 equations or unknowns only the pivots"));
  EXPECT_THAT(text, testing::HasSubstr("\n500.  "));
  EXPECT_EQ(text.find("\n501.  "), std::string::npos);
  EXPECT_THAT(text, testing::HasSubstr("And 142 more pivots, which would fill too many pages."));
}

TEST_F(StepsSectionTest, IsEndedByTheUserAtEveryLine) {
  int numAsked = 0;
  with_ = {ReportExtra::Steps};
  progress_ = [&numAsked](double) {
    ++numAsked;
    return true;
  };
  EXPECT_TRUE(Build(Triangle()));
  const int all = numAsked;
  for (int most = all - 10; most < all; ++most) {
    document_ = RecordingRichText(clipboard_);
    numAsked = 0;
    progress_ = [&numAsked, most](double) { return ++numAsked <= most; };
    EXPECT_FALSE(Build(Triangle())) << most;
  }
}

}  // namespace
