// An abandoned drag: the truss as before the press, and nothing left on the drawing.
#include <functional>

#include "EditingFixture.h"

namespace {

Truss Everyone() {
  return TrussBuilder().Member(1.2F, 1.1F, 9, 1).Member(9, 1, 9, 8).Clamp(13, 6).Force(9, 8, 3000, 0);
}

struct Situation {
  std::string Name;
  std::function<void(Editor&)> DragHalfway;
};

const std::vector<Situation>& Situations() {
  static const std::vector<Situation> situations = {
      {"member pressed",
       [](Editor& editor) {
         editor.Use(Tool::TrussMember);
         editor.Press(2, 5);
       }},
      {"member drawn",
       [](Editor& editor) {
         editor.Use(Tool::TrussMember);
         editor.Press(9, 8);
         editor.Move(4, 4);
       }},
      {"clamp pressed",
       [](Editor& editor) {
         editor.Use(Tool::Clamp);
         editor.Press(4, 4);
       }},
      {"roller dragged",
       [](Editor& editor) {
         editor.Use(Tool::Roller);
         editor.Press(4, 4);
         editor.Move(5, 5);
       }},
      {"force pressed",
       [](Editor& editor) {
         editor.Use(Tool::Force);
         editor.Press(9, 1);
       }},
      {"force drawn",
       [](Editor& editor) {
         editor.Use(Tool::Force);
         editor.Press(9, 1);
         editor.Move(12, 1);
         editor.Move(12, 2);
       }},
      {"member end dragged",
       [](Editor& editor) {
         editor.Use(Tool::Move);
         editor.Click(3, 1.1F);
         editor.Press(1.2F, 1.1F);
         editor.Move(4, 4);
       }},
      {"member end on its other end",
       [](Editor& editor) {
         editor.Use(Tool::NumericalValue);
         editor.Click(9, 7);
         editor.Press(9, 8);
         editor.Move(5, 5);
         editor.Move(9, 1);
       }},
      {"force head dragged",
       [](Editor& editor) {
         editor.Use(Tool::NumericalValue);
         editor.Click(11, 8);
         editor.Press(12, 8);
         editor.Move(12, 5);
         editor.Move(9, 8);
         editor.Move(11, 5);
       }},
      {"support dragged",
       [](Editor& editor) {
         editor.Use(Tool::Move);
         editor.Press(13, 6);
         editor.Move(4, 4);
       }},
  };
  return situations;
}

const std::vector<Situation>& Abandonments() {
  static const std::vector<Situation> ways = {
      {"Escape", [](Editor& editor) { editor.Mouse.Cancel(); }},
      {"second button", [](Editor& editor) { editor.Mouse.MouseDown(MouseButton::Other, 200, 200); }},
      {"tool change", [](Editor& editor) { editor.Use(Tool::Erase); }},
  };
  return ways;
}

}  // namespace

TEST(Cancel, InEveryStateAndWayTheTrussIsAsBeforeThePress) {
  for (const Situation& situation : Situations()) {
    for (const Situation& way : Abandonments()) {
      SCOPED_TRACE(situation.Name + ", " + way.Name);
      Editor editor(Everyone());
      const std::string before = Everything(editor.Document);
      const Drawing drawing = editor.Picture;
      situation.DragHalfway(editor);
      EXPECT_TRUE(editor.Mouse.IsDragging());
      way.DragHalfway(editor);
      EXPECT_FALSE(editor.Mouse.IsDragging());
      EXPECT_EQ(Everything(editor.Document), before);
      EXPECT_TRUE(editor.Paper.Standing.empty());
      EXPECT_EQ(editor.Paper.CurrentPen, Pen::Copy);
      for (int i = 1; i <= 2; ++i) {
        EXPECT_EQ(editor.Picture.Rod[i], drawing.Rod[i]);
        EXPECT_EQ(editor.Picture.Pin1[i], drawing.Pin1[i]);
        EXPECT_EQ(editor.Picture.Pin2[i], drawing.Pin2[i]);
      }
      EXPECT_EQ(editor.Picture.Rod.Size(), 2);
      EXPECT_EQ(editor.Picture.Support.Size(), 1);
      EXPECT_EQ(editor.Picture.Support[1], drawing.Support[1]);

      // What still comes of the drag means nothing.
      editor.Move(7, 7);
      editor.Release(7, 7);
      EXPECT_EQ(Everything(editor.Document), before);
    }
  }
}

