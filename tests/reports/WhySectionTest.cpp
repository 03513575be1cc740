// What the printable report says beyond its usual sections: what rounding has to do with the conclusion, and,
// where it is asked for, why the conclusion is what it is.
#include <gmock/gmock.h>

#include <algorithm>

#include "reports/RTBTable.h"
#include "support/PrintableReportFixture.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

// A rope that hangs straight; rounded directions contradict each other.
TrussBuilder TieOnASlope() {
  return TrussBuilder()
      .Member(0, 0, 1, 3, "AB")
      .Clamp(0, 0, "Ax", "Ay")
      .Force(1, 3, 100, 300)
      .Joint(0, 0, "A")
      .Joint(1, 3, "B");
}

class WhySectionTest : public PrintableReportTest {
 protected:
  std::string TextWithWhy(const Truss& truss) { return TextWith({ReportExtra::Why}, truss); }

  std::string TextWith(std::vector<ReportExtra> extras, Truss truss) {
    document_ = RecordingRichText(clipboard_);
    with_ = std::move(extras);
    truss.Settings.YMin = -4;  // so that reactions have room below the joints
    truss.View = DeriveView(truss.Settings, CanvasBounds());
    return TextOf(truss);
  }
};

TEST_F(WhySectionTest, ARemnantOfRoundingIsToldBehindTheConclusionUnasked) {
  const std::string text = TextOf(TieOnASlope());
  const std::size_t conclusion = text.find("unstable and will move.\n\nExactly, the system is redundant");
  ASSERT_NE(conclusion, std::string::npos) << text;
  EXPECT_THAT(text, EndsWith("and in the help under \"Exact and rounded verdicts\"."));
  EXPECT_EQ(document_.LinesThatAre(LineRole::Heading).back(), "The solution:");
}

TEST_F(WhySectionTest, StandsThereOnlyWhereItIsAskedFor) {
  const Truss truss = RollingTriangle().Force(4, 3, 100, 0);
  const std::string usual = TextOf(truss);
  EXPECT_THAT(usual, Not(HasSubstr("Why this conclusion:")));
  const std::string text = TextWithWhy(truss);
  ASSERT_TRUE(text.starts_with(usual)) << "what stood there before is the same";
  std::size_t from = usual.size();
  for (const char* part :
       {"Why this conclusion:", "The exact verdict:", "[x] movable", "No forces balance these loads",
        "This truss has 1 independent motion", "How it can move:", "Motion 1.  The whole truss",
        "Why no forces balance", "What would help:"}) {
    const std::size_t at = text.find(part, from);
    EXPECT_NE(at, std::string::npos) << part;
    if (at != std::string::npos) from = at;
  }
}

TEST_F(WhySectionTest, SaysItsHeadingsItsTableAndItsPictures) {
  TextWithWhy(RollingTriangle().Force(4, 3, 100, 0));
  const std::vector<std::string> headings = document_.LinesThatAre(LineRole::Heading);
  EXPECT_THAT(std::vector(headings.begin() + std::size(ReportHeadings), headings.end()),
              ElementsAre("Why this conclusion:", "The exact verdict:", "How it can move:",
                          "Why no forces balance the loads:", "What would help:"));
  EXPECT_THAT(document_.LinesThatAre(LineRole::TableHeader).back(), HasSubstr("self-stress"));
  const std::vector<std::string> joined = document_.LinesThatAre(LineRole::JoinedRow);
  EXPECT_THAT(joined, Contains(HasSubstr("[x] movable")));
  EXPECT_GE(joined.size(), 3U) << "all rows but the last one stay on the page of the next";
  ASSERT_EQ(document_.Descriptions.size(), 3U) << "two of the truss, one of its motion";
  EXPECT_THAT(document_.Descriptions[2], StartsWith("Drawing of the truss in motion 1, with an arrow"));
  EXPECT_THAT(document_.Descriptions[2], HasSubstr("The whole truss"));
}

TEST_F(WhySectionTest, EndsWithWhatRoundingHasToDoWithIt) {
  EXPECT_THAT(TextWithWhy(RollingTriangle()), Not(HasSubstr("What rounding has to do with it")));
  // Below it stand only the checks of the drawing, which find its loose end.
  const std::string whole = TextWithWhy(TieOnASlope());
  const std::string text = whole.substr(0, whole.find("\n\nChecks of the drawing:"));
  const std::vector<std::string> headings = document_.LinesThatAre(LineRole::Heading);
  EXPECT_EQ(headings[headings.size() - 2], "What rounding has to do with it:");
  EXPECT_THAT(text, HasSubstr("\"What rounding has to do with it\"")) << "the opening points to it";
  EXPECT_THAT(text.substr(0, text.find_last_not_of('\n') + 1),
              EndsWith("3.141E-6 on the right of a row without coefficients is a remnant of rounding, "
                       "about 1E-8 of the largest load."));
}

TEST_F(WhySectionTest, ATextStaysWithItsPicture) {
  TextWithWhy(RollingTriangle().Force(4, 3, 100, 0));
  EXPECT_THAT(document_.LinesThatAre(LineRole::Joined).back(), StartsWith("Motion 1.  The whole truss"));
}

