// A class's answers, marked.
#include "practice/Marking.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "PracticeFixture.h"
#include "practice/ForceNames.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

MarkedClass Mark(const std::string& answers) {
  return MarkAnswers(answers, {Asked(RoundTriangle())}, TrussColumn::None, {});
}

std::string Marks(const std::string& answers) {
  const std::vector<AskedTruss> asked = {Asked(RoundTriangle())};
  return MarksAsCsv(MarkAnswers(answers, asked, TrussColumn::None, {}), asked);
}

TEST(Marking, GivesAVerdictOnEachForceAndTheTwoMarks) {
  EXPECT_EQ(Marks("student,AB,AC,BC,Ax,Ay,B\n"
                  "Ann,375 T,625 C,625,0,500,500\n"
                  "Bob,-375,626,-625,0.5,5000,\n"
                  "Cem,380,600,3,4,5,6\n"),
            "student,Ax,Ay,B,AB,AC,BC,strict,followed,judged,slip\r\n"
            "Ann,right,right,right,right,right,right,6,3,3,\r\n"
            "Bob,right,power,empty,right,right,sense,3,0,2,A\r\n"
            "Cem,wrong,power,wrong,wrong,close,wrong,0,0,3,A\r\n");
}

TEST(Marking, ReadsSpreadsheetsWithDecimalCommas) {
  const std::string expected = Marks("student,AB,AC,Ay\nAnn,-375.5,625.25,500\n");
  EXPECT_EQ(Marks("\xEF\xBB\xBFstudent;AB;AC;Ay\r\nAnn;-375,5;625,25;500\r\n"), expected);
  EXPECT_EQ(Marks("student\tAB\tAC\tAy\nAnn\t-375,5\t625,25\t500\n"), expected);
  EXPECT_EQ(Marks("student,AB,AC,Ay\nAnn,\"-375,5\",\"625,25\",500\n"), expected);
}

TEST(Marking, FollowsAStudentsOwnNumbers) {
  const MarkedClass marked = Mark("student,Ax,Ay,B,AB,AC,BC\nAnn,0,400,600,-450,500,750\n");
  ASSERT_EQ(marked.Students.size(), 1U);
  EXPECT_EQ(marked.Students[0].NumRight, 1);
  EXPECT_EQ(marked.Students[0].NumBalanced, 1) << "B, with his reaction there";
  EXPECT_EQ(marked.Students[0].NumJudged, 3);
}

TEST(Marking, NamesWhatCannotBeReadAndMarksTheOthers) {
  const MarkedClass marked = Mark(
      "student,AB,AC,zz,AC\n"
      "Ann,-375,625,,\n"
      "Bob,abc,625\n"
      "Cem,-5 T,1\n"
      ",1,2\n"
      "Ann,1,2\n"
      "Dan,1,2,3,4,5\n"
      "Eve,-375,625\n");
  EXPECT_THAT(
      marked.Problems,
      ElementsAre("line 1, column 4 (zz): no force has this name; the column is not read",
                  "line 1, column 5 (AC): this column is there twice; only the first one is read",
                  "line 3, column 2 (AB): \"abc\" is not a number; the line is left out",
                  "line 4, column 2 (AB): \"-5 T\" has a sign and a letter: write a magnitude with T or C, "
                  "or a signed number; the line is left out",
                  "line 5, column 1 (student): there is no student; the line is left out",
                  "line 6, column 1 (student): \"Ann\" is in line 2 already; the line is left out",
                  "line 7, column 6: this column has no heading; the line is left out"));
  ASSERT_EQ(marked.Students.size(), 2U);
  EXPECT_EQ(marked.Students[0].Student, "Ann");
  EXPECT_EQ(marked.Students[1].Student, "Eve");
}

TEST(Marking, WritesNamesAsTextEvenWhereTheyLookLikeFormulas) {
  EXPECT_THAT(Marks("student,AB\n=HYPERLINK(1),1\n"), HasSubstr("\r\n'=HYPERLINK(1),"));
}

std::vector<AskedTruss> TwoTrusses() {
  const Truss tie = TrussBuilder()
                        .Member(0, 0, 4, 0, "AB")
                        .Clamp(0, 0, "Ax", "Ay")
                        .Roller(4, 0, "R")
                        .Force(4, 0, 70, 0)
                        .Joint(0, 0, "A")
                        .Joint(4, 0, "B");
  return {Asked(RoundTriangle(), "one/triangle.trs"), Asked(tie, "two/tie.trs")};
}

TEST(Marking, OfSeveralFilesTellsThemByTheirColumn) {
  const std::vector<AskedTruss> asked = TwoTrusses();
  const MarkedClass marked = MarkAnswers(
      "student,file,AB,AC,R\n"
      "Ann,one/triangle.trs,-375,625,\n"
      "Ann,two/tie.trs,-70,,0\n"
      "Bob,tie.trs,70,,0\n"
      "Cem,other.trs,1,,\n"
      "Dan,tie.trs,1,2,\n",
      asked, TrussColumn::File, {});
  EXPECT_THAT(marked.Problems,
              ElementsAre("line 5, column 2 (file): there is no file \"other.trs\"; the line is left out",
                          "line 6, column 4 (AC): \"two/tie.trs\" has no such force; the line is left out"));
  EXPECT_EQ(MarksAsCsv(marked, asked),
            "student,file,Ax,Ay,B,AB,AC,BC,R,strict,followed,judged,slip\r\n"
            "Ann,one/triangle.trs,empty,empty,empty,right,right,empty,,2,0,0,\r\n"
            "Ann,two/tie.trs,empty,empty,,right,,,right,2,1,1,\r\n"
            "Bob,two/tie.trs,empty,empty,,sense,,,right,1,0,1,B\r\n");
}

