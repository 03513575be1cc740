// Erased elements never come back, anywhere.
#include "editing/Erasing.h"

#include "EditingFixture.h"
#include "analysis/Analysis.h"
#include "document/TrussFile.h"

namespace {

Truss Triangle() {
  return TrussBuilder()
      .Member(2, 2, 10, 2, "AB")
      .Member(2, 2, 6, 6, "AC")
      .Member(10, 2, 6, 6, "BC")
      .Force(6, 6, 2000, 0)
      .Joint(2, 2, "A")
      .Joint(10, 2, "B");
}

}  // namespace

TEST(EraseTool, AMemberIsHiddenAndItsRecordStays) {
  Editor editor(Triangle());
  ShowLabels(editor.Picture, editor.Document);
  editor.Use(Tool::Erase);
  editor.Click(6, 2);
  const MemberRec& member = editor.Document.Members[1];
  EXPECT_FALSE(member.Live);
  EXPECT_EQ(editor.Document.NumMembers, 3);
  EXPECT_FALSE(IsRodShown(editor.Picture, editor.Document, 1));
  EXPECT_EQ(editor.Document.Labels[member.NameLabel1].Tag, "del");
  EXPECT_EQ(editor.Document.Labels[member.NameLabel2].Tag, "del");
  EXPECT_EQ(editor.Document.ArrowLineTags[member.ArrowLine2], "del");
  EXPECT_FALSE(editor.Picture.lblRodJoint[member.NameLabel1].Visible);
  editor.Redraw();
  EXPECT_FALSE(editor.Picture.lblRodJoint[member.NameLabel1].Visible);
  EXPECT_FALSE(editor.HandlesAreShown());
  EXPECT_TRUE(editor.Picture.SupportsEnabled);
}

TEST(EraseTool, AForceIsSwitchedOffAndItsRecordStays) {
  Editor editor(Triangle());
  editor.Use(Tool::Erase);
  editor.Click(7.5F, 6);
  EXPECT_FALSE(editor.Document.Forces[1].Active);
  EXPECT_EQ(editor.Document.NumForces, 1);
  EXPECT_EQ(NumActiveForces(editor.Document), 0);
}

TEST(EraseTool, WithNothingHitNothingHappens) {
  Editor editor(Triangle());
  editor.Use(Tool::Erase);
  const std::string before = Everything(editor.Document);
  editor.Click(15, 8);
  EXPECT_EQ(Everything(editor.Document), before);
}

TEST(EraseTool, JointsKeepTheirNamesWhileTheyKeepTheirPlace) {
  Editor editor(Triangle());
  editor.Use(Tool::Erase);
  editor.Click(6, 2);
  ASSERT_EQ(editor.Document.NumJoints, 3);
  EXPECT_EQ(editor.Document.Name(editor.Document.Joints[1].NameLabel), "A");
  editor.Click(4, 4);
  EXPECT_EQ(editor.Document.NumJoints, 2);
  EXPECT_EQ(editor.Document.Name(editor.Document.Joints[1].NameLabel), "B");
}

TEST(EraseTool, ErasedElementsAreNotSavedNotCountedAndNotInTheEquations) {
  Editor editor(Triangle());
  editor.Use(Tool::Erase);
  editor.Click(6, 2);
  editor.Click(7.5F, 6);
  Truss expected =
      TrussBuilder().Member(2, 2, 6, 6, "AC").Member(10, 2, 6, 6, "BC").Joint(2, 2, "A").Joint(10, 2, "B");
  expected.Settings = editor.Document.Settings;
  EXPECT_EQ(TrussText(editor.Document), TrussText(expected));
  const EquationSystem system = SolveTruss(editor.Document).System;
  EXPECT_EQ(system.NumUnknowns(), 2);
  EXPECT_EQ(NumLiveMembers(editor.Document), 2);
}

TEST(EraseTool, ErasingEverythingLeavesTheCounters) {
  Editor editor(Triangle());
  editor.Use(Tool::Erase);
  for (const auto& [x, y] : {std::pair(6.0F, 2.0F), std::pair(4.0F, 4.0F), std::pair(8.0F, 4.0F)}) {
    editor.Click(x, y);
  }
  EXPECT_EQ(editor.Document.NumMembers, 3);
  EXPECT_EQ(NumLiveMembers(editor.Document), 0);
  EXPECT_EQ(editor.Snap(Editor::Px(2.2F), Editor::Py(2.2F))->X, 2);
}
