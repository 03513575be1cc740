// What --json --explain adds: the keys, their order, and what they say of the examples.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include "program/RunProgram.h"

namespace {

QByteArray JsonOf(const QString& file, const QByteArray& input = {}) {
  const Ended run = RunProgram({QStringLiteral("--json"), QStringLiteral("--explain"), file}, input);
  EXPECT_EQ(run.Status, 0);
  EXPECT_EQ(run.Err, "");
  return run.Out;
}

QJsonObject Explained(const char* example) {
  return QJsonDocument::fromJson(JsonOf(Example(example))).object();
}

QJsonObject ObjectAt(const QJsonValue& value, const char* key) {
  return value.toObject().value(QString::fromLatin1(key)).toObject();
}

QJsonArray ArrayAt(const QJsonValue& value, const char* key) {
  return value.toObject().value(QString::fromLatin1(key)).toArray();
}

QString TextAt(const QJsonValue& value, const char* key) {
  return value.toObject().value(QString::fromLatin1(key)).toString();
}

int NumberAt(const QJsonValue& value, const char* key) {
  return value.toObject().value(QString::fromLatin1(key)).toInt(-99);
}

TEST(ExplainJson, AddsItsKeysAfterTheUsualOnes) {
  const QByteArray json = JsonOf(QStringLiteral("-"), TriangleText());
  qsizetype at = json.indexOf("\"conclusion\":");
  for (const char* key : {"exact", "unknownsAt", "motions", "selfStresses", "proof", "advice",
                          "certainFigures", "checks", "steps", "byJoint"}) {
    const qsizetype next = json.indexOf(QByteArray(",\"") + key + "\":", at);
    EXPECT_GT(next, at) << key;
    at = next;
  }
  const Ended plain = RunProgram({QStringLiteral("--json"), QStringLiteral("-")}, TriangleText());
  EXPECT_TRUE(json.startsWith(plain.Out.left(plain.Out.size() - 2))) << "the usual keys stay as they are";
}

TEST(ExplainJson, SaysOfADeterminateTrussThatAllIsDetermined) {
  const QJsonObject object = QJsonDocument::fromJson(JsonOf(QStringLiteral("-"), TriangleText())).object();
  const QJsonObject exact = ObjectAt(object, "exact");
  EXPECT_EQ(
      QJsonDocument(exact).toJson(QJsonDocument::Compact),
      R"({"agrees":true,"augmentedRank":6,"determined":[1,2,3,4,5,6],"mechanisms":0,"outcome":0,"rank":6,"selfStresses":0,"within":0,"word":"unique"})");
  EXPECT_EQ(
      QJsonDocument(ArrayAt(object, "unknownsAt")).toJson(QJsonDocument::Compact),
      R"([{"Axis":"x","Joint":1},{"Axis":"y","Joint":1},{"Axis":"y","Joint":2},{"Joints":[1,2]},{"Joints":[1,3]},{"Joints":[2,3]}])");
  EXPECT_TRUE(ArrayAt(object, "motions").isEmpty());
  EXPECT_TRUE(ArrayAt(object, "selfStresses").isEmpty());
  EXPECT_TRUE(object.value(QStringLiteral("proof")).isNull());
  EXPECT_TRUE(ArrayAt(object, "advice").isEmpty());
  // It stands on the lower edge of its drawing, so the reactions below it are out of sight.
  for (const QJsonValue check : ArrayAt(object, "checks")) {
    EXPECT_EQ(TextAt(check, "Kind"), QStringLiteral("outside-drawing"));
  }
  EXPECT_GE(NumberAt(object, "certainFigures"), 6);
}

// What is small beside the largest force has figures too.
TEST(ExplainJson, CountsTheFiguresOfTheForceThatHasTheFewest) {
  const QByteArray head = "Orvane 5\n#TRUE#,#TRUE#,#TRUE#,#TRUE#\n-10\n30\n2\n1\n-10\n1\n1000\n4\n";
  const auto figures = [&head](const QByteArray& rest) {
    return NumberAt(QJsonDocument::fromJson(JsonOf(QStringLiteral("-"), head + rest)).object(),
                    "certainFigures");
  };
  EXPECT_EQ(figures(R"(2
0.9,0.3,1
"R0a","R0b"
0,1.5,8
"R1"
3
0.3,0.9,0,1.5,"M00","M00"
0.9,0.3,0,1.5,"M01","M01"
0.3,0.9,0.9,0.3,"M02","M02"
2
0.9,0.3,3.7,0.1
0.3,0.9,-1000,-1000
3
0.9,0.3,"J0"
0,1.5,"J1"
0.3,0.9,"J2"
)"),
            3);
  EXPECT_EQ(figures(R"(2
0,3,2
"R0a","R0b"
0.998,0.002,5
"R1"
10
0.998,0.002,0,3.001,"M00","M00"
0.998,0.002,1,1,"M01","M01"
0,3,1,1,"M02","M02"
4,4,0,3.001,"M03","M03"
2.999,3,1,1,"M04","M04"
4,4,3,2.992,"M05","M05"
4,4,2.999,3,"M06","M06"
0,3,0,3.001,"M07","M07"
0,3.001,1,1,"M08","M08"
4,4,0,3,"M09","M09"
1
2.999,3,0,-1000
7
0,3,"J0"
0.998,0.002,"J1"
0,3.001,"J2"
1,1,"J3"
4,4,"J4"
2.999,3,"J5"
3,2.992,"J6"
)"),
            1)
      << "the x-reaction is exactly 0";
}

TEST(ExplainJson, NoFigureIsSureOfForcesThatAreDeterminedButNotShown) {
  EXPECT_EQ(NumberAt(Explained("tie.trs"), "certainFigures"), 0);
}

TEST(ExplainJson, SaysHowAParallelogramMovesAndWhyNothingBalances) {
  const QJsonObject object = Explained("parallelogram.trs");
  EXPECT_EQ(TextAt(ObjectAt(object, "exact"), "word"), QStringLiteral("no solution"));
  const QJsonArray motions = ArrayAt(object, "motions");
  ASSERT_EQ(motions.size(), 1);
  const QJsonValue motion = motions.first();
  EXPECT_EQ(TextAt(motion, "kind"), QStringLiteral("internal"));
  EXPECT_EQ(TextAt(motion, "extent"), QStringLiteral("moves on"));
  EXPECT_EQ(ArrayAt(motion, "joints").size(), 2);
  EXPECT_GT(motion.toObject().value(QStringLiteral("work")).toDouble(), 0);
  const QJsonObject proof = ObjectAt(object, "proof");
  EXPECT_EQ(proof.value(QStringLiteral("Sum")).toDouble(), 1000);
  EXPECT_EQ(ArrayAt(proof, "equations").size(), 4);
  EXPECT_EQ(ArrayAt(object, "selfStresses").size(), 1);
  bool addsADiagonal = false;
  for (const QJsonValue advice : ArrayAt(object, "advice")) {
    addsADiagonal = addsADiagonal || (TextAt(advice, "Add") == QStringLiteral("member") &&
                                      ArrayAt(advice, "Joints").size() == 2);
  }
  EXPECT_TRUE(addsADiagonal);
}

TEST(ExplainJson, TellsExactFromRounded) {
  const QJsonObject tie = ObjectAt(Explained("tie.trs"), "exact");
  EXPECT_EQ(NumberAt(tie, "outcome"), 1);
  EXPECT_EQ(NumberAt(tie, "within"), 1);
  EXPECT_FALSE(tie.value(QStringLiteral("agrees")).toBool(true));
  const QJsonObject hidden = ObjectAt(Explained("sloping-arch.trs"), "exact");
  EXPECT_EQ(NumberAt(hidden, "outcome"), 2);
  EXPECT_FALSE(hidden.value(QStringLiteral("agrees")).toBool(true));
  const QJsonObject hexagon = ObjectAt(Explained("critical-hexagon.trs"), "exact");
  EXPECT_EQ(NumberAt(hexagon, "mechanisms"), 1);
  EXPECT_EQ(NumberAt(hexagon, "selfStresses"), 1);
}

TEST(ExplainJson, AdvisesWhatToAddAndWhatToLeaveOut) {
  const QJsonValue turned = ArrayAt(Explained("wrong-roller.trs"), "advice").first();
  EXPECT_EQ(TextAt(turned, "Add"), QStringLiteral("roller"));
  EXPECT_EQ(TextAt(turned, "Axis"), QStringLiteral("y"));
  EXPECT_GT(NumberAt(turned, "Joint"), 0);
  const QJsonValue redundant = ArrayAt(Explained("one-too-many.trs"), "advice").first();
  EXPECT_GT(NumberAt(redundant, "Remove"), 3) << "a member, not a reaction";
}

TEST(ExplainJson, ChecksTheDrawing) {
  const QJsonArray checks = ArrayAt(Explained("near-joint.trs"), "checks");
  ASSERT_FALSE(checks.isEmpty());
  EXPECT_EQ(TextAt(checks.first(), "Kind"), QStringLiteral("near-ends"));
  EXPECT_NEAR(checks.first().toObject().value(QStringLiteral("X")).toDouble(), 4, 0.03);
}

// They are told in words; programs that read the kinds know seven of them.
TEST(ExplainJson, NamesGivenTwiceAreNotAmongTheChecks) {
  QByteArray text = TriangleText();
  text.replace("\"AC\",\"AC\"", "\"AB\",\"AB\"");
  ASSERT_NE(text, TriangleText());
  const QJsonObject object = QJsonDocument::fromJson(JsonOf(QStringLiteral("-"), text)).object();
  EXPECT_TRUE(object.value(QStringLiteral("checks")).isArray());
  for (const QJsonValue& check : ArrayAt(object, "checks")) EXPECT_NE(TextAt(check, "Kind"), QString());
  EXPECT_FALSE(QJsonDocument(object).toJson().contains("are both called"));
}

TEST(ExplainJson, OfATrussWithoutUnknownForcesOnlyTheChecksAreTold) {
  const QByteArray json =
      JsonOf(QStringLiteral("-"),
             "Orvane 5\r\n#TRUE#,#TRUE#,#TRUE#,#TRUE#\r\n0\r\n20\r\n2\r\n0.5\r\n0\r\n0.5\r\n1000\r\n4\r\n"
             "0\r\n0\r\n1\r\n4,4,0,-5\r\n1\r\n4,4,\"A\"\r\n");
  EXPECT_FALSE(json.contains("\"exact\":"));
  EXPECT_TRUE(json.contains("\"checks\":[{\"Kind\":\"apart\",\"X\":4,\"Y\":4,"));
}

TEST(ExplainJson, NamesThePivotsInTheirOrder) {
  const QJsonObject object = QJsonDocument::fromJson(JsonOf(QStringLiteral("-"), TriangleText())).object();
  const QJsonArray steps = ArrayAt(object, "steps");
  ASSERT_EQ(steps.size(), 6);
  EXPECT_EQ(QJsonDocument(steps[0].toObject()).toJson(QJsonDocument::Compact),
            R"({"Axis":"x","Joint":1,"Unknown":1,"Value":1})");
  QSet<int> unknowns;
  QSet<QString> rows;
  for (const QJsonValue& step : steps) {
    unknowns.insert(NumberAt(step, "Unknown"));
    rows.insert(QString::number(NumberAt(step, "Joint")) + TextAt(step, "Axis"));
  }
  EXPECT_EQ(unknowns.size(), 6) << "each unknown has one";
  EXPECT_EQ(rows.size(), 6) << "and each equation gives one";
  EXPECT_EQ(ArrayAt(Explained("undetermined.trs"), "steps").size(), 8) << "as many as equations";
}

TEST(ExplainJson, SolvesJointByJoint) {
  const QJsonObject object = QJsonDocument::fromJson(JsonOf(QStringLiteral("-"), TriangleText())).object();
  const QJsonArray steps = ArrayAt(object, "byJoint");
  ASSERT_EQ(steps.size(), 4);
  EXPECT_EQ(TextAt(steps[0], "Kind"), QStringLiteral("reactions"));
  EXPECT_FALSE(steps[0].toObject().contains(QStringLiteral("Joint")));
  EXPECT_EQ(ArrayAt(steps[0], "solved").size(), 3);
  EXPECT_EQ(TextAt(steps[1], "Kind"), QStringLiteral("joint"));
  EXPECT_EQ(NumberAt(steps[1], "Joint"), 1);
  EXPECT_TRUE(TextAt(steps[1], "text").startsWith(QStringLiteral("Joint A\n")));
  const QJsonObject solved = ArrayAt(steps[1], "solved").first().toObject();
  EXPECT_EQ(solved.keys(), (QStringList{QStringLiteral("Unknown"), QStringLiteral("Value")}));
  EXPECT_EQ(TextAt(ArrayAt(object, "byJoint").last(), "Kind"), QStringLiteral("joint"));
}

}  // namespace
