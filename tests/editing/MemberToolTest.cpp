// Drawing members, and the read-out, the pointer and the ends of drags that all tools share.
#include "EditingFixture.h"

using testing::ElementsAre;

TEST(MemberTool, ADragMakesAMemberWithLabelsAndPins) {
  Editor editor;
  editor.Use(Tool::TrussMember);
  editor.Drag(1, 1, 4, 5);
  ASSERT_EQ(editor.Document.NumMembers, 1);
  const MemberRec& member = editor.Document.Members[1];
  EXPECT_THAT(EndsOf(member), ElementsAre(1, 1, 4, 5));
  EXPECT_TRUE(member.Live);
  EXPECT_EQ(member.NameLabel1, 1);
  EXPECT_EQ(member.NameLabel2, 2);
  EXPECT_EQ(member.ArrowLine1, 4);
  EXPECT_EQ(member.ArrowLine2, 8);
  EXPECT_EQ(editor.Picture.Pin2[1], (PixelPoint{Editor::Px(4) - 3, Editor::Py(5) - 3}));
  EXPECT_EQ(editor.Document.NumJoints, 2);
  EXPECT_EQ(editor.Document.NumLabels, 4);
}

TEST(MemberTool, ThePressAddsTheRecordAndTheDragStretchesItsLine) {
  Editor editor;
  editor.Use(Tool::TrussMember);
  editor.Press(1, 1);
  EXPECT_EQ(editor.Document.NumMembers, 1);
  EXPECT_EQ(editor.Picture.Rod[1], (PixelLine{68, 250, 68, 250}));
  EXPECT_FALSE(HasPins(editor.Picture, 1));
  editor.Move(4.1F, 5.1F);
  EXPECT_EQ(editor.Picture.Rod[1], (PixelLine{68, 250, 128, 170}));
  EXPECT_THAT(EndsOf(editor.Document.Members[1]), ElementsAre(1, 1, 1, 1));
  EXPECT_EQ(editor.Redraws, 1);
}

TEST(MemberTool, AClickWithoutADragLeavesNothing) {
  Editor editor;
  editor.Use(Tool::TrussMember);
  const std::string before = Everything(editor.Document);
  editor.Click(1, 1);
  EXPECT_EQ(Everything(editor.Document), before);
  EXPECT_EQ(editor.Picture.Rod.Size(), 0);
  EXPECT_TRUE(editor.Messages.Shown.empty());
}

TEST(MemberTool, ADragBackOntoItsStartLeavesNothing) {
  Editor editor;
  editor.Use(Tool::TrussMember);
  editor.Press(1, 1);
  editor.Move(3, 3);
  editor.Release(1.2F, 1.2F);
  EXPECT_EQ(editor.Document.NumMembers, 0);
}

TEST(MemberTool, EndsMeetExactlyWhereTheySnap) {
  Editor editor(TrussBuilder().Member(1.23F, 4.56F, 9, 9));
  editor.Use(Tool::TrussMember);
  editor.Drag(6, 2, 1.4F, 4.4F);
  EXPECT_THAT(EndsOf(editor.Document.Members[2]), ElementsAre(6, 2, 1.23F, 4.56F));
  EXPECT_EQ(editor.Document.NumJoints, 3);
}

TEST(MemberTool, TheMemberBeingDrawnDoesNotSnapToItself) {
  Truss truss = TrussBuilder();
  truss.Settings.SnapGrid = false;
  Editor editor(truss);
  editor.Use(Tool::TrussMember);
  editor.Drag(1, 1, 1.3F, 1);
  ASSERT_EQ(editor.Document.NumMembers, 1);
  EXPECT_FLOAT_EQ(editor.Document.Members[1].X2, 1.3F);
}

TEST(MemberTool, AMemberCanBeginAtASupportedJoint) {
  Editor editor(TrussBuilder().Clamp(2.1F, 2));
  editor.Use(Tool::TrussMember);
  editor.Drag(2, 2, 5, 5);
  EXPECT_THAT(EndsOf(editor.Document.Members[1]), ElementsAre(2.1F, 2, 5, 5));
}

TEST(MemberTool, TwoPixelsThatRoundToOneWorldPointMakeNoMember) {
  Truss truss = TrussBuilder();
  truss.Settings.SnapGrid = truss.Settings.SnapObject = false;
  truss.Settings.XMin = 16777216;
  truss.Settings.XMax = 16777236;
  truss.Settings.YMin = 16777216;
  Editor editor(truss);
  editor.Use(Tool::TrussMember);
  editor.Mouse.MouseDown(MouseButton::Left, 150, 170);
  editor.Mouse.MouseUp(MouseButton::Left, 151, 170);
  EXPECT_EQ(editor.Document.NumMembers, 0);
}

TEST(MemberTool, ADragMayEndBeyondTheRulers) {
  Editor editor;
  editor.Use(Tool::TrussMember);
  editor.Drag(1, 1, 22, -1);
  EXPECT_THAT(EndsOf(editor.Document.Members[1]), ElementsAre(1, 1, 22, -1));
}

TEST(MemberTool, AnErasedMembersPlaceIsFreeAgain) {
  Editor editor(TrussBuilder().Member(1.2F, 1, 4, 4).ThenErased());
  editor.Use(Tool::TrussMember);
  editor.Drag(1.2F, 1, 4, 4);
  EXPECT_THAT(EndsOf(editor.Document.Members[2]), ElementsAre(1, 1, 4, 4));
}

