// The section of the printable report that solves the truss joint by joint.
#include <gmock/gmock.h>

#include "support/PrintableReportFixture.h"

namespace {

class ByJointSectionTest : public PrintableReportTest {
 protected:
  std::string TextWithJoints(const Truss& truss) {
    document_ = RecordingRichText(clipboard_);
    with_ = {ReportExtra::ByJoint};
    return TextOf(truss);
  }
};

TEST_F(ByJointSectionTest, StandsBehindTheSolutionWhereItIsAskedFor) {
  const std::string usual = TextOf(Triangle());
  EXPECT_EQ(usual.find("Joint by joint:"), std::string::npos);
  const std::string text = TextWithJoints(Triangle());
  ASSERT_TRUE(text.starts_with(usual)) << "what stood there before is the same";
  std::size_t from = usual.size();
  for (const char* part : {"Joint by joint:", "Every member is assumed to push", "1.  Reactions",
                           "Moments about joint A", "2.  Joint A", "A - y, forces up = forces down:",
                           "3.  Joint B", "4.  Joint C", "which holds", "Every force is found."}) {
    const std::size_t at = text.find(part, from);
    ASSERT_NE(at, std::string::npos) << part;
    from = at;
  }
}

TEST_F(ByJointSectionTest, KeepsTheHeadingOfAStepWithWhatFollows) {
  TextWithJoints(Triangle());
  const std::vector<std::string> joined = document_.LinesThatAre(LineRole::Joined);
  EXPECT_THAT(joined, testing::Contains("1.  Reactions"));
  EXPECT_THAT(joined, testing::Contains("2.  Joint A"));
}

TEST_F(ByJointSectionTest, HasAPictureOfEachStepWithItsWords) {
  TextWithJoints(Triangle());
  ASSERT_EQ(document_.Descriptions.size(), 6U) << "two of the truss, four of the steps";
  EXPECT_THAT(document_.Descriptions[3], testing::StartsWith("Joint A alone, and what acts on it: "));
}

TEST_F(ByJointSectionTest, IsEndedByTheUserAtEveryStep) {
  int numAsked = 0;
  with_ = {ReportExtra::ByJoint};
  progress_ = [&numAsked](double) {
    ++numAsked;
    return true;
  };
  EXPECT_TRUE(Build(Triangle()));
  const int all = numAsked;
  for (int most = all - 4; most < all; ++most) {
    document_ = RecordingRichText(clipboard_);
    numAsked = 0;
    progress_ = [&numAsked, most](double) { return ++numAsked <= most; };
    EXPECT_FALSE(Build(Triangle())) << most;
  }
}

}  // namespace
