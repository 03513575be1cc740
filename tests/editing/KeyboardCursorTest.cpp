// Every tool from the keyboard.
#include "editing/KeyboardCursor.h"

#include "EditingFixture.h"

namespace {

struct Keyboard : Editor {
  using Editor::Editor;

  void Go(ArrowKey key, int times = 1, bool onePixel = false) {
    for (int i = 0; i < times; ++i) Cursor.Move(key, onePixel);
  }

  KeyboardCursor Cursor{Mouse, Document, Picture};
};

}  // namespace

TEST(KeyboardCursor, BeginsOnTheGridInTheMiddleAndTakesGridSteps) {
  Keyboard keyboard;
  EXPECT_FALSE(keyboard.Cursor.IsVisible());
  keyboard.Go(ArrowKey::Right);
  EXPECT_TRUE(keyboard.Cursor.IsVisible());
  EXPECT_EQ(keyboard.Cursor.Position(), (PixelPoint{258, 170}));
  keyboard.Go(ArrowKey::Up);
  EXPECT_EQ(keyboard.Cursor.Position(), (PixelPoint{258, 160}));
  keyboard.Go(ArrowKey::Left, 2);
  keyboard.Go(ArrowKey::Down, 3);
  EXPECT_EQ(keyboard.Cursor.Position(), (PixelPoint{238, 190}));
  EXPECT_EQ(keyboard.Mouse.ReadOut(), " (9.50, 4.00) ");
}

TEST(KeyboardCursor, ShiftMovesByOnePixel) {
  Keyboard keyboard;
  keyboard.Go(ArrowKey::Right, 3, true);
  keyboard.Go(ArrowKey::Up, 2, true);
  EXPECT_EQ(keyboard.Cursor.Position(), (PixelPoint{251, 168}));
  keyboard.Go(ArrowKey::Right);
  EXPECT_EQ(keyboard.Cursor.Position(), (PixelPoint{258, 168}));
  keyboard.Go(ArrowKey::Down);
  EXPECT_EQ(keyboard.Cursor.Position(), (PixelPoint{258, 170}));
}

TEST(KeyboardCursor, StaysInsideTheDrawingArea) {
  Keyboard keyboard;
  keyboard.Go(ArrowKey::Right, 100);
  keyboard.Go(ArrowKey::Up, 100);
  EXPECT_EQ(keyboard.Cursor.Position(), (PixelPoint{448, 70}));
  keyboard.Go(ArrowKey::Left, 1000, true);
  keyboard.Go(ArrowKey::Down, 1000, true);
  EXPECT_EQ(keyboard.Cursor.Position(), (PixelPoint{48, 270}));
}

TEST(KeyboardCursor, GridStepsDoNotDrift) {
  Truss truss = TrussBuilder();
  truss.Settings.XMin = -5;
  truss.Settings.XMax = 12;
  truss.Settings.GridX = 0.1F;
  truss.Settings.SnapGrid = false;
  Keyboard keyboard(truss);
  keyboard.Go(ArrowKey::Left, 500);
  keyboard.Go(ArrowKey::Right, 100);
  EXPECT_NEAR(keyboard.Snap(keyboard.Cursor.Position().X, 170)->X, 5, 1e-4);
}

TEST(KeyboardCursor, PressMoveAndPressDrawAMember) {
  Keyboard keyboard;
  EXPECT_TRUE(keyboard.Cursor.ChooseTool(1));
  keyboard.Cursor.PressOrRelease();
  EXPECT_EQ(keyboard.Document.NumMembers, 1);
  keyboard.Go(ArrowKey::Right, 4);
  EXPECT_EQ(keyboard.Picture.Rod[1], (PixelLine{248, 170, 288, 170}));
  keyboard.Cursor.PressOrRelease();
  EXPECT_THAT(EndsOf(keyboard.Document.Members[1]), testing::ElementsAre(10, 5, 12, 5));
}

TEST(KeyboardCursor, OnePressIsAClickWhereNothingIsDragged) {
  Keyboard keyboard;
  keyboard.Cursor.ChooseTool(2);
  keyboard.Cursor.PressOrRelease();
  EXPECT_EQ(keyboard.Document.NumSupports, 1);
  EXPECT_FALSE(keyboard.Mouse.IsDragging());
  keyboard.Cursor.ChooseTool(8);
  keyboard.Cursor.PressOrRelease();
  EXPECT_EQ(NumLiveSupports(keyboard.Document), 0);
}

