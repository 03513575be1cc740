// What a truss file gives: settings in both layouts, elements, labels and names.
#include <tuple>

#include "document/TrussFile.h"
#include "support/FileLines.h"

namespace {

using testing::ElementsAre;

// 400 by 300 pixels.
constexpr CanvasBounds UsualCanvas{.PixL = 50, .PixR = 450, .PixT = 70, .PixB = 370};

Truss ReadWhole(const std::string& text) {
  Truss truss;
  const auto error = ReadTrussText(truss, UsualCanvas, text);
  EXPECT_EQ(error, std::nullopt) << error->Text();
  return truss;
}

Truss ReadElements(const std::vector<std::string>& lines) {
  return ReadWhole(SettingsLines() + FileLines(lines));
}

// The current layout with these four switches and no elements.
Truss ReadSwitches(const std::string& switches) {
  return ReadWhole(
      FileLines({"Orvane 5", switches, "0", "20", "2", "0.5", "0", "0.5", "1000", "4", "0", "0", "0", "0"}));
}

const std::vector<std::string> OlderSettings = {"-1",   "30",   "2.5",  "0.25", "-3",
                                                "what", "ever", "0.75", "500",  "5"};

std::string OlderFile(const std::string& firstLine, std::vector<std::string> elements) {
  std::vector<std::string> lines = OlderSettings;
  lines.insert(lines.begin(), firstLine);
  lines.insert(lines.end(), elements.begin(), elements.end());
  return FileLines(lines);
}

std::string Switches(const Truss& truss) {
  const DocumentSettings& s = truss.Settings;
  const auto letter = [](bool on) { return on ? '1' : '0'; };
  return {letter(s.SnapObject), letter(s.SnapGrid), letter(s.GridOn), letter(s.RulersOn)};
}

}  // namespace

TEST(ReadTruss, TakesTheSettingsInTheirOrder) {
  const Truss truss = ReadWhole(FileLines({"Orvane 5", "#TRUE#,#TRUE#,#TRUE#,#TRUE#", "-2.5", "17.5", "2.5",
                                           ".25", "-.5", "0.125", "1E3", "6", "0", "0", "0", "0"}));
  const DocumentSettings& settings = truss.Settings;
  EXPECT_EQ(settings.XMin, -2.5F);
  EXPECT_EQ(settings.XMax, 17.5F);
  EXPECT_EQ(settings.HatchSpacing, TaggedNumber(2.5));
  EXPECT_EQ(settings.GridX, 0.25F);
  EXPECT_EQ(settings.YMin, -0.5F);
  EXPECT_EQ(settings.GridY, 0.125F);
  EXPECT_EQ(settings.ForceScale, 1000);
  EXPECT_EQ(settings.SigFigs, 6);
  EXPECT_EQ(truss.View, (DerivedView{.YMax = 14.5F, .HatchCountX = 8, .HatchCountY = 6}));
}

TEST(ReadTruss, TakesTheSwitchesInTheReadersOrder) {
  EXPECT_EQ(Switches(ReadSwitches("#TRUE#,#FALSE#,#FALSE#,#FALSE#")), "1000");  // SnapObject
  EXPECT_EQ(Switches(ReadSwitches("#FALSE#,#TRUE#,#FALSE#,#FALSE#")), "0100");  // SnapGrid
  EXPECT_EQ(Switches(ReadSwitches("#FALSE#,#FALSE#,#TRUE#,#FALSE#")), "0010");  // GridOn
  EXPECT_EQ(Switches(ReadSwitches("#False#,#false#,#FALSE#,#true#")), "0001");  // RulersOn
}

