// Whether a truss differs from its file.
#include "document/TrussChanged.h"

#include <cmath>
#include <filesystem>

#include "document/JointList.h"
#include "document/TrussFile.h"
#include "support/FileLines.h"
#include "support/RandomTruss.h"
#include "support/TemporaryDirectory.h"
#include "support/TrussBuilder.h"

namespace {

TrussBuilder Bridge() {
  return TrussBuilder()
      .Clamp(0, 0, "Ax", "Ay")
      .Roller(4, 0, "B")
      .Member(0, 0, 4, 0, "S")
      .Member(0, 0, 2, 2, "T")
      .Force(2, 2, 0, -10)
      .Joint(0, 0, "1")
      .Joint(4, 0, "2")
      .Joint(2, 2, "3");
}

class TrussChangedTest : public testing::Test {
 protected:
  // The truss as it was saved to its own file.
  Truss Saved(Truss truss) {
    truss.FileName = directory_ / "a.trs";
    EXPECT_TRUE(WriteTruss(truss));
    return truss;
  }

  // Whether the saved bridge counts as changed after an edit in memory.
  template <class Edit>
  bool ChangedBy(const Edit& edit) {
    Truss truss = Saved(Bridge());
    EXPECT_FALSE(TrussChanged(truss));
    edit(truss);
    return TrussChanged(truss);
  }

  // Whether the saved bridge counts as changed after a replacement in its file.
  bool ChangedInFile(const std::string& from, const std::string& to) {
    Truss truss = Saved(Bridge());
    std::string text = directory_.Bytes("a.trs");
    EXPECT_NE(text.find(from), std::string::npos);
    text.replace(text.find(from), from.size(), to);
    directory_.Put("a.trs", text);
    return TrussChanged(truss);
  }

  TemporaryDirectory directory_;
};

}  // namespace

TEST_F(TrussChangedTest, AnEmptyDrawingNeverCountsAsChanged) {
  Truss truss;
  EXPECT_FALSE(TrussChanged(truss));
  truss.FileName = directory_ / "missing.trs";
  EXPECT_FALSE(TrussChanged(truss));
}

TEST_F(TrussChangedTest, JointsAndErasedElementsAloneDoNotCount) {
  Truss truss =
      TrussBuilder().Member(0, 0, 4, 0).ThenErased().Clamp(0, 0).ThenErased().Force(0, 0, 1, 0).ThenErased();
  truss.NumJoints = 1;
  truss.Joints.GrowTo(1);
  truss.Joints[1] = JointRec{0, 0, 1};
  EXPECT_FALSE(TrussChanged(truss));
}

TEST_F(TrussChangedTest, AnUntitledDrawingWithOneElementAlwaysCounts) {
  Truss member = TrussBuilder().Member(0, 0, 4, 0);
  EXPECT_TRUE(TrussChanged(member));
  Truss support = TrussBuilder().Roller(0, 0);
  EXPECT_TRUE(TrussChanged(support));
  Truss force = TrussBuilder().Force(0, 0, 1, 0);
  EXPECT_TRUE(TrussChanged(force));
}

TEST_F(TrussChangedTest, ASavedTrussHasNotChanged) {
  Truss truss = Saved(Bridge());
  EXPECT_FALSE(TrussChanged(truss));
}

TEST_F(TrussChangedTest, ErasedElementsAmongLiveOnesDoNotCount) {
  Truss truss = Saved(TrussBuilder()
                          .Clamp(9, 9)
                          .ThenErased()
                          .Clamp(0, 0)
                          .Member(1, 1, 2, 2)
                          .ThenErased()
                          .Member(0, 0, 4, 0)
                          .Force(7, 7, 1, 1)
                          .ThenErased()
                          .Force(4, 0, 1, 1));
  EXPECT_FALSE(TrussChanged(truss));
}

