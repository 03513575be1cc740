// The program as a process: every option, every exit status, every message.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QVector>

#include "program/RunProgram.h"

namespace {

constexpr const char* TriangleSolutions =
    "The solutions:\nForce  Value\n   Ax      0\n   Ay    500\n    B    500\n   AB   \u2013500\n   AC  "
    "707.1\n"
    "   BC  707.1\n";

using Records = QVector<QStringList>;

// RFC 4180: records end with CR LF; a field in quotes may hold commas, line ends and doubled quotes.
Records ReadCsv(const QByteArray& bytes) {
  Records records;
  QStringList record;
  QByteArray field;
  bool quoted = false;
  const auto endField = [&] {
    record.append(QString::fromUtf8(field));
    field.clear();
  };
  for (qsizetype i = 0; i < bytes.size(); ++i) {
    const char character = bytes[i];
    if (quoted) {
      if (character != '"') {
        field += character;
      } else if (i + 1 < bytes.size() && bytes[i + 1] == '"') {
        field += bytes[++i];
      } else {
        quoted = false;
      }
    } else if (character == '"') {
      EXPECT_TRUE(field.isEmpty()) << "a quote inside a field without quotes";
      quoted = true;
    } else if (character == ',') {
      endField();
    } else if (character == '\r') {
      EXPECT_TRUE(i + 1 < bytes.size() && bytes[i + 1] == '\n') << "CR without LF";
      ++i;
      endField();
      records.append(record);
      record.clear();
    } else {
      EXPECT_NE(character, '\n') << "LF without CR";
      field += character;
    }
  }
  EXPECT_FALSE(quoted) << "a quote is not closed";
  EXPECT_TRUE(record.isEmpty() && field.isEmpty()) << "the last record has no line end";
  return records;
}

struct WrongCall {
  const char* Arguments;
  const char* Why;

