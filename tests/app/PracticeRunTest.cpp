// Exercises, marks and comparisons on the command line: what comes out, what is said, and how it ends.
#include "app/PracticeRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "RunCommandLineFixture.h"

namespace {

using testing::HasSubstr;
using testing::StartsWith;

class PracticeRunTest : public RunCommandLineTest {
 protected:
  std::string Triangle() { return File("triangle.trs", TriangleText); }
};

TEST_F(PracticeRunTest, AnExerciseIsWritten) {
  EXPECT_EQ(RunWords({"--exercise=" + Path("o.pdf"), "--variants=3", "--seed=7", Triangle()}), Done);
  EXPECT_EQ(Bytes(Path("o.pdf")), "triangle, seed 7: 3 sheets");
  EXPECT_EQ(Out.str() + Err.str(), "");
}

TEST_F(PracticeRunTest, AQuestionBankIsWritten) {
  EXPECT_EQ(RunWords({"--exercise=" + Path("o.xml"), "--variants=3", "--seed=7", Triangle()}), Done);
  EXPECT_THAT(Bytes(Path("o.xml")), HasSubstr("<name><text>triangle, seed 7, variant 3</text></name>"));
}

TEST_F(PracticeRunTest, WhatHasNoAnswerIsNoExercise) {
  const std::string free =
      File("free.trs", Replaced(TriangleText, "2\r\n0,0,1\r\n\"Ax\",\"Ay\"\r\n", "1\r\n"));
  EXPECT_EQ(RunWords({"--exercise=" + Path("o.pdf"), "--variants=3", "--seed=7", free}), NotAllDone);
  EXPECT_EQ(Err.str(), "orvane: " + free + ": the solutions of this truss do not give every force\n");
  EXPECT_FALSE(fs::exists(Path("o.pdf")));
}

TEST_F(PracticeRunTest, ATrussOfWhichAPartIsMissingIsNoExercise) {
  EXPECT_EQ(
      RunWords({"--exercise=" + Path("o.pdf"), "--variants=3", "--seed=7", File("b.trs", BrokenTriangle())}),
      NotAllDone);
  EXPECT_THAT(Err.str(), HasSubstr(BrokenWhy));
  EXPECT_FALSE(fs::exists(Path("o.pdf")));
}

TEST_F(PracticeRunTest, AClassIsMarked) {
  const std::string answers =
      File("a.csv", "student,AB,AC,BC,Ax,Ay,B\nAnn,500 T,707,707,0,500,500\nBob,500,,,,,\n");
  EXPECT_EQ(RunWords({"--mark=" + answers, Triangle()}), Done);
  EXPECT_EQ(Out.str(),
            "student,Ax,Ay,B,AB,AC,BC,strict,followed,judged,slip\r\n"
            "Ann,right,right,right,right,right,right,6,3,3,\r\n"
            "Bob,empty,empty,empty,sense,empty,empty,0,0,0,\r\n");
  EXPECT_EQ(Err.str(), "");
}

TEST_F(PracticeRunTest, AnswersCanComeFromStandardInput) {
  Input = "student,AB\nAnn,-500\n";
  EXPECT_EQ(RunWords({"--mark=-", Triangle()}), Done);
  EXPECT_THAT(Out.str(), HasSubstr("\r\nAnn,empty,empty,empty,right,"));
}

TEST_F(PracticeRunTest, LinesThatCannotBeMarkedAreNamedAndLeftOut) {
  const std::string answers = File("a.csv", "student,AB\nAnn,x\nBob,-500\n");
  EXPECT_EQ(RunWords({"--mark=" + answers, Triangle()}), NotAllDone);
  EXPECT_EQ(Err.str(),
            "orvane: " + answers + ": line 2, column 2 (AB): \"x\" is not a number; the line is left out\n");
  EXPECT_THAT(Out.str(), HasSubstr("\r\nBob,"));
  EXPECT_THAT(Out.str(), testing::Not(HasSubstr("Ann")));
}

TEST_F(PracticeRunTest, AnswersToVariantsAreMarkedByTheirOwnValues) {
  // The seed gives the loads again.
  ASSERT_EQ(RunWords({"--exercise=" + Path("o.xml"), "--variants=2", "--seed=7", Triangle()}), Done);
  const std::string bank = Bytes(Path("o.xml"));
  const auto valueOf = [&bank](int variant, const std::string& name) {
    std::size_t at = bank.find(", variant " + std::to_string(variant) + "<");
    at = bank.find("&lt;td&gt;" + name + "&lt;", at);
    at = bank.find("%100%", at) + 5;
    return bank.substr(at, bank.find(':', at) - at);
  };
  const std::string first = valueOf(1, "AB");
  const std::string second = valueOf(2, "AB");
  ASSERT_NE(first, second);
  const std::string answers =
      File("a.csv", "student,variant,AB\nAnn,1," + first + "\nBob,2," + second + "\nCem,2," + first + "\n");
  Out.str("");
  EXPECT_EQ(RunWords({"--mark=" + answers, "--variants=2", "--seed=7", Triangle()}), Done);
  EXPECT_THAT(Out.str(), HasSubstr("Ann,1,empty,empty,empty,right,"));
  EXPECT_THAT(Out.str(), HasSubstr("Bob,2,empty,empty,empty,right,"));
  EXPECT_THAT(Out.str(), testing::Not(HasSubstr("Cem,2,empty,empty,empty,right,")));
}

TEST_F(PracticeRunTest, ASummaryStandsOnATerminal) {
  ErrIsTerminal = true;
  EXPECT_EQ(RunWords({"--mark=" + File("a.csv", "student,AB\nAnn,-500\n"), Triangle()}), Done);
  EXPECT_THAT(Err.str(), StartsWith("1 student marked"));
}

TEST_F(PracticeRunTest, AnswersThatAreNotThereAreTold) {
  EXPECT_EQ(RunWords({"--mark=" + Path("none.csv"), Triangle()}), NotAllDone);
  EXPECT_THAT(Err.str(), StartsWith("orvane: " + Path("none.csv") + ": "));
}

TEST_F(PracticeRunTest, ATrussThatCannotBeMarkedLeavesTheOthers) {
  const std::string unnamed = File("u.trs", Replaced(TriangleText, "\"AB\",\"AB\"", "\"[ ]\",\"[ ]\""));
  const std::string answers = File("a.csv", "student,file,AB\nAnn,triangle.trs,-500\nBob,u.trs,1\n");
  EXPECT_EQ(RunWords({"--mark=" + answers, unnamed, Triangle()}), NotAllDone);
  EXPECT_THAT(
      Err.str(),
      HasSubstr("u.trs: not every force has a name (Step 2 and --autoname give them); answers to it cannot "
                "be marked"));
  EXPECT_THAT(Err.str(), HasSubstr("there is no file \"u.trs\""));
  EXPECT_THAT(Out.str(), HasSubstr("triangle.trs,empty,empty,empty,right,"));
}

TEST_F(PracticeRunTest, DrawingsAreComparedWithTheKey) {
  const std::string other = File("other.trs", Replaced(TriangleText, "4,4,0,-1000", "4,4,0,-900"));
  EXPECT_EQ(RunWords({"--mark", "--key=" + Triangle(), Path("triangle.trs"), other}), Done);
  EXPECT_EQ(Out.str(),
            "file,truss,members,supports,loads,values,remarks\r\n" + Path("triangle.trs") +
                ",same,,,,right,\r\n" + other +
                ",differs,,,-1+1,,\"At (4, 4) stands a load of (0, -900) in place of a load of (0, "
                "-1000).\"\r\n");
}

TEST_F(PracticeRunTest, ComparisonsAreToldInWords) {
  EXPECT_EQ(RunWords({"--mark", "--report", "--key=" + Triangle(), Path("triangle.trs")}), Done);
  EXPECT_EQ(Out.str(), "This is the truss of the key, with its values.\n");
}

TEST_F(PracticeRunTest, ADrawingThatCannotBeReadWholeIsNotCompared) {
  const std::string broken = File("broken.trs", BrokenTriangle());
  EXPECT_EQ(RunWords({"--mark", "--key=" + Triangle(), broken, Path("triangle.trs")}), NotAllDone);
  EXPECT_THAT(Err.str(), HasSubstr(BrokenWhy));
  EXPECT_THAT(Out.str(), testing::Not(HasSubstr("broken.trs")));
  EXPECT_THAT(Out.str(), HasSubstr("triangle.trs,same"));
}

}  // namespace