TEST_F(TrussChangedTest, SettingsNeverCount) {
  EXPECT_FALSE(ChangedBy([](Truss& truss) {
    truss.Settings.GridX = 7;
    truss.Settings.SigFigs = 3;
    truss.Settings.GridOn = false;
  }));
  EXPECT_FALSE(ChangedInFile("\r\n20\r\n", "\r\n40\r\n"));
  EXPECT_FALSE(ChangedInFile("\r\n1000\r\n", "\r\nno number at all\r\n"));
  EXPECT_FALSE(ChangedInFile("#TRUE#", "maybe"));
}

TEST_F(TrussChangedTest, TheHeaderDoesNotCount) { EXPECT_FALSE(ChangedInFile("Orvane 5", "Orvane 6")); }

TEST_F(TrussChangedTest, EveryFieldOfASupportCounts) {
  EXPECT_TRUE(ChangedBy([](Truss& truss) { truss.Supports[1].X = 1; }));
  EXPECT_TRUE(ChangedBy([](Truss& truss) { truss.Supports[2].Y = 1; }));
  EXPECT_TRUE(ChangedBy([](Truss& truss) { truss.Supports[1].TypeIndex = 2; }));
  EXPECT_TRUE(ChangedBy([](Truss& truss) { truss.Labels[truss.Supports[1].NameLabel1].Caption = "x"; }));
  EXPECT_TRUE(ChangedBy([](Truss& truss) { truss.Labels[truss.Supports[1].NameLabel2].Caption = "x"; }));
  EXPECT_TRUE(ChangedBy([](Truss& truss) { truss.Labels[truss.Supports[2].NameLabel1].Caption = "x"; }));
  EXPECT_TRUE(ChangedBy([](Truss& truss) { truss.Supports[2].Live = false; }));
}

TEST_F(TrussChangedTest, EveryFieldOfAMemberCounts) {
  EXPECT_TRUE(ChangedBy([](Truss& truss) { truss.Members[1].X1 = 1; }));
  EXPECT_TRUE(ChangedBy([](Truss& truss) { truss.Members[1].Y1 = 1; }));
  EXPECT_TRUE(ChangedBy([](Truss& truss) { truss.Members[1].X2 = 1; }));
  EXPECT_TRUE(ChangedBy([](Truss& truss) { truss.Members[2].Y2 = 1; }));
  EXPECT_TRUE(ChangedBy([](Truss& truss) { truss.Labels[truss.Members[1].NameLabel1].Caption = "s"; }));
  EXPECT_TRUE(ChangedBy([](Truss& truss) { truss.Labels[truss.Members[2].NameLabel2].Caption = "x"; }));
  EXPECT_TRUE(ChangedBy([](Truss& truss) { truss.Members[1].Live = false; }));
}

TEST_F(TrussChangedTest, EveryFieldOfAForceCounts) {
  EXPECT_TRUE(ChangedBy([](Truss& truss) { truss.Forces[1].X = 1; }));
  EXPECT_TRUE(ChangedBy([](Truss& truss) { truss.Forces[1].Y = 1; }));
  EXPECT_TRUE(ChangedBy([](Truss& truss) { truss.Forces[1].Fx = 1; }));
  EXPECT_TRUE(ChangedBy([](Truss& truss) { truss.Forces[1].Fy = std::nextafter(-10.0F, 0.0F); }));
  EXPECT_TRUE(ChangedBy([](Truss& truss) { truss.Forces[1].Active = false; }));
  EXPECT_FALSE(ChangedBy([](Truss& truss) { truss.Forces[1].PixX1 = 77; }));
}

TEST_F(TrussChangedTest, EveryFieldOfAJointCounts) {
  EXPECT_TRUE(ChangedBy([](Truss& truss) { truss.Joints[1].X = 1; }));
  EXPECT_TRUE(ChangedBy([](Truss& truss) { truss.Joints[1].Y = 1; }));
  EXPECT_TRUE(ChangedBy([](Truss& truss) { truss.Labels[truss.Joints[3].NameLabel].Caption = "4"; }));
  EXPECT_TRUE(ChangedBy([](Truss& truss) { --truss.NumJoints; }));
}

