// The reports as plain text and as CSV, character by character.
#include "app/TextReports.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "explanation/Explanation.h"
#include "support/TrussBuilder.h"

namespace {

using testing::HasSubstr;
using testing::Not;

constexpr ReportSections OnlyCounting{.Counting = true};
constexpr ReportSections OnlyJoints{.Joints = true};
constexpr ReportSections OnlyEquations{.Equations = true};
constexpr ReportSections OnlyRREF{.RREF = true};
constexpr ReportSections OnlySolutions{.Solutions = true};
constexpr ReportSections All{true, true, true, true, true};

AnalysedFile Analysed(const Truss& truss) {
  AnalysedFile file;
  file.Argument = "a.trs";
  file.Document = truss;
  Analyse(file);
  return file;
}

std::string Report(const Truss& truss, const ReportSections& sections, const ReportFormat& format = {}) {
  std::ostringstream out;
  WriteReport(out, Analysed(truss), {sections, {}}, format);
  return out.str();
}

std::string Csv(const Truss& truss, CsvTable table, const ReportFormat& format = {}) {
  std::ostringstream out;
  WriteCsv(out, Analysed(truss), table, format);
  return out.str();
}

// A clamp, a roller and a load of 1000 on top.
TrussBuilder Triangle(const std::string& leftRafter = "AC") {
  return TrussBuilder()
      .Clamp(0, 0, "Ax", "Ay")
      .Roller(8, 0, "B")
      .Member(0, 0, 8, 0, "AB")
      .Member(0, 0, 4, 4, leftRafter)
      .Member(8, 0, 4, 4, "BC")
      .Force(4, 4, 0, -1000)
      .Joint(0, 0, "A")
      .Joint(8, 0, "B")
      .Joint(4, 4, "C");
}

// A single roller is held upwards only.
TrussBuilder LoneRoller(float fx, float fy) {
  return TrussBuilder().Roller(0, 0, "R").Force(0, 0, fx, fy).Joint(0, 0, "J");
}

// Between two clamps nobody can say what the member carries.
TrussBuilder TieBetweenClamps() {
  return TrussBuilder()
      .Clamp(0, 0, "Ax", "Ay")
      .Clamp(2, 0, "Bx", "By")
      .Member(0, 0, 2, 0, "AB")
      .Force(2, 0, 0, -3)
      .Joint(0, 0, "A")
      .Joint(2, 0, "B");
}

TEST(TextReportCounting, IsTheTextBoxWithPlainLineEnds) {
  EXPECT_EQ(
      Report(Triangle(), OnlyCounting),
      "The forces:  This truss contains 6 unknown forces:\n"
      "\n"
      "- the 3 member force(s), labelled AB, AC, BC, \n"
      "(A positive value for a member force means that the member is under compression so the member force "
      "is "
      "directed INTO the pins at its ends.)\n"
      "\n"
      "- the 3 reaction force(s), labelled Ax, Ay, B, \n"
      "(Reaction forces are due to clamp or roller supports.  Positive values mean that they act into a pin "
      "in "
      "the direction shown.)\n"
      "\n"
      "The equations:  The values of these unknown forces can be found by solving a system of equations.\n"
      "Assuming the truss is in equilibrium, each joint of the truss contributes 2 equations to the system.\n"
      "One equation expresses the fact that the x components of the forces on that joint cancel.\n"
      "The other equation expresses the fact that the y components cancel.\n"
      "\n"
      "This truss contains 3 joints, labelled A, B, C.  Thus there are 6 equations.\n"
      "\n"
      "The count:  There are the same number of equations as unknowns.\n"
      "\n"
      "This means that there is a unique solution (implying a stable truss) as long as the equations are "
      "neither redundant nor inconsistent.  If the truss consists only of triangles then this is guaranteed "
      "but in all other cases it must be checked.  This can be done by using Gaussian elimination to put the "
      "system of equations into RREF form.\n");
}

TEST(TextReportCounting, ShowsWhatNamesHoldBesidesTheLineEnds) {
  EXPECT_THAT(Report(Triangle("a\rb\nc\x1b]2;d\x9d"), OnlyCounting),
              HasSubstr("labelled AB, a\u240Db\u240Ac\u241B]2;d\uFFFD, BC, \n"));
}

TEST(TextReportJoints, AreLaidOutAsInThePrintableReport) {
  EXPECT_EQ(Report(Triangle(), OnlyJoints),
            "Equations for joint A\n"
            "\tforces right = forces left :     Ax = AB + AC cos(45.0)\n"
            "\tforces up = forces down :    Ay = AC sin(45.0)\n"
            "\n"
            "Equations for joint B\n"
            "\tforces right = forces left :     AB + BC cos(45.0) = 0\n"
            "\tforces up = forces down :    B = BC sin(45.0)\n"
            "\n"
            "Equations for joint C\n"
            "\tforces right = forces left :     AC cos(45.0) = BC cos(45.0)\n"
            "\tforces up = forces down :    AC sin(45.0) + BC sin(45.0) = 1000.\n");
}

TEST(TextReportJoints, StayOnTheirLinesWhateverNamesHold) {
  const std::string report = Report(Triangle("a\r\n\x1b[2Jb").Joint(0, 0, "A\nA"), OnlyJoints);
  EXPECT_THAT(report, HasSubstr("Equations for joint A\u240AA\n"));
  EXPECT_THAT(report, HasSubstr("Ay = a\u240D\u240A\u241B[2Jb sin(45.0)\n"));
}

TEST(TextReportTables, AlignTheEquationsToTheRight) {
  EXPECT_EQ(Report(Triangle(), OnlyEquations),
            "The augmented matrix for the system of equations:\n"
            "Equation  Ax  Ay  B  AB       AC       BC   RHS\n"
            "   A - x   1   0  0  \u20131  \u20130.7071        0     0\n"
            "   A - y   0   1  0   0  \u20130.7071        0     0\n"
            "   B - x   0   0  0   1        0   0.7071     0\n"
            "   B - y   0   0  1   0        0  \u20130.7071     0\n"
            "   C - x   0   0  0   0   0.7071  \u20130.7071     0\n"
            "   C - y   0   0  0   0   0.7071   0.7071  1000\n");
}

TEST(TextReportTables, ShowTheReducedMatrixWithoutNamesOfEquations) {
  EXPECT_EQ(Report(Triangle(), OnlyRREF),
            "The augmented matrix in RREF form:\n"
            "Equation  Ax  Ay  B  AB  AC  BC    RHS\n"
            "           1   0  0   0   0   0      0\n"
            "           0   1  0   0   0   0    500\n"
            "           0   0  1   0   0   0    500\n"
            "           0   0  0   1   0   0   \u2013500\n"
            "           0   0  0   0   1   0  707.1\n"
            "           0   0  0   0   0   1  707.1\n");
}

TEST(TextReportTables, ShowTheReducedColumnsInTheOrderOfTheElimination) {
  EXPECT_EQ(Report(TieBetweenClamps(), OnlyRREF),
            "The augmented matrix in RREF form:\n"
            "Equation  Ax  Ay  Bx  By  AB  RHS\n"
            "           1   0   0   0  \u20131    0\n"
            "           0   1   0   0   0    0\n"
            "           0   0   1   0   1    0\n"
            "           0   0   0   1   0    3\n");
}

TEST(TextReportTables, CountCharactersAndNotBytes) {
  EXPECT_EQ(Report(Triangle("\xC4rmel"), OnlySolutions),
            "The solutions:\n"
            "Force  Value\n"
            "   Ax      0\n"
            "   Ay    500\n"
            "    B    500\n"
            "   AB   \u2013500\n"
            "   BC  707.1\n"
            "\u00C4rmel  707.1\n");
}

TEST(TextReportTables, KeepARowOnItsLineWhateverNamesHold) {
  EXPECT_THAT(Report(Triangle("A\r\n\tC\x7F\x81"), OnlySolutions), HasSubstr("\n     BC  707.1\n"));
  EXPECT_THAT(Report(Triangle("A\r\n\tC\x7F\x81"), OnlySolutions),
              HasSubstr("\nA\u240D\u240A\u2409C\u2421\uFFFD  707.1\n"));
}

TEST(TextReportTables, UseTheDocumentsFiguresAndTheLocalesSeparator) {
  const std::string report = Report(Triangle(), OnlySolutions, ReportFormat{6, NumberFormat{","}});
  EXPECT_THAT(report, HasSubstr("   AC  707,107\n"));
  EXPECT_THAT(report, Not(HasSubstr(".")));
}

TEST(TextReportSolutions, SayWhatIsUndetermined) {
  EXPECT_EQ(Report(TieBetweenClamps(), OnlySolutions),
            "The solutions:\n"
            "Force         Value\n"
            "   Ax  undetermined\n"
            "   Ay             0\n"
            "   Bx  undetermined\n"
            "   By             3\n"
            "   AB  undetermined\n");
}

TEST(TextReportSolutions, OfARedundantSystemEndWithItsConclusion) {
  EXPECT_EQ(
      Report(LoneRoller(0, -10), OnlySolutions),
      "The solutions:\n"
      "Force  Value\n"
      "    R     10\n"
      "\n"
      "This is a redundant system of equations.  This implies that the truss is in equilibrium (static) for "
      "these applied forces but not for others.\n"
      "  The truss is in equilibrium (static) for these\n"
      "  particular applied forces but not for others.\n"
      "  Thus the truss is unstable.\n");
}

TEST(TextReportSolutions, OfAnInconsistentSystemAreItsConclusionAlone) {
  EXPECT_EQ(
      Report(LoneRoller(5, 0), OnlySolutions),
      "There is NO SOLUTION for this inconsistent system of equations.  This system of equations was "
      "derived assuming that the forces are in balance at each joint.  This assumption must be incorrect "
      "which implies that the truss is unstable and will move.\n");
}

TEST(TextReport, HasItsSectionsInOneOrderWithABlankLineBetween) {
  const Truss truss = LoneRoller(0, -10);
  EXPECT_EQ(Report(truss, All), Report(truss, OnlyCounting) + '\n' + Report(truss, OnlyJoints) + '\n' +
                                    Report(truss, OnlyEquations) + '\n' + Report(truss, OnlyRREF) + '\n' +
                                    Report(truss, OnlySolutions));
}

TEST(TextReport, OfOneUnknownSpeaksInTheSingular) {
  const std::string report = Report(LoneRoller(0, -10), OnlyCounting);
  EXPECT_THAT(report, HasSubstr("This truss contains 1 unknown force:\n"));
  EXPECT_THAT(report, HasSubstr("This truss contains 1 joint, labelled J.  Thus there are 2 equations.\n"));
  EXPECT_THAT(report, Not(HasSubstr("member force(s)")));
}

TEST(TextReport, WithoutUnknownsHasNoCountingAndEmptyTables) {
  EXPECT_EQ(Report(TrussBuilder().Force(0, 0, 5, 0).Joint(0, 0, "J"), All),
            "Equations for joint J\n"
            "\tforces right = forces left :     5. = 0\n"
            "\tforces up = forces down :    0 = 0\n"
            "\n"
            "The augmented matrix for the system of equations:\n"
            "Equation  RHS\n"
            "\n"
            "The augmented matrix in RREF form:\n"
            "Equation  RHS\n"
            "\n"
            "The solutions:\n"
            "Force  Value\n");
}

TEST(TextReport, OfNothingBeginsWithTheFirstTable) {
  EXPECT_TRUE(Report(Truss(), All).starts_with("The augmented matrix for the system of equations:\n"));
  EXPECT_EQ(Report(Truss(), OnlyCounting), "");
  EXPECT_EQ(Report(Truss(), OnlyJoints), "");
}

TEST(TextReport, LeavesErasedElementsOut) {
  const Truss erased = Triangle().Member(0, 0, 9, 9, "gone").ThenErased().Force(4, 4, 77, 0).ThenErased();
  EXPECT_EQ(Report(erased, All), Report(Triangle(), All));
}

TEST(Csv, HasOneRecordForEachRowWithDosLineEnds) {
  EXPECT_EQ(Csv(LoneRoller(0, -10), CsvTable::Equations),
            "Equation,R,RHS\r\n"
            "J - x,0,0\r\n"
            "J - y,1,10\r\n");
  EXPECT_EQ(Csv(LoneRoller(0, -10), CsvTable::RREF),
            "Equation,R,RHS\r\n"
            ",1,10\r\n"
            ",0,0\r\n");
  EXPECT_EQ(Csv(LoneRoller(0, -10), CsvTable::Solutions), "Force,Value\r\nR,10\r\n");
}

TEST(Csv, QuotesWhatWouldBreakARecord) {
  const Truss truss = TrussBuilder()
                          .Clamp(0, 0, "a,b", "say \"hi\"")
                          .Roller(1, 0, "two\r\nlines")
                          .Roller(1, 0, " blanks ", 8)
                          .Force(0, 0, 0, 1);
  EXPECT_EQ(Csv(truss, CsvTable::Solutions),
            "Force,Value\r\n"
            " blanks ,0\r\n"
            "\"a,b\",0\r\n"
            "\"say \"\"hi\"\"\",-1\r\n"
            "two\u240D\u240Alines,0\r\n");
}

TEST(Csv, HasMinusSignsInNumbersAndDashesInNames) {
  const Truss truss = TrussBuilder().Roller(0, 0, "\x96 R").Force(0, 0, 0, 7);
  EXPECT_EQ(Csv(truss, CsvTable::Solutions), "Force,Value\r\n\u2013 R,-7\r\n");
  EXPECT_THAT(Csv(Triangle(), CsvTable::Equations), HasSubstr("\r\nA - x,1,0,0,-1,-0.7071,0,0\r\n"));
  EXPECT_THAT(Csv(Triangle(), CsvTable::RREF), Not(HasSubstr("\u2013")));
}

TEST(Csv, HasNoControlCharactersButLineEnds) {
  const Truss truss = TrussBuilder().Roller(0, 0, "\x1b[2J\x7f\x8d").Force(0, 0, 0, -7);
  EXPECT_EQ(Csv(truss, CsvTable::Solutions), "Force,Value\r\n\u241B[2J\u2421\uFFFD,7\r\n");
}

TEST(Csv, QuotesADecimalComma) {
  EXPECT_EQ(Csv(LoneRoller(0, -2.5F), CsvTable::Solutions, ReportFormat{4, NumberFormat{","}}),
            "Force,Value\r\nR,\"2,5\"\r\n");
}

TEST(Csv, IsUtf8) {
  EXPECT_EQ(Csv(TrussBuilder().Roller(0, 0, "\x80\xFC").Force(0, 0, 0, 7), CsvTable::Solutions),
            "Force,Value\r\n\u20AC\u00FC,-7\r\n");
}

TEST(Csv, SaysWhatIsUndetermined) {
  EXPECT_THAT(Csv(TieBetweenClamps(), CsvTable::Solutions), HasSubstr("\r\nAB,undetermined\r\n"));
}

TEST(Csv, OfSolutionsThatAreNoneIsTheHeaderAlone) {
  EXPECT_EQ(Csv(LoneRoller(5, 0), CsvTable::Solutions), "Force,Value\r\n");
  EXPECT_EQ(Csv(LoneRoller(5, 0), CsvTable::RREF), "Equation,R,RHS\r\n,1,0\r\n,0,-5\r\n");
}

TEST(Csv, OfNoUnknownsIsTheHeaderAlone) {
  EXPECT_EQ(Csv(Truss(), CsvTable::Equations), "Equation,RHS\r\n");
  EXPECT_EQ(Csv(Truss(), CsvTable::RREF), "Equation,RHS\r\n");
  EXPECT_EQ(Csv(Truss(), CsvTable::Solutions), "Force,Value\r\n");
}

TEST(TextReports, WhyOpensWithTheKindOfTheTrussAndTheVerdict) {
  std::ostringstream out;
  WriteReport(out, Analysed(Triangle()), {{}, {ExplainedSection::Why}}, {});
  EXPECT_THAT(out.str(), testing::StartsWith("The exact verdict:\n     "));
  EXPECT_THAT(out.str(), testing::HasSubstr("[x] rigid, forces  [ ] rigid, forces"));
  EXPECT_THAT(out.str(), testing::HasSubstr("self-stressed\nEvery force is determined, for these loads"));
}

TEST(TextReports, SolvesJointByJointWhenAsked) {
  std::ostringstream out;
  WriteReport(out, Analysed(Triangle()), {{}, {ExplainedSection::ByJoint}}, {});
  const std::string text = out.str();
  EXPECT_TRUE(
      text.starts_with("Joint by joint:\nEvery member is assumed to push into the joints at its ends."));
  EXPECT_NE(text.find("\n\n1.  Reactions\n    The balance of the whole truss.\n"), std::string::npos);
  EXPECT_NE(text.find("\n\n2.  Joint A\n    Sought:  "), std::string::npos);
  EXPECT_TRUE(
      text.ends_with("\n\nEvery force is found.\nThe values agree with the solutions that the reduced "
                     "matrix gives.\n"));
  std::ostringstream none;
  WriteReport(none, Analysed(TrussBuilder().Force(1, 1, 0, 5)), {{}, {ExplainedSection::ByJoint}}, {});
  EXPECT_EQ(none.str(), "") << "without unknown forces there is nothing to solve";
}

TEST(TextReports, TellsTheEliminationStepByStepWhenAsked) {
  std::ostringstream out;
  WriteReport(out, Analysed(Triangle()), {{}, {ExplainedSection::Steps}}, {});
  const std::string text = out.str();
  EXPECT_TRUE(text.starts_with("Elimination, step by step:\nA row keeps the name of the equation"));
  EXPECT_NE(text.find("\n\n1.  The pivot is the coefficient of Ax in A - x, 1.\n"), std::string::npos);
  EXPECT_NE(text.find("minus 0.7071 times C - x.   [C - y] := [C - y] - 0.7071 \xC2\xB7 [C - x]\n"),
            std::string::npos);
  EXPECT_NE(text.find("The rows are read.\n    A row whose only coefficient is a 1 says"), std::string::npos);
  std::ostringstream none;
  WriteReport(none, Analysed(TrussBuilder().Force(1, 1, 0, 5)), {{}, {ExplainedSection::Steps}}, {});
  EXPECT_EQ(none.str(), "") << "without unknown forces there is nothing to eliminate";
}

TEST(TextReports, ExplanationsFollowInTheOrderNamed) {
  std::ostringstream out;
  WriteReport(out, Analysed(Triangle()), {OnlySolutions, {ExplainedSection::Checks, ExplainedSection::Why}},
              {});
  const std::string text = out.str();
  const std::size_t checks = text.find("\n\nChecks of the drawing:\nNothing was found.\n\n");
  EXPECT_LT(text.find("The solutions:"), checks);
  EXPECT_LT(checks, text.find("The exact verdict:"));
}

TEST(TextReports, WithoutAnUnknownForceThereIsNothingToExplain) {
  const std::string nothing =
      "There is nothing to explain: a truss without members and supports has no unknown force.\n";
  std::ostringstream out;
  WriteReport(out, Analysed(TrussBuilder().Force(1, 1, 0, 5)),
              {{}, {ExplainedSection::Why, ExplainedSection::Checks}}, {});
  EXPECT_EQ(out.str(), nothing + "\nChecks of the drawing:\nThe force (0, 5) at (1, 1) acts on no member.\n");
  std::ostringstream empty;
  WriteReport(empty, Analysed(TrussBuilder()), {{}, {ExplainedSection::Why}}, {});
  EXPECT_EQ(empty.str(), nothing);
}

// A rope that hangs straight; rounded directions contradict each other.
TrussBuilder ObliqueTie() {
  return TrussBuilder()
      .Clamp(0, 0, "Ax", "Ay")
      .Member(0, 0, 1, 3, "AB")
      .Force(1, 3, 100, 300)
      .Joint(0, 0, "A")
      .Joint(1, 3, "B");
}

constexpr auto TieNotice =
    "\nExactly, the system is redundant: these loads are in balance.  The reduced matrix says otherwise "
    "because "
    "directions are rounded to single precision: 3.141E-6 on the right of a row without coefficients is a "
    "remnant of rounding, about 1E-8 of the largest load.\n"
    "Read on with --report=why, and in the help under \"Exact and rounded verdicts\".\n";

TEST(TextReports, ARemnantOfRoundingIsToldBelowTheConclusion) {
  EXPECT_EQ(Report(ObliqueTie(), OnlySolutions), std::string(InconsistentText) + '\n' + TieNotice);
  const std::string rref = Report(ObliqueTie(), OnlyRREF);
  EXPECT_THAT(rref, HasSubstr("3.141E-6\n"));
  EXPECT_TRUE(rref.ends_with(TieNotice)) << rref;
  for (const ReportSections& others : {OnlyCounting, OnlyJoints, OnlyEquations}) {
    EXPECT_THAT(Report(ObliqueTie(), others), Not(HasSubstr("Read on")));
  }
}

// What is told of the example beyond its table.
std::string BelowTable(const std::string& report, int numLines) {
  std::size_t end = 0;
  for (int line = 0; line < numLines; ++line) end = report.find('\n', end) + 1;
  return report.substr(end);
}

TEST(TextReports, NothingIsAddedToAnExampleWhoseVerdictIsTheExactOne) {
  int numAgreeing = 0;
  int numOthers = 0;
  for (const auto& entry : std::filesystem::directory_iterator(ORVANE_EXAMPLES_DIR)) {
    if (entry.path().extension() != ".trs") continue;
    SCOPED_TRACE(entry.path().filename().string());
    std::istringstream noInput;
    AnalysedFile file = ReadForAnalysis(entry.path().string(), false, noInput);
    Analyse(file);
    const Rounding rounding = ExplainTruss(file.Document, file.Analysis).Rounded;
    const bool tells = !rounding.Agrees() || rounding.Figures.Within != rounding.Shown ||
                       rounding.Figures.NearlyFree || !rounding.Figures.Hidden.empty() ||
                       !JudgeFigures(rounding.Figures.Forces, {}).AreAll({});
    ++(tells ? numOthers : numAgreeing);
    std::ostringstream out;
    WriteReport(out, file, {OnlyRREF, {}}, {});
    const std::string below = BelowTable(out.str(), file.Analysis.System.EquationMatrix.NumRows() + 2);
    EXPECT_EQ(below.empty(), !tells) << below;
    EXPECT_EQ(below.find("Read on") == std::string::npos, !tells);
  }
  EXPECT_GT(numAgreeing, 20);
  EXPECT_GE(numOthers, 3);
}

}  // namespace
