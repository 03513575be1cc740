// The index rule of labels and arrow segments, and their end.
#include "document/Labels.h"

#include "support/TrussBuilder.h"

namespace {

// A truss with one member and one support of the type, as records without labels.
Truss Unlabelled(std::int16_t supportType = 1) {
  Truss truss;
  truss.NumMembers = truss.NumSupports = 1;
  truss.Members.GrowTo(1);
  truss.Supports.GrowTo(1);
  truss.Supports[1].TypeIndex = supportType;
  return truss;
}

// Labels and arrow segments counted up to these numbers.
void CountUpTo(Truss& truss, std::int16_t labels, std::int16_t arrowLines) {
  truss.NumLabels = labels;
  truss.Labels.GrowTo(labels);
  truss.NumArrowLines = arrowLines;
  truss.ArrowLineTags.GrowTo(arrowLines);
}

}  // namespace

TEST(Labels, AMemberTakesTwoLabelsAndTwoArrows) {
  Truss truss = Unlabelled();
  CountUpTo(truss, 10, 20);
  ASSERT_TRUE(CreateMemberLabels(truss, 1));
  EXPECT_EQ(truss.Members[1].NameLabel1, 11);
  EXPECT_EQ(truss.Members[1].NameLabel2, 12);
  EXPECT_EQ(truss.Members[1].ArrowLine1, 24);
  EXPECT_EQ(truss.Members[1].ArrowLine2, 28);
  EXPECT_EQ(truss.NumLabels, 12);
  EXPECT_EQ(truss.NumArrowLines, 28);
}

TEST(Labels, AClampTakesTwoAndARollerOneOfEach) {
  Truss clamp = Unlabelled(4);
  CountUpTo(clamp, 10, 20);
  ASSERT_TRUE(CreateSupportLabels(clamp, 1));
  EXPECT_EQ(clamp.Supports[1].NameLabel1, 11);
  EXPECT_EQ(clamp.Supports[1].NameLabel2, 12);
  EXPECT_EQ(clamp.Supports[1].ArrowLine1, 24);
  EXPECT_EQ(clamp.Supports[1].ArrowLine2, 28);

  Truss roller = Unlabelled(5);
  CountUpTo(roller, 10, 20);
  ASSERT_TRUE(CreateSupportLabels(roller, 1));
  EXPECT_EQ(roller.Supports[1].NameLabel1, 11);
  EXPECT_EQ(roller.Supports[1].ArrowLine1, 24);
  EXPECT_EQ(roller.NumLabels, 11);
  EXPECT_EQ(roller.NumArrowLines, 24);
}

TEST(Labels, ANewLabelIsUnnamedAndInUse) {
  Truss truss = Unlabelled();
  ASSERT_TRUE(CreateMemberLabels(truss, 1));
  const NameLabel& label = truss.Labels[1];
  EXPECT_EQ(label.Caption, "[ ]");
  EXPECT_EQ(label.Tag, "");
  EXPECT_FALSE(label.Bold);
}

TEST(Labels, AJointsLabelIsBoldAndOfSizeTen) {
  Truss truss;
  EXPECT_EQ(CreateJointLabel(truss), 1);
  EXPECT_EQ(CreateJointLabel(truss), 2);
  EXPECT_EQ(truss.NumLabels, 2);
  EXPECT_EQ(truss.NumArrowLines, 0);
  EXPECT_EQ(truss.Labels[2].Caption, "[ ]");
  EXPECT_EQ(truss.Labels[2].FontSize, 10);
  EXPECT_TRUE(truss.Labels[2].Bold);
}

TEST(Labels, TheLast16BitNumberIsStillGiven) {
  Truss truss = Unlabelled(5);
  CountUpTo(truss, MaxCount - 2, MaxCount - 8);
  EXPECT_TRUE(CreateMemberLabels(truss, 1));
  EXPECT_EQ(truss.NumLabels, MaxCount);
  EXPECT_EQ(truss.NumArrowLines, MaxCount);
  EXPECT_EQ(CreateJointLabel(truss), 0);
  EXPECT_FALSE(CreateSupportLabels(truss, 1));
}