TEST(Cancel, ALostReleaseEndsTheDragAtTheNextMove) {
  for (const Situation& situation : Situations()) {
    SCOPED_TRACE(situation.Name);
    Editor editor(Everyone());
    const std::string before = Everything(editor.Document);
    situation.DragHalfway(editor);
    editor.Hover(7, 7);
    EXPECT_FALSE(editor.Mouse.IsDragging());
    EXPECT_TRUE(editor.Paper.Standing.empty());
    // A support was placed by its press; everything else needs its release.
    if (editor.Document.NumSupports == 1) {
      EXPECT_EQ(Everything(editor.Document), before);
    }
  }
}

TEST(Cancel, WithoutADragNothingHappens) {
  Editor editor(Everyone());
  editor.Use(Tool::Move);
  editor.Click(3, 1.1F);
  editor.Mouse.Cancel();
  EXPECT_TRUE(editor.HandlesAreShown());
}

TEST(Cancel, TheSelectionStaysWithItsHandlesInPlace) {
  Editor editor(Everyone());
  editor.Use(Tool::NumericalValue);
  editor.Click(9, 7);
  editor.Press(9, 8);
  editor.Move(5, 5);
  const int refreshed = editor.Values.Refreshed;
  editor.Mouse.Cancel();
  EXPECT_EQ(editor.BigHandle(), (PixelPoint{Editor::Px(9), Editor::Py(8)}));
  EXPECT_EQ(editor.Picture.OpenPanel, ValuePanel::Member);
  EXPECT_EQ(editor.Values.Refreshed, refreshed + 1);
}

TEST(Cancel, ATrussThatWasEmptiedInADragStaysEmpty) {
  for (const Situation& situation : Situations()) {
    SCOPED_TRACE(situation.Name);
    Editor editor(Everyone());
    situation.DragHalfway(editor);
    ResetAll(editor.Document);
    editor.Redraw();
    editor.Move(6, 6);
    editor.Release(6, 6);
    EXPECT_EQ(NumLiveMembers(editor.Document) + NumLiveSupports(editor.Document), 0);
  }
}

TEST(Cancel, OfADragInATrussThatWasEmptiedBringsNothingBack) {
  for (const Situation& situation : Situations()) {
    SCOPED_TRACE(situation.Name);
    Editor editor(Everyone());
    situation.DragHalfway(editor);
    ResetAll(editor.Document);
    editor.Redraw();
    editor.Mouse.Cancel();
    EXPECT_FALSE(editor.Mouse.IsDragging());
    EXPECT_EQ(NumLiveMembers(editor.Document) + NumLiveSupports(editor.Document), 0);
    EXPECT_EQ(NumActiveForces(editor.Document), 0);
  }
}

// The window has become too small for any drawing.
TEST(Cancel, WhereNothingCanBeDrawnAnyMoreADragComesToNothing) {
  for (const Situation& situation : Situations()) {
    SCOPED_TRACE(situation.Name);
    Editor editor(Everyone());
    editor.Redraw();
    const std::string before = Everything(editor.Document);
    situation.DragHalfway(editor);
    if (!editor.Mouse.IsDragging()) continue;
    editor.Picture.Mapping.PixelX2 = editor.Picture.Mapping.PixelX1;
    editor.Move(6, 6);
    editor.Release(6, 6);
    EXPECT_FALSE(editor.Mouse.IsDragging());
    EXPECT_EQ(Everything(editor.Document), before);
  }
}