TEST(ReadTruss, TakesTheOlderLayoutUnderAnyOtherFirstLine) {
  for (const char* header : {"Orvane 4", "Orvane 50", "orvane 5", "Orvane 5 ", " Orvane 5", "\"Orvane 5\"",
                             "", "anything, \"at all", "\xEF\xBB\xBFOrvane 5"}) {
    const Truss truss = ReadWhole(OlderFile(header, {"0", "0", "1", "1,2,3,4", "0"}));
    const DocumentSettings& settings = truss.Settings;
    EXPECT_EQ(settings.XMin, -1) << header;
    EXPECT_EQ(settings.XMax, 30);
    EXPECT_EQ(settings.HatchSpacing, TaggedNumber(2.5F));
    EXPECT_EQ(settings.GridX, 0.25F);
    EXPECT_EQ(settings.YMin, -3);
    EXPECT_EQ(settings.GridY, 0.75F);
    EXPECT_EQ(settings.ForceScale, 500);
    EXPECT_EQ(settings.SigFigs, 5);
    EXPECT_EQ(truss.NumForces, 1);
    EXPECT_EQ(truss.View.YMax, -3 + 31 * 300 / 400.0F);
  }
}

TEST(ReadTruss, LeavesTheSwitchesInTheOlderLayout) {
  Truss truss;
  truss.Settings.SnapGrid = truss.Settings.RulersOn = false;
  ASSERT_EQ(ReadTrussText(truss, UsualCanvas, OlderFile("old", {"0", "0", "0", "0"})), std::nullopt);
  EXPECT_EQ(Switches(truss), "1010");
}

TEST(ReadTruss, TakesTheSpacingOfTheOlderLayoutAsASingle) {
  std::string text = OlderFile("old", {"0", "0", "0", "0"});
  text.erase(text.find("2.5") + 1, 2);
  EXPECT_EQ(ReadWhole(text).Settings.HatchSpacing, TaggedNumber(2.0F));
}

TEST(ReadTruss, KeepsTheTypeOfTheSpacing) {
  const auto spacing = [](const std::string& field) {
    return ReadWhole(FileLines({"Orvane 5", "#TRUE#,#TRUE#,#TRUE#,#TRUE#", "0", "20", field, "1", "0", "1",
                                "1", "4", "0", "0", "0", "0"}))
        .Settings.HatchSpacing;
  };
  EXPECT_EQ(spacing("2"), TaggedNumber(std::int16_t{2}));
  EXPECT_EQ(spacing("2.5"), TaggedNumber(2.5));
  EXPECT_EQ(spacing("0.1"), TaggedNumber(0.1));
}

TEST(ReadTruss, TakesSettingsWithoutJudgingThem) {
  const Truss truss = ReadWhole(FileLines({"Orvane 5", "#TRUE#,#TRUE#,#TRUE#,#TRUE#", "5", "5", "0", "0", "1",
                                           "0", "0", "-7", "0", "0", "0", "0"}));
  EXPECT_EQ(truss.Settings.SigFigs, -7);
  EXPECT_EQ(truss.Settings.ForceScale, 0);
  EXPECT_EQ(truss.View, (DerivedView{.YMax = 1, .HatchCountX = 0, .HatchCountY = 0}));
}

TEST(ReadTruss, GivesSupportsTheirLabelsAndArrows) {
  const Truss truss = ReadElements({"2", "1,2,4", "\"Ax\",\"Ay\"", "-.5,1E1,5", "\"B\"", "0", "0", "0"});
  ASSERT_EQ(truss.NumSupports, 2);
  const SupportRec& clamp = truss.Supports[1];
  EXPECT_EQ(std::tuple(clamp.X, clamp.Y, clamp.TypeIndex), std::tuple(1.0F, 2.0F, 4));
  EXPECT_TRUE(clamp.Live);
  EXPECT_EQ(clamp.NameLabel1, 1);
  EXPECT_EQ(clamp.NameLabel2, 2);
  EXPECT_EQ(clamp.ArrowLine1, 4);
  EXPECT_EQ(clamp.ArrowLine2, 8);
  const SupportRec& roller = truss.Supports[2];
  EXPECT_EQ(std::tuple(roller.X, roller.Y, roller.TypeIndex), std::tuple(-0.5F, 10.0F, 5));
  EXPECT_EQ(roller.NameLabel1, 3);
  EXPECT_EQ(roller.ArrowLine1, 12);
  EXPECT_EQ(truss.NumLabels, 3);
  EXPECT_EQ(truss.NumArrowLines, 12);
  EXPECT_EQ(truss.Name(1), "Ax");
  EXPECT_EQ(truss.Name(2), "Ay");
  EXPECT_EQ(truss.Name(3), "B");
}

