// Dragging the ends of members and the heads of forces by their handles.
#include <limits>

#include "EditingFixture.h"

using testing::ElementsAre;

namespace {

Truss Two() { return TrussBuilder().Member(1, 1, 9, 1).Member(9, 1, 9, 8); }
Truss OneForce() { return TrussBuilder().Member(1, 1, 9, 1).Force(9, 1, 3000, 0); }

}  // namespace

TEST(HandleDragging, TheDragBeginsWithASecondPressOnAHandle) {
  Editor editor(Two());
  editor.Use(Tool::Move);
  editor.Press(3, 1);
  EXPECT_EQ(editor.Mouse.ActionCode(), 0);
  EXPECT_FALSE(editor.Mouse.IsDragging());
  EXPECT_EQ(editor.Mouse.Selected().Index, 1);
  editor.Release(3, 1);
  editor.Press(1, 1);
  EXPECT_EQ(editor.Mouse.ActionCode(), 1);
  editor.Release(1, 1);
  editor.Press(9, 1);
  EXPECT_EQ(editor.Mouse.ActionCode(), 2);
}

TEST(HandleDragging, FourPixelsFromAnEndGrabItFiveDoNot) {
  for (const float distance : {-5.0F, -4.0F, 4.0F, 5.0F}) {
    Editor editor(Two());
    editor.Use(Tool::Move);
    editor.Click(3, 1);
    editor.Mouse.MouseDown(MouseButton::Left, 68 + distance, 250 + distance);
    EXPECT_EQ(editor.Mouse.ActionCode(), std::abs(distance) == 4 ? 1 : 0) << distance;
  }
}

TEST(HandleDragging, WhereBothEndsAreInReachEnd1IsGrabbed) {
  for (const bool backwards : {false, true}) {
    // Four pixels long.
    Editor editor(backwards ? TrussBuilder().Member(8.2F, 3, 8, 3) : TrussBuilder().Member(8, 3, 8.2F, 3));
    editor.Use(Tool::Move);
    editor.ClickPixel(210, 210);
    EXPECT_TRUE(editor.HandlesAreShown());
    editor.Mouse.MouseDown(MouseButton::Left, 210, 210);
    EXPECT_EQ(editor.Mouse.ActionCode(), 1);
  }
}

TEST(HandleDragging, FourPixelsFromAForcesHeadGrabItFiveStartTheOrdinaryAction) {
  Editor editor(OneForce());
  editor.Use(Tool::Move);
  editor.Click(11, 1);
  EXPECT_EQ(editor.Mouse.Selected().Type, ObjectType::Force);
  editor.Mouse.MouseDown(MouseButton::Left, Editor::Px(12) + 4, Editor::Py(1) - 4);
  EXPECT_EQ(editor.Mouse.ActionCode(), 3);
  editor.Mouse.Cancel();
  editor.Mouse.MouseDown(MouseButton::Left, Editor::Px(12) + 5, Editor::Py(1));
  EXPECT_EQ(editor.Mouse.ActionCode(), 0);
  EXPECT_FALSE(editor.HandlesAreShown());  // the Move tool's own action found nothing there
}

TEST(HandleDragging, AForcesTailIsNoHandleToGrab) {
  Editor editor(TrussBuilder().Force(9, 1, 3000, 0));
  editor.Use(Tool::Move);
  editor.Click(11, 1);
  editor.Press(9, 1);
  EXPECT_EQ(editor.Mouse.ActionCode(), 0);
}

TEST(HandleDragging, OnlyTheDraggedMemberChanges) {
  Editor editor(Two());
  editor.Use(Tool::Move);
  editor.Click(8, 1);
  editor.Drag(9, 1, 6, 5);
  EXPECT_THAT(EndsOf(editor.Document.Members[1]), ElementsAre(1, 1, 6, 5));
  EXPECT_THAT(EndsOf(editor.Document.Members[2]), ElementsAre(9, 1, 9, 8));
  EXPECT_EQ(editor.Document.NumJoints, 4);
}

TEST(HandleDragging, TheHandlesFollowAndStayAfterTheDrop) {
  Editor editor(Two());
  editor.Use(Tool::Move);
  editor.Click(8, 1);
  editor.Press(9, 1);
  editor.Move(6, 5);
  EXPECT_EQ(editor.BigHandle(), (PixelPoint{Editor::Px(6), Editor::Py(5)}));
  EXPECT_EQ(editor.Picture.Rod[1].End2(), (PixelPoint{Editor::Px(6), Editor::Py(5)}));
  editor.Release(6, 5);
  EXPECT_TRUE(editor.HandlesAreShown());
  EXPECT_FALSE(editor.Picture.SupportsEnabled);
  EXPECT_EQ(editor.BigHandle(), (PixelPoint{Editor::Px(6), Editor::Py(5)}));
  EXPECT_EQ(editor.SmallHandle(), (PixelPoint{Editor::Px(1), Editor::Py(1)}));
  editor.Drag(6, 5, 7, 7);
  EXPECT_THAT(EndsOf(editor.Document.Members[1]), ElementsAre(1, 1, 7, 7));
}

