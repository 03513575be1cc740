// Where something can be dropped: on the canvas, and not on what covers it. Anything else that is released is
// abandoned, or goes back to where it was.
#include "EditingFixture.h"

namespace {

// Pixels under the step panel, and beside the canvas on each side.
const std::vector<PixelPoint> NoPlaces = {{200, 45},  {200, 2},   {200, -30}, {-1, 200},
                                          {500, 200}, {700, 200}, {200, 303}};

// A member with a force and a support at its ends.
Truss Some() { return TrussBuilder().Member(2, 2, 9, 2).Force(9, 2, 0, 3000).Clamp(2, 2); }

// What a tool has picked up before it is dropped.
struct Grabbed {
  const char* What;
  Tool With;
  std::optional<PixelPoint> Select;  // a click before the press
  PixelPoint Press;
};

const std::vector<Grabbed> AllDrags = {
    {"a new member", Tool::TrussMember, {}, {Editor::Px(9), Editor::Py(2)}},
    {"a new force", Tool::Force, {}, {Editor::Px(2), Editor::Py(2)}},
    {"a new clamp", Tool::Clamp, {}, {Editor::Px(5), Editor::Py(5)}},
    {"a new roller", Tool::Roller, {}, {Editor::Px(9), Editor::Py(2)}},
    {"a support", Tool::Move, {}, {Editor::Px(2), Editor::Py(2)}},
    {"the end of a member",
     Tool::Move,
     PixelPoint{Editor::Px(6), Editor::Py(2)},
     {Editor::Px(9), Editor::Py(2)}},
    {"the head of a force",
     Tool::Move,
     PixelPoint{Editor::Px(9), Editor::Py(4)},
     {Editor::Px(9), Editor::Py(5)}},
};

}  // namespace

TEST(Dropping, BesideTheCanvasOrOnAPanelEverythingIsAsBeforeThePress) {
  for (const Grabbed& grabbed : AllDrags) {
    for (const PixelPoint& place : NoPlaces) {
      SCOPED_TRACE(std::string(grabbed.What) + testing::PrintToString(place));
      Editor editor(Some());
      editor.Use(grabbed.With);
      const std::string before = Everything(editor.Document);
      const auto pictures = editor.Picture.Support;
      if (grabbed.Select) editor.ClickPixel(grabbed.Select->X, grabbed.Select->Y);
      editor.Mouse.MouseDown(MouseButton::Left, grabbed.Press.X, grabbed.Press.Y);
      EXPECT_TRUE(editor.Mouse.IsDragging());
      editor.Mouse.MouseMove(true, 300, 120);
      editor.Mouse.MouseMove(true, place.X, place.Y);
      editor.Mouse.MouseUp(MouseButton::Left, place.X, place.Y);
      EXPECT_FALSE(editor.Mouse.IsDragging());
      EXPECT_EQ(Everything(editor.Document), before);
      EXPECT_EQ(editor.Picture.Support.Size(), pictures.Size());
      EXPECT_EQ(editor.Picture.Support[1], pictures[1]);
      EXPECT_EQ(editor.Picture.Rod.Size(), 1);
      EXPECT_EQ(editor.Picture.Rod[1],
                (PixelLine{Editor::Px(2), Editor::Py(2), Editor::Px(9), Editor::Py(2)}));
      EXPECT_TRUE(editor.Paper.Standing.empty());
      EXPECT_TRUE(editor.Messages.Shown.empty());
      EXPECT_EQ(editor.HandlesAreShown(), grabbed.Select.has_value());
    }
  }
}

TEST(Dropping, OnTheCanvasEverythingIsDroppedAlsoAtItsEdges) {
  for (const Grabbed& grabbed : AllDrags) {
    for (const PixelPoint& place : {PixelPoint{300, 120}, {0, 46}, {499.5F, 302.5F}}) {
      SCOPED_TRACE(std::string(grabbed.What) + testing::PrintToString(place));
      Editor editor(Some());
      editor.Use(grabbed.With);
      const std::string before = Everything(editor.Document);
      if (grabbed.Select) editor.ClickPixel(grabbed.Select->X, grabbed.Select->Y);
      editor.Mouse.MouseDown(MouseButton::Left, grabbed.Press.X, grabbed.Press.Y);
      // A way over the panel takes nothing away.
      editor.Mouse.MouseMove(true, 200, 20);
      editor.Mouse.MouseMove(true, place.X, place.Y);
      editor.Mouse.MouseUp(MouseButton::Left, place.X, place.Y);
      EXPECT_NE(Everything(editor.Document), before);
    }
  }
}

TEST(Dropping, ADraggedSupportIsShownAtHomeWhereItCannotBeDropped) {
  Editor editor(Some());
  editor.Use(Tool::Move);
  const PixelPoint home = editor.Picture.Support[1];
  editor.Press(2, 2);
  editor.Move(6, 6);
  EXPECT_NE(editor.Picture.Support[1], home);
  editor.Mouse.MouseMove(true, 200, 20);
  EXPECT_EQ(editor.Picture.Support[1], home);
}
