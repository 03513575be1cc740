// Building the printable report: a clipboard that others hold, paper, progress, and trusses of every kind.
#include <gmock/gmock.h>

#include "support/PrintableReportFixture.h"
#include "support/RandomTruss.h"

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

namespace {

class BuildingAReport : public PrintableReportTest {};

}  // namespace

TEST_F(BuildingAReport, IsBuiltWhenTheFirstThreeTriesOfTheClipboardFail) {
  clipboard_.FailuresOfPicture = 3;
  EXPECT_TRUE(Build(Triangle()));
  EXPECT_THAT(clock_.Pauses, ElementsAre(100, 100, 100));
  EXPECT_THAT(messages_.Shown, IsEmpty());
  EXPECT_THAT(document_.Pictures, SizeIs(2));
}

TEST_F(BuildingAReport, WithoutTheClipboardItHasNoPicturesButAllTheRest) {
  clipboard_.FailuresOfClear = 1000;
  EXPECT_TRUE(Build(Triangle()));
  EXPECT_EQ(state_, BuiltReport::LacksAPicture);
  EXPECT_THAT(clock_.Pauses, SizeIs(20));
  EXPECT_THAT(messages_.Shown, SizeIs(2));
  EXPECT_THAT(document_.Pictures, IsEmpty());
  for (const char* heading : ReportHeadings) EXPECT_THAT(document_.Text(), HasSubstr(heading));
  EXPECT_THAT(Section("The solution:"), StartsWith("Force  Value"));
}

TEST_F(BuildingAReport, OnePictureThatIsMissingIsMissed) {
  clipboard_.FailuresOfPicture = ClipboardRetries + 1;
  EXPECT_TRUE(Build(Triangle()));
  EXPECT_THAT(document_.Pictures, SizeIs(1));
  EXPECT_EQ(state_, BuiltReport::LacksAPicture);
  document_ = RecordingRichText(clipboard_);
  EXPECT_TRUE(Build(Triangle()));
  EXPECT_EQ(state_, BuiltReport::Whole);
}

TEST_F(BuildingAReport, ATrussWithNothingToDrawLacksNoPicture) {
  EXPECT_TRUE(Build(TrussBuilder()));
  EXPECT_EQ(state_, BuiltReport::Whole);
}

TEST_F(BuildingAReport, SaysWhatItsLinesAre) {
  Truss truss = Triangle();
  truss.FileName = "a.trs";
  EXPECT_TRUE(Build(truss));
  EXPECT_THAT(document_.LinesThatAre(LineRole::Title), ElementsAre("Orvane"));
  EXPECT_THAT(document_.LinesThatAre(LineRole::Heading), ElementsAreArray(ReportHeadings));
  EXPECT_THAT(document_.LinesThatAre(LineRole::TableHeader),
              ElementsAre(StartsWith("Eqn."), StartsWith("Eqn."), StartsWith("Force")));
  EXPECT_THAT(document_.LinesThatAre(LineRole::TableRow), SizeIs(3 * 6));
}

TEST_F(BuildingAReport, TheEquationsOfAJointBelongTogether) {
  EXPECT_TRUE(Build(Triangle()));
  EXPECT_THAT(document_.LinesThatAre(LineRole::Joined),
              ElementsAre("Equations for joint A", HasSubstr("right"), "Equations for joint B",
                          HasSubstr("right"), "Equations for joint C", HasSubstr("right")));
  EXPECT_THAT(document_.LinesThatAre(LineRole::JoinedLast),
              ElementsAre(HasSubstr("up"), HasSubstr("up"), HasSubstr("up")));
}

TEST_F(BuildingAReport, EveryBlockOfATableHasItsHeader) {
  tableRoom_ = 60;
  EXPECT_TRUE(Build(Triangle()));
  const auto headers = document_.LinesThatAre(LineRole::TableHeader);
  EXPECT_GE(headers.size(), 5U);
  EXPECT_EQ(document_.LinesThatAre(LineRole::TableRow).size(), headers.size() * 6);
}

