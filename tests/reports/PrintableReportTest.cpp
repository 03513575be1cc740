// The printable report as one document: which sections, in which order, with which texts and formats.
#include <gmock/gmock.h>

#include "support/PrintableReportFixture.h"

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::SizeIs;
using ::testing::StartsWith;

TEST_F(PrintableReportTest, OfANamedTrussThatHasOneSolution) {
  Truss truss = Triangle();
  truss.FileName = "/home/me/triangle.trs";
  EXPECT_EQ(TextOf(truss), R"(
Orvane
Name of file containing truss:

/home/me/triangle.trs 

Picture of the truss with applied forces:

	<picture>

Naming the joints, member forces and reaction forces:

	<picture>

Counting the number of unknown forces:

This truss contains 6 unknown forces:

- the 3 member force(s), labelled AB, AC, BC, 
(A positive value for a member force means that the member is under compression so the member force is directed INTO the pins at its ends.)

- the 3 reaction force(s), labelled Ax, Ay, By, 
(Reaction forces are due to clamp or roller supports.  Positive values mean that they act into a pin in the direction shown.)



Counting the number of determining equations:

The values of these unknown forces can be found by solving a system of equations.
Assuming the truss is in equilibrium, each joint of the truss contributes 2 equations to the system.
One equation expresses the fact that the x components of the forces on that joint cancel.
The other equation expresses the fact that the y components cancel.

This truss contains 3 joints, labelled A, B, C.  Thus there are 6 equations.



Conclusions regarding existence and uniqueness of solution:

There are the same number of equations as unknowns.

This means that there is a unique solution (implying a stable truss) as long as the equations are neither redundant nor inconsistent.  If the truss consists only of triangles then this is guaranteed but in all other cases it must be checked.  This can be done by using Gaussian elimination to put the system of equations into RREF form.

The equations:

Equations for joint A
	forces right = forces left :     Ax = AB + AC cos(36.9)
	forces up = forces down :    Ay = AC sin(36.9)

Equations for joint B
	forces right = forces left :     AB + BC cos(36.9) = 0
	forces up = forces down :    By = BC sin(36.9)

Equations for joint C
	forces right = forces left :     AC cos(36.9) = BC cos(36.9)
	forces up = forces down :    AC sin(36.9) + BC sin(36.9) = 600.



The augmented matrix for this system of equations:

Eqn.  Ax  Ay  By  AB  AC    BC    RHS
A-x    1   0   0  –1  –0.8     0    0
A-y    0   1   0   0  –0.6     0    0
B-x    0   0   0   1     0   0.8    0
B-y    0   0   1   0     0  –0.6    0
C-x    0   0   0   0   0.8  –0.8    0
C-y    0   0   0   0   0.6   0.6  600


The augmented matrix in RREF form:

Eqn.  Ax  Ay  By  AB  AC  BC  RHS 
       1   0   0   0   0   0     0
       0   1   0   0   0   0   300
       0   0   1   0   0   0   300
       0   0   0   1   0   0  –400
       0   0   0   0   1   0   500
       0   0   0   0   0   1   500


The solution:

Force  Value
Ax         0
Ay       300
By       300
AB      –400
AC       500
BC       500
)");
}

TEST_F(PrintableReportTest, LinesEndWithCarriageReturnAndLineFeed) {
  EXPECT_TRUE(Build(Triangle()));
  std::string text;
  for (const TextRun& run : document_.Runs) text += run.Text;
  const auto lineFeeds = std::ranges::count(text, '\n');
  std::size_t pairs = 0;
  for (std::size_t at = text.find("\r\n"); at != std::string::npos; at = text.find("\r\n", at + 2)) ++pairs;
  EXPECT_EQ(static_cast<std::size_t>(lineFeeds), pairs);
  EXPECT_EQ(std::ranges::count(text, '\r'), lineFeeds);
}

TEST_F(PrintableReportTest, WithoutAFileNameTheTitleIsFollowedByTheFirstPictureHeading) {
  EXPECT_THAT(TextOf(Triangle()),
              StartsWith("\nOrvane\n\n\nPicture of the truss with applied forces:\n\n\t<pic"));
  EXPECT_THAT(document_.Text(), Not(HasSubstr("Name of file")));
}