  friend void PrintTo(const WrongCall& call, std::ostream* out) { *out << call.Arguments; }
};

class ProgramWrongCall : public testing::TestWithParam<WrongCall> {};

TEST_P(ProgramWrongCall, EndsWithStatusTwoOneLineAndAHint) {
  const Ended run = RunProgram(Words(GetParam().Arguments));
  EXPECT_EQ(run.Status, 2);
  EXPECT_EQ(run.Out, "");
  EXPECT_EQ(run.Err, QByteArray("orvane: ") + GetParam().Why + "; see orvane --help\n");
}

INSTANTIATE_TEST_SUITE_P(
    All, ProgramWrongCall,
    testing::Values(WrongCall{"--nonsense", "there is no option --nonsense"},
                    WrongCall{"-x", "there is no option -x"},
                    WrongCall{"--json=1 a", "there is no option --json with a value"},
                    WrongCall{"--report", "--report needs a file"},
                    WrongCall{"--report=forces a", "there is no report section \"forces\""},
                    WrongCall{"--report= a", "there is no report section \"\""},
                    WrongCall{"--json", "--json needs a file"},
                    WrongCall{"--matrices a", "--matrices goes with --json"},
                    WrongCall{"--report --matrices a", "--matrices goes with --json"},
                    WrongCall{"--csv a", "--csv needs a value after \"=\""},
                    WrongCall{"--csv=joints a", "there is no table \"joints\""},
                    WrongCall{"--csv=rref a b", "--csv needs one file"},
                    WrongCall{"--convert a", "--convert needs a value after \"=\""},
                    WrongCall{"--convert= a", "--convert needs a value after \"=\""},
                    WrongCall{"--convert=o.trs", "--convert needs one file"},
                    WrongCall{"--convert=o.txt a", "a truss is written as .trs, not as \"o.txt\""},
                    WrongCall{"--json --report a", "--report does not go with --json"},
                    WrongCall{"--json - -", "standard input can be read once only"},
                    WrongCall{"a -", "standard input is opened alone"}));

TEST(Program, HelpsWithoutADisplay) {
  const Ended run = RunProgram(Words("--help"));
  EXPECT_EQ(run.Status, 0);
  EXPECT_EQ(run.Err, "");
  for (const char* option : {"--report[=SECTION,...]", "--json [--matrices]",
                             "--csv=equations|rref|solutions", "--picture=OUT [--named]", "--document=OUT",
                             "--convert=OUT.trs", "--autoname", "--help | --version"}) {
    EXPECT_TRUE(run.Out.contains(option)) << option;
  }
}

TEST(Program, TellsItsVersion) {
  const Ended run = RunProgram(Words("--version"));
  EXPECT_EQ(run.Status, 0);
  EXPECT_EQ(run.Err, "");
  static const QRegularExpression version(QStringLiteral("^Orvane \\d+\\.\\d+\\.\\d+\n$"));
  EXPECT_TRUE(version.match(QString::fromUtf8(run.Out)).hasMatch()) << run.Out.toStdString();
}

TEST(Program, ReportsEverySectionInItsOrder) {
  const Ended run = RunProgram({QStringLiteral("--report"), Example("pratt.trs")});
  EXPECT_EQ(run.Status, 0);
  EXPECT_EQ(run.Err, "");
  qsizetype at = -1;
  for (const char* heading : {"The forces:  This truss contains ",
                              "\n\nThe equations:  ", "\n\nThe count:  ", "\n\nEquations for joint ",
                              "\n\nThe augmented matrix for the system of equations:\n",
                              "\n\nThe augmented matrix in RREF form:\n", "\n\nThe solutions:\n"}) {
    const qsizetype found = run.Out.indexOf(heading);
    EXPECT_GT(found, at) << heading;
    at = found;
  }
  EXPECT_FALSE(run.Out.contains('\r'));
  EXPECT_TRUE(run.Out.endsWith('\n'));
}

TEST(Program, ReportsTheNamedSectionsOnly) {
  const Ended all = RunProgram({QStringLiteral("--report"), Example("triangle.trs")});
  QByteArray joined;
  for (const char* section : {"counting", "joints", "equations", "rref", "solutions"}) {
    const Ended one =
        RunProgram({QStringLiteral("--report=") + QString::fromLatin1(section), Example("triangle.trs")});
    EXPECT_EQ(one.Status, 0);
    if (!joined.isEmpty()) joined += '\n';
    joined += one.Out;
  }
  EXPECT_EQ(all.Out, joined);
}

TEST(Program, ReadsStandardInput) {
  const Ended run = RunProgram(Words("--report=solutions -"), TriangleText());
  EXPECT_EQ(run.Status, 0);
  EXPECT_EQ(run.Out, TriangleSolutions);
  EXPECT_EQ(run.Err, "");
}

TEST(Program, GoesOnAfterABrokenFile) {
  const TestFiles files;
  const QString a = files.File(QStringLiteral("a.trs"), TriangleText());
  const QString broken = files.File(QStringLiteral("broken.trs"), BrokenTriangleText());
  const QString c = files.File(QStringLiteral("c.trs"), TriangleText());
  const Ended run = RunProgram({QStringLiteral("--report=solutions"), a, broken, c});
  EXPECT_EQ(run.Status, 1);
  EXPECT_EQ(run.Err, "orvane: " + broken.toUtf8() + ": " + BrokenTriangleWhy + "\n");
  const QByteArray heading =
      "== " + a.toUtf8() + " ==\n" + TriangleSolutions + "\n== " + broken.toUtf8() + " ==\n";
  const QByteArray ending = "\n\n== " + c.toUtf8() + " ==\n" + TriangleSolutions;
  EXPECT_TRUE(run.Out.startsWith(heading)) << run.Out.toStdString();
  EXPECT_TRUE(run.Out.endsWith(ending)) << run.Out.toStdString();
}

TEST(Program, ReportsWhatWasReadOfABrokenFile) {
  const Ended run = RunProgram(Words("--report=counting -"), BrokenTriangleText());
  EXPECT_EQ(run.Status, 1);
  EXPECT_EQ(run.Err, QByteArray("orvane: -: ") + BrokenTriangleWhy + "\n");
  EXPECT_TRUE(run.Out.startsWith("The forces:  This truss contains 5 unknown forces:\n"));
}

TEST(Program, NamesFilesThatAreNone) {
  const TestFiles files;
  const QString missing = files.Path(QStringLiteral("missing.trs"));
  const QString directory = files.Path(QString());
  const Ended run = RunProgram({QStringLiteral("--json"), missing, directory});
  EXPECT_EQ(run.Status, 1);
  EXPECT_EQ(run.Err, "orvane: " + missing.toUtf8() + ": the file cannot be opened for reading\norvane: " +
                         directory.toUtf8() + ": it is a directory, not a file\n");
  EXPECT_EQ(run.Out.count('\n'), 2) << "each argument has its object";
}

TEST(Program, TakesFilesThatLookLikeOptions) {
  const TestFiles files;
  const QString path = files.File(QStringLiteral("a b=\u00fc.trs"), TriangleText());
  EXPECT_EQ(RunProgram({QStringLiteral("--report=solutions"), QStringLiteral("--"), path}).Out,
            TriangleSolutions);
  const Ended run = RunProgram(Words("--json -- --report"));
  EXPECT_EQ(run.Status, 1);
  EXPECT_EQ(run.Err, "orvane: --report: the file cannot be opened for reading\n");
}

TEST(Program, AnalysesEveryExample) {
  QStringList arguments = Words("--report");
  const QFileInfoList examples =
      QDir(QStringLiteral(ORVANE_EXAMPLES_DIR)).entryInfoList(Words("*.trs"), QDir::Files);
  for (const QFileInfo& example : examples) arguments.append(example.filePath());
  EXPECT_GE(arguments.size(), 13);
  const Ended run = RunProgram(arguments);
  EXPECT_EQ(run.Status, 0);
  EXPECT_EQ(run.Err, "");
  for (const QFileInfo& example : examples) {
    EXPECT_TRUE(
        run.Out.contains("== " + example.filePath().toUtf8() + " ==\nThe forces:  This truss contains "));
  }
}

TEST(Program, WritesConclusions) {
  const Ended inconsistent = RunProgram({QStringLiteral("--report=solutions"), Example("inconsistent.trs")});
  EXPECT_TRUE(
      inconsistent.Out.startsWith("There is NO SOLUTION for this inconsistent system of equations.  "));
  const Ended redundant = RunProgram({QStringLiteral("--report=solutions"), Example("redundant.trs")});
  EXPECT_TRUE(redundant.Out.endsWith("\n  Thus the truss is unstable.\n"));
  const Ended undetermined = RunProgram({QStringLiteral("--report=solutions"), Example("undetermined.trs")});
  EXPECT_TRUE(undetermined.Out.contains("  undetermined\n"));
  for (const Ended& run : {inconsistent, redundant, undetermined}) EXPECT_EQ(run.Status, 0);
}

TEST(Program, NamesMembersWithoutLength) {
  const QByteArray text = TriangleText().replace("3\r\n0,0,8", "4\r\n4,4,4,4,\"dot\",\"dot\"\r\n0,0,8");
  const Ended run = RunProgram(Words("--csv=solutions -"), text);
  EXPECT_EQ(run.Status, 0);
  EXPECT_EQ(run.Err, "orvane: -: member \"dot\" has no length; its force cannot be determined\n");
  EXPECT_TRUE(ReadCsv(run.Out).contains({QStringLiteral("dot"), QStringLiteral("undetermined")}));
}

TEST(ProgramCsv, HoldsTheTables) {
  const Ended equations = RunProgram(Words("--csv=equations -"), TriangleText());
  const Records rows = ReadCsv(equations.Out);
  EXPECT_EQ(equations.Status, 0);
  ASSERT_EQ(rows.size(), 7);
  EXPECT_EQ(rows[0], Words("Equation Ax Ay B AB AC BC RHS"));
  EXPECT_EQ(rows[1], QStringList({QStringLiteral("A - x")}) + Words("1 0 0 -1 -0.7071 0 0"));
  EXPECT_EQ(rows[6], QStringList({QStringLiteral("C - y")}) + Words("0 0 0 0 0.7071 0.7071 1000"));

  const Records rref = ReadCsv(RunProgram(Words("--csv=rref -"), TriangleText()).Out);
  ASSERT_EQ(rref.size(), 7);
  EXPECT_EQ(rref[0], rows[0]);
  EXPECT_EQ(rref[6], QStringList({QString()}) + Words("0 0 0 0 0 1 707.1"));

  const Records solutions = ReadCsv(RunProgram(Words("--csv=solutions -"), TriangleText()).Out);
  EXPECT_EQ(solutions, Records({Words("Force Value"), Words("Ax 0"), Words("Ay 500"), Words("B 500"),
                                Words("AB -500"), Words("AC 707.1"), Words("BC 707.1")}));
}

TEST(ProgramCsv, KeepsOddNamesWhole) {
  const QByteArray text = TriangleText().replace("\"Ax\",\"Ay\"", "\"a,x\",\"a\r\n\x80\x96\"");
  const Records rows = ReadCsv(RunProgram(Words("--csv=equations -"), text).Out);
  ASSERT_EQ(rows.size(), 7);
  EXPECT_EQ(rows[0][1], QStringLiteral("B"));
  EXPECT_EQ(rows[0][2], QStringLiteral("a\u240d\u240a\u20ac\u2013"));
  EXPECT_EQ(rows[0][3], QStringLiteral("a,x"));
}

TEST(ProgramCsv, HoldsEveryRowOfEveryExample) {
  const QFileInfoList examples =
      QDir(QStringLiteral(ORVANE_EXAMPLES_DIR)).entryInfoList(Words("*.trs"), QDir::Files);
  for (const QFileInfo& example : examples) {
    const Records rows = ReadCsv(RunProgram({QStringLiteral("--csv=rref"), example.filePath()}).Out);
    ASSERT_GT(rows.size(), 2) << example.filePath().toStdString();
    for (const QStringList& row : rows) EXPECT_EQ(row.size(), rows[0].size());
  }
}

TEST(ProgramConvert, ExchangesTheSwitchesOfLineTwoAndNothingElse) {
  const TestFiles files;
  const QString out = files.Path(QStringLiteral("out.trs"));
  const Ended converted =
      RunProgram({QStringLiteral("--convert=") + out, QStringLiteral("-")}, TriangleText());
  EXPECT_EQ(converted.Status, 0);
  EXPECT_EQ(converted.Out + converted.Err, "");
  EXPECT_EQ(BytesOf(out),
            TriangleText().replace("#TRUE#,#TRUE#,#TRUE#,#FALSE#", "#TRUE#,#FALSE#,#TRUE#,#TRUE#"));
}

TEST(ProgramConvert, ComesBackToTheSameBytesAfterFourTimes) {
  const QByteArray original = RunProgram({QStringLiteral("--convert=-"), Example("k-truss.trs")}).Out;
  QByteArray text =
      QByteArray(original).replace(10, original.indexOf("\r\n", 10) - 10, "#TRUE#,#FALSE#,#FALSE#,#FALSE#");
  const QByteArray first = text;
  for (int i = 1; i <= 4; ++i) {
    const Ended run = RunProgram(Words("--convert=- -"), text);
    EXPECT_EQ(run.Status, 0);
    EXPECT_EQ(run.Out == first, i == 4) << "after " << i;
    text = run.Out;
  }
}

TEST(ProgramConvert, BringsTheOlderLayoutUpToDate) {
  const Ended run = RunProgram({QStringLiteral("--convert=-"), Example("older-layout.trs")});
  EXPECT_EQ(run.Status, 0);
  EXPECT_TRUE(run.Out.startsWith("Orvane 5\r\n#TRUE#,#TRUE#,#TRUE#,#TRUE#\r\n"));
  const Ended older = RunProgram({QStringLiteral("--report"), Example("older-layout.trs")});
  EXPECT_EQ(RunProgram(Words("--report -"), run.Out).Out, older.Out);
}

TEST(ProgramConvert, MakesTheOlderTriangleThatOfToday) {
  EXPECT_EQ(RunProgram({QStringLiteral("--convert=-"), Example("older-layout.trs")}).Out,
            BytesOf(Example("triangle.trs")));
}

TEST(ProgramConvert, RefusesAFileThatWasNotReadWhole) {
  const TestFiles files;
  const QString out = files.Path(QStringLiteral("out.trs"));
  const Ended run =
      RunProgram({QStringLiteral("--convert=") + out, QStringLiteral("-")}, BrokenTriangleText());
  EXPECT_EQ(run.Status, 1);
  EXPECT_EQ(run.Err, QByteArray("orvane: -: ") + BrokenTriangleWhy + "\n");
  EXPECT_FALSE(QFileInfo::exists(out));
}

TEST(ProgramConvert, SaysWhenItCannotWrite) {
  const TestFiles files;
  const QString out = files.Path(QStringLiteral("none/out.trs"));
  const Ended run = RunProgram({QStringLiteral("--convert=") + out, QStringLiteral("-")}, TriangleText());
  EXPECT_EQ(run.Status, 1);
  EXPECT_EQ(run.Err,
            "orvane: " + out.toUtf8() + ": the file could not be written: its folder does not exist\n");
}

TEST(ProgramAutoName, NamesReactionsThenMembersThenJoints) {
  const Ended run =
      RunProgram({QStringLiteral("--autoname"), QStringLiteral("--convert=-"), Example("unnamed.trs")});
  EXPECT_EQ(run.Status, 0);
  EXPECT_TRUE(run.Out.contains("0,0,1\r\n\"A\",\"B\"\r\n12,0,5\r\n\"C\"\r\n9\r\n0,0,4,0,\"D\",\"D\"\r\n"));
  EXPECT_TRUE(run.Out.contains("0,0,\"1\"\r\n"));
  EXPECT_FALSE(run.Out.contains("[ ]"));
}

TEST(ProgramAutoName, GoesWithEveryWork) {
  for (const char* work : {"--report", "--json", "--csv=solutions"}) {
    const Ended run =
        RunProgram({QString::fromLatin1(work), QStringLiteral("--autoname"), Example("unnamed.trs")});
    EXPECT_EQ(run.Status, 0);
    EXPECT_FALSE(run.Out.contains("[ ]")) << work;
  }
}

TEST(ProgramLocale, SeparatesDecimalsInTextsButNotInJsonAndFiles) {
  const auto inGerman = [](const char* words) {
    return RunProgram(ProgramCall{.Arguments = Words(words),
                                  .Input = TriangleText(),
                                  .OutputFile = {},
                                  .LocaleName = QStringLiteral("de_DE.UTF-8")});
  };
  EXPECT_TRUE(inGerman("--report=solutions -").Out.endsWith("   BC  707,1\n"));
  EXPECT_TRUE(inGerman("--report=joints -").Out.contains("AC cos(45,0)"));
  EXPECT_TRUE(inGerman("--csv=solutions -").Out.endsWith("BC,\"707,1\"\r\n"));
  EXPECT_TRUE(inGerman("--json -").Out.contains("\"GridX\":0.5,"));
  EXPECT_TRUE(inGerman("--json -").Out.contains("\"Text\":\"707,1\""));
  EXPECT_TRUE(inGerman("--convert=- -").Out.contains("\r\n0.5\r\n"));
}

TEST(ProgramOutput, AFileThatMayNotGrowIsAFailureAndNotTheEnd) {
  const TestFiles files;
  const QString old = files.File(QStringLiteral("out.trs"), "old");
  const Ended file =
      RunShell(QStringLiteral("ulimit -f 0; exec \"$0\" --convert=\"$1\" -"), {old}, TriangleText());
  EXPECT_EQ(file.Status, 1);
  EXPECT_EQ(file.Err,
            "orvane: " + old.toUtf8() +
                ": the file could not be written: the file would be larger than the system allows\n");
  EXPECT_EQ(BytesOf(old), "old");
  const Ended output = RunShell(QStringLiteral("ulimit -f 0; exec \"$0\" --convert=- - > \"$1\""),
                                {files.Path(QStringLiteral("redirected"))}, TriangleText());
  EXPECT_EQ(output.Status, 1);
  EXPECT_EQ(output.Err, "orvane: standard output: the results could not be written\n");
}

TEST(ProgramFiles, APipeIsReadLikeAFile) {
  const Ended run = RunShell(QStringLiteral("cat | \"$0\" --csv=solutions /dev/stdin"), {}, TriangleText());
  EXPECT_EQ(run.Status, 0) << run.Err.toStdString();
  EXPECT_EQ(run.Out, RunProgram(Words("--csv=solutions -"), TriangleText()).Out);
}

// By a link, as what a truss is written into ends with .trs.
TEST(ProgramFiles, StandardOutputCanBeNamedAsADevice) {
  const TestFiles files;
  const QString link = files.Path(QStringLiteral("out.trs"));
  ASSERT_TRUE(QFile::link(QStringLiteral("/dev/stdout"), link));
  const Ended run = RunShell(QStringLiteral("cat | \"$0\" --convert=\"$1\" - | cat"), {link}, TriangleText());
  EXPECT_EQ(run.Status, 0) << run.Err.toStdString();
  EXPECT_EQ(run.Out, RunProgram(Words("--convert=- -"), TriangleText()).Out);
}

TEST(ProgramOutput, ThatCannotBeWrittenIsAFailure) {
  const QString full = QStringLiteral("/dev/full");
  if (!QFileInfo::exists(full)) GTEST_SKIP() << "no device that is always full";
  for (const char* words : {"--report -", "--json -", "--csv=rref -", "--picture=- -", "--document=- -",
                            "--convert=- -", "--help", "--version"}) {
    const Ended run =
        RunProgram(ProgramCall{.Arguments = Words(words), .Input = TriangleText(), .OutputFile = full});
    EXPECT_EQ(run.Status, 1) << words;
    EXPECT_EQ(run.Err, "orvane: standard output: the results could not be written\n") << words;
  }
}

constexpr const char* NoDisplay = "orvane: there is no display for the window";
constexpr const char* DisplayHint = "; orvane --help tells what can be done without one\n";

using Variables = QMap<QString, QString>;

Ended RunWindow(const Variables& environment) {
  return RunProgram(ProgramCall{
      .Arguments = {Example("triangle.trs")}, .Input = {}, .OutputFile = {}, .Environment = environment});
}

TEST(ProgramWindow, WithoutADisplaySaysSoInOneLine) {
  for (const Variables& environment : {Variables(), Variables{{QStringLiteral("DISPLAY"), QString()}}}) {
    const Ended run = RunWindow(environment);
    EXPECT_EQ(run.Status, 1);
    EXPECT_EQ(run.Out, "");
    EXPECT_EQ(run.Err, QByteArray(NoDisplay) + DisplayHint);
  }
}

// An abort would be a failure of RunProgram.
TEST(ProgramWindow, ADisplayThatCannotBeReachedIsOneLineAndNoAbort) {
  const Ended run = RunWindow({{QStringLiteral("DISPLAY"), QStringLiteral(":77")}});
  EXPECT_EQ(run.Status, 1);
  EXPECT_EQ(run.Out, "");
  EXPECT_EQ(run.Err, QByteArray(NoDisplay) + ": could not connect to display :77" + DisplayHint);
}

TEST(ProgramWindow, NoWindowSystemIsOneLineAndNoAbort) {
  const QString platform = QStringLiteral("QT_QPA_PLATFORM");
  const QString wayland = QStringLiteral("WAYLAND_DISPLAY");
  const Variables inWaylandSession{{wayland, QStringLiteral("wayland-77")},
                                   {QStringLiteral("XDG_SESSION_TYPE"), QStringLiteral("wayland")},
                                   {QStringLiteral("DISPLAY"), QStringLiteral(":77")}};
  for (const Variables& environment : {Variables{{wayland, QStringLiteral("wayland-77")}}, inWaylandSession,
                                       Variables{{platform, QStringLiteral("nonsense")}},
                                       Variables{{platform, QStringLiteral("no\x1b[2J\nsense")}},
                                       Variables{{platform, QStringLiteral("xcb")}}}) {
    const Ended run = RunWindow(environment);
    EXPECT_EQ(run.Status, 1);
    EXPECT_EQ(run.Out, "");
    EXPECT_TRUE(run.Err.startsWith(QByteArray(NoDisplay) + ": ") && run.Err.endsWith(DisplayHint))
        << run.Err.toStdString();
    EXPECT_EQ(run.Err.count('\n'), 1) << run.Err.toStdString();
    EXPECT_FALSE(run.Err.contains('\x1b'));
  }
}

}  // namespace
