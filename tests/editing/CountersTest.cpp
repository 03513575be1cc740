// 16-bit counters: a full truss says so and stays as it is, and long editing does not fill it.
#include "EditingFixture.h"
#include "naming/Naming.h"

namespace {

void ExpectFullOnce(Editor& editor, const std::string& before) {
  ASSERT_EQ(editor.Messages.Shown.size(), 1U);
  EXPECT_EQ(editor.Messages.Shown[0].Text, "The truss cannot hold any more members, supports or labels.");
  EXPECT_EQ(Everything(editor.Document), before);
  EXPECT_FALSE(editor.Mouse.IsDragging());
  editor.Messages.Shown.clear();
}

// Labels that belong to nobody and are in use.
Truss WithLabels(std::int16_t labels, Truss truss) {
  truss.NumLabels = labels;
  truss.Labels.GrowTo(labels);
  return truss;
}

void CountLabels(Truss& truss, std::int16_t labels) {
  truss.NumLabels = labels;
  truss.Labels.GrowTo(labels);
}

}  // namespace

TEST(Counters, AFullTrussTakesNoMember) {
  Editor editor;
  editor.Document.NumMembers = MaxCount;
  editor.Document.Members.GrowTo(MaxCount);
  editor.Redraw();
  editor.Use(Tool::TrussMember);
  const std::string before = Everything(editor.Document);
  editor.Drag(1, 1, 4, 4);
  ExpectFullOnce(editor, before);
}

TEST(Counters, WithoutLabelsNoMemberBegins) {
  Editor editor(WithLabels(MaxCount - 1, TrussBuilder()));
  editor.Use(Tool::TrussMember);
  const std::string before = Everything(editor.Document);
  editor.Drag(1, 1, 4, 4);
  ExpectFullOnce(editor, before);
}

TEST(Counters, WithoutArrowLinesNoMemberBegins) {
  Editor editor;
  editor.Document.NumArrowLines = MaxCount - 7;
  editor.Document.ArrowLineTags.GrowTo(MaxCount - 7);
  editor.Use(Tool::TrussMember);
  const std::string before = Everything(editor.Document);
  editor.Drag(1, 1, 4, 4);
  ExpectFullOnce(editor, before);
}

TEST(Counters, WithoutLabelsForItsJointsAMemberIsTakenBack) {
  Editor editor(WithLabels(MaxCount - 3, TrussBuilder()));
  editor.Use(Tool::TrussMember);
  const std::string before = Everything(editor.Document);
  editor.Drag(1, 1, 4, 4);
  ExpectFullOnce(editor, before);
  EXPECT_EQ(editor.Picture.Rod.Size(), 0);
  // One joint less, and it fits to the last label.
  CountLabels(editor.Document, MaxCount - 4);
  editor.Drag(1, 1, 4, 4);
  EXPECT_EQ(editor.Document.NumMembers, 1);
  EXPECT_EQ(editor.Document.NumLabels, MaxCount);
}

TEST(Counters, AFullTrussTakesNoSupport) {
  Editor editor;
  editor.Document.NumSupports = MaxCount;
  editor.Document.Supports.GrowTo(MaxCount);
  editor.Redraw();
  editor.Use(Tool::Clamp);
  const std::string before = Everything(editor.Document);
  editor.Click(4, 4);
  ExpectFullOnce(editor, before);
}

TEST(Counters, WithoutLabelsNoSupportIsPlaced) {
  Editor editor(WithLabels(MaxCount - 2, TrussBuilder()));
  const std::string before = Everything(editor.Document);
  editor.Use(Tool::Clamp);
  editor.Click(4, 4);
  ExpectFullOnce(editor, before);
  editor.Use(Tool::Roller);
  editor.Click(4, 4);
  EXPECT_EQ(editor.Document.NumSupports, 1);
}

TEST(Counters, AFullTrussTakesNoForce) {
  Editor editor;
  editor.Document.NumForces = MaxCount;
  editor.Document.Forces.GrowTo(MaxCount);
  editor.Use(Tool::Force);
  const std::string before = Everything(editor.Document);
  editor.Drag(4, 4, 8, 8);
  ExpectFullOnce(editor, before);
}

TEST(Counters, AForceWhoseJointHasNoLabelIsTakenBack) {
  Editor editor(WithLabels(MaxCount, TrussBuilder()));
  editor.Use(Tool::Force);
  const std::string before = Everything(editor.Document);
  editor.Drag(4, 4, 8, 8);
  ExpectFullOnce(editor, before);
  EXPECT_TRUE(editor.Paper.Standing.empty());
}