TEST(ReadTruss, ReadsEveryTypeOfSupport) {
  for (int type = 1; type <= 8; ++type) {
    const Truss truss = ReadElements(
        {"1", "0,0," + std::to_string(type), type <= 4 ? "\"x\",\"y\"" : "\"x\"", "0", "0", "0"});
    ASSERT_EQ(truss.NumSupports, 1);
    EXPECT_EQ(truss.Supports[1].TypeIndex, type);
    EXPECT_EQ(truss.NumLabels, type <= 4 ? 2 : 1);
  }
}

TEST(ReadTruss, GivesMembersTheNextLabels) {
  const Truss truss =
      ReadElements({"1", "0,0,5", "\"R\"", "2", "0,1,2,3,\"S\",\"S\"", "4,5,6,7,\"T\",\"U\"", "0", "0"});
  ASSERT_EQ(truss.NumMembers, 2);
  const MemberRec& member = truss.Members[2];
  EXPECT_EQ(std::tuple(member.X1, member.Y1, member.X2, member.Y2), std::tuple(4.0F, 5.0F, 6.0F, 7.0F));
  EXPECT_TRUE(member.Live);
  EXPECT_EQ(member.NameLabel1, 4);
  EXPECT_EQ(member.NameLabel2, 5);
  EXPECT_EQ(member.ArrowLine1, 16);
  EXPECT_EQ(member.ArrowLine2, 20);
  EXPECT_EQ(truss.Name(member.NameLabel1), "T");
  EXPECT_EQ(truss.Name(member.NameLabel2), "U");
}

TEST(ReadTruss, ReadsActiveForces) {
  const Truss truss = ReadElements({"0", "0", "2", "1,2,3,-4", "5,6,-7E3,.5", "0"});
  ASSERT_EQ(truss.NumForces, 2);
  const ForceRec& force = truss.Forces[2];
  EXPECT_EQ(std::tuple(force.X, force.Y, force.Fx, force.Fy), std::tuple(5.0F, 6.0F, -7000.0F, 0.5F));
  EXPECT_TRUE(force.Active);
  EXPECT_EQ(truss.NumLabels, 0);
}

TEST(ReadTruss, GivesJointsTheLabelsBehindAllOthers) {
  const Truss truss = ReadElements({"0", "1", "0,0,4,0,\"S\",\"S\"", "0", "2", "4,0,\"1\"", "0,0,\"2\""});
  ASSERT_EQ(truss.NumJoints, 2);
  EXPECT_EQ(truss.Joints[1].X, 4);
  EXPECT_EQ(truss.Joints[1].NameLabel, 3);
  EXPECT_EQ(truss.Joints[2].NameLabel, 4);
  EXPECT_EQ(truss.Name(4), "2");
  EXPECT_TRUE(truss.Labels[4].Bold);
  EXPECT_EQ(truss.Labels[4].FontSize, 10);
  EXPECT_FALSE(truss.Labels[2].Bold);
  EXPECT_EQ(truss.NumLabels, 4);
}

TEST(ReadTruss, TakesAllLineEnds) {
  const std::string text = SettingsLines() + FileLines({"1", "1,2,5", "\"R\"", "1", "0,0,4,0,\"S\",\"S\"",
                                                        "1", "1,1,0,-5", "1", "0,0,\"J\""});
  for (const std::string end : {"\n", "\r"}) {
    std::string other;
    for (const char c : text) {
      if (c != '\r') other += c == '\n' ? end : std::string(1, c);
    }
    Truss truss = ReadWhole(other);
    EXPECT_EQ(truss.NumJoints, 1);
    EXPECT_EQ(TrussText(truss), text);
  }
}

TEST(ReadTruss, TakesFieldsWhereverLinesEnd) {
  Truss lines = ReadElements({"1", "1", "2", "5", "R", "1", "0,0", "4,0", "S", "S", "0,0"});
  EXPECT_EQ(lines.NumMembers, 1);
  EXPECT_EQ(lines.Name(1), "R");
  const Truss oneLine = ReadElements({"1, 1, 2, 5, \"R\", 1, 0, 0, 4, 0, \"S\", \"S\", 0, 0"});
  EXPECT_EQ(oneLine.NumMembers, 1);
}

