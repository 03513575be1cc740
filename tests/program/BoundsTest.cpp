// What the program may need at most, held by the limits of its process: it ends early when it asks for more.
#include <gtest/gtest.h>

#include <string>

#include "program/RunProgram.h"

namespace {

/// Of memory of its own, in KB.
const QString WithinItsMemory = QStringLiteral("ulimit -d 300000 || exit 99; ");

/// As many members as can be solved, none of which touches another: four equations for each unknown force,
/// and the largest tables there are.
QByteArray LooseMembers() {
  constexpr int count = 4090;
  std::string members;
  std::string joints;
  const auto joint = [&](int number, double x, int y) {
    const std::string place = QByteArray::number(x).toStdString() + ',' + std::to_string(y);
    joints += place + ",\"" + std::to_string(number) + "\"\r\n";
    return place;
  };
  for (int i = 0; i < count; ++i) {
    const int x = i % 64 * 3;
    const int y = i / 64 * 2;
    const std::string name = "\"m" + std::to_string(i) + '"';
    const std::string from = joint(2 * i, x, y);
    members +=
        from + ',' + joint(2 * i + 1, x + 1 + 0.25 * (i % 5), y + 1) + ',' + name + ',' + name + "\r\n";
  }
  const std::string settings =
      "#TRUE#,#TRUE#,#TRUE#,#TRUE#\r\n0\r\n200\r\n2\r\n0.5\r\n0\r\n0.5\r\n1000\r\n4\r\n";
  const std::string supports = "2\r\n0,0,1\r\n\"Ax\",\"Ay\"\r\n189,0,5\r\n\"B\"\r\n";
  return QByteArray::fromStdString("Orvane 5\r\n" + settings + supports + std::to_string(count) + "\r\n" +
                                   members + "1\r\n0,0,1,-5\r\n" + std::to_string(2 * count) + "\r\n" +
                                   joints);
}

}  // namespace

TEST(ProgramBounds, TheLargestTablesAreWrittenAsTheyGo) {
  const QByteArray truss = LooseMembers();
  const TestFiles files;
  for (const char* options : {"--json --matrices --explain",
                              "--report=counting,joints,equations,solutions,why,checks,steps,byjoint",
                              "--csv=rref", "--convert=-", "--picture=- --named", "--picture=- --forces"}) {
    const bool isPicture = QByteArray(options).startsWith("--picture");
    const QString script =
        WithinItsMemory + QStringLiteral("exec \"$0\" ") +
        QString::fromLatin1(options).replace(QLatin1String("=-"), QLatin1String("=\"$1\"")) +
        QStringLiteral(" - > /dev/null");
    const Ended run = RunShell(
        script, {files.Path(isPicture ? QStringLiteral("out.svg") : QStringLiteral("out.trs"))}, truss);
    EXPECT_EQ(run.Status, 0) << options << run.Err.toStdString();
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
