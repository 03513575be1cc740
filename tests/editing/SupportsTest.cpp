// Supports: placed, turned, dragged and erased by their pictures.
#include "editing/Supports.h"

#include "EditingFixture.h"
#include "editing/Erasing.h"

namespace {

Truss ClampAndRoller() { return TrussBuilder().Member(2, 2, 9, 2).Clamp(2, 2).Roller(9, 2); }

}  // namespace

TEST(ReOrientSupport, ClampsAndRollersEachHaveTheirOwnCycle) {
  EXPECT_EQ(NextOrientation(1), 2);
  EXPECT_EQ(NextOrientation(3), 4);
  EXPECT_EQ(NextOrientation(4), 1);
  EXPECT_EQ(NextOrientation(5), 6);
  EXPECT_EQ(NextOrientation(8), 5);
}

TEST(ReOrientSupport, FourTurnsBringASupportBack) {
  Editor editor(ClampAndRoller());
  editor.Use(Tool::ReOrientation);
  const std::string before = Everything(editor.Document);
  for (const int type : {2, 3, 4, 1}) {
    editor.Click(2, 2);
    EXPECT_EQ(editor.Document.Supports[1].TypeIndex, type);
  }
  for (const int type : {6, 7, 8, 5}) {
    editor.Click(9, 2);
    EXPECT_EQ(editor.Document.Supports[2].TypeIndex, type);
  }
  EXPECT_EQ(Everything(editor.Document), before);
}

TEST(ReOrientSupport, DoesNothingBesideASupport) {
  Editor editor(ClampAndRoller());
  editor.Use(Tool::ReOrientation);
  const std::string before = Everything(editor.Document);
  editor.Click(5, 2);
  EXPECT_EQ(Everything(editor.Document), before);
  EXPECT_FALSE(editor.HandlesAreShown());
}

TEST(SupportAt, APictureCoversItsLeftAndTopEdgeOnly) {
  const Editor editor(TrussBuilder().Clamp(5, 5));  // (132, 154) to (164, 186)
  const auto at = [&editor](float x, float y) { return SupportAt(editor.Document, editor.Picture, x, y); };
  EXPECT_EQ(at(132, 154), 1);
  EXPECT_EQ(at(163.9F, 185.9F), 1);
  EXPECT_EQ(at(131.9F, 160), 0);
  EXPECT_EQ(at(164, 160), 0);
  EXPECT_EQ(at(140, 153.9F), 0);
  EXPECT_EQ(at(140, 186), 0);
}

TEST(SupportAt, TheTopmostLiveOneIsFound) {
  const Editor editor(TrussBuilder().Clamp(5, 5).Roller(5, 5).Roller(5, 5).ThenErased());
  EXPECT_EQ(SupportAt(editor.Document, editor.Picture, 148, 170), 2);
}

TEST(SupportAt, DisabledSupportsDoNotAnswer) {
  Editor editor(ClampAndRoller());
  EnableSupports(editor.Picture, false);
  EXPECT_EQ(SupportAt(editor.Document, editor.Picture, Editor::Px(2), Editor::Py(2)), 0);
  EnableSupports(editor.Picture, true);
  EXPECT_EQ(SupportAt(editor.Document, editor.Picture, Editor::Px(2), Editor::Py(2)), 1);
}

TEST(SupportTools, AClickPlacesAClampOfType1OrARollerOfType5) {
  Editor editor;
  editor.Use(Tool::Clamp);
  editor.Click(2.1F, 2.1F);
  editor.Use(Tool::Roller);
  editor.Click(9, 2);
  ASSERT_EQ(editor.Document.NumSupports, 2);
  const SupportRec& clamp = editor.Document.Supports[1];
  EXPECT_EQ(clamp.TypeIndex, 1);
  EXPECT_EQ(clamp.X, 2);
  EXPECT_EQ(clamp.Y, 2);
  EXPECT_TRUE(clamp.Live);
  EXPECT_EQ(clamp.NameLabel1, 1);
  EXPECT_EQ(clamp.NameLabel2, 2);
  EXPECT_EQ(clamp.ArrowLine2, 8);
  const SupportRec& roller = editor.Document.Supports[2];
  EXPECT_EQ(roller.TypeIndex, 5);
  EXPECT_EQ(roller.NameLabel1, 4);  // behind the joint's
  EXPECT_EQ(roller.ArrowLine1, 12);
  EXPECT_EQ(editor.Picture.Support[1], (PixelPoint{Editor::Px(2) - 16, Editor::Py(2) - 16}));
  EXPECT_FALSE(editor.Mouse.IsDragging());
}

TEST(SupportTools, APlacedSupportSnaps) {
  Editor editor(TrussBuilder().Member(2.22F, 3.33F, 9, 9));
  editor.Use(Tool::Roller);
  editor.Click(2.4F, 3.1F);
  EXPECT_EQ(editor.Document.Supports[1].X, 2.22F);
  EXPECT_EQ(editor.Document.Supports[1].Y, 3.33F);
  EXPECT_EQ(editor.Document.NumJoints, 2);
}

