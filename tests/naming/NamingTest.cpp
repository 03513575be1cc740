// Naming everything, clearing all names, and renaming one.
#include "naming/Naming.h"

#include "document/JointList.h"
#include "document/TrussFile.h"
#include "support/FileLines.h"
#include "support/TrussBuilder.h"

namespace {

using testing::ElementsAre;

std::vector<std::string> ReactionNames(const Truss& truss) {
  std::vector<std::string> names;
  for (const SupportRec& support : truss.SupportsInUse()) {
    names.push_back(truss.Name(support.NameLabel1));
    if (support.IsClamp()) names.push_back(truss.Name(support.NameLabel2));
  }
  return names;
}

// One name for each member; both of its labels must show it.
std::vector<std::string> MemberNames(const Truss& truss) {
  std::vector<std::string> names;
  for (const MemberRec& member : truss.MembersInUse()) {
    names.push_back(truss.Name(member.NameLabel1));
    EXPECT_EQ(truss.Name(member.NameLabel2), names.back());
  }
  return names;
}

std::vector<std::string> JointNames(const Truss& truss) {
  std::vector<std::string> names;
  for (const JointRec& joint : truss.JointsInUse()) names.push_back(truss.Name(joint.NameLabel));
  return names;
}

// A fan of members from the origin.
Truss Fan(int numMembers) {
  TrussBuilder builder;
  for (int i = 1; i <= numMembers; ++i) builder.Member(0, 0, static_cast<float>(i), 1);
  return builder;
}

}  // namespace

TEST(AutoName, LettersReactionsThenMembersAndNumbersJoints) {
  Truss truss =
      TrussBuilder().Clamp(0, 0).Clamp(4, 0).Member(0, 0, 4, 0).Member(0, 0, 2, 2).Member(4, 0, 2, 2);
  AutoName(truss);
  EXPECT_THAT(ReactionNames(truss), ElementsAre("A", "B", "C", "D"));
  EXPECT_THAT(MemberNames(truss), ElementsAre("E", "F", "G"));
  EXPECT_THAT(JointNames(truss), ElementsAre("1", "2", "3"));
}

TEST(AutoName, SpendsNoLetterOnErasedElements) {
  Truss truss = TrussBuilder()
                    .Roller(0, 0)
                    .Clamp(4, 0, "oldx", "oldy")
                    .ThenErased()
                    .Member(0, 0, 2, 2, "old")
                    .ThenErased()
                    .Member(0, 0, 4, 0);
  AutoName(truss);
  EXPECT_THAT(ReactionNames(truss), ElementsAre("A", "oldx", "oldy"));
  EXPECT_THAT(MemberNames(truss), ElementsAre("old", "B"));
}

TEST(AutoName, RunsOnBehindZThroughTheCharacterCodes) {
  Truss truss = Fan(33);
  AutoName(truss);
  const std::vector<std::string> names = MemberNames(truss);
  EXPECT_EQ(names[25], "Z");
  EXPECT_EQ(names[26], "[");
  EXPECT_THAT(std::vector(names.begin() + 27, names.end()), ElementsAre("\\", "]", "^", "_", "`", "a"));
}

TEST(AutoName, GoesOnWithTwoLettersBehindTheLastCharacterOfThePage) {
  Truss truss = Fan(191 + 27);
  AutoName(truss);
  const std::vector<std::string> names = MemberNames(truss);
  EXPECT_EQ(names[190], "\xFF");
  EXPECT_EQ(names[191], "AA");
  EXPECT_EQ(names[191 + 25], "AZ");
  EXPECT_EQ(names[191 + 26], "BA");
}

TEST(AutoName, NumbersJointsInTheirPresentOrder) {
  Truss truss =
      TrussBuilder().Member(0, 0, 4, 0).Member(4, 0, 2, 2).Joint(0, 0, "c").Joint(4, 0, "b").Joint(2, 2, "a");
  SortJoints(truss);
  AutoName(truss);
  EXPECT_THAT(JointNames(truss), ElementsAre("1", "2", "3"));
  EXPECT_EQ(truss.Joints[1].X, 2);
  EXPECT_EQ(truss.Joints[3].X, 0);
}

TEST(AutoName, OfAnEmptyTrussDoesNothing) {
  Truss truss;
  AutoName(truss);
  ClearNames(truss);
  EXPECT_EQ(truss.NumLabels, 0);
}