TEST_F(TrussChangedTest, SortsTheJointsBeforeItComparesThem) {
  EXPECT_FALSE(ChangedBy([](Truss& truss) {
    std::swap(truss.Joints[1], truss.Joints[3]);
    std::swap(truss.Joints[1], truss.Joints[2]);
  }));
  Truss truss = Saved(Bridge());
  std::swap(truss.Joints[1], truss.Joints[3]);
  EXPECT_FALSE(TrussChanged(truss));
  EXPECT_EQ(truss.Name(truss.Joints[1].NameLabel), "1");
}

TEST_F(TrussChangedTest, AnyDifferenceOfTheFileCounts) {
  EXPECT_TRUE(ChangedInFile("\"S\",\"S\"", "\"S\",\"s\""));
  EXPECT_TRUE(ChangedInFile("2,2,0,-10", "2,2,0,-10.000001"));
  EXPECT_FALSE(ChangedInFile("2,2,0,-10", "2.0, 2E0 ,0\n-1e1"));
}

TEST_F(TrussChangedTest, AnElementMoreInTheFileCounts) {
  Truss truss = Saved(Bridge());
  Truss larger = Bridge().Member(4, 0, 2, 2, "U");
  directory_.Put("a.trs", TrussText(larger));
  EXPECT_TRUE(TrussChanged(truss));
}

TEST_F(TrussChangedTest, AFileThatCannotBeReadBackCounts) {
  Truss truss = Saved(Bridge());
  const std::string text = directory_.Bytes("a.trs");
  directory_.Put("a.trs", text.substr(0, text.size() - 6));
  EXPECT_TRUE(TrussChanged(truss));
  directory_.Put("a.trs", "");
  EXPECT_TRUE(TrussChanged(truss));
  std::filesystem::remove(truss.FileName);
  EXPECT_TRUE(TrussChanged(truss));
}

TEST_F(TrussChangedTest, ANameWithAQuoteCountsRightAfterTheSave) {
  for (const char* name : {"p\"q", "p\"q,r", "a\",\"b", "\"", "\"\""}) {
    Truss member = Saved(TrussBuilder().Member(0, 0, 4, 0, name));
    EXPECT_TRUE(TrussChanged(member)) << name;
    Truss support = Saved(TrussBuilder().Clamp(0, 0, "Ax", name).Member(0, 0, 4, 0, "A"));
    EXPECT_TRUE(TrussChanged(support)) << name;
    Truss joint = Saved(TrussBuilder().Member(0, 0, 4, 0, "A").Joint(4, 0, name));
    EXPECT_TRUE(TrussChanged(joint)) << name;
  }
}

TEST_F(TrussChangedTest, AFileInTheOlderLayoutCounts) {
  const std::string elements = FileLines({"0", "1", "0,0,4,0,\"S\",\"S\"", "0", "0"});
  Truss truss;
  truss.FileName = directory_.Put(
      "a.trs", FileLines({"old", "0", "20", "2", "1", "0", "1", "1", "1", "1", "4"}) + elements);
  ASSERT_EQ(ReadTruss(truss, CanvasBounds{}, truss.FileName), std::nullopt);
  ASSERT_EQ(truss.NumMembers, 1);
  EXPECT_TRUE(TrussChanged(truss));
}

TEST_F(TrussChangedTest, ARandomTrussHasNotChangedUntilItIsEdited) {
  constexpr std::uint32_t seed = 1301;
  SCOPED_TRACE("seed " + std::to_string(seed));
  RandomTruss random(seed);
  for (int i = 0; i < 100; ++i) {
    Truss truss = Saved(random.Next());
    ASSERT_FALSE(TrussChanged(truss)) << "truss " << i;
    const auto size = static_cast<float>(i);
    truss.Forces.GrowTo(++truss.NumForces);
    truss.Forces[truss.NumForces] = ForceRec{.X = size, .Y = 1, .Fx = 1, .Active = true};
    ASSERT_TRUE(TrussChanged(truss)) << "truss " << i;
  }
}