TEST(Labels, ARefusalChangesNothing) {
  Truss truss = Unlabelled();
  CountUpTo(truss, MaxCount - 1, 0);
  EXPECT_FALSE(CreateMemberLabels(truss, 1));
  EXPECT_FALSE(CreateSupportLabels(truss, 1));
  EXPECT_EQ(truss.NumLabels, MaxCount - 1);
  EXPECT_EQ(truss.NumArrowLines, 0);

  CountUpTo(truss, 0, MaxCount - 7);
  EXPECT_FALSE(CreateMemberLabels(truss, 1));
  EXPECT_FALSE(CreateSupportLabels(truss, 1));
  EXPECT_EQ(truss.NumLabels, 0);
  EXPECT_EQ(truss.NumArrowLines, MaxCount - 7);
  EXPECT_EQ(truss.Members[1].NameLabel1, 0);
}

TEST(Labels, AnErasedElementsLabelsAndArrowsAreTagged) {
  Truss truss = TrussBuilder().Member(0, 0, 1, 0).Clamp(0, 0).Roller(1, 0);
  DeleteMemberLabels(truss, 1);
  DeleteSupportLabels(truss, 2);
  EXPECT_EQ(truss.Labels[truss.Members[1].NameLabel1].Tag, "del");
  EXPECT_EQ(truss.Labels[truss.Members[1].NameLabel2].Tag, "del");
  EXPECT_EQ(truss.Labels[truss.Supports[1].NameLabel1].Tag, "");
  EXPECT_EQ(truss.Labels[truss.Supports[2].NameLabel1].Tag, "del");
  for (int i = 1; i <= truss.NumArrowLines; ++i) {
    const bool ofClamp = i > 8 && i <= 16;
    EXPECT_EQ(truss.ArrowLineTags[i], ofClamp ? "" : "del") << i;
  }
  DeleteSupportLabels(truss, 1);
  EXPECT_EQ(truss.Labels[truss.Supports[1].NameLabel2].Tag, "del");
  EXPECT_EQ(truss.ArrowLineTags[9], "del");
  EXPECT_EQ(truss.ArrowLineTags[16], "del");
}

TEST(Labels, FreshIndicesComeFirstEvenWhenThereAreTaggedOnes) {
  Truss truss = TrussBuilder().Member(0, 0, 1, 0).ThenErased().Member(0, 0, 2, 0);
  const int labels = truss.NumLabels;
  truss.Members.GrowTo(++truss.NumMembers);
  truss.Members[3].Live = true;
  ASSERT_TRUE(CreateMemberLabels(truss, 3));
  EXPECT_EQ(truss.Members[3].NameLabel1, labels + 1);
  EXPECT_EQ(truss.Members[3].ArrowLine1, 20);
}

TEST(Labels, AtTheLimitAnErasedMembersLabelsAndArrowsAreUsedAgain) {
  Truss truss = TrussBuilder().Member(0, 0, 1, 0).Member(0, 0, 2, 0, "old").ThenErased();
  CountUpTo(truss, MaxCount - 1, MaxCount - 2);
  truss.Members.GrowTo(++truss.NumMembers);
  truss.Members[3].Live = true;
  ASSERT_TRUE(CreateMemberLabels(truss, 3));
  EXPECT_EQ(truss.Members[3].NameLabel1, 3);
  EXPECT_EQ(truss.Members[3].NameLabel2, 4);
  EXPECT_EQ(truss.Members[3].ArrowLine1, 12);
  EXPECT_EQ(truss.Members[3].ArrowLine2, 16);
  EXPECT_EQ(truss.Labels[3].Caption, "[ ]");
  EXPECT_EQ(truss.Labels[3].Tag, "");
  EXPECT_EQ(truss.ArrowLineTags[9], "");
  EXPECT_EQ(truss.NumLabels, MaxCount - 1);
  EXPECT_EQ(truss.NumArrowLines, MaxCount - 2);
  // The erased member no longer points at labels that name something else.
  EXPECT_EQ(truss.Members[2].NameLabel1, 0);
  EXPECT_EQ(truss.Members[2].NameLabel2, 0);
}