TEST(Marking, OfOneFileTakesTheColumnWhenItIsThere) {
  EXPECT_EQ(Marks("student,file,AB\nAnn,triangle.trs,-375\nBob,other.trs,-375\n"),
            "student,file,Ax,Ay,B,AB,AC,BC,strict,followed,judged,slip\r\n"
            "Ann,triangle.trs,empty,empty,empty,right,empty,empty,1,0,0,\r\n");
}

TEST(Marking, OfSeveralFilesNeedsTheColumn) {
  const MarkedClass marked = MarkAnswers("student,AB\nAnn,1\n", TwoTrusses(), TrussColumn::File, {});
  EXPECT_THAT(marked.Problems, ElementsAre(HasSubstr("no column \"file\"")));
  EXPECT_THAT(marked.Students, IsEmpty());
}

TEST(Marking, AStudentHasOneVariant) {
  std::vector<AskedTruss> asked = {Asked(RoundTriangle(), "1"), Asked(RoundTriangle(), "2")};
  const MarkedClass marked =
      MarkAnswers("student,variant,AB\nAnn,1,-375\nAnn,2,-375\nBob,2,1\nCem,3,1\nDan,02,1\n", asked,
                  TrussColumn::Variant, {});
  EXPECT_THAT(marked.Problems,
              ElementsAre(HasSubstr("line 3, column 1 (student): \"Ann\" is in line 2 already"),
                          HasSubstr("there is no variant \"3\""), HasSubstr("there is no variant \"02\"")));
  EXPECT_EQ(marked.Students.size(), 2U);
}

TEST(Marking, RefusesVariantsWhereThereAreNone) {
  const MarkedClass marked = Mark("student,variant,AB\nAnn,1,-375\n");
  EXPECT_THAT(
      marked.Problems,
      ElementsAre("line 1, column 2 (variant): --variants and --seed must say which variants these are"));
  EXPECT_THAT(marked.Students, IsEmpty());
}

TEST(Marking, TakesHeadingsThatBeginWithACapital) {
  EXPECT_EQ(Marks("Student,File,AB\nAnn,triangle.trs,-375\n"),
            Marks("student,file,AB\nAnn,triangle.trs,-375\n"));
}

TEST(Marking, FollowsOneWhoCountsTensionPositiveInHisOwnWay) {
  EXPECT_THAT(Marks("student,AB,AC,BC,Ax,Ay,B\nBob,375,-625,-625,0,500,500\n"),
              HasSubstr("Bob,right,right,right,sense,sense,sense,3,3,3,\r\n"));
}

TEST(Marking, NamesALongCellByItsBeginning) {
  const MarkedClass marked = Mark("student,AB\nAnn," + std::string(100000, 'x') + "\n");
  ASSERT_EQ(marked.Problems.size(), 1U);
  EXPECT_LT(marked.Problems[0].size(), 150U);
}

TEST(Marking, NeedsNamesThatTellForcesApart) {
  const auto why = [](const Truss& truss) { return WhyNotByName(Asked(truss).Graph); };
  EXPECT_EQ(why(RoundTriangle()), "");
  EXPECT_THAT(why(TrussBuilder().Member(0, 0, 1, 0).Clamp(0, 0, "x", "y")),
              HasSubstr("not every force has a name"));
  EXPECT_THAT(why(TrussBuilder().Member(0, 0, 1, 0, "a").Clamp(0, 0, "a", "y")),
              HasSubstr("two forces are called \"a\""));
  EXPECT_THAT(why(TrussBuilder().Member(0, 0, 1, 0, "student").Clamp(0, 0, "a", "y")),
              HasSubstr("as another column is"));
}

TEST(Marking, TellsHowTheClassDid) {
  const std::vector<AskedTruss> asked = {Asked(RoundTriangle())};
  const auto summary = [&](const std::string& answers) {
    return SummaryOf(MarkAnswers(answers, asked, TrussColumn::None, {}), asked);
  };
  EXPECT_EQ(summary("student,AB\n"), "no students marked.\n");
  const std::string text = summary(
      "student,AB,AC,BC,Ax,Ay,B\n"
      "Ann,375 T,625 C,625,0,500,500\n"
      "Bob,375,-625,-625,0,500,500\n"
      "Cem,1,2,3,4,5,6\n");
  EXPECT_THAT(text,
              HasSubstr("3 students marked; every force is right for 1, every joint balances for 2.\n"));
  EXPECT_THAT(text, HasSubstr("1 student counts tension as positive, throughout.\n"));
  EXPECT_THAT(text, HasSubstr("First slips are most often at joint A: 1 student.\n"));
}

}  // namespace