TEST_F(PrintableReportTest, ItsFormats) {
  Truss truss = Triangle();
  truss.FileName = "triangle.trs";
  EXPECT_TRUE(Build(truss));
  EXPECT_EQ(document_.FormatOfText("Orvane"), (CharacterFormat{.Bold = true, .Points = 18}));
  EXPECT_EQ(document_.FormatOfText("Name of file containing truss:"), CharacterFormat{.Bold = true});
  EXPECT_EQ(document_.FormatOfText("triangle.trs "), CharacterFormat{});
  for (const char* heading : ReportHeadings) {
    EXPECT_EQ(document_.FormatOfText(heading), (CharacterFormat{.Bold = true, .Colour = 4})) << heading;
  }
}

TEST_F(PrintableReportTest, HeadingsComeInOrder) {
  EXPECT_TRUE(Build(Triangle()));
  std::vector<std::string> headings;
  for (const TextRun& run : document_.VisibleRuns()) {
    if (run.Format.Colour == 4) headings.push_back(run.Text);
  }
  EXPECT_THAT(headings, ElementsAreArray(ReportHeadings));
}

TEST_F(PrintableReportTest, TheFirstColumnIsBlueInTheEquationsAndTheSolutionButNotInTheRREF) {
  EXPECT_TRUE(Build(Triangle()));
  std::vector<std::string> blue;
  for (const TextRun& run : document_.VisibleRuns()) {
    if (run.Format.Colour != LightBlue) continue;
    EXPECT_EQ(run.Format.Family, FontFamily::Monospaced);
    blue.push_back(run.Text);
  }
  EXPECT_THAT(blue, ElementsAre("Eqn.  Ax  Ay  By  AB  AC    BC    RHS", "A-x ", "A-y ", "B-x ", "B-y ",
                                "C-x ", "C-y ", "Eqn.  Ax  Ay  By  AB  AC  BC  RHS ", "Force  Value", "Ax   ",
                                "Ay   ", "By   ", "AB   ", "AC   ", "BC   "));
}

TEST_F(PrintableReportTest, TheReportFontSizeIsTheSizeOfAllTextsAndTables) {
  Truss truss = Triangle();
  truss.Settings.ReportFontSize = 14;
  EXPECT_TRUE(Build(truss));
  for (const TextRun& run : document_.VisibleRuns()) {
    if (run.Text == RecordingRichText::PictureMark) continue;
    EXPECT_EQ(run.Format.Points, run.Text == "Orvane" ? 22 : 14) << run.Text;
  }
}

TEST_F(PrintableReportTest, TheFirstPictureShowsForcesAndTheSecondNames) {
  EXPECT_TRUE(Build(Triangle()));
  ASSERT_THAT(document_.Pictures, SizeIs(2));
  EXPECT_THAT(TextsIn(0), Contains(HasSubstr("600")));
  EXPECT_THAT(TextsIn(0), Not(Contains("AB")));
  EXPECT_THAT(TextsIn(1), Not(Contains(HasSubstr("600"))));
  for (const char* name : {"AB", "AC", "BC", "Ax", "Ay", "By", "A", "B", "C"}) {
    EXPECT_THAT(TextsIn(1), Contains(name));
  }
}

TEST_F(PrintableReportTest, NumbersFollowTheDocumentsFiguresAndTheLocale) {
  Truss truss = Triangle();
  truss.Forces[1].Fy = -1000.0F / 3;
  truss.Settings.SigFigs = 3;
  numbers_.DecimalSeparator = ",";
  EXPECT_TRUE(Build(truss));
  EXPECT_EQ(Section("The solution:"),
            "Force  Value\nAx         0\nAy       167\nBy       167\nAB      \xE2\x80\x93"
            "222\nAC       278\nBC       278");
  EXPECT_THAT(document_.Text(), HasSubstr("AC cos(36,9)"));
  EXPECT_THAT(document_.Text(), HasSubstr("  333"));
}

TEST_F(PrintableReportTest, ARedundantSystemHasItsTableAndItsConclusion) {
  EXPECT_THAT(TextOf(RollingTriangle().Force(4, 3, 0, -600)),
              EndsWith("Force  Value\n"
                       "Ay       300\n"
                       "By       300\n"
                       "AB      \xE2\x80\x93"
                       "400\n"
                       "AC       500\n"
                       "BC       500\n"
                       "\n"
                       "\n"
                       "This is a redundant system of equations.  This implies that the truss is in "
                       "equilibrium (static) for these applied forces but not for others.\n"));
  EXPECT_EQ(document_.Runs.back().Format, CharacterFormat{});
}

