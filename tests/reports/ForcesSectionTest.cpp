// The forces as a section of the printable report.
#include <gmock/gmock.h>

#include "support/PrintableReportFixture.h"

namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class ForcesSectionTest : public PrintableReportTest {
 protected:
  std::string TextWith(const Truss& truss, const std::vector<ReportExtra>& with) {
    document_ = RecordingRichText(clipboard_);
    with_ = with;
    return TextOf(truss);
  }
};

TEST_F(ForcesSectionTest, IsAPictureUnderItsHeadingWhereItIsAskedFor) {
  const std::string usual = TextOf(Triangle());
  EXPECT_THAT(usual, Not(HasSubstr("The forces on the truss:")));
  const std::string text = TextWith(Triangle(), {ReportExtra::Forces});
  EXPECT_THAT(text, StartsWith(usual));
  EXPECT_EQ(document_.LinesThatAre(LineRole::Heading).back(), "The forces on the truss:");
  ASSERT_EQ(document_.Pictures.size(), 3U);
  EXPECT_LE(document_.Pictures[2].Frame().Width(), 640) << "no wider than a page";
  ASSERT_EQ(document_.Descriptions.size(), 3U);
  EXPECT_THAT(document_.Descriptions[2], StartsWith("Drawing of the truss with its forces: "));
}

TEST_F(ForcesSectionTest, StandsInTheOrderThatIsAskedFor) {
  const std::string text = TextWith(Triangle(), {ReportExtra::Why, ReportExtra::Forces});
  EXPECT_LT(text.find("Why this conclusion:"), text.find("The forces on the truss:"));
  const std::string other = TextWith(Triangle(), {ReportExtra::Forces, ReportExtra::Why});
  EXPECT_GT(other.find("Why this conclusion:"), other.find("The forces on the truss:"));
}

TEST_F(ForcesSectionTest, IsEndedByTheUser) {
  with_ = {ReportExtra::Forces};
  double last = 0;
  progress_ = [&last](double part) {
    last = part;
    return true;
  };
  EXPECT_TRUE(Build(Triangle()));
  EXPECT_EQ(last, 1);
}

}  // namespace
