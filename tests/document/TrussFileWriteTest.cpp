// The file, line by line, as it is written.
#include "document/TrussFile.h"
#include "support/FileLines.h"
#include "support/TemporaryDirectory.h"
#include "support/TrussBuilder.h"

namespace {

// What stands behind the settings.
std::string ElementText(Truss truss) {
  const std::string text = TrussText(truss);
  EXPECT_THAT(text, testing::StartsWith(SettingsLines()));
  return text.substr(SettingsLines().size());
}

}  // namespace

TEST(WriteTruss, AnEmptyTrussIsTenLinesAndFourZeros) {
  Truss truss;
  EXPECT_EQ(TrussText(truss),
            "Orvane 5\r\n#TRUE#,#TRUE#,#TRUE#,#TRUE#\r\n0\r\n20\r\n2\r\n0.5\r\n0\r\n0.5\r\n1000\r\n4\r\n"
            "0\r\n0\r\n0\r\n0\r\n");
}

TEST(WriteTruss, WritesTheSettingsInTheirOrder) {
  Truss truss;
  truss.Settings = DocumentSettings{.XMin = -1.5F,
                                    .XMax = 1e8F,
                                    .HatchSpacing = 0.1F,
                                    .GridX = 0.25F,
                                    .YMin = -2,
                                    .GridY = 0.75F,
                                    .ForceScale = 2.5e-7F,
                                    .SigFigs = 7,
                                    .ReportFontSize = 16};
  EXPECT_THAT(TrussText(truss),
              testing::HasSubstr("#\r\n-1.5\r\n1E+8\r\n0.1\r\n0.25\r\n-2\r\n0.75\r\n2.5E-7\r\n7\r\n0\r\n"));
}

TEST(WriteTruss, WritesTheSwitchesInTheWritersOrder) {
  const auto switches = [](bool gridOn, bool rulersOn, bool snapGrid, bool snapObject) {
    Truss truss;
    truss.Settings.GridOn = gridOn;
    truss.Settings.RulersOn = rulersOn;
    truss.Settings.SnapGrid = snapGrid;
    truss.Settings.SnapObject = snapObject;
    const std::string text = TrussText(truss);
    return text.substr(10, text.find("\r\n", 10) - 10);
  };
  EXPECT_EQ(switches(true, false, false, false), "#TRUE#,#FALSE#,#FALSE#,#FALSE#");
  EXPECT_EQ(switches(false, true, false, false), "#FALSE#,#TRUE#,#FALSE#,#FALSE#");
  EXPECT_EQ(switches(false, false, true, false), "#FALSE#,#FALSE#,#TRUE#,#FALSE#");
  EXPECT_EQ(switches(false, false, false, true), "#FALSE#,#FALSE#,#FALSE#,#TRUE#");
}

TEST(WriteTruss, AClampHasTwoNamesAndARollerOne) {
  EXPECT_EQ(ElementText(TrussBuilder().Clamp(1, 2, "Ax", "Ay", 3).Roller(-0.5F, 0, "B", 8)),
            FileLines({"2", "1,2,3", "\"Ax\",\"Ay\"", "-0.5,0,8", "\"B\"", "0", "0", "2", "1,2,\"[ ]\"",
                       "-0.5,0,\"[ ]\""}));
}

TEST(WriteTruss, MembersForcesAndJointsHaveALineEach) {
  EXPECT_EQ(ElementText(TrussBuilder()
                            .Member(0, 0, 4, 0.1F, "S")
                            .Force(4, 0.1F, -1e9F, 0.5F)
                            .Joint(0, 0, "1")
                            .Joint(4, 0.1F, "2")),
            FileLines({"0", "1", "0,0,4,0.1,\"S\",\"S\"", "1", "4,0.1,-1E+9,0.5", "2", "0,0,\"1\"",
                       "4,0.1,\"2\""}));
}

TEST(WriteTruss, WritesBothNamesOfAMember) {
  Truss truss = TrussBuilder().Member(0, 0, 4, 0, "S");
  truss.Labels[truss.Members[1].NameLabel2].Caption = "T";
  EXPECT_THAT(ElementText(truss), testing::HasSubstr("0,0,4,0,\"S\",\"T\"\r\n"));
}

