// What --json prints: the keys and their order, the numbers digit by digit, and the values as a script reads
// them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "program/RunProgram.h"

namespace {

QByteArray JsonOf(const QByteArray& text, const QStringList& more = {}) {
  const Ended run = RunProgram(QStringList({QStringLiteral("--json"), QStringLiteral("-")}) + more, text);
  EXPECT_EQ(run.Status, 0);
  EXPECT_EQ(run.Err, "");
  EXPECT_TRUE(run.Out.endsWith('\n') && run.Out.count('\n') == 1) << "one line for one file";
  return run.Out;
}

QJsonObject Parsed(const QByteArray& json) {
  QJsonParseError error;
  const QJsonDocument document = QJsonDocument::fromJson(json, &error);
  EXPECT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString() << json.toStdString();
  return document.object();
}

QJsonObject ParsedExample(const char* name) {
  const Ended run = RunProgram({QStringLiteral("--json"), Example(name)});
  EXPECT_EQ(run.Status, 0) << name;
  return Parsed(run.Out);
}

QJsonArray Array(std::initializer_list<const char*> texts) {
  QJsonArray array;
  for (const char* text : texts) array.append(QString::fromUtf8(text));
  return array;
}

// Each of the keys at the given depth, as they stand in the bytes. Names in these tests hold no brackets.
QStringList KeysAtDepth(const QByteArray& json, int wantedDepth) {
  QStringList keys;
  int depth = 0;
  for (qsizetype i = 0; i < json.size(); ++i) {
    if (json[i] == '{' || json[i] == '[') ++depth;
    if (json[i] == '}' || json[i] == ']') --depth;
    if (json[i] != '"') continue;
    const qsizetype first = ++i;
    while (json[i] != '"') i += json[i] == '\\' ? 2 : 1;
    if (json[i + 1] == ':' && depth == wantedDepth)
      keys.append(QString::fromUtf8(json.mid(first, i - first)));
  }
  return keys;
}

TEST(JsonOutput, HasItsKeysInTheirOrder) {
  const char* keys =
      "file complete error settings supports members forces joints NumReactionForces NumMemberForces "
      "unknowns "
      "counting ColumnOrder outcome solutions conclusion";
  EXPECT_EQ(KeysAtDepth(JsonOf(TriangleText()), 1), Words(keys));
  EXPECT_EQ(KeysAtDepth(JsonOf(TriangleText(), {QStringLiteral("--matrices")}), 1),
            Words(keys) + Words("equations rref"));
}

TEST(JsonOutput, HasTheKeysOfItsPartsInTheirOrder) {
  const QByteArray json = JsonOf(TriangleText());
  const auto keysBetween = [&json](const char* key, const char* nextKey) {
    const qsizetype first = json.indexOf(QByteArray("\"") + key + "\":");
    const qsizetype last = json.indexOf(QByteArray(",\"") + nextKey + "\":", first);
    QStringList keys = KeysAtDepth('{' + json.mid(first, last - first), 2) +
                       KeysAtDepth('{' + json.mid(first, last - first), 3);
    return keys;
  };
  EXPECT_EQ(
      keysBetween("settings", "supports"),
      Words(
          "SnapObject SnapGrid GridOn RulersOn XMin XMax HatchSpacing GridX YMin GridY ForceScale SigFigs"));
  EXPECT_EQ(keysBetween("supports", "members"), Words("X Y TypeIndex Names X Y TypeIndex Names"));
  EXPECT_EQ(keysBetween("members", "forces"), Words("X1 Y1 X2 Y2 Name X1 Y1 X2 Y2 Name X1 Y1 X2 Y2 Name"));
  EXPECT_EQ(keysBetween("forces", "joints"), Words("X Y Fx Fy"));
  EXPECT_EQ(keysBetween("joints", "NumReactionForces").mid(0, 5), Words("X Y Name xEquation yEquation"));
  EXPECT_EQ(keysBetween("counting", "ColumnOrder"), Words("forces equations count"));
  EXPECT_EQ(keysBetween("solutions", "conclusion").mid(0, 3), Words("Name Value Text"));
}

TEST(JsonOutput, TellsTheWholeTriangle) {
  const QJsonObject truss = Parsed(JsonOf(TriangleText()));
  EXPECT_EQ(truss[u"file"], QStringLiteral("-"));
  EXPECT_EQ(truss[u"complete"], true);
  EXPECT_TRUE(truss[u"error"].isNull());
  EXPECT_EQ(truss[u"settings"][u"SnapObject"], true);
  EXPECT_EQ(truss[u"settings"][u"RulersOn"], false);
  EXPECT_EQ(truss[u"settings"][u"SigFigs"], 4);
  EXPECT_EQ(truss[u"supports"][0][u"Names"].toArray(), Array({"Ax", "Ay"}));
  EXPECT_EQ(truss[u"supports"][1][u"Names"].toArray(), Array({"B"}));
  EXPECT_EQ(truss[u"supports"][1][u"TypeIndex"], 5);
  EXPECT_EQ(truss[u"members"].toArray().size(), 3);
  EXPECT_EQ(truss[u"forces"][0][u"Fy"], -1000);
  EXPECT_EQ(truss[u"joints"][0][u"xEquation"], QStringLiteral("Ax = AB + AC cos(45.0)"));
  EXPECT_EQ(truss[u"joints"][2][u"yEquation"], QStringLiteral("AC sin(45.0) + BC sin(45.0) = 1000."));
  EXPECT_EQ(truss[u"NumReactionForces"], 3);
  EXPECT_EQ(truss[u"NumMemberForces"], 3);
  EXPECT_EQ(truss[u"unknowns"].toArray(), Array({"Ax", "Ay", "B", "AB", "AC", "BC"}));
  EXPECT_TRUE(truss[u"counting"][u"forces"].toString().startsWith(
      QStringLiteral("This truss contains 6 unknown forces:\r\n\r\n- the 3 member")));
  EXPECT_TRUE(truss[u"counting"][u"equations"].toString().endsWith(QStringLiteral("6 equations.\r\n\r\n")));
  EXPECT_TRUE(
      truss[u"counting"][u"count"].toString().startsWith(QStringLiteral("There are the same number")));
  EXPECT_EQ(truss[u"ColumnOrder"].toArray(), QJsonArray({1, 2, 3, 4, 5, 6}));
  EXPECT_EQ(truss[u"outcome"], 0);
  EXPECT_EQ(truss[u"solutions"][3][u"Name"], QStringLiteral("AB"));
  EXPECT_NEAR(truss[u"solutions"][3][u"Value"].toDouble(), -500, 1E-9);
  EXPECT_EQ(truss[u"solutions"][3][u"Text"], QStringLiteral("\u2013500"));
  EXPECT_EQ(truss[u"conclusion"], QString());
}

TEST(JsonOutput, SortsJointsByNameAndKeepsTheOtherTables) {
  QByteArray text = TriangleText();
  text.replace("0,0,\"A\"", "0,0,\"Z\"").replace("\"AB\",\"AB\"", "\"m9\",\"m9\"");
  const QJsonObject truss = Parsed(JsonOf(text));
  EXPECT_EQ(truss[u"joints"][0][u"Name"], QStringLiteral("B"));
  EXPECT_EQ(truss[u"joints"][2][u"Name"], QStringLiteral("Z"));
  EXPECT_EQ(truss[u"members"][0][u"Name"], QStringLiteral("m9"));
  EXPECT_EQ(truss[u"unknowns"].toArray(), Array({"Ax", "Ay", "B", "AC", "BC", "m9"}));
}

TEST(JsonOutput, WritesSinglesInTheirShortestForm) {
  QByteArray text = TriangleText();
  text.replace("4,4,0,-1000", ".1,-.3333333333,1E20,123456789")
      .replace("\r\n20\r\n2\r\n0.5", "\r\n20\r\n.1\r\n3.0E-7");
  const QByteArray json = JsonOf(text);
  EXPECT_TRUE(json.contains("\"forces\":[{\"X\":0.1,\"Y\":-0.33333334,\"Fx\":1E+20,\"Fy\":1.2345679E+8}]"))
      << json.toStdString();
  EXPECT_TRUE(json.contains("\"HatchSpacing\":0.1,\"GridX\":3E-7,"));
  EXPECT_EQ(static_cast<float>(Parsed(json)[u"forces"][0][u"Y"].toDouble()), -0.3333333333F);
}

TEST(JsonOutput, KeepsTheHatchSpacingAsItWasRead) {
  const auto spacing = [](const char* number) {
    const QByteArray json =
        JsonOf(TriangleText().replace("\r\n20\r\n2\r\n", QByteArray("\r\n20\r\n") + number + "\r\n"));
    const qsizetype first = json.indexOf("\"HatchSpacing\":") + 15;
    return json.mid(first, json.indexOf(',', first) - first);
  };
  EXPECT_EQ(spacing("2"), "2");
  EXPECT_EQ(spacing("0.123456789"), "0.123456789") << "a double keeps its digits";
}

TEST(JsonOutput, WritesDoublesInTheirShortestForm) {
  const QByteArray json = JsonOf(TriangleText(), {QStringLiteral("--matrices")});
  // The rise of a rafter is a single, and its force a double.
  EXPECT_TRUE(json.contains("[1,0,0,-1,-0.70710677,0,0]"));
  const QByteArray key = "{\"Name\":\"AC\",\"Value\":";
  const qsizetype first = json.indexOf(key) + key.size();
  const QByteArray digits = json.mid(first, json.indexOf(',', first) - first);
  const double value = digits.toDouble();
  EXPECT_EQ(digits, QByteArray::number(value, 'g', QLocale::FloatingPointShortest));
  EXPECT_EQ(value, Parsed(json)[u"solutions"][4][u"Value"].toDouble());
}

TEST(JsonOutput, HasBothMatricesAsRowsOfNumbers) {
  const QJsonObject truss = Parsed(JsonOf(TriangleText(), {QStringLiteral("--matrices")}));
  for (const char* key : {"equations", "rref"}) {
    const QJsonArray rows = truss[QLatin1String(key)].toArray();
    ASSERT_EQ(rows.size(), 6) << key;
    for (const QJsonValue& row : rows) {
      ASSERT_EQ(row.toArray().size(), 7);
      for (const QJsonValue& cell : row.toArray()) EXPECT_TRUE(cell.isDouble());
    }
  }
  EXPECT_EQ(truss[u"equations"][5][6], 1000);
  for (int row = 0; row < 6; ++row) {
    for (int column = 0; column < 6; ++column) EXPECT_EQ(truss[u"rref"][row][column], row == column ? 1 : 0);
    EXPECT_EQ(truss[u"rref"][row][6], truss[u"solutions"][row][u"Value"]);
  }
}

TEST(JsonOutput, NamesTheColumnsOfTheReducedMatrix) {
  const Ended run =
      RunProgram({QStringLiteral("--json"), QStringLiteral("--matrices"), Example("undetermined.trs")});
  const QJsonObject truss = Parsed(run.Out);
  const int numUnknowns = static_cast<int>(truss[u"unknowns"].toArray().size());
  const QJsonArray rows = truss[u"rref"].toArray();
  ASSERT_EQ(truss[u"ColumnOrder"].toArray().size(), numUnknowns);
  for (const QJsonValue& row : rows) {
    int pivot = -1;
    int nonZeros = 0;
    for (int column = 0; column < numUnknowns; ++column) {
      if (row[column] == 0) continue;
      ++nonZeros;
      if (pivot < 0) pivot = column;
    }
    if (nonZeros != 1) continue;
    const int unknown = truss[u"ColumnOrder"][pivot].toInt();
    EXPECT_EQ(truss[u"solutions"][unknown - 1][u"Value"], row[numUnknowns]);
  }
  const QJsonArray solutions = truss[u"solutions"].toArray();
  EXPECT_TRUE(solutions[0][u"Value"].isNull());
  EXPECT_EQ(solutions[0][u"Text"], QStringLiteral("undetermined"));
  EXPECT_EQ(truss[u"outcome"], 0);
}

TEST(JsonOutput, TellsOutcomesAndConclusions) {
  const QJsonObject redundant = ParsedExample("redundant.trs");
  EXPECT_EQ(redundant[u"outcome"], 1);
  EXPECT_FALSE(redundant[u"solutions"].toArray().isEmpty());
  EXPECT_EQ(redundant[u"conclusion"],
            QStringLiteral(
                "This is a redundant system of equations.  This implies that the truss is in equilibrium "
                "(static) for these applied forces but not for others."));
  const QJsonObject inconsistent = ParsedExample("inconsistent.trs");
  EXPECT_EQ(inconsistent[u"outcome"], 2);
  EXPECT_EQ(inconsistent[u"solutions"], QJsonValue(QJsonArray()));
  EXPECT_TRUE(inconsistent[u"conclusion"].toString().startsWith(QStringLiteral("There is NO SOLUTION ")));
}

TEST(JsonOutput, HasNoOutcomeWithoutUnknowns) {
  const QByteArray json = JsonOf(
      "Orvane 5\r\n#TRUE#,#TRUE#,#TRUE#,#TRUE#\r\n0\r\n20\r\n2\r\n.5\r\n0\r\n.5\r\n1000\r\n4\r\n0\r\n0\r\n"
      "1\r\n1,2,3,4\r\n1\r\n1,2,\"J\"\r\n",
      {QStringLiteral("--matrices")});
  EXPECT_TRUE(
      json.endsWith("\"NumReactionForces\":0,\"NumMemberForces\":0,\"unknowns\":[],\"counting\":{\"forces\":"
                    "\"\",\"equations\":\"\","
                    "\"count\":\"\"},\"ColumnOrder\":[],\"outcome\":null,\"solutions\":[],\"conclusion\":"
                    "\"\",\"equations\":[],"
                    "\"rref\":[]}\n"))
      << json.toStdString();
}

TEST(JsonOutput, HasNamesInUtf8AndEscapesThem) {
  QByteArray text = TriangleText();
  text.replace("\"Ax\",\"Ay\"", "\"\x80\xfc\",\"a\\b\r\n\x01\"");
  const QByteArray json = JsonOf(text);
  EXPECT_TRUE(json.contains("\"Names\":[\"\u20ac\u00fc\",\"a\\\\b\\r\\n\\u0001\"]")) << json.toStdString();
  EXPECT_EQ(Parsed(json)[u"supports"][0][u"Names"][1], QStringLiteral("a\\b\r\n\u0001"));
}

TEST(JsonOutput, EscapesEveryControlCharacter) {
  QByteArray text = TriangleText();
  text.replace("\"Ax\",\"Ay\"", "\"\x1b\x7f\x81\x9b\",\"\x8d\x8f\x90\x9d\xc2\"");
  const QByteArray json = JsonOf(text);
  EXPECT_TRUE(
      json.contains("\"Names\":[\"\\u001b\\u007f\\u0081\u203a\",\"\\u008d\\u008f\\u0090\\u009d\u00c2\"]"))
      << json.toStdString();
}

TEST(JsonOutput, EscapesMarksOfDirectionInNamesOfFiles) {
  const TestFiles files;
  const Ended run = RunProgram(
      {QStringLiteral("--json"), files.File(QStringLiteral("a\u202Eb\u2066c\u061Cd\u200Fe\u2010.trs"), "")});
  EXPECT_TRUE(run.Out.contains("a\\u202eb\\u2066c\\u061cd\\u200fe\u2010.trs")) << run.Out.toStdString();
  EXPECT_TRUE(run.Err.contains("a\uFFFDb\uFFFDc\uFFFDd\uFFFDe\u2010.trs: ")) << run.Err.toStdString();
}

TEST(JsonOutput, HasOneLineForEachArgumentInTheirOrder) {
  const TestFiles files;
  const QString broken = files.File(QStringLiteral("Br\u00fccke \"2\".trs"), BrokenTriangleText());
  const QString missing = files.Path(QStringLiteral("missing.trs"));
  const Ended run = RunProgram(
      {QStringLiteral("--json"), Example("pratt.trs"), broken, missing, QStringLiteral("-")}, TriangleText());
  EXPECT_EQ(run.Status, 1);
  EXPECT_EQ(run.Err, "orvane: " + broken.toUtf8() + ": " + BrokenTriangleWhy +
                         "\norvane: " + missing.toUtf8() + ": the file cannot be opened for reading\n");
  const QList<QByteArray> lines = run.Out.split('\n');
  ASSERT_EQ(lines.size(), 5);
  EXPECT_EQ(Parsed(lines[0])[u"complete"], true);
  EXPECT_EQ(Parsed(lines[0])[u"file"], Example("pratt.trs"));
  const QJsonObject second = Parsed(lines[1]);
  EXPECT_EQ(second[u"file"], broken);
  EXPECT_EQ(second[u"complete"], false);
  EXPECT_EQ(second[u"error"], QString::fromLatin1(BrokenTriangleWhy));
  EXPECT_EQ(second[u"members"].toArray().size(), 2) << "what was read before the error";
  EXPECT_EQ(Parsed(lines[2])[u"error"], QStringLiteral("the file cannot be opened for reading"));
  EXPECT_EQ(QJsonValue(Parsed(lines[2])[u"supports"]), QJsonValue(QJsonArray()));
  EXPECT_EQ(Parsed(lines[3])[u"complete"], true);
}

TEST(JsonOutput, TellsTheSwitchesThatAConversionExchanges) {
  const Ended converted = RunProgram({QStringLiteral("--convert=-"), QStringLiteral("-")}, TriangleText());
  const QJsonObject before = Parsed(JsonOf(TriangleText()));
  const QJsonObject after = Parsed(JsonOf(converted.Out));
  EXPECT_EQ(after[u"settings"][u"SnapObject"], before[u"settings"][u"GridOn"]);
  EXPECT_EQ(after[u"settings"][u"SnapGrid"], before[u"settings"][u"RulersOn"]);
  EXPECT_EQ(after[u"settings"][u"GridOn"], before[u"settings"][u"SnapGrid"]);
  EXPECT_EQ(after[u"settings"][u"RulersOn"], before[u"settings"][u"SnapObject"]);
  for (const char* same : {"supports", "members", "forces", "joints", "solutions"}) {
    EXPECT_EQ(after[QLatin1String(same)], before[QLatin1String(same)]) << same;
  }
}

}  // namespace
