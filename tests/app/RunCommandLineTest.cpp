// Runs of the command line on files, through string streams: what comes out, what is said, and how it ends.
#include "app/RunCommandLine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <new>
#include <optional>
#include <random>
#include <sstream>

#include "RunCommandLineFixture.h"
#include "document/TrussFile.h"
#include "support/TrussBuilder.h"

namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST_F(RunCommandLineTest, HelpIsAResult) {
  EXPECT_EQ(RunWords({"--help"}), Done);
  EXPECT_EQ(Out.str(), HelpText());
  EXPECT_EQ(Err.str(), "");
}

TEST_F(RunCommandLineTest, VersionIsOneLine) {
  EXPECT_EQ(RunWords({"--version"}), Done);
  EXPECT_THAT(Out.str(), testing::MatchesRegex("Orvane [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST_F(RunCommandLineTest, ReportOfOneFileHasNoHeading) {
  EXPECT_EQ(RunWords({"--report=solutions", File("a.trs", TriangleText)}), Done);
  EXPECT_EQ(Out.str(), TriangleSolutions);
  EXPECT_EQ(Err.str(), "");
}

TEST_F(RunCommandLineTest, ReportsOfSeveralFilesStandUnderTheirNames) {
  const std::string a = File("a.trs", TriangleText);
  const std::string b = File("b.trs", Replaced(TriangleText, "-1000", "-2"));
  EXPECT_EQ(RunWords({"--report=solutions", a, b}), Done);
  EXPECT_EQ(Out.str(), "== " + a + " ==\n" + TriangleSolutions + "\n== " + b +
                           " ==\nThe solutions:\nForce  Value\n   Ax      0\n   Ay      1\n    B      1\n"
                           "   AB     \u20131\n   AC  1.414\n   BC  1.414\n");
}

TEST_F(RunCommandLineTest, ReportUsesTheDocumentsFigures) {
  EXPECT_EQ(RunWords({"--report=solutions", File("a.trs", Replaced(TriangleText, "1000\r\n4", "1000\r\n6"))}),
            Done);
  EXPECT_THAT(Out.str(), HasSubstr("   AC  707.107\n"));
}

TEST_F(RunCommandLineTest, StandardInputIsAFile) {
  Input = TriangleText;
  const std::string a = File("a.trs", TriangleText);
  EXPECT_EQ(RunWords({"--report=solutions", a, "-"}), Done);
  EXPECT_THAT(Out.str(), HasSubstr(std::string("\n== - ==\n") + TriangleSolutions));
}

TEST_F(RunCommandLineTest, JsonIsOneLineForEachFile) {
  const std::string a = File("a.trs", TriangleText);
  const std::string b = File("b.trs", TriangleText);
  EXPECT_EQ(RunWords({"--json", b, a}), Done);
  EXPECT_EQ(Out.str(), "{" + b + "}\n{" + a + "}\n");
}

TEST_F(RunCommandLineTest, JsonOfManyFilesStandsInTheirOrderWhateverTheyAre) {
  Input = TriangleText;
  const std::string large =
      Replaced(TriangleText, "\"AB\",\"AB\"", "\"AB\",\"" + std::string(9000, 'x') + "\"");
  std::vector<std::string> words = {"--json"};
  std::string objects;
  std::string problems;
  for (int i = 0; i < 700; ++i) {
    const std::string name = std::to_string(i) + ".trs";
    std::string file = Path(name);
    std::string error;
    if (i % 7 == 3) {
      error = BrokenWhy;
      File(name, BrokenTriangle());
    } else if (i % 50 == 11) {
      error = "the file cannot be opened for reading";
    } else if (i == 256) {
      file = "-";
    } else {
      File(name, i % 100 == 0 ? large : TriangleText);
    }
    words.push_back(file);
    objects += "{" + file + (error.empty() ? "" : "|" + error) + "}\n";
    if (!error.empty()) problems += "orvane: " + file + ": " + error + "\n";
  }
  EXPECT_EQ(RunWords(words), NotAllDone);
  EXPECT_EQ(Out.str(), objects);
  EXPECT_EQ(Err.str(), problems);
}

TEST_F(RunCommandLineTest, JsonHasMatricesWhenAsked) {
  Input = TriangleText;
  EXPECT_EQ(RunWords({"--json", "--matrices", "-"}), Done);
  EXPECT_EQ(Out.str(), "{-|matrices}\n");
}

TEST_F(RunCommandLineTest, CsvIsTheTableAlone) {
  EXPECT_EQ(RunWords({"--csv=solutions", File("a.trs", TriangleText)}), Done);
  EXPECT_EQ(Out.str(), "Force,Value\r\nAx,0\r\nAy,500\r\nB,500\r\nAB,-500\r\nAC,707.1\r\nBC,707.1\r\n");
}

TEST_F(RunCommandLineTest, AutoNameComesBeforeTheAnalysis) {
  EXPECT_EQ(RunWords({"--autoname", "--csv=solutions", File("a.trs", TriangleText)}), Done);
  EXPECT_EQ(Out.str(), "Force,Value\r\nA,0\r\nB,500\r\nC,500\r\nD,-500\r\nE,707.1\r\nF,707.1\r\n");
}

TEST_F(RunCommandLineTest, WhatWasReadOfABrokenFileIsStillReported) {
  const std::string broken = File("broken.trs", BrokenTriangle());
  EXPECT_EQ(RunWords({"--report=counting", broken}), NotAllDone);
  EXPECT_EQ(Err.str(), "orvane: " + broken + ": " + BrokenWhy + "\n");
  EXPECT_THAT(Out.str(), StartsWith("The forces:  This truss contains 5 unknown forces:\n"));
  EXPECT_THAT(Out.str(), HasSubstr("labelled AB, AC, \n"));
}

TEST_F(RunCommandLineTest, TheFilesAfterABrokenOneAreStillDone) {
  const std::string a = File("a.trs", TriangleText);
  const std::string broken = File("broken.trs", BrokenTriangle());
  const std::string c = File("c.trs", TriangleText);
  EXPECT_EQ(RunWords({"--json", a, broken, Path("missing.trs"), c}), NotAllDone);
  EXPECT_EQ(Out.str(), "{" + a + "}\n{" + broken + "|" + BrokenWhy + "}\n{" + Path("missing.trs") +
                           "|the file cannot be opened for reading}\n{" + c + "}\n");
  EXPECT_EQ(Err.str(), "orvane: " + broken + ": " + BrokenWhy + "\norvane: " + Path("missing.trs") +
                           ": the file cannot be opened for reading\n");
}

TEST_F(RunCommandLineTest, ADirectoryIsNoFile) {
  EXPECT_EQ(RunWords({"--json", Path(".")}), NotAllDone);
  EXPECT_EQ(Err.str(), "orvane: " + Path(".") + ": it is a directory, not a file\n");
}

TEST_F(RunCommandLineTest, ABrokenStandardInputIsNamedByItsDash) {
  Input = BrokenTriangle();
  EXPECT_EQ(RunWords({"--csv=solutions", "-"}), NotAllDone);
  EXPECT_EQ(Err.str(), std::string("orvane: -: ") + BrokenWhy + "\n");
  EXPECT_THAT(Out.str(), StartsWith("Force,Value\r\nAx,"));
}

TEST_F(RunCommandLineTest, AnEmptyFileEndsTooEarly) {
  EXPECT_EQ(RunWords({"--report", "-"}), NotAllDone);
  EXPECT_EQ(Err.str(), "orvane: -: line 1: the file ends too early\n");
  EXPECT_THAT(Out.str(), StartsWith("The augmented matrix"));
}

TEST_F(RunCommandLineTest, MoreJointsThanNumbersIsAnErrorOfTheFile) {
  Input = "Orvane 5\n#TRUE#,#TRUE#,#TRUE#,#TRUE#\n0\n20\n2\n.5\n0\n.5\n1000\n4\n0\n0\n16384\n";
  for (int i = 0; i < 16384; ++i) Input += std::to_string(i) + ",0,0,-1\n";
  Input += "0\n";
  EXPECT_EQ(RunWords({"--json", "-"}), NotAllDone);
  EXPECT_EQ(Err.str(), "orvane: -: the truss has too many joints for 16-bit numbers\n");
  EXPECT_EQ(Out.str(), "{-|the truss has too many joints for 16-bit numbers}\n");
}

TEST_F(RunCommandLineTest, AMemberWithoutLengthIsNamed) {
  Input = Replaced(TriangleText, "3\r\n0,0,8", "4\r\n4,4,4,4,\"dot\r\n\xC4\",\"dot\"\r\n0,0,8");
  EXPECT_EQ(RunWords({"--csv=solutions", "-"}), Done) << "the file was read whole";
  EXPECT_EQ(Err.str(),
            "orvane: -: member \"dot\u240D\u240A\u00C4\" has no length; its force cannot be determined\n");
  EXPECT_THAT(Out.str(), HasSubstr("dot\u240D\u240A\u00C4,undetermined\r\n"));
}

TEST_F(RunCommandLineTest, EveryMessageIsOneLineWhateverFilesAreCalled) {
  EXPECT_EQ(RunWords({"--json", Path("no\nsuch\x1b.trs")}), NotAllDone);
  EXPECT_EQ(Err.str(),
            "orvane: " + Path("no\u240Asuch\u241B.trs") + ": the file cannot be opened for reading\n");
}

TEST_F(RunCommandLineTest, NothingThatFilesAreCalledCommandsATerminal) {
  const std::string a = File("a\x1b[2J.trs", TriangleText);
  const std::string b = File(
      "b\xC2\x9B"
      "2J\x9B.trs",
      Replaced(TriangleText, "3\r\n0,0,8", "3\r\n0,\"\x9D\",8"));
  EXPECT_EQ(RunWords({"--report=solutions", a, b}), NotAllDone);
  EXPECT_THAT(Out.str(), HasSubstr("== " + Path("a\u241B[2J.trs") + " ==\n"));
  EXPECT_THAT(Out.str(), HasSubstr("== " +
                                   Path("b\uFFFD"
                                        "2J\uFFFD.trs") +
                                   " ==\n"));
  EXPECT_EQ(Err.str(), "orvane: " +
                           Path("b\uFFFD"
                                "2J\uFFFD.trs") +
                           ": line 17: a number should stand here, not \"\uFFFD\"\n");
}

TEST_F(RunCommandLineTest, ConvertMovesTheSwitchesOfLineTwo) {
  const std::string a = File("a.trs", TriangleText);
  EXPECT_EQ(RunWords({"--convert=" + Path("out.trs"), a}), Done);
  // Snap to object, snap to grid and the grid were on, the rulers off; the writer begins with the grid.
  EXPECT_EQ(Bytes(Path("out.trs")),
            Replaced(TriangleText, "#TRUE#,#TRUE#,#TRUE#,#FALSE#\r\n0\r\n20\r\n2\r\n.5\r\n0\r\n.5",
                     "#TRUE#,#FALSE#,#TRUE#,#TRUE#\r\n0\r\n20\r\n2\r\n0.5\r\n0\r\n0.5"));
  EXPECT_EQ(Out.str(), "");
  EXPECT_EQ(Err.str(), "");
}

TEST_F(RunCommandLineTest, ConvertBringsTheOlderLayoutUpToDate) {
  Input = "Some older program\r\n0\r\n20\r\n2\r\n.5\r\n0\r\n7,7\r\n.5\r\n1000\r\n4\r\n0\r\n0\r\n0\r\n0\r\n";
  EXPECT_EQ(RunWords({"--convert=-", "-"}), Done);
  EXPECT_EQ(Out.str(),
            "Orvane 5\r\n#TRUE#,#TRUE#,#TRUE#,#TRUE#\r\n0\r\n20\r\n2\r\n0.5\r\n0\r\n0.5\r\n1000\r\n4\r\n"
            "0\r\n0\r\n0\r\n0\r\n");
}

TEST_F(RunCommandLineTest, ConvertCanReplaceItsOwnFile) {
  const std::string a = File("a.trs", TriangleText);
  EXPECT_EQ(RunWords({"--autoname", "--convert=" + a, a}), Done);
  EXPECT_THAT(Bytes(a), HasSubstr("\r\n\"A\",\"B\"\r\n8,0,5\r\n\"C\"\r\n3\r\n0,0,8,0,\"D\",\"D\"\r\n"));
}

TEST_F(RunCommandLineTest, ConvertRefusesAFileThatWasNotReadWhole) {
  const std::string broken = File("broken.trs", BrokenTriangle());
  const std::string out = File("out.trs", "kept");
  EXPECT_EQ(RunWords({"--convert=" + out, broken}), NotAllDone);
  EXPECT_EQ(Bytes(out), "kept");
  EXPECT_EQ(Err.str(), "orvane: " + broken + ": " + BrokenWhy + "\n");
}

TEST_F(RunCommandLineTest, ConvertRefusesWhatWouldBeLost) {
  const std::string notes = File("notes.trs", TriangleText + std::string("my notes\r\n"));
  EXPECT_EQ(RunWords({"--convert=" + notes, notes}), NotAllDone);
  EXPECT_THAT(Bytes(notes), testing::EndsWith("my notes\r\n"));
  EXPECT_THAT(Err.str(), HasSubstr(": this is no part of the truss; the file is not converted\n"));
}

TEST_F(RunCommandLineTest, ConvertRefusesANameThatAFileCannotHold) {
  const std::string broken = File("a.trs", Replaced(TriangleText, "\"AC\",\"AC\"", "x\"AC\",\"AC\""));
  EXPECT_EQ(RunWords({"--convert=" + Path("out.trs"), broken}), NotAllDone);
  EXPECT_FALSE(std::filesystem::exists(Path("out.trs")));
  EXPECT_THAT(Err.str(), HasSubstr(" could not be read back; the file is not converted\n"));
}

TEST_F(RunCommandLineTest, ConvertSaysWhenItCannotWrite) {
  const std::string out = Path("no such directory/out.trs");
  EXPECT_EQ(RunWords({"--convert=" + out, File("a.trs", TriangleText)}), NotAllDone);
  EXPECT_EQ(Err.str(), "orvane: " + out + ": the file could not be written: its folder does not exist\n");
}

TEST_F(RunCommandLineTest, APictureIsWrittenIntoItsFile) {
  const std::string a = File("a.trs", TriangleText);
  EXPECT_EQ(RunWords({"--picture=" + Path("out.svg"), a}), Done);
  EXPECT_EQ(Bytes(Path("out.svg")), "plain picture 1 of 3 members in 4 figures, \"AB\"");
  EXPECT_EQ(Out.str() + Err.str(), "");
}

TEST_F(RunCommandLineTest, APictureCanHaveNamesAndBeAResult) {
  Input = TriangleText;
  EXPECT_EQ(RunWords({"--picture=-", "--named", "-"}), Done);
  EXPECT_EQ(Out.str(), "named picture 0 of 3 members in 4 figures, \"AB\"");
}

TEST_F(RunCommandLineTest, APictureIsDrawnAfterTheNaming) {
  Input = TriangleText;
  EXPECT_EQ(RunWords({"--autoname", "--picture=-", "-"}), Done);
  EXPECT_THAT(Out.str(), testing::EndsWith("\"D\"")) << "after three reactions";
}

TEST_F(RunCommandLineTest, APictureShowsWhatWasReadOfABrokenFile) {
  Input = BrokenTriangle();
  EXPECT_EQ(RunWords({"--picture=" + Path("out.png"), "-"}), NotAllDone);
  EXPECT_THAT(Bytes(Path("out.png")), HasSubstr("of 2 members"));
  EXPECT_EQ(Err.str(), std::string("orvane: -: ") + BrokenWhy + "\n");
}

constexpr const char* EmptyTruss =
    "Orvane "
    "5\r\n#TRUE#,#TRUE#,#TRUE#,#FALSE#\r\n0\r\n20\r\n2\r\n.5\r\n0\r\n.5\r\n1000\r\n4\r\n0\r\n0\r\n0\r\n0\r\n";

TEST_F(RunCommandLineTest, WithNothingToDrawThereIsNoPicture) {
  Input = EmptyTruss;
  const std::string kept = File("out.png", "kept");
  EXPECT_EQ(RunWords({"--picture=" + kept, "-"}), NotAllDone);
  EXPECT_EQ(Err.str(), "orvane: -: there is nothing to draw\n");
  EXPECT_EQ(Bytes(kept), "kept");
}

// A bar that hangs on one clamp and turns about it.
std::string HangingBar() {
  Truss truss = TrussBuilder().Member(0, 0, 2, 0, "m").Clamp(0, 0, "x", "y").Force(2, 0, 0, -1);
  return TrussText(truss);
}

TEST_F(RunCommandLineTest, APictureCanHaveAMotion) {
  Input = HangingBar();
  EXPECT_EQ(RunWords({"--picture=-", "--motion=1", "-"}), Done);
  EXPECT_EQ(Out.str(), "plain motion 0 of 1 joints");
  Out.str("");
  EXPECT_EQ(RunWords({"--picture=" + Path("out.svg"), "--motion=1", "--named", "-"}), Done);
  EXPECT_EQ(Bytes(Path("out.svg")), "named motion 1 of 1 joints");
  EXPECT_EQ(Out.str() + Err.str(), "");
}

TEST_F(RunCommandLineTest, AMotionThatTheTrussDoesNotHaveIsOneMessage) {
  Input = HangingBar();
  const std::string kept = File("out.png", "kept");
  EXPECT_EQ(RunWords({"--picture=" + kept, "--motion=2", "-"}), NotAllDone);
  EXPECT_EQ(Err.str(), "orvane: -: there is no motion 2: the truss has 1 motion\n");
  for (const std::string& rigid : {std::string(TriangleText), std::string(EmptyTruss)}) {
    Err.str("");
    Input = rigid;
    EXPECT_EQ(RunWords({"--picture=" + kept, "--motion=1", "-"}), NotAllDone);
    EXPECT_EQ(Err.str(), "orvane: -: there is no motion 1: the truss has no motions\n");
  }
  EXPECT_EQ(Bytes(kept), "kept");
}

// The triangle without its last member moves.
TEST_F(RunCommandLineTest, AMotionIsThatOfWhatWasReadOfABrokenFile) {
  Input = BrokenTriangle();
  EXPECT_EQ(RunWords({"--picture=-", "--motion=1", "-"}), NotAllDone);
  EXPECT_THAT(Out.str(), HasSubstr("plain motion 0"));
  EXPECT_EQ(Err.str(), std::string("orvane: -: ") + BrokenWhy + "\n");
}

TEST_F(RunCommandLineTest, APictureCanHaveTheForces) {
  Input = HangingBar();
  EXPECT_EQ(RunWords({"--picture=" + Path("out.svg"), "--forces", File("a.trs", TriangleText)}), Done);
  EXPECT_THAT(Bytes(Path("out.svg")), testing::StartsWith("forces 1 of 6 unknowns, the largest "));
  EXPECT_EQ(RunWords({"--forces", "--picture=-", "-"}), Done);
  EXPECT_THAT(Out.str(), testing::StartsWith("forces 0 of 3 unknowns"));
  EXPECT_EQ(Err.str(), "");
}

TEST_F(RunCommandLineTest, WithoutUnknownForcesThereAreNoneToDraw) {
  Input = EmptyTruss;
  const std::string kept = File("out.png", "kept");
  EXPECT_EQ(RunWords({"--picture=" + kept, "--forces", "-"}), NotAllDone);
  EXPECT_EQ(Err.str(), "orvane: -: the truss has no unknown forces, so there are none to draw\n");
  EXPECT_EQ(Bytes(kept), "kept");
}

TEST_F(RunCommandLineTest, ADocumentIsWrittenIntoItsFile) {
  EXPECT_EQ(RunWords({"--document=" + Path("out.odt"), File("a.trs", TriangleText)}), Done);
  EXPECT_EQ(Bytes(Path("out.odt")), "document 2 on 6 forces");
  EXPECT_EQ(Out.str() + Err.str(), "");
}

TEST_F(RunCommandLineTest, ADocumentCanBeAResult) {
  Input = TriangleText;
  EXPECT_EQ(RunWords({"--document=-", "-"}), Done);
  EXPECT_EQ(Out.str(), "document 0 on 6 forces");
}

TEST_F(RunCommandLineTest, ADocumentHasTheSectionsThatAreAskedFor) {
  Input = TriangleText;
  EXPECT_EQ(RunWords({"--document=-", "--with=why", "-"}), Done);
  EXPECT_EQ(Out.str(), "document 0 on 6 forces with why");
}

TEST_F(RunCommandLineTest, ADocumentReportsWhatWasReadOfABrokenFile) {
  Input = BrokenTriangle();
  EXPECT_EQ(RunWords({"--document=-", "-"}), NotAllDone);
  EXPECT_EQ(Out.str(), "document 0 on 5 forces");
  EXPECT_EQ(Err.str(), std::string("orvane: -: ") + BrokenWhy + "\n");
}

TEST_F(RunCommandLineTest, WithoutUnknownForcesThereIsNoDocument) {
  Input = EmptyTruss;
  const std::string kept = File("out.rtf", "kept");
  EXPECT_EQ(RunWords({"--document=" + kept, "-"}), NotAllDone);
  EXPECT_EQ(Err.str(), "orvane: -: the truss has no unknown forces, so there is no report to write\n");
  EXPECT_EQ(Bytes(kept), "kept");
}

TEST_F(RunCommandLineTest, AMissingFileIsOneMessage) {
  for (const std::string option : {"--picture=-", "--document=-"}) {
    Err.str("");
    EXPECT_EQ(RunWords({option, Path("missing.trs")}), NotAllDone);
    EXPECT_EQ(Err.str(), "orvane: " + Path("missing.trs") + ": the file cannot be opened for reading\n");
    EXPECT_EQ(Out.str(), "");
  }
}

TEST_F(RunCommandLineTest, PicturesAndDocumentsSayWhenTheyCannotBeWritten) {
  Input = TriangleText;
  const std::string directory = Path("no such directory/");
  EXPECT_EQ(RunWords({"--picture=" + directory + "a.png", "-"}), NotAllDone);
  EXPECT_EQ(RunWords({"--document=" + directory + "a.rtf", "-"}), NotAllDone);
  const std::string why = ": the file could not be written: its folder does not exist\n";
  EXPECT_EQ(Err.str(), "orvane: " + directory + "a.png" + why + "orvane: " + directory + "a.rtf" + why);
}

TEST_F(RunCommandLineTest, BytesThatCannotBeMadeAreNotWritten) {
  Input = TriangleText;
  Picture = [](const auto&, bool, auto, const auto&) { return std::string(); };
  Document = [](const auto&, auto, const auto&, const auto&) { return std::string(); };
  const std::string kept = File("out.pdf", "kept");
  EXPECT_EQ(RunWords({"--picture=" + kept, "-"}), NotAllDone);
  EXPECT_EQ(RunWords({"--document=" + kept, "-"}), NotAllDone);
  EXPECT_EQ(Err.str(), "orvane: " + kept + ": the file could not be written\norvane: " + kept +
                           ": the file could not be written\n");
  EXPECT_EQ(Bytes(kept), "kept");
}

TEST_F(RunCommandLineTest, ADocumentNamesAMemberWithoutLength) {
  Input = Replaced(TriangleText, "3\r\n0,0,8", "4\r\n4,4,4,4,\"dot\",\"dot\"\r\n0,0,8");
  EXPECT_EQ(RunWords({"--document=-", "-"}), Done);
  EXPECT_EQ(Err.str(), "orvane: -: member \"dot\" has no length; its force cannot be determined\n");
}

TEST_F(RunCommandLineTest, ResultsThatCannotBeWrittenAreAFailure) {
  Input = TriangleText;
  for (const std::vector<std::string>& words : {std::vector<std::string>{"--report", "-"},
                                                {"--json", "-"},
                                                {"--csv=rref", "-"},
                                                {"--picture=-", "-"},
                                                {"--document=-", "-"},
                                                {"--convert=-", "-"},
                                                {"--help"},
                                                {"--version"}}) {
    FullDisk disk;
    std::ostream full(&disk);
    Err.str("");
    EXPECT_EQ(RunInto(full, words), NotAllDone) << words[0];
    EXPECT_EQ(Err.str(), "orvane: standard output: the results could not be written\n") << words[0];
  }
}

TEST_F(RunCommandLineTest, NoFurtherFileIsReadOnceResultsCannotBeWritten) {
  FullDisk disk;
  std::ostream full(&disk);
  EXPECT_EQ(RunInto(full, {"--json", File("a.trs", TriangleText), Path("missing.trs")}), NotAllDone);
  EXPECT_EQ(Err.str(), "orvane: standard output: the results could not be written\n");
}

TEST_F(RunCommandLineTest, AFileThatNeedsTooMuchMemoryDoesNotEndTheRun) {
  const std::string large = File("large.trs", TriangleText);
  Json = [&](std::ostream& out, const AnalysedFile& file, const JsonExtras&, const ReportFormat&) {
    if (file.Argument == large) throw std::bad_alloc();
    out << "{}";
  };
  EXPECT_EQ(RunWords({"--json", large, File("small.trs", TriangleText)}), NotAllDone);
  EXPECT_EQ(Out.str(), "{}\n");
  EXPECT_EQ(Err.str(), "orvane: " + large + ": there is not enough memory for this truss\n");
}

class SlowRun : public RunCommandLineTest {
 protected:
  void SetUp() override {
    RunCommandLineTest::SetUp();
    Json = [this](std::ostream& out, const AnalysedFile&, const JsonExtras&, const ReportFormat&) {
      Now += std::chrono::milliseconds(550);
      out << "{}";
    };
    Input = TriangleText;
  }
};

TEST_F(SlowRun, ShowsItsProgressOnATerminalAndClearsIt) {
  ErrIsTerminal = true;
  EXPECT_EQ(RunWords({"--json", File("a.trs", TriangleText), "-"}), Done);
  EXPECT_EQ(Err.str(), "\rorvane: 1 of 2 files\r\x1b[K");
}

TEST_F(SlowRun, ClearsItsProgressBeforeAMessage) {
  ErrIsTerminal = true;
  Input = BrokenTriangle();
  EXPECT_EQ(RunWords({"--json", File("a.trs", TriangleText), "-"}), NotAllDone);
  EXPECT_EQ(Err.str(), std::string("\rorvane: 1 of 2 files\r\x1b[Korvane: -: ") + BrokenWhy + "\n");
}

TEST_F(SlowRun, IsSilentWhenStandardErrorIsNoTerminal) {
  EXPECT_EQ(RunWords({"--json", File("a.trs", TriangleText), "-"}), Done);
  EXPECT_EQ(Err.str(), "");
}

TEST_F(RunCommandLineTest, AQuickRunShowsNoProgress) {
  ErrIsTerminal = true;
  const std::string a = File("a.trs", TriangleText);
  EXPECT_EQ(RunWords({"--json", a, a, a}), Done);
  EXPECT_EQ(Err.str(), "");
}

}  // namespace
