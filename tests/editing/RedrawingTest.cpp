// After each change the drawing is the one that a redraw makes.
#include <functional>

#include "EditingFixture.h"

namespace {

struct Change {
  std::string Name;
  std::function<void(Editor&)> Make;
};

// A truss with one of each; (6, 2) and (6, 6) are the middles of its members.
Truss OneOfEach() {
  return TrussBuilder()
      .Member(2, 2, 10, 2)
      .Member(2, 6, 10, 6)
      .Clamp(2, 2)
      .Roller(10, 2)
      .Force(10, 6, 2000, 0);
}

void With(Editor& editor, Tool tool, const std::function<void(Editor&)>& act) {
  editor.Use(tool);
  act(editor);
}

std::vector<Change> AllChanges() {
  const auto click = [](Tool tool, float x, float y) {
    return [=](Editor& editor) { With(editor, tool, [=](Editor& on) { on.Click(x, y); }); };
  };
  const auto drag = [](Tool tool, float x1, float y1, float x2, float y2) {
    return [=](Editor& editor) { With(editor, tool, [=](Editor& on) { on.Drag(x1, y1, x2, y2); }); };
  };
  const auto dragHandle = [](float x, float y, float x1, float y1, float x2, float y2) {
    return [=](Editor& editor) {
      With(editor, Tool::Move, [=](Editor& on) {
        on.Click(x, y);
        on.Drag(x1, y1, x2, y2);
      });
    };
  };
  return {{"a member is drawn", drag(Tool::TrussMember, 2, 2, 6, 9)},
          {"a clamp is placed", click(Tool::Clamp, 6, 6)},
          {"a roller is placed", click(Tool::Roller, 6, 6)},
          {"a force is drawn", drag(Tool::Force, 2, 6, 2, 9)},
          {"a clamp is turned", click(Tool::ReOrientation, 2, 2)},
          {"a roller is turned", click(Tool::ReOrientation, 10, 2)},
          {"a support is moved", drag(Tool::Move, 10, 2, 12, 4)},
          {"an end is moved", dragHandle(3, 6, 2, 6, 3, 8)},
          {"an end is moved onto the other", dragHandle(3, 6, 2, 6, 10, 6)},
          {"a force's head is moved", dragHandle(11, 6, 12, 6, 11, 8)},
          {"a force's head is moved onto its tail", dragHandle(11, 6, 12, 6, 10, 6)},
          {"a member is erased", click(Tool::Erase, 6, 6)},
          {"a force is erased", click(Tool::Erase, 11.5F, 6)},
          {"a support is erased", click(Tool::Erase, 10, 2)}};
}

// What a redraw places, as one text.
std::string Drawn(const Editor& editor) {
  std::string text;
  const auto add = [&text](auto... values) { ((text += std::to_string(values) + ' '), ...); };
  const Drawing& drawing = editor.Picture;
  for (const PixelLine& force : drawing.Force.First(drawing.Force.Size())) {
    add(force.X1, force.Y1, force.X2, force.Y2);
  }
  for (const PixelLine& rod : drawing.Rod.First(drawing.Rod.Size())) add(rod.X1, rod.Y1, rod.X2, rod.Y2);
  for (const PixelPoint& pin : drawing.Pin1.First(drawing.Pin1.Size())) add(pin.X, pin.Y);
  for (const PixelPoint& pin : drawing.Pin2.First(drawing.Pin2.Size())) add(pin.X, pin.Y);
  for (const PixelPoint& place : drawing.Support.First(drawing.Support.Size())) add(place.X, place.Y);
  for (const LabelPlace& label : drawing.lblRodJoint.First(drawing.lblRodJoint.Size())) {
    add(label.Left, label.Top, int{label.Visible});
  }
  for (const ArrowSegment& segment : drawing.ArLin.First(drawing.ArLin.Size())) {
    add(segment.Line.X1, segment.Line.Y1, segment.Line.X2, segment.Line.Y2, int{segment.Visible});
  }
  return text;
}

}  // namespace

TEST(Redrawing, EachChangeEndsWithARedraw) {
  for (const auto& [name, make] : AllChanges()) {
    Editor editor(OneOfEach());
    ShowLabels(editor.Picture, editor.Document);
    const std::string before = Everything(editor.Document);
    const int redraws = editor.Redraws;
    make(editor);
    EXPECT_NE(Everything(editor.Document), before) << name;
    EXPECT_GT(editor.Redraws, redraws) << name;
    const std::string drawn = Drawn(editor);
    editor.Redraw();
    EXPECT_EQ(drawn, Drawn(editor)) << name;
  }
}

TEST(Redrawing, TheArrowsOfATurnedSupportTurnWithIt) {
  Editor editor(TrussBuilder().Roller(10, 2));
  const auto head = [&editor] {
    const PixelLine& shaft = editor.Picture.ArLin[editor.Document.Supports[1].ArrowLine1 - 3].Line;
    return PixelPoint{shaft.X2 - Editor::Px(10), shaft.Y2 - Editor::Py(2)};
  };
  editor.Use(Tool::ReOrientation);
  EXPECT_GT(head().Y, 0);  // from below
  editor.Click(10, 2);
  EXPECT_LT(head().Y, 0);
  editor.Click(10, 2);
  EXPECT_GT(head().X, 0);
  editor.Click(10, 2);
  EXPECT_LT(head().X, 0);
}