TEST(WriteTruss, SkipsErasedElements) {
  EXPECT_EQ(ElementText(TrussBuilder()
                            .Clamp(9, 9)
                            .ThenErased()
                            .Roller(0, 0, "R")
                            .Member(9, 9, 8, 8)
                            .ThenErased()
                            .Member(0, 0, 4, 0, "S")
                            .Force(9, 9, 1, 1)
                            .ThenErased()
                            .Force(0, 0, 2, 3)),
            FileLines({"1", "0,0,5", "\"R\"", "1", "0,0,4,0,\"S\",\"S\"", "1", "0,0,2,3", "2", "0,0,\"[ ]\"",
                       "4,0,\"[ ]\""}));
}

TEST(WriteTruss, AnErasedForceIsGoneAfterReopeningAndTheOthersMoveUp) {
  Truss truss = TrussBuilder().Force(1, 0, 1, 0).Force(2, 0, 2, 0).ThenErased().Force(3, 0, 3, 0);
  Truss reopened;
  ASSERT_EQ(ReadTrussText(reopened, CanvasBounds{}, TrussText(truss)), std::nullopt);
  ASSERT_EQ(reopened.NumForces, 2);
  EXPECT_EQ(reopened.Forces[1].Fx, 1);
  EXPECT_EQ(reopened.Forces[2].Fx, 3);
}

TEST(WriteTruss, SortsTheJointsByName) {
  Truss truss =
      TrussBuilder().Member(0, 0, 4, 0).Member(4, 0, 2, 2).Joint(0, 0, "b").Joint(4, 0, "a").Joint(2, 2, "B");
  EXPECT_THAT(ElementText(truss), testing::EndsWith("3\r\n2,2,\"B\"\r\n4,0,\"a\"\r\n0,0,\"b\"\r\n"));
  TrussText(truss);
  EXPECT_EQ(truss.Joints[1].X, 2);
}

TEST(WriteTruss, WritesTheJointListAsItIs) {
  Truss truss = TrussBuilder().Member(0, 0, 4, 0).ThenErased();
  truss.NumJoints = 1;
  truss.Joints.GrowTo(1);
  truss.Joints[1] = JointRec{7, 7, truss.Members[1].NameLabel1};
  EXPECT_EQ(ElementText(truss), FileLines({"0", "0", "0", "1", "7,7,\"[ ]\""}));
}

TEST(WriteTruss, UnnamedElementsSaveTheirMark) {
  Truss truss = TrussBuilder().Roller(0, 0).Member(0, 0, 4, 0);
  Truss reopened;
  ASSERT_EQ(ReadTrussText(reopened, CanvasBounds{}, TrussText(truss)), std::nullopt);
  for (int label = 1; label <= reopened.NumLabels; ++label) EXPECT_EQ(reopened.Labels[label].Caption, "[ ]");
}

TEST(WriteTruss, ACommaInANameSurvivesAndAQuoteDoesNot) {
  const auto reread = [](const std::string& name) {
    Truss truss = TrussBuilder().Roller(0, 0, name);
    Truss reopened;
    ReadTrussText(reopened, CanvasBounds{}, TrussText(truss));
    return reopened.Name(1);
  };
  EXPECT_EQ(reread("a,b"), "a,b");
  EXPECT_EQ(reread("a\"b"), "a");
}

TEST(WriteTruss, PutsTheBytesOfNamesIntoTheFileAsTheyAre) {
  EXPECT_THAT(ElementText(TrussBuilder().Roller(0, 0, "\x80\xE4\xFF")),
              testing::HasSubstr("\"\x80\xE4\xFF\"\r\n"));
}

TEST(WriteTruss, WritesToItsFileName) {
  const TemporaryDirectory directory;
  Truss truss = TrussBuilder().Member(0, 0, 4, 0, "S");
  truss.FileName = directory.Put("a.trs", "what stood there before, and was a good deal longer");
  ASSERT_EQ(WriteTruss(truss), "");
  EXPECT_EQ(directory.Bytes("a.trs"), TrussText(truss));
}

TEST(WriteTruss, TellsWhenItCannotWrite) {
  const TemporaryDirectory directory;
  Truss truss;
  truss.FileName = directory / "missing/a.trs";
  EXPECT_EQ(WriteTruss(truss), "its folder does not exist");
  truss.FileName = "";
  EXPECT_NE(WriteTruss(truss), "");
}