TEST(HandleDragging, TheGrabbedEndBecomesTheBigOne) {
  Editor editor(Two());
  editor.Use(Tool::NumericalValue);
  editor.Click(8, 1);
  editor.Press(1, 1);
  EXPECT_EQ(editor.BigHandle(), (PixelPoint{Editor::Px(1), Editor::Py(1)}));
  EXPECT_THAT(editor.Values.Calls, ElementsAre("member 1 end 2", "member 1 end 1"));
}

TEST(HandleDragging, DroppedOnAnotherEndItJoinsExactly) {
  Editor editor(TrussBuilder().Member(1, 1, 5, 1).Member(7.77F, 3.33F, 9, 8));
  editor.Use(Tool::Move);
  editor.Click(4, 1);
  editor.Drag(5, 1, 7.5F, 3.2F);
  EXPECT_THAT(EndsOf(editor.Document.Members[1]), ElementsAre(1, 1, 7.77F, 3.33F));
  EXPECT_EQ(editor.Document.NumJoints, 3);
}

TEST(HandleDragging, AnEndDroppedOnItsOtherEndErasesTheMember) {
  Editor editor(Two());
  editor.Use(Tool::Move);
  editor.Click(3, 1);
  editor.Press(1, 1);
  editor.Move(5, 5);
  editor.Release(9, 1);
  EXPECT_FALSE(editor.Document.Members[1].Live);
  EXPECT_EQ(editor.Document.NumMembers, 2);
  EXPECT_EQ(editor.Document.Labels[editor.Document.Members[1].NameLabel1].Tag, "del");
  EXPECT_FALSE(editor.HandlesAreShown());
  EXPECT_TRUE(editor.Picture.SupportsEnabled);
  EXPECT_EQ(editor.Document.NumJoints, 2);
}

TEST(HandleDragging, TheRecordFollowsTheDragButIsNeverWithoutLength) {
  Editor editor(Two());
  editor.Use(Tool::NumericalValue);
  editor.Click(3, 1);
  editor.Press(1, 1);
  editor.Move(5, 5);
  EXPECT_THAT(EndsOf(editor.Document.Members[1]), ElementsAre(5, 5, 9, 1));
  editor.Move(9, 1);
  EXPECT_THAT(EndsOf(editor.Document.Members[1]), ElementsAre(5, 5, 9, 1));
  EXPECT_EQ(editor.Values.Refreshed, 2);
}

TEST(HandleDragging, AClickOnAHandleMovesNothingEvenOffTheGrid) {
  Editor editor(TrussBuilder().Member(1.23F, 1.11F, 9, 1));
  editor.Use(Tool::Move);
  editor.Click(3, 1.1F);
  const std::string before = Everything(editor.Document);
  editor.Click(1.3F, 1.1F);
  EXPECT_EQ(Everything(editor.Document), before);
  EXPECT_TRUE(editor.HandlesAreShown());
}

TEST(HandleDragging, AForcesHeadGivesNewComponents) {
  Editor editor(OneForce());
  editor.Use(Tool::Move);
  editor.Click(11, 1);
  editor.Press(12, 1);
  editor.Move(12, 3);
  EXPECT_EQ(editor.Paper.Standing.size(), 4U);
  editor.Release(9, 5);
  EXPECT_EQ(editor.Document.Forces[1].Fx, 0);
  EXPECT_EQ(editor.Document.Forces[1].Fy, 4000);
  EXPECT_EQ(editor.Document.Forces[1].PixY2, Editor::Py(5));
  EXPECT_TRUE(editor.Paper.Standing.empty());
  EXPECT_EQ(editor.Paper.CurrentPen, Pen::Copy);
  EXPECT_TRUE(editor.HandlesAreShown());
  EXPECT_EQ(editor.BigHandle(), (PixelPoint{Editor::Px(9), Editor::Py(5)}));
  EXPECT_FALSE(editor.Picture.SupportsEnabled);
  EXPECT_TRUE(editor.Values.Calls.empty());
}

TEST(HandleDragging, TheBandIsDrawnTwiceAtEveryPosition) {
  Editor editor(OneForce());
  editor.Use(Tool::Move);
  editor.Click(11, 1);
  editor.Press(12, 1);
  for (const float y : {2.0F, 3.0F, 4.0F}) editor.Move(12, y);
  editor.Release(12, 4);
  EXPECT_EQ(editor.Paper.Strokes.size(), 24U);
  EXPECT_EQ(editor.Paper.Strokes[0].Colour, 8);
}

