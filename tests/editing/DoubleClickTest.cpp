// The second press of a double click: what was done by the first is not done again.
#include "EditingFixture.h"

namespace {

// Both clicks of a double click; the second press says what it is.
void DoubleClick(Editor& editor, float x, float y) {
  editor.Click(x, y);
  editor.Mouse.MouseDoubleClick(MouseButton::Left, Editor::Px(x), Editor::Py(y));
  editor.Release(x, y);
}

}  // namespace

TEST(DoubleClick, PlacesOneSupport) {
  for (const Tool tool : {Tool::Clamp, Tool::Roller}) {
    Editor editor(TrussBuilder().Member(2, 2, 9, 2));
    editor.Use(tool);
    DoubleClick(editor, 2, 2);
    EXPECT_EQ(editor.Document.NumSupports, 1);
    editor.Click(9, 2);
    EXPECT_EQ(editor.Document.NumSupports, 2);
  }
}

TEST(DoubleClick, ErasesOneThing) {
  Editor editor(
      TrussBuilder().Member(2, 2, 9, 2).Member(3, 2, 9, 2).Clamp(2, 2).Roller(2, 2).Force(5, 8, 900, 0));
  editor.Use(Tool::Erase);
  DoubleClick(editor, 6, 2);
  EXPECT_EQ(NumLiveMembers(editor.Document), 1);
  DoubleClick(editor, 2, 2);
  EXPECT_EQ(NumLiveSupports(editor.Document), 1);
  EXPECT_EQ(NumActiveForces(editor.Document), 1);
}

TEST(DoubleClick, TurnsASupportOnceAndSingleClicksTurnItEachTime) {
  Editor editor(TrussBuilder().Roller(5, 5));
  editor.Use(Tool::ReOrientation);
  DoubleClick(editor, 5, 5);
  EXPECT_EQ(editor.Document.Supports[1].TypeIndex, 6);
  editor.Click(5, 5);
  editor.Click(5, 5);
  EXPECT_EQ(editor.Document.Supports[1].TypeIndex, 8);
}

TEST(DoubleClick, LeavesWhatTheFirstClickHasSelected) {
  Editor editor(TrussBuilder().Member(2, 2, 9, 2));
  editor.Use(Tool::NumericalValue);
  DoubleClick(editor, 6, 2);
  EXPECT_TRUE(editor.HandlesAreShown());
  EXPECT_EQ(editor.Picture.OpenPanel, ValuePanel::Member);
}

TEST(DoubleClick, MayBeginADragWithTheToolsThatDrag) {
  Editor editor(TrussBuilder().Member(2, 2, 9, 2));
  editor.Use(Tool::Move);
  editor.Click(9, 2);
  editor.Mouse.MouseDoubleClick(MouseButton::Left, Editor::Px(9), Editor::Py(2));
  EXPECT_EQ(editor.Mouse.ActionCode(), 2);
  editor.Release(9, 6);
  EXPECT_THAT(EndsOf(editor.Document.Members[1]), testing::ElementsAre(2, 2, 9, 6));

  editor.Use(Tool::TrussMember);
  editor.Click(2, 2);
  editor.Mouse.MouseDoubleClick(MouseButton::Left, Editor::Px(2), Editor::Py(2));
  editor.Release(2, 6);
  EXPECT_EQ(editor.Document.NumMembers, 2);
}

TEST(DoubleClick, WhoseFirstReleaseWasLostPlacesOneSupportToo) {
  Editor editor;
  editor.Use(Tool::Clamp);
  editor.Press(2, 2);
  editor.Mouse.MouseDoubleClick(MouseButton::Left, Editor::Px(2), Editor::Py(2));
  editor.Release(2, 2);
  EXPECT_EQ(editor.Document.NumSupports, 1);
  EXPECT_FALSE(editor.Mouse.IsDragging());
}

TEST(DoubleClick, WithASecondButtonAbandonsADragLikeAnyPressOfIt) {
  Editor editor;
  editor.Use(Tool::Clamp);
  editor.Press(2, 2);
  editor.Mouse.MouseDoubleClick(MouseButton::Other, Editor::Px(2), Editor::Py(2));
  EXPECT_FALSE(editor.Mouse.IsDragging());
  EXPECT_EQ(editor.Document.NumSupports, 0);
}

// Also where the keyboard holds it.
TEST(DoubleClick, InADragIsAPressLikeAnyOther) {
  const auto dragHalfway = [](Editor& editor, Tool tool, bool byKeys) {
    editor.Use(tool);
    if (byKeys) {
      editor.Mouse.KeyDown(Editor::Px(2), Editor::Py(2));
    } else {
      editor.Press(2, 2);
      editor.Move(4, 4);
    }
  };
  for (const auto& [tool, byKeys] : {std::pair(Tool::TrussMember, false), std::pair(Tool::TrussMember, true),
                                     std::pair(Tool::Clamp, true), std::pair(Tool::Roller, true)}) {
    Editor pressed;
    Editor clickedTwice;
    dragHalfway(pressed, tool, byKeys);
    dragHalfway(clickedTwice, tool, byKeys);
    pressed.Press(4, 4);
    clickedTwice.Mouse.MouseDoubleClick(MouseButton::Left, Editor::Px(4), Editor::Py(4));
    EXPECT_EQ(clickedTwice.Mouse.IsDragging(), pressed.Mouse.IsDragging());
    EXPECT_EQ(Everything(clickedTwice.Document), Everything(pressed.Document));
  }
}