TEST(ReadOut, ShowsWhereAClickWouldLand) {
  Editor editor;
  EXPECT_EQ(editor.Mouse.ReadOut(), "");
  editor.Hover(1.6F, 1.9F);
  EXPECT_EQ(editor.Mouse.ReadOut(), " (1.50, 2.00) ");
  editor.Use(Tool::TrussMember);
  editor.Press(1, 1);
  editor.Move(2.9F, 4);
  EXPECT_EQ(editor.Mouse.ReadOut(), " (3.00, 4.00) ");
}

TEST(ReadOut, UsesTheLocalesSeparator) {
  Editor editor;
  EditingContext partners = editor.Partners;
  partners.Numbers.DecimalSeparator = ",";
  MouseEditing mouse(partners);
  mouse.MouseMove(false, Editor::Px(1.5F), Editor::Py(2));
  EXPECT_EQ(mouse.ReadOut(), " (1,50, 2,00) ");
}

TEST(ReadOut, StaysWhereTheMappingHasNoRange) {
  Editor editor;
  editor.Hover(1, 1);
  editor.Document.Settings.XMax = 0;
  editor.Redraw();
  editor.Hover(3, 3);
  EXPECT_EQ(editor.Mouse.ReadOut(), " (1.00, 1.00) ");
  editor.Use(Tool::TrussMember);
  editor.Drag(1, 1, 4, 4);
  EXPECT_EQ(editor.Document.NumMembers, 0);
}

TEST(ReadOut, ADraggedEndDoesNotSnapToItself) {
  Editor editor(TrussBuilder().Member(1.2F, 1.2F, 8, 8));
  editor.Use(Tool::Move);
  editor.Click(2, 2);
  editor.Press(1.2F, 1.2F);
  editor.Move(1.3F, 1.1F);
  EXPECT_EQ(editor.Mouse.ReadOut(), " (1.50, 1.00) ");
}

TEST(Pointer, IsACrossForDrawingTools) {
  Editor editor;
  editor.Hover(1, 1);
  EXPECT_EQ(editor.Mouse.Pointer(), PointerShape::Default);
  for (const Tool tool : {Tool::TrussMember, Tool::Clamp, Tool::Roller, Tool::Force}) {
    editor.Use(tool);
    EXPECT_EQ(editor.Mouse.Pointer(), PointerShape::Cross);
  }
  editor.Press(1, 1);
  editor.Move(4, 4);
  EXPECT_EQ(editor.Mouse.Pointer(), PointerShape::Cross);
}

TEST(Pointer, IsAHandOverWhatTheToolCanActOn) {
  const auto over = [](Tool tool, float x, float y) {
    Editor editor(TrussBuilder().Member(1, 1, 9, 1).Clamp(12, 5).Force(4, 8, 3000, 0));
    editor.Use(tool);
    editor.Hover(x, y);
    return editor.Mouse.Pointer() == PointerShape::PointingHand;
  };
  for (const Tool tool : {Tool::NumericalValue, Tool::Move, Tool::Erase}) {
    EXPECT_TRUE(over(tool, 5, 1));
    EXPECT_TRUE(over(tool, 5, 8));
    EXPECT_FALSE(over(tool, 5, 5));
    EXPECT_EQ(over(tool, 12, 5), tool != Tool::NumericalValue);
  }
  EXPECT_TRUE(over(Tool::ReOrientation, 12, 5));
  EXPECT_FALSE(over(Tool::ReOrientation, 5, 1));
}

TEST(Pointer, HasFourArrowsWhileSomethingIsMoved) {
  Editor editor(TrussBuilder().Member(1, 1, 9, 1).Clamp(12, 5));
  editor.Use(Tool::Move);
  editor.Press(12, 5);
  EXPECT_EQ(editor.Mouse.Pointer(), PointerShape::FourWay);
  editor.Release(12, 5);
  EXPECT_EQ(editor.Mouse.Pointer(), PointerShape::PointingHand);
  editor.Click(2, 1);
  editor.Press(1, 1);
  EXPECT_EQ(editor.Mouse.Pointer(), PointerShape::FourWay);
  editor.Mouse.Cancel();
  EXPECT_EQ(editor.Mouse.Pointer(), PointerShape::PointingHand);
}

TEST(MouseEditing, WithoutAToolNothingHappens) {
  Editor editor(TrussBuilder().Member(1, 1, 9, 1).Clamp(1, 1).Force(9, 1, 0, 2000));
  const std::string before = Everything(editor.Document);
  editor.Drag(1, 1, 5, 5);
  editor.Drag(5, 1, 5, 5);
  EXPECT_EQ(Everything(editor.Document), before);
  EXPECT_FALSE(editor.HandlesAreShown());
}

TEST(MouseEditing, OtherButtonsDoNothing) {
  Editor editor;
  editor.Use(Tool::TrussMember);
  editor.Mouse.MouseDown(MouseButton::Other, 100, 100);
  editor.Mouse.MouseUp(MouseButton::Other, 200, 200);
  EXPECT_EQ(editor.Document.NumMembers, 0);
}

TEST(MouseEditing, AToolClickHidesHandlesAndPanelAndEnablesSupports) {
  Editor editor(TrussBuilder().Member(1, 1, 9, 1));
  editor.Use(Tool::NumericalValue);
  editor.Click(2, 1);
  EXPECT_TRUE(editor.HandlesAreShown());
  EXPECT_FALSE(editor.Picture.SupportsEnabled);
  editor.Use(Tool::NumericalValue);
  EXPECT_FALSE(editor.HandlesAreShown());
  EXPECT_TRUE(editor.Picture.SupportsEnabled);
  EXPECT_EQ(editor.Picture.OpenPanel, ValuePanel::None);
  EXPECT_EQ(editor.Mouse.Selected(), Selection{});
}