TEST(HandleDragging, AHeadDroppedOnItsTailErasesTheForce) {
  Editor editor(OneForce());
  editor.Use(Tool::Move);
  editor.Click(11, 1);
  editor.Press(12, 1);
  editor.Move(11, 3);
  editor.Release(9.2F, 1.2F);
  EXPECT_FALSE(editor.Document.Forces[1].Active);
  EXPECT_EQ(editor.Document.NumForces, 1);
  EXPECT_FALSE(editor.HandlesAreShown());
  EXPECT_TRUE(editor.Picture.SupportsEnabled);
  EXPECT_TRUE(editor.Paper.Standing.empty());
}

TEST(HandleDragging, AHeadThatGivesNoFiniteForceGoesBack) {
  Editor editor(OneForce());
  editor.Use(Tool::Move);
  editor.Click(11, 1);
  editor.Document.Settings.ForceScale = std::numeric_limits<float>::max();
  editor.Drag(12, 1, 18, 1);
  EXPECT_EQ(editor.Document.Forces[1].Fx, 3000);
  EXPECT_TRUE(editor.Document.Forces[1].Active);
  EXPECT_TRUE(editor.Paper.Standing.empty());
  EXPECT_TRUE(editor.Messages.Shown.empty());
}

TEST(HandleDragging, TheValueToolOpensItsPanelAgainAfterTheDrop) {
  Editor editor(OneForce());
  editor.Use(Tool::NumericalValue);
  editor.Click(11, 1);
  editor.Drag(12, 1, 12, 4);
  EXPECT_THAT(editor.Values.Calls, ElementsAre("force 1", "force 1"));
  EXPECT_EQ(editor.Picture.OpenPanel, ValuePanel::Force);
  EXPECT_EQ(editor.Values.Refreshed, 2);
  editor.Click(3, 1);
  editor.Drag(1, 1, 2, 2);
  EXPECT_EQ(editor.Values.Calls.back(), "member 1 end 1");
  EXPECT_EQ(editor.Picture.OpenPanel, ValuePanel::Member);
}

TEST(NumericalValueTool, OpensOnWhatIsPicked) {
  Editor editor(OneForce());
  editor.Use(Tool::NumericalValue);
  editor.Click(5, 1);  // exactly in the middle
  EXPECT_THAT(editor.Values.Calls, ElementsAre("member 1 end 1"));
  EXPECT_TRUE(editor.HandlesAreShown());
  editor.Click(5, 8);
  EXPECT_EQ(editor.Picture.OpenPanel, ValuePanel::None);
  EXPECT_FALSE(editor.HandlesAreShown());
  EXPECT_TRUE(editor.Picture.SupportsEnabled);
}

TEST(MoveTool, PicksWithoutOpeningThePanel) {
  Editor editor(OneForce());
  editor.Use(Tool::Move);
  editor.Click(3, 1);
  EXPECT_TRUE(editor.HandlesAreShown());
  EXPECT_TRUE(editor.Values.Calls.empty());
}

TEST(HandleDragging, AMouseThatIsMovedInOnePlaceMovesNothing) {
  Editor editor(TrussBuilder().Member(1.2F, 1.1F, 9, 1));
  editor.Use(Tool::Move);
  editor.Click(5, 1.05F);
  editor.Press(1.2F, 1.1F);
  editor.Move(1.2F, 1.1F);
  EXPECT_THAT(EndsOf(editor.Document.Members[1]), testing::ElementsAre(1.2F, 1.1F, 9, 1));
  editor.Move(3, 3);
  EXPECT_THAT(EndsOf(editor.Document.Members[1]), testing::ElementsAre(3, 3, 9, 1));
  editor.Move(1.2F, 1.1F);
  EXPECT_THAT(EndsOf(editor.Document.Members[1]), testing::ElementsAre(1, 1, 9, 1)) << "it has been moved";
}

TEST(HandleDragging, WhatIsErasedIsNotSelectedAnyMore) {
  for (const bool isMember : {true, false}) {
    Editor editor(TrussBuilder().Member(1, 1, 9, 1).Force(3, 6, 3000, 0));
    editor.Use(Tool::NumericalValue);
    editor.Click(isMember ? 6 : 4, isMember ? 1 : 6);
    ASSERT_EQ(editor.Mouse.Selected().Type, isMember ? ObjectType::Member : ObjectType::Force);
    editor.Document.Members[1].Live = false;
    editor.Document.Forces[1].Active = false;
    EXPECT_EQ(editor.Mouse.Selected().Type, ObjectType::None);
  }
}