TEST_F(BuildingAReport, ThePicturesSayWhatTheyShow) {
  EXPECT_TRUE(Build(Triangle()));
  EXPECT_THAT(
      document_.Descriptions,
      ElementsAre(AllOf(HasSubstr("3 members, 3 joints, 2 supports (1 clamp, 1 roller) and 1 applied"),
                        EndsWith("Names are not shown.")),
                  AllOf(HasSubstr("3 members, 3 joints"), EndsWith("are named."))));
}

TEST_F(BuildingAReport, TablesAreFittedToPaper) {
  tableRoom_ = 60;  // 16 characters at 6 points
  EXPECT_TRUE(Build(Triangle()));
  EXPECT_THAT(Section("The augmented matrix for this system of equations:"),
              StartsWith("Eqn.  Ax  Ay  By\n"
                         "A-x    1   0   0\n"));
  EXPECT_EQ(document_.FormatOfText("Eqn.  Ax  Ay  By").Points, 6);
  EXPECT_EQ(document_.FormatOfText("Force  Value").Points, 8);
}

TEST_F(BuildingAReport, ProgressRunsToTheEndAndIsToldOften) {
  std::vector<double> told;
  progress_ = [&](double done) {
    told.push_back(done);
    return true;
  };
  EXPECT_TRUE(Build(Triangle()));
  EXPECT_TRUE(std::ranges::is_sorted(told));
  EXPECT_GT(told.front(), 0);
  EXPECT_DOUBLE_EQ(told.back(), 1);
  // Two pictures, three joints, and the rows of three tables of seven.
  EXPECT_GE(told.size(), 2U + 3U + 3U * 7U);
}

TEST_F(BuildingAReport, ProgressEndsAtOneWhateverTheOutcome) {
  double last = 0;
  progress_ = [&](double done) {
    last = done;
    return true;
  };
  EXPECT_TRUE(Build(RollingTriangle().Force(4, 3, 0, -600)));
  EXPECT_DOUBLE_EQ(last, 1);
  EXPECT_TRUE(Build(RollingTriangle().Force(4, 3, 100, 0)));
  EXPECT_DOUBLE_EQ(last, 1);
}

TEST_F(BuildingAReport, CanBeEndedAtAnyMoment) {
  std::string whole = TextOf(Triangle());
  int numCalls = 0;
  progress_ = [&](double) { return ++numCalls > 0; };
  document_ = RecordingRichText(clipboard_);
  EXPECT_TRUE(Build(Triangle()));
  std::size_t lastSize = 0;
  for (int last = 1; last <= numCalls; ++last) {
    document_ = RecordingRichText(clipboard_);
    int calls = 0;
    progress_ = [&](double) { return ++calls < last; };
    EXPECT_FALSE(Build(Triangle()));
    EXPECT_EQ(calls, last) << "nothing is told after the end";
    EXPECT_TRUE(whole.starts_with(document_.Text()));
    EXPECT_GE(document_.Text().size(), lastSize);
    lastSize = document_.Text().size();
  }
}

TEST_F(BuildingAReport, IsTheSameForTheSameTruss) {
  EXPECT_TRUE(Build(Triangle()));
  const std::vector<TextRun> runs = document_.Runs;
  document_ = RecordingRichText(clipboard_);
  EXPECT_TRUE(Build(Triangle()));
  EXPECT_EQ(document_.Runs, runs);
}

TEST_F(BuildingAReport, EveryRandomTrussHasAReport) {
  RandomTruss random(7);
  for (int i = 0; i < 60; ++i) {
    const Truss truss = random.Next();
    document_ = RecordingRichText(clipboard_);
    tableRoom_ = i % 2 == 0 ? 0.0F : 480.0F;
    EXPECT_TRUE(Build(truss));
    std::vector<std::string> headings;
    for (const TextRun& run : document_.VisibleRuns()) {
      if (run.Format.Colour == 4) headings.push_back(run.Text);
    }
    EXPECT_THAT(headings, ElementsAreArray(ReportHeadings));
  }
}

TEST_F(BuildingAReport, WithoutUnknownForcesItHasItsHeadings) {
  EXPECT_TRUE(Build(TrussBuilder()));
  for (const char* heading : ReportHeadings) EXPECT_THAT(document_.Text(), HasSubstr(heading));
  document_ = RecordingRichText(clipboard_);
  EXPECT_TRUE(Build(TrussBuilder().Force(1, 2, 3, 4)));
}