TEST(KeyboardCursor, AForceAndItsHead) {
  Keyboard keyboard;
  keyboard.Cursor.ChooseTool(4);
  keyboard.Cursor.PressOrRelease();
  keyboard.Go(ArrowKey::Down, 6);
  keyboard.Cursor.PressOrRelease();
  EXPECT_EQ(keyboard.Document.Forces[1].Fy, -3000);
  keyboard.Cursor.ChooseTool(7);
  keyboard.Cursor.PressOrRelease();  // picks it
  EXPECT_TRUE(keyboard.HandlesAreShown());
  keyboard.Cursor.PressOrRelease();  // takes its head
  keyboard.Go(ArrowKey::Right, 2);
  keyboard.Cursor.PressOrRelease();
  EXPECT_EQ(keyboard.Document.Forces[1].Fx, 1000);
  EXPECT_TRUE(keyboard.Paper.Standing.empty());
}

TEST(KeyboardCursor, EscapeAbandonsTheDrag) {
  Keyboard keyboard;
  keyboard.Cursor.ChooseTool(1);
  keyboard.Cursor.PressOrRelease();
  keyboard.Go(ArrowKey::Right, 4);
  keyboard.Cursor.Escape();
  EXPECT_EQ(keyboard.Document.NumMembers, 0);
  keyboard.Cursor.PressOrRelease();
  EXPECT_EQ(keyboard.Document.NumMembers, 1);
}

TEST(KeyboardCursor, DigitsOneToEightChooseTools) {
  Keyboard keyboard;
  for (int digit = 1; digit <= 8; ++digit) {
    EXPECT_TRUE(keyboard.Cursor.ChooseTool(digit));
    EXPECT_EQ(static_cast<int>(keyboard.Tools.Selected()), digit);
  }
  EXPECT_FALSE(keyboard.Cursor.ChooseTool(0));
  EXPECT_FALSE(keyboard.Cursor.ChooseTool(9));
  EXPECT_EQ(keyboard.Tools.Selected(), Tool::Erase);
}

TEST(KeyboardCursor, AMouseThatOnlyMovesDoesNotDisturbADragByKeys) {
  Keyboard keyboard;
  keyboard.Cursor.ChooseTool(1);
  keyboard.Cursor.PressOrRelease();
  keyboard.Hover(3, 3);
  EXPECT_TRUE(keyboard.Mouse.IsDragging());
  keyboard.Press(3, 3);
  EXPECT_FALSE(keyboard.Mouse.IsDragging());
  EXPECT_EQ(keyboard.Document.NumMembers, 0);
}

TEST(KeyboardCursor, FollowsTheMouseUnseen) {
  Keyboard keyboard;
  keyboard.Cursor.FollowMouse(Editor::Px(3.1F), Editor::Py(2.1F));
  EXPECT_FALSE(keyboard.Cursor.IsVisible());
  keyboard.Go(ArrowKey::Right);
  EXPECT_EQ(keyboard.Cursor.Position(), (PixelPoint{Editor::Px(3.5F), Editor::Py(2)}));
}

TEST(KeyboardCursor, WithoutAGridTakesStepsOfAPixel) {
  Keyboard keyboard;
  keyboard.Document.Settings.GridX = keyboard.Document.Settings.GridY = 0;
  keyboard.Go(ArrowKey::Right);
  EXPECT_EQ(keyboard.Cursor.Position(), (PixelPoint{249, 170}));
  keyboard.Go(ArrowKey::Up, 2);
  EXPECT_EQ(keyboard.Cursor.Position(), (PixelPoint{249, 168}));
  keyboard.Go(ArrowKey::Left, 3);
  keyboard.Go(ArrowKey::Down);
  EXPECT_EQ(keyboard.Cursor.Position(), (PixelPoint{246, 169}));
}

TEST(KeyboardCursor, StaysWhereItIsWhereNothingCanBeDrawn) {
  Keyboard keyboard;
  keyboard.Picture.Mapping.PixelX2 = keyboard.Picture.Mapping.PixelX1;
  const PixelPoint before = keyboard.Cursor.Position();
  keyboard.Go(ArrowKey::Right);
  keyboard.Cursor.MoveTo({100, 100});
  keyboard.Cursor.PressOrRelease();
  EXPECT_FALSE(keyboard.Cursor.IsVisible());
  EXPECT_EQ(keyboard.Cursor.Position(), before);
}

TEST(KeyboardCursor, AKeyThatRepeatsItselfPressesOnce) {
  Keyboard keyboard;
  keyboard.Use(Tool::TrussMember);
  keyboard.Mouse.KeyDown(Editor::Px(2), Editor::Py(2));
  keyboard.Mouse.KeyMove(Editor::Px(5), Editor::Py(3));
  keyboard.Mouse.KeyDown(Editor::Px(5), Editor::Py(3));
  EXPECT_TRUE(keyboard.Mouse.IsDragging());
  keyboard.Mouse.KeyUp(Editor::Px(5), Editor::Py(3));
  ASSERT_EQ(keyboard.Document.NumMembers, 1);
  EXPECT_THAT(EndsOf(keyboard.Document.Members[1]), testing::ElementsAre(2, 2, 5, 3));
}
