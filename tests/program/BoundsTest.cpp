// What the program may need at most, held by the limits of its process: it ends early when it asks for more.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>

#include "program/RunProgram.h"

namespace {

/// Of memory of its own, in KB.
const QString WithinItsMemory = QStringLiteral("ulimit -d 300000 || exit 99; ");

/// As many members as can be solved.
constexpr int MostMembers = 4090;

/// A text of at least so many letters.
std::string Lengthened(std::string text, std::size_t letters) {
  if (text.size() < letters) text.resize(letters, 'x');
  return text;
}

/// Members none of which touches another: four equations for each unknown force, and the largest tables
/// there are.
QByteArray LooseMembers(int count, std::size_t lettersOfNames) {
  std::string members;
  std::string joints;
  const auto quoted = [&](std::string name) {
    return '"' + Lengthened(std::move(name), lettersOfNames) + '"';
  };
  const auto joint = [&](int number, double x, int y) {
    const std::string place = QByteArray::number(x).toStdString() + ',' + std::to_string(y);
    joints += place + ',' + quoted(std::to_string(number)) + "\r\n";
    return place;
  };
  for (int i = 0; i < count; ++i) {
    const int x = i % 64 * 3;
    const int y = i / 64 * 2;
    const std::string name = quoted('m' + std::to_string(i));
    const std::string from = joint(2 * i, x, y);
    members +=
        from + ',' + joint(2 * i + 1, x + 1 + 0.25 * (i % 5), y + 1) + ',' + name + ',' + name + "\r\n";
  }
  const std::string settings =
      "#TRUE#,#TRUE#,#TRUE#,#TRUE#\r\n0\r\n200\r\n2\r\n0.5\r\n0\r\n0.5\r\n1000\r\n4\r\n";
  const std::string supports = "2\r\n0,0,1\r\n" + quoted("Ax") + ',' + quoted("Ay") + "\r\n" +
                               std::to_string(3 * (std::min(count, 64) - 1)) + ",0,5\r\n" + quoted("B") +
                               "\r\n";
  return QByteArray::fromStdString("Orvane 5\r\n" + settings + supports + std::to_string(count) + "\r\n" +
                                   members + "1\r\n0,0,1,-5\r\n" + std::to_string(2 * count) + "\r\n" +
                                   joints);
}

/// Runs the program with the options, in which "out" is a file of its own, and drops what it writes.
void ExpectWithinItsMemory(const char* options, const QByteArray& truss) {
  const TestFiles files;
  const QString script =
      WithinItsMemory +
      QStringLiteral("cd \"$1\" && exec \"$0\" %1 - > /dev/null").arg(QString::fromLatin1(options));
  const Ended run = RunShell(script, {files.Path(QString())}, truss);
  EXPECT_EQ(run.Status, 0) << options << run.Err.toStdString();
}

}  // namespace

TEST(ProgramBounds, TheLargestTablesAreWrittenAsTheyGo) {
  const QByteArray truss = LooseMembers(MostMembers, 0);
  for (const char* options : {"--json --matrices --explain",
                              "--report=counting,joints,equations,solutions,why,checks,steps,byjoint",
                              "--csv=rref", "--convert=out.trs", "--picture=out.svg --named",
                              "--picture=out.svg --forces", "--document=out.odt"}) {
    ExpectWithinItsMemory(options, truss);
  }
}

// For the bytes of a file that long the reader has room for the largest one; what else there is has the 40 MB
// beside them, which is as much as the names have.
TEST(ProgramBounds, LongNamesStandInMemoryOnce) {
  const QByteArray truss = LooseMembers(1000, 10'000);
  for (const char* options : {"--json", "--report=counting", "--report=joints", "--report=solutions",
                              "--csv=solutions", "--convert=out.trs", "--picture=out.png --named"}) {
    ExpectWithinItsMemory(options, truss);
  }
}

TEST(ProgramBounds, EveryFormIsWrittenOfATrussWithLongNames) {
  const QByteArray truss = LooseMembers(16, 10'000);
  for (const char* options :
       {"--json --matrices --explain",
        "--report=counting,joints,equations,rref,solutions,why,checks,steps,byjoint", "--csv=equations",
        "--csv=rref", "--csv=solutions", "--convert=out.trs", "--picture=out.png --named",
        "--picture=out.svg --named", "--picture=out.pdf --forces", "--picture=out.svg --motion=1",
        "--document=out.rtf", "--document=out.html", "--document=out.odt"}) {
    ExpectWithinItsMemory(options, truss);
  }
}

TEST(ProgramBounds, EndlessInputIsRefusedWhenItIsLargerThanAnyTruss) {
  for (const char* script : {"yes | \"$0\" --json -", "\"$0\" --json - < /dev/zero",
                             "\"$0\" --json /dev/zero", "yes | \"$0\" --report=counting /dev/stdin"}) {
    const Ended run = RunShell(WithinItsMemory + QString::fromLatin1(script), {}, {});
    EXPECT_EQ(run.Status, 1) << script;
    EXPECT_TRUE(run.Err.endsWith(": the file is larger than any truss\n")) << script << run.Err.toStdString();
    EXPECT_EQ(run.Err.count('\n'), 1) << run.Err.toStdString();
  }
}