TEST(Labels, APairNeedsTwoTaggedLabelsInARow) {
  Truss truss = Unlabelled();
  CountUpTo(truss, MaxCount, 0);
  truss.Labels[10].Tag = truss.Labels[12].Tag = "del";
  EXPECT_FALSE(CreateMemberLabels(truss, 1));
  EXPECT_EQ(truss.Labels[10].Tag, "del");
  truss.Labels[20].Tag = truss.Labels[21].Tag = "del";
  ASSERT_TRUE(CreateSupportLabels(truss, 1));
  EXPECT_EQ(truss.Supports[1].NameLabel1, 20);
  EXPECT_EQ(truss.Supports[1].NameLabel2, 21);
  EXPECT_EQ(CreateJointLabel(truss), 10);
  EXPECT_EQ(CreateJointLabel(truss), 12);
  EXPECT_EQ(CreateJointLabel(truss), 0);
}

TEST(Labels, AnArrowNeedsFourTaggedSegmentsInARow) {
  Truss truss = Unlabelled(5);
  CountUpTo(truss, 0, MaxCount);
  for (const int segment : {5, 6, 7, 9, 10, 11}) truss.ArrowLineTags[segment] = "del";
  EXPECT_FALSE(CreateSupportLabels(truss, 1));
  EXPECT_EQ(truss.NumLabels, 0);
  truss.ArrowLineTags[8] = "del";
  ASSERT_TRUE(CreateSupportLabels(truss, 1));
  EXPECT_EQ(truss.Supports[1].ArrowLine1, 8);
  EXPECT_EQ(truss.ArrowLineTags[9], "del");
}

TEST(Labels, TheLastFreshArrowAndThenATaggedOne) {
  Truss truss = Unlabelled();
  CountUpTo(truss, 0, MaxCount - 4);
  for (const int segment : {1, 2, 3, 4}) truss.ArrowLineTags[segment] = "del";
  ASSERT_TRUE(CreateMemberLabels(truss, 1));
  EXPECT_EQ(truss.Members[1].ArrowLine1, MaxCount);
  EXPECT_EQ(truss.Members[1].ArrowLine2, 4);
}

TEST(Labels, ErasingReusedLabelsFreesThemAgain) {
  Truss truss = TrussBuilder().Member(0, 0, 1, 0).ThenErased();
  CountUpTo(truss, MaxCount, MaxCount);
  for (int i = 2; i <= 300; ++i) {
    truss.Members.GrowTo(++truss.NumMembers);
    truss.Members[i].Live = true;
    ASSERT_TRUE(CreateMemberLabels(truss, i)) << i;
    EXPECT_EQ(truss.Members[i].NameLabel1, 1);
    EXPECT_EQ(truss.Members[i].ArrowLine2, 8);
    EXPECT_FALSE(CreateMemberLabels(truss, i));
    truss.Members[i].Live = false;
    DeleteMemberLabels(truss, i);
  }
}

// Also of its second label alone.
TEST(Labels, AnErasedElementForgetsLabelsThatNameSomethingElse) {
  for (const int freeLabel : {3, 4}) {
    Truss truss = TrussBuilder().Member(0, 0, 1, 0).Member(0, 0, 2, 0).ThenErased().Clamp(5, 5).ThenErased();
    ASSERT_EQ(truss.Members[2].NameLabel1, 3);
    const LabelIndex ofClamp = truss.Supports[1].NameLabel1;
    CountUpTo(truss, MaxCount, 0);
    for (NameLabel& label : truss.Labels.First(MaxCount)) label.Tag.clear();
    truss.Labels[freeLabel].Tag = DeletedTag;
    EXPECT_EQ(CreateJointLabel(truss), freeLabel);
    EXPECT_EQ(truss.Members[2].NameLabel1, 0) << freeLabel;
    EXPECT_EQ(truss.Members[2].NameLabel2, 0) << freeLabel;
    EXPECT_EQ(truss.Members[1].NameLabel1, 1) << "it is still there";
    EXPECT_EQ(truss.Supports[1].NameLabel1, ofClamp) << "nobody took its label";
  }
}