// Who reads on paper has no menu before him.
TEST_F(WhySectionTest, TheNoticeSaysWhereToReadOnForPaper) {
  EXPECT_THAT(TextOf(TieOnASlope()), HasSubstr("In the program read on in the menu Learn"));
  const std::string text = TextWithWhy(TieOnASlope());
  EXPECT_THAT(text, HasSubstr("Read on further below under \"Why this conclusion\""));
  EXPECT_THAT(text, Not(HasSubstr("Read on under Learn")));
}

TEST_F(WhySectionTest, HasNoPictureWithoutAMotion) {
  EXPECT_THAT(TextWithWhy(Triangle()), EndsWith("are states of self-stress less motions, 0 - 0 = 0."));
  EXPECT_EQ(document_.Pictures.size(), 2U);
}

TEST_F(WhySectionTest, IsEndedByTheUserAtEveryStep) {
  int calls = 0;
  double done = 0;
  progress_ = [&](double part) {
    EXPECT_GE(part, done);
    done = part;
    return ++calls > 0;
  };
  TextWithWhy(RollingTriangle());
  EXPECT_EQ(done, 1);
  for (int last = 1; last < calls; ++last) {
    int left = last;
    progress_ = [&left](double) { return left-- > 1; };
    EXPECT_FALSE(Build(RollingTriangle())) << last;
  }
}

TEST_F(WhySectionTest, KeepsNamesOnTheirLines) {
  EXPECT_THAT(TextWithWhy(RollingTriangle().Member(8, 0, 12, 0, "C\rD\nE")), HasSubstr("CDE"));
}

TEST_F(WhySectionTest, ItsTableIsNoWiderThanThePaper) {
  for (const float room : {350.0F, 482.0F, 2000.0F}) {
    tableRoom_ = room;
    TextWithWhy(RollingTriangle());
    int found = 0;
    for (const TextRun& run : document_.Runs) {
      if (run.Text.find("[x]") == std::string::npos) continue;
      ++found;
      const std::vector<std::string> lines = document_.LinesThatAre(LineRole::JoinedRow);
      const std::string& line = *std::ranges::max_element(lines, {}, &std::string::size);
      const double width = static_cast<double>(line.size()) * double{run.Format.Points} * MonospacedAdvance;
      EXPECT_TRUE(width <= double{room} || run.Format.Points <= SmallestTablePoints);
    }
    EXPECT_EQ(found, 1);
  }
}

// A triangle with a strut whose end is loose, far away from its supports.
TrussBuilder WithALooseEnd() {
  return TrussBuilder()
      .Member(4, 4, 8, 4, "AB")
      .Member(8, 4, 6, 7, "BC")
      .Member(6, 7, 4, 4, "CA")
      .Member(6, 7, 10, 7, "CE")
      .Clamp(4, 4, "Ax", "Ay")
      .Roller(8, 4, "R")
      .Joint(10, 7, "E");
}

constexpr const char* LooseEnd = "Joint E at (10, 7) has one member and no support";

std::size_t NumTimes(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

TEST_F(WhySectionTest, HasWhatTheChecksOfTheDrawingFind) {
  const std::string text = TextWithWhy(WithALooseEnd());
  EXPECT_GT(text.find("Checks of the drawing:"), text.find("What would help:"));
  EXPECT_EQ(NumTimes(text, LooseEnd), 1U);
  EXPECT_THAT(TextWithWhy(RollingTriangle()), Not(HasSubstr("Checks of the drawing:")));
}

TEST_F(WhySectionTest, LeavesTheChecksToASectionOfTheirOwn) {
  const std::string usual = TextWith({}, WithALooseEnd());
  EXPECT_THAT(usual, Not(HasSubstr(LooseEnd)));
  const std::string alone = TextWith({ReportExtra::Checks}, WithALooseEnd());
  EXPECT_TRUE(alone.starts_with(usual));
  EXPECT_EQ(NumTimes(alone, LooseEnd), 1U);
  EXPECT_EQ(document_.LinesThatAre(LineRole::Heading).back(), "Checks of the drawing:");
  for (const auto& both : {std::vector{ReportExtra::Why, ReportExtra::Checks},
                           std::vector{ReportExtra::Checks, ReportExtra::Why}}) {
    const std::string text = TextWith(both, WithALooseEnd());
    EXPECT_EQ(NumTimes(text, LooseEnd), 1U);
    EXPECT_EQ(text.find("Why this conclusion:") < text.find(LooseEnd), both.front() == ReportExtra::Why);
  }
  EXPECT_THAT(TextWith({ReportExtra::Checks}, RollingTriangle()), EndsWith("Nothing was found."));
}

TEST(ReportExtras, EachHasAWordOfItsOwn) {
  for (const ReportExtraKind& kind : AllReportExtras) {
    EXPECT_EQ(ReportExtraNamed(kind.Word), kind.Extra);
    EXPECT_EQ(KindOf(kind.Extra).Word, kind.Word);
  }
  EXPECT_EQ(ReportExtraNamed("nothing"), std::nullopt);
  EXPECT_EQ(ReportExtraNamed(""), std::nullopt);
}

}  // namespace
