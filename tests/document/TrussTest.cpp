// The tables, what is live in them, and emptying the document.
#include "document/Truss.h"

#include "document/TrussFile.h"
#include "support/TrussBuilder.h"

TEST(Table, RunsFromOneAndKeepsItsContentsWhenItGrows) {
  Table<int> table(2);
  table[1] = 10;
  table[2] = 20;
  table.GrowTo(4);
  EXPECT_EQ(table.Size(), 4);
  EXPECT_THAT(table.First(4), testing::ElementsAre(10, 20, 0, 0));
  table.GrowTo(1);
  EXPECT_EQ(table.Size(), 4);
  table.Resize(1);
  EXPECT_THAT(table.First(1), testing::ElementsAre(10));
  EXPECT_TRUE(table.First(0).empty());
}

TEST(Truss, ErasingEveryMemberLeavesTheCounter) {
  Truss truss = TrussBuilder().Member(0, 0, 4, 0).ThenErased().Member(0, 0, 2, 2).ThenErased();
  EXPECT_EQ(truss.NumMembers, 2);
  EXPECT_EQ(NumLiveMembers(truss), 0);
  EXPECT_THAT(TrussText(truss), testing::EndsWith("\r\n4\r\n0\r\n0\r\n0\r\n0\r\n"));
}

TEST(Truss, CountsWhatIsLive) {
  const Truss truss = TrussBuilder()
                          .Clamp(0, 0)
                          .Roller(1, 0)
                          .ThenErased()
                          .Member(0, 0, 1, 0)
                          .Member(0, 0, 2, 0)
                          .Member(0, 0, 3, 0)
                          .ThenErased()
                          .Force(0, 0, 1, 1)
                          .ThenErased()
                          .Force(0, 0, 2, 2);
  EXPECT_EQ(NumLiveSupports(truss), 1);
  EXPECT_EQ(NumLiveMembers(truss), 2);
  EXPECT_EQ(NumActiveForces(truss), 1);
  EXPECT_EQ(truss.NumSupports, 2);
  EXPECT_EQ(truss.NumMembers, 3);
  EXPECT_EQ(truss.NumForces, 2);
}

TEST(Truss, TypesOneToFourAreClamps) {
  for (std::int16_t type = 1; type <= 8; ++type) {
    EXPECT_EQ(SupportRec{.TypeIndex = type}.IsClamp(), type <= 4) << type;
  }
}

TEST(Truss, ARollersSecondLabelAndArrowAreNeverRead) {
  Truss truss = TrussBuilder().Roller(1, 2, "R").Member(1, 2, 3, 4);
  truss.Supports[1].NameLabel2 = 9999;
  truss.Supports[1].ArrowLine2 = 9999;
  EXPECT_THAT(TrussText(truss), testing::HasSubstr("\r\n1\r\n1,2,5\r\n\"R\"\r\n1\r\n"));
}

TEST(ResetAll, EmptiesTheDocument) {
  Truss truss = TrussBuilder().Clamp(0, 0).Member(0, 0, 4, 0).Force(4, 0, 0, -10);
  truss.FileName = "bridge.trs";
  ResetAll(truss);
  EXPECT_EQ(truss.FileName, "");
  EXPECT_EQ(truss.NumMembers, 0);
  EXPECT_EQ(truss.NumSupports, 0);
  EXPECT_EQ(truss.NumForces, 0);
  EXPECT_EQ(truss.NumJoints, 0);
  EXPECT_EQ(truss.NumLabels, 0);
  EXPECT_EQ(truss.NumArrowLines, 0);
}

TEST(ResetAll, LeavesTheSettingsAsTheyAre) {
  Truss truss = TrussBuilder().Member(0, 0, 4, 0);
  truss.Settings.GridX = 0.25F;
  truss.Settings.XMax = 50;
  truss.Settings.SigFigs = 6;
  truss.Settings.SnapGrid = false;
  truss.Settings.ReportFontSize = 14;
  const DocumentSettings before = truss.Settings;
  ResetAll(truss);
  EXPECT_EQ(truss.Settings, before);
}

TEST(ResetAll, LetsStaleRecordsShineThroughNowhere) {
  Truss truss = TrussBuilder().Clamp(0, 0, "Ax", "Ay").Member(0, 0, 4, 0, "S").ThenErased();
  ResetAll(truss);
  truss.NumMembers = 0;
  ASSERT_EQ(
      ReadTrussText(truss, CanvasBounds{},
                    "Orvane 5\r\n#TRUE#,#TRUE#,#TRUE#,#TRUE#\r\n0\r\n20\r\n2\r\n1\r\n0\r\n1\r\n1\r\n4\r\n"
                    "0\r\n1\r\n1,1,2,2,\"T\",\"T\"\r\n0\r\n2\r\n1,1,\"1\"\r\n2,2,\"2\"\r\n"),
      std::nullopt);
  EXPECT_TRUE(truss.Members[1].Live);
  EXPECT_EQ(truss.NumLabels, 4);
  for (int label = 1; label <= truss.NumLabels; ++label) EXPECT_EQ(truss.Labels[label].Tag, "") << label;
  EXPECT_FALSE(truss.Labels[truss.Members[1].NameLabel1].Bold);
  EXPECT_TRUE(truss.Labels[truss.Joints[1].NameLabel].Bold);
}