TEST(ReadTruss, TakesUnquotedNamesAndQuotedNumbers) {
  const Truss truss = ReadElements({"\"1\"", "\"1\",\" 2 \",5", "  my roller ", "0", "0", "0"});
  EXPECT_EQ(truss.Supports[1].Y, 2);
  EXPECT_EQ(truss.Name(1), "my roller");
}

TEST(ReadTruss, KeepsOddNames) {
  const Truss truss =
      ReadElements({"0", "1", "0,0,4,0,\"a,b\",\"two\r\nlines\"", "0", "2", "0,0,\" \"", "4,0,"});
  EXPECT_EQ(truss.Name(1), "a,b");
  EXPECT_EQ(truss.Name(2), "two\r\nlines");
  EXPECT_EQ(truss.Name(3), " ");
  EXPECT_EQ(truss.Name(4), "");
}

TEST(ReadTruss, ANegativeCountSkipsItsSection) {
  const Truss truss = ReadElements({"-1", "-5", "1", "1,2,3,4", "-32768"});
  EXPECT_EQ(truss.NumSupports, 0);
  EXPECT_EQ(truss.NumMembers, 0);
  EXPECT_EQ(truss.NumForces, 1);
  EXPECT_EQ(truss.NumJoints, 0);
}

TEST(ReadTruss, ACountWithAFractionRoundsHalfToEven) {
  EXPECT_EQ(ReadElements({"0.5", "0", "2.5", "1,2,3,4", "1,2,3,4", "0"}).NumForces, 2);
}

TEST(ReadTruss, ReadsNoFurtherThanTheJoints) {
  EXPECT_EQ(ReadElements({"0", "0", "0", "1", "0,0,\"1\"", "\"no closing quote"}).NumJoints, 1);
}

TEST(ReadTruss, SaysWhatIsNoPartOfTheTruss) {
  const auto unreadLine = [](const std::vector<std::string>& lines) {
    Truss truss;
    const TrussReading reading = ReadTrussWithRest(truss, UsualCanvas, SettingsLines() + FileLines(lines));
    EXPECT_EQ(reading.Error, std::nullopt);
    EXPECT_EQ(reading.IsWhole(), reading.UnreadLine == 0);
    return reading.UnreadLine;
  };
  EXPECT_EQ(unreadLine({"0", "0", "0", "1", "0,0,\"1\""}), 0);
  EXPECT_EQ(unreadLine({"0", "0", "0", "1", "0,0,\"1\"", "", "  \t", "\x1a"}), 0);
  EXPECT_EQ(unreadLine({"0", "0", "0", "1", "0,0,\"1\"", "", "more"}), 17);
  EXPECT_EQ(unreadLine({"0", "0", "0", "1", "0,0,\"1\",more"}), 15);
  EXPECT_EQ(unreadLine({"0", "0", "0", "0", "0,0,\"1\""}), 15) << "more joints than were counted";
}

TEST(ReadTruss, AQuoteInANameEndsItAndShiftsWhatFollows) {
  // As the writer would put the names p"q and p"q,r and a","b.
  const auto member = [](const std::string& name) {
    return "0,0,4,0," + std::string("\"") + name + "\",\"" + name + "\"";
  };
  const auto read = [&](const std::string& name, Truss& truss) {
    return ReadTrussWithRest(truss, UsualCanvas,
                             SettingsLines() + FileLines({"0", "1", member(name), "0", "0"}));
  };
  Truss truss;
  TrussReading reading = read("p\"q", truss);
  EXPECT_EQ(reading.Error, std::nullopt);
  EXPECT_EQ(reading.UnreadLine, 13) << "what stands behind the closing quote is lost";
  EXPECT_EQ(truss.Name(1), "p");

  truss = {};
  reading = read("p\"q,r", truss);
  ASSERT_TRUE(reading.Error);
  EXPECT_EQ(reading.Error->Text(), "line 13: a number should stand here, not \"p\"");
  EXPECT_EQ(truss.Name(1), "p");
  EXPECT_EQ(truss.Name(2), "r\"") << "the rest of the first name";

  truss = {};
  reading = read("a\",\"b", truss);
  ASSERT_TRUE(reading.Error);
  EXPECT_EQ(truss.Name(2), "b");
}
