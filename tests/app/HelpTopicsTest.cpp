// Which help topic belongs to what, how topic paths are taken apart, and how the contents list is read.
#include "app/HelpTopics.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/TrussBuilder.h"

namespace {

using testing::ElementsAre;

std::string PageOf(const std::string& topic) { return PlaceOfHelpTopic("/program" + topic)->Page; }

TEST(HelpTopics, TheMenusTopicsStandAtTheirPaths) {
  EXPECT_EQ(std::string(ProgramHelpTopic), R"(\orvane.chm::index.htm)");
  EXPECT_EQ(std::string(TrussHelpTopic), R"(\orvane.chm::\truss help\truss_theory.htm)");
  EXPECT_EQ(std::string(MathHelpTopic), R"(\orvane.chm::\gauss help\backgd3.htm)");
}

TEST(HelpTopics, EachStepHasItsTopic) {
  EXPECT_EQ(PageOf(HelpTopicForStep(1, false)), "program/drawing.htm");
  EXPECT_EQ(PageOf(HelpTopicForStep(2, false)), "program/naming.htm");
  EXPECT_EQ(PageOf(HelpTopicForStep(3, false)), "program/reports.htm");
}

TEST(HelpTopics, TheInstructionsLeadToTheFirstPage) {
  EXPECT_EQ(PageOf(HelpTopicForStep(1, true)), "index.htm");
}

std::string PageOfReport(ReportKind report, Truss truss, bool owesToRounding = false) {
  return PageOf(HelpTopicForReport(report, SolveTruss(truss), owesToRounding));
}

TrussBuilder InLine() { return TrussBuilder().Member(0, 0, 2, 0).Member(2, 0, 4, 0).Clamp(0, 0).Clamp(4, 0); }

TEST(HelpTopics, AReportLeadsToWhatItConcludes) {
  const TrussBuilder unique = TrussBuilder().Member(0, 0, 4, 0).Clamp(0, 0).Roller(4, 0);
  const TrussBuilder redundant = TrussBuilder().Member(0, 0, 4, 0).Clamp(0, 0);
  const TrussBuilder undetermined = TrussBuilder().Member(0, 0, 4, 0).Clamp(0, 0).Clamp(4, 0);
  for (const ReportKind report : {ReportKind::RREF, ReportKind::Solutions}) {
    EXPECT_EQ(PageOfReport(report, unique), "truss help/conclusions.htm#unique");
    EXPECT_EQ(PageOfReport(report, redundant), "truss help/conclusions.htm#redundant");
    EXPECT_EQ(PageOfReport(report, InLine().Force(2, 0, 0, -1)), "truss help/conclusions.htm#inconsistent");
    EXPECT_EQ(PageOfReport(report, undetermined), "truss help/conclusions.htm#undetermined");
    EXPECT_EQ(PageOfReport(report, InLine().Force(2, 0, 1, 0)), "truss help/conclusions.htm#mixed");
    EXPECT_EQ(PageOfReport(report, unique, true), "truss help/exact.htm");
    EXPECT_EQ(PageOfReport(report, TrussBuilder()), "program/reports.htm");
  }
  for (const TrussBuilder& any : {unique, redundant, undetermined}) {
    EXPECT_EQ(PageOfReport(ReportKind::Counting, any), "truss help/determinacy.htm#count");
    EXPECT_EQ(PageOfReport(ReportKind::Equations, any), "gauss help/backgd3.htm") << "how to read a matrix";
  }
}

TEST(PlaceOfHelpTopic, TakesTheFileAndThePageApart) {
  EXPECT_EQ(PlaceOfHelpTopic(R"(/opt/orvane\orvane.chm::\truss help\truss_theory.htm)"),
            (HelpTopicPlace{"/opt/orvane/orvane.chm", "truss help/truss_theory.htm"}));
  EXPECT_EQ(PlaceOfHelpTopic(R"(C:/Programs/Orvane\orvane.chm::index.htm)"),
            (HelpTopicPlace{"C:/Programs/Orvane/orvane.chm", "index.htm"}));
}

TEST(PlaceOfHelpTopic, LeavesOddNamesOfDirectoriesAlone) {
  EXPECT_EQ(PlaceOfHelpTopic(R"(/a\b::c\orvane.chm::index.htm)"),
            (HelpTopicPlace{R"(/a\b::c/orvane.chm)", "index.htm"}));
}

TEST(PlaceOfHelpTopic, KeepsThePlaceOnThePage) {
  EXPECT_EQ(PageOf(R"(\orvane.chm::\program\reports.htm#equations)"), "program/reports.htm#equations");
}

TEST(PlaceOfHelpTopic, RefusesWhatNamesNoFileOrNoPage) {
  for (const char* path : {"", "orvane.chm", "::index.htm", "/a/orvane.chm::", R"(/a/orvane.chm::\\)"}) {
    EXPECT_EQ(PlaceOfHelpTopic(path), std::nullopt) << path;
  }
}

TEST(ReadHelpContents, ReadsListsWithinLists) {
  const auto entries = ReadHelpContents(R"(<HTML><BODY><UL>
    <LI><OBJECT type="text/sitemap"><param name="Name" value="Book"></OBJECT>
    <UL>
      <li><object type="text/sitemap"><PARAM name="Name" value="Pins &amp; &quot;&lt;rods&gt;&quot;">
        <param name="Local" value="truss help/pins.htm#a"></object>
    </UL>
    <LI><OBJECT type="text/sitemap"><param name="Name" value="Last"><param name="Local" value="z.htm"></OBJECT>
    </UL></BODY></HTML>)");
  EXPECT_THAT(entries, ElementsAre(HelpContentsEntry{0, "Book", ""},
                                   HelpContentsEntry{1, "Pins & \"<rods>\"", "truss help/pins.htm#a"},
                                   HelpContentsEntry{0, "Last", "z.htm"}));
}

TEST(ReadHelpContents, SurvivesWhatIsNoContentsList) {
  EXPECT_THAT(ReadHelpContents(""), ElementsAre());
  EXPECT_THAT(ReadHelpContents("<param name=\"Name\" value=\"x\"> </UL></UL> text < <UL"), ElementsAre());
  EXPECT_THAT(ReadHelpContents("</UL><OBJECT><param name=\"Name\" value=\"half"),
              ElementsAre(HelpContentsEntry{0, "", ""}));
  EXPECT_THAT(ReadHelpContents("<OBJECT><param name=\"Name\" value=\"half>"),
              ElementsAre(HelpContentsEntry{0, "half", ""}));
}

}  // namespace