TEST(ClearNames, ResetsWhatAutoNameNamed) {
  Truss truss = TrussBuilder().Clamp(0, 0).Roller(4, 0).Member(0, 0, 4, 0).Member(0, 0, 2, 2);
  AutoName(truss);
  ClearNames(truss);
  EXPECT_THAT(ReactionNames(truss), ElementsAre("[ ]", "[ ]", "[ ]"));
  EXPECT_THAT(MemberNames(truss), ElementsAre("[ ]", "[ ]"));
  EXPECT_THAT(JointNames(truss), ElementsAre("[ ]", "[ ]", "[ ]"));
}

TEST(ClearNames, LeavesErasedElementsTheirNames) {
  Truss truss = TrussBuilder().Member(0, 0, 4, 0, "old").ThenErased().Member(0, 0, 2, 2, "new");
  ClearNames(truss);
  EXPECT_THAT(MemberNames(truss), ElementsAre("old", "[ ]"));
}

TEST(ClearNames, KeepsTheOrderOfJointsWhenTheyAreSorted) {
  Truss truss = TrussBuilder().Member(3, 0, 1, 0).Member(2, 0, 0, 0);
  AutoName(truss);
  ClearNames(truss);
  SortJoints(truss);
  std::vector<float> positions;
  for (const JointRec& joint : truss.JointsInUse()) positions.push_back(joint.X);
  EXPECT_THAT(positions, ElementsAre(3, 1, 2, 0));
}

TEST(Rename, TakesTheTextAsTyped) {
  Truss truss = TrussBuilder().Clamp(0, 0, "Ax", "Ay").Member(0, 0, 4, 0, "S");
  const SupportRec& support = truss.Supports[1];
  for (const char* typed : {" S ", "[ ]", " ", "S", "a,b"}) {
    Rename(truss, support.NameLabel2, typed);
    EXPECT_THAT(ReactionNames(truss), ElementsAre("Ax", typed));
    EXPECT_THAT(MemberNames(truss), ElementsAre("S"));
  }
}

TEST(Rename, WithAnEmptyTextKeepsTheOldName) {
  Truss truss = TrussBuilder().Member(0, 0, 4, 0, "S");
  Rename(truss, truss.Members[1].NameLabel1, "");
  EXPECT_THAT(MemberNames(truss), ElementsAre("S"));
}

TEST(Rename, OfEitherLabelOfAMemberRenamesBoth) {
  Truss truss = TrussBuilder().Member(0, 0, 4, 0, "S").Member(0, 0, 2, 2, "T");
  Rename(truss, truss.Members[2].NameLabel2, "U");
  EXPECT_THAT(MemberNames(truss), ElementsAre("S", "U"));
  Rename(truss, truss.Members[1].NameLabel1, "V");
  EXPECT_THAT(MemberNames(truss), ElementsAre("V", "U"));
}

TEST(Rename, PairsTheLabelsOfErasedMembersToo) {
  Truss truss = TrussBuilder().Member(0, 0, 4, 0, "S").ThenErased();
  Rename(truss, truss.Members[1].NameLabel2, "T");
  EXPECT_THAT(MemberNames(truss), ElementsAre("T"));
}

TEST(Rename, WithAnEmptyTextPairsLabelsThatAFileNamedDifferently) {
  Truss truss;
  ASSERT_EQ(ReadTrussText(truss, CanvasBounds{},
                          SettingsLines() + FileLines({"0", "1", "0,0,4,0,\"S\",\"T\"", "0", "0"})),
            std::nullopt);
  Rename(truss, truss.Members[1].NameLabel2, "");
  EXPECT_THAT(MemberNames(truss), ElementsAre("T"));
}

TEST(Rename, OfAJointLeavesEverythingElse) {
  Truss truss = TrussBuilder().Roller(0, 0, "R").Member(0, 0, 4, 0, "S").Joint(0, 0, "1").Joint(4, 0, "2");
  Rename(truss, truss.Joints[2].NameLabel, "S");
  EXPECT_THAT(JointNames(truss), ElementsAre("1", "S"));
  EXPECT_THAT(ReactionNames(truss), ElementsAre("R"));
  EXPECT_THAT(MemberNames(truss), ElementsAre("S"));
}