TEST(Counters, AnEndThatNeedsAJointTooManyGoesBack) {
  Editor editor(TrussBuilder().Member(1, 1, 9, 1).Member(9, 1, 9, 8));
  CountLabels(editor.Document, MaxCount);
  editor.Use(Tool::Move);
  editor.Click(8, 1);
  const std::string before = Everything(editor.Document);
  editor.Drag(9, 1, 6, 5);  // the joint at (9, 1) stays, (6, 5) is new
  ExpectFullOnce(editor, before);
  EXPECT_TRUE(editor.HandlesAreShown());
  // An end that takes its joint with it needs no label more.
  editor.Drag(1, 1, 3, 3);
  EXPECT_EQ(editor.Document.Members[1].X1, 3);
  EXPECT_TRUE(editor.Messages.Shown.empty());
}

TEST(Counters, ASupportThatNeedsAJointTooManyGoesBack) {
  Editor editor(TrussBuilder().Member(1, 1, 9, 1).Clamp(9, 1));
  CountLabels(editor.Document, MaxCount);
  editor.Use(Tool::Move);
  const std::string before = Everything(editor.Document);
  editor.Drag(9, 1, 6, 5);
  ExpectFullOnce(editor, before);
  EXPECT_EQ(editor.Picture.Support[1], (PixelPoint{Editor::Px(9) - 16, Editor::Py(1) - 16}));
}

TEST(Counters, TooManyJointsAreRefusedTheSameWay) {
  Truss truss;
  truss.NumForces = MaxJoints;
  truss.Forces.GrowTo(MaxJoints);
  for (int i = 1; i <= MaxJoints; ++i) {
    truss.Forces[i] = ForceRec{.X = static_cast<float>(100 + i), .Fx = 1, .Active = true};
  }
  Editor editor(truss);
  editor.Use(Tool::Roller);
  const std::string before = Everything(editor.Document);
  editor.Click(4, 4);
  ExpectFullOnce(editor, before);
}

TEST(Counters, ErasingIsPossibleInAFullTruss) {
  Editor editor(WithLabels(MaxCount, TrussBuilder().Member(1, 1, 9, 1).Clamp(9, 6)));
  editor.Use(Tool::Erase);
  editor.Click(5, 1);
  editor.Click(9, 6);
  EXPECT_TRUE(editor.Messages.Shown.empty());
  EXPECT_EQ(NumLiveMembers(editor.Document) + NumLiveSupports(editor.Document), 0);
}

TEST(Counters, LongEditingDoesNotUseUpTheLabels) {
  Editor editor(WithLabels(MaxCount - 4, TrussBuilder()));
  editor.Document.NumArrowLines = MaxCount - 10;
  editor.Document.ArrowLineTags.GrowTo(MaxCount - 10);
  for (int round = 1; round <= 20; ++round) {
    SCOPED_TRACE(round);
    editor.Use(Tool::TrussMember);
    editor.Drag(1, 1, 9, static_cast<float>(round % 7));
    ASSERT_EQ(editor.Document.NumMembers, round);
    const MemberRec& member = editor.Document.Members[round];
    EXPECT_EQ(member.NameLabel2, member.NameLabel1 + 1);
    EXPECT_EQ(editor.Document.Labels[member.NameLabel2].Tag, "");
    EXPECT_EQ(editor.Document.NumLabels, MaxCount);
    EXPECT_EQ(std::abs(member.ArrowLine1 - member.ArrowLine2), 4);
    Rename(editor.Document, editor.Document.Joints[1].NameLabel, "J");
    Rename(editor.Document, member.NameLabel2, "M");
    EXPECT_EQ(editor.Document.Name(member.NameLabel1), "M");
    EXPECT_EQ(editor.Document.Name(editor.Document.Joints[2].NameLabel), "[ ]");
    editor.Use(Tool::Erase);
    editor.Click(5, (1 + static_cast<float>(round % 7)) / 2);
    ASSERT_EQ(NumLiveMembers(editor.Document), 0);
  }
  EXPECT_TRUE(editor.Messages.Shown.empty());
}

TEST(Counters, AClampThatTakesErasedLabelsShowsItsOwnName) {
  Editor editor(TrussBuilder().Member(1, 1, 9, 1, "old"));
  CountLabels(editor.Document, MaxCount);
  editor.Use(Tool::Erase);
  editor.Click(5, 1);
  editor.Use(Tool::Clamp);
  editor.Click(4, 4);
  ASSERT_EQ(editor.Document.NumSupports, 1);
  const SupportRec& clamp = editor.Document.Supports[1];
  EXPECT_EQ(clamp.NameLabel1, 1);
  EXPECT_EQ(clamp.NameLabel2, 2);
  EXPECT_EQ(editor.Document.Name(clamp.NameLabel1), "[ ]");
  EXPECT_EQ(editor.Document.Members[1].NameLabel1, 0);
  ShowLabels(editor.Picture, editor.Document);
  EXPECT_TRUE(editor.Picture.lblRodJoint[1].Visible);
}