TEST_F(PrintableReportTest, AnInconsistentSystemHasNoTableButItsConclusion) {
  EXPECT_THAT(TextOf(RollingTriangle().Force(4, 3, 100, 0)),
              EndsWith("The solution:\n"
                       "\n"
                       "There is NO SOLUTION for this inconsistent system of equations.  This system of "
                       "equations was derived assuming that the forces are in balance at each joint.  "
                       "This assumption must be incorrect which implies that the truss is unstable and "
                       "will move."));
  EXPECT_THAT(document_.Text(), Not(HasSubstr("Value")));
  EXPECT_EQ(document_.Runs.back().Format, CharacterFormat{});
}

TEST_F(PrintableReportTest, WhatIsNotDeterminedSaysSo) {
  EXPECT_TRUE(Build(TrussBuilder()
                        .Member(0, 0, 8, 0, "AB")
                        .Clamp(0, 0, "Ax", "Ay")
                        .Clamp(8, 0, "Bx", "By")
                        .Force(8, 0, 0, -600)
                        .Joint(0, 0, "A")
                        .Joint(8, 0, "B")));
  EXPECT_EQ(Section("The solution:"),
            "Force  Value       \n"
            "Ax     undetermined\n"
            "Ay                0\n"
            "Bx     undetermined\n"
            "By              600\n"
            "AB     undetermined");
  EXPECT_THAT(Section("Conclusions regarding existence and uniqueness of solution:"),
              StartsWith("There are less equations than unknowns"));
}

TEST_F(PrintableReportTest, OfOneJoint) {
  EXPECT_TRUE(Build(TrussBuilder().Clamp(0, 0, "Ax", "Ay").Force(0, 0, 0, -10).Joint(0, 0, "A")));
  EXPECT_EQ(Section("The equations:"),
            "Equations for joint A\n"
            "\tforces right = forces left :     Ax = 0\n"
            "\tforces up = forces down :    Ay = 10.");
  EXPECT_EQ(Section("The augmented matrix for this system of equations:"),
            "Eqn.  Ax  Ay  RHS\n"
            "A-x    1   0    0\n"
            "A-y    0   1   10");
  EXPECT_EQ(Section("The solution:"), "Force  Value\nAx         0\nAy        10");
  EXPECT_THAT(document_.Text(),
              HasSubstr("This truss contains 1 joint, labelled A.  Thus there are 2 equations."));
}

TEST_F(PrintableReportTest, NamesStandAsTheyAre) {
  EXPECT_TRUE(Build(TrussBuilder()
                        .Clamp(0, 0, "<b>\"x\"</b>", "{\\rtf1}&amp;")
                        .Force(0, 0, 0, -10)
                        .Joint(0, 0, "\xC9tai \x80")));
  EXPECT_EQ(Section("The equations:"),
            "Equations for joint \xC3\x89tai \xE2\x82\xAC\n"
            "\tforces right = forces left :     <b>\"x\"</b> = 0\n"
            "\tforces up = forces down :    {\\rtf1}&amp; = 10.");
  EXPECT_EQ(Section("The solution:"),
            "Force         Value\n"
            "<b>\"x\"</b>        0\n"
            "{\\rtf1}&amp;     10");
  EXPECT_THAT(document_.Text(), HasSubstr("labelled <b>\"x\"</b>, {\\rtf1}&amp;, \n"));
  EXPECT_THAT(TextsIn(1), Contains("\xC9tai \x80"));
}

TEST_F(PrintableReportTest, NamesHaveNoControlCharacters) {
  EXPECT_TRUE(
      Build(TrussBuilder().Clamp(0, 0, "A\tx", "A\r\n\x81y").Force(0, 0, 0, -10).Joint(0, 0, "A\nB")));
  EXPECT_EQ(Section("The equations:"),
            "Equations for joint AB\n"
            "\tforces right = forces left :     Ax = 0\n"
            "\tforces up = forces down :    Ay = 10.");
  EXPECT_THAT(document_.Text(), HasSubstr("labelled Ax, Ay, \n"));
  EXPECT_EQ(Section("The augmented matrix for this system of equations:"),
            "Eqn.  Ax  Ay  RHS\n"
            "AB-x   1   0    0\n"
            "AB-y   0   1   10");
}

TEST_F(PrintableReportTest, TheNameOfTheFileIsUtf8AndStaysOnItsLine) {
  Truss truss = Triangle();
  truss.FileName =
      "/trusses/<i>br\xC3\xBC"
      "cke</i>\n{1}.trs";
  EXPECT_TRUE(Build(truss));
  EXPECT_EQ(document_.FormatOfText("/trusses/<i>br\xC3\xBC"
                                   "cke</i>{1}.trs "),
            CharacterFormat{});
}