TEST(MovingSupports, ADroppedSupportStandsWhereTheMouseSnaps) {
  Editor editor(TrussBuilder().Member(2, 2, 9.13F, 6.21F).Clamp(2, 2));
  editor.Use(Tool::Move);
  editor.Press(2.5F, 2);
  editor.Move(6, 6);
  EXPECT_EQ(editor.Document.Supports[1].X, 2);
  editor.Release(9, 6);
  EXPECT_EQ(editor.Document.Supports[1].X, 9.13F);
  EXPECT_EQ(editor.Document.Supports[1].Y, 6.21F);
  EXPECT_EQ(editor.Picture.Support[1],
            (PixelPoint{editor.Picture.Rod[1].X2 - 16, editor.Picture.Rod[1].Y2 - 16}));
  EXPECT_EQ(editor.Document.NumJoints, 2);
}

TEST(MovingSupports, ADraggedSupportIsDrawnWhereItWillLand) {
  Editor editor(TrussBuilder().Member(2, 2, 9.13F, 6.21F).Clamp(2, 2));
  editor.Use(Tool::Move);
  editor.Press(2.6F, 1.6F);
  const auto standsAt = [&editor](float x, float y) {
    return editor.Picture.Support[1] ==
           PixelPoint{editor.Picture.Mapping.XPixel(x) - 16, editor.Picture.Mapping.YPixel(y) - 16};
  };
  EXPECT_TRUE(standsAt(2, 2));
  editor.Move(6.2F, 5.8F);  // between grid points
  EXPECT_TRUE(standsAt(6, 6));
  editor.Move(9, 6.4F);  // near an object
  EXPECT_TRUE(standsAt(9.13F, 6.21F));
  editor.Document.Settings.SnapGrid = false;
  editor.Move(4.3F, 7.15F);
  EXPECT_TRUE(standsAt(4.3F, 7.15F));
  editor.Release(4.3F, 7.15F);
  EXPECT_TRUE(standsAt(4.3F, 7.15F));
}

TEST(MovingSupports, AClickMovesNothing) {
  Editor editor(TrussBuilder().Clamp(2, 2));
  editor.Use(Tool::Move);
  editor.Click(2.7F, 2.7F);
  EXPECT_EQ(editor.Document.Supports[1].X, 2);
}

TEST(MovingSupports, DroppedBesideTheCanvasItGoesBack) {
  Editor editor(TrussBuilder().Clamp(2, 2));
  editor.Use(Tool::Move);
  const std::string before = Everything(editor.Document);
  editor.Drag(2, 2, 40, 2);
  EXPECT_EQ(Everything(editor.Document), before);
  EXPECT_EQ(editor.Picture.Support[1], (PixelPoint{Editor::Px(2) - 16, Editor::Py(2) - 16}));
}

TEST(MovingSupports, WhileASelectionIsShownThePictureLetsItsHandlesBeReached) {
  Editor editor(ClampAndRoller());
  editor.Use(Tool::Move);
  editor.Click(5, 2);
  editor.Drag(2, 2, 3, 5);
  EXPECT_EQ(editor.Document.Supports[1].X, 2);
  EXPECT_THAT(EndsOf(editor.Document.Members[1]), testing::ElementsAre(3, 5, 9, 2));
}

TEST(ErasingSupports, ThePictureIsHiddenAndTheRecordStays) {
  Editor editor(ClampAndRoller());
  ShowLabels(editor.Picture, editor.Document);
  editor.Use(Tool::Erase);
  editor.Click(2, 2);
  const SupportRec& clamp = editor.Document.Supports[1];
  EXPECT_FALSE(clamp.Live);
  EXPECT_EQ(editor.Document.NumSupports, 2);
  for (const LabelIndex label : {clamp.NameLabel1, clamp.NameLabel2}) {
    EXPECT_EQ(editor.Document.Labels[label].Tag, "del");
    EXPECT_FALSE(editor.Picture.lblRodJoint[label].Visible);
  }
  EXPECT_TRUE(editor.Document.Members[1].Live);  // what lies beneath the picture is not touched
  EXPECT_EQ(NumLiveSupports(editor.Document), 1);
}

TEST(ErasingSupports, AnErasedOneIsGoneForTheMouse) {
  Editor editor(TrussBuilder().Clamp(5, 5));
  editor.Use(Tool::Erase);
  editor.Click(5, 5);
  editor.Use(Tool::ReOrientation);
  editor.Click(5, 5);
  EXPECT_EQ(editor.Document.Supports[1].TypeIndex, 1);
  EXPECT_EQ(editor.Document.NumJoints, 0);
}

TEST(SupportPictures, OtherToolsReachTheCanvasThroughThem) {
  Editor editor(ClampAndRoller());
  editor.Use(Tool::NumericalValue);
  editor.Click(2.2F, 2);
  EXPECT_EQ(editor.Values.Calls.back(), "member 1 end 1");
  editor.Use(Tool::Force);
  editor.Drag(2, 2, 2, 5);
  EXPECT_EQ(editor.Document.Forces[1].Fy, 3000);
  EXPECT_EQ(editor.Document.Supports[1].TypeIndex, 1);
}
