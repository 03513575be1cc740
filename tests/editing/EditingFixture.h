// A canvas to edit on, without a window: 20 pixels to the world unit, the origin at (48, 270), a grid of half
// a unit. Presses and moves are given in world units, and in pixels where a tolerance is tested.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "canvas/RedrawTruss.h"
#include "document/JointList.h"
#include "document/Labels.h"
#include "editing/MouseEditing.h"
#include "support/FakeMessageBox.h"
#include "support/RecordingSurface.h"
#include "support/TrussBuilder.h"

// A surface that keeps the exclusive-or lines apart: what is there an even number of times is not there.
class BandSurface : public RecordingSurface {
 public:
  void Clear() override {
    RecordingSurface::Clear();
    Standing.clear();
  }
  void LineTo(float x, float y) override {
    RecordingSurface::LineTo(x, y);
    if (CurrentPen != Pen::ExclusiveOr) return;
    const DrawnLine line = Lines.back();
    Strokes.push_back(line);
    if (++Standing[{{line.X1, line.Y1}, {line.X2, line.Y2}}] % 2 == 0) {
      Standing.erase({{line.X1, line.Y1}, {line.X2, line.Y2}});
    }
  }

  std::vector<DrawnLine> Strokes;  ///< every exclusive-or line drawn
  std::map<std::pair<std::pair<float, float>, std::pair<float, float>>, int> Standing;
};

// Writes down what it is told, and says on the drawing that its panel is open.
class FakeValueEditor : public ValueEditorHost {
 public:
  explicit FakeValueEditor(Drawing& drawing) : drawing_(drawing) {}
  void OpenForMember(int member, float t) override {
    Calls.push_back("member " + std::to_string(member) + (t > 0.5F ? " end 2" : " end 1"));
    drawing_.OpenPanel = ValuePanel::Member;
  }
  void OpenForForce(int force) override {
    Calls.push_back("force " + std::to_string(force));
    drawing_.OpenPanel = ValuePanel::Force;
  }
  void Refresh() override { ++Refreshed; }

  std::vector<std::string> Calls;
  int Refreshed = 0;

 private:
  Drawing& drawing_;
};

class Editor {
 public:
  explicit Editor(const Truss& truss = TrussBuilder()) : Document(truss) {
    Document.Settings.RulersOn = false;
    Document.Settings.GridOn = false;
    Redraw();
  }
  Editor(const Editor&) = delete;
  Editor& operator=(const Editor&) = delete;

  void Redraw() {
    Document.View = DeriveView(Document.Settings, Context.Bounds);
    EXPECT_TRUE(RedrawTruss(Document, Picture, Paper, Context, Messages));
    ++Redraws;
  }

  static float Px(float worldX) { return 48 + 20 * worldX; }
  static float Py(float worldY) { return 270 - 20 * worldY; }

  // World units.
  void Press(float x, float y) { Mouse.MouseDown(MouseButton::Left, Px(x), Py(y)); }
  void Move(float x, float y) { Mouse.MouseMove(true, Px(x), Py(y)); }
  void Hover(float x, float y) { Mouse.MouseMove(false, Px(x), Py(y)); }
  void Release(float x, float y) { Mouse.MouseUp(MouseButton::Left, Px(x), Py(y)); }
  void Click(float x, float y) {
    Press(x, y);
    Release(x, y);
  }
  void Drag(float x1, float y1, float x2, float y2) {
    Press(x1, y1);
    Move((x1 + x2) / 2, (y1 + y2) / 2);
    Move(x2, y2);
    Release(x2, y2);
  }

  // Pixels.
  void ClickPixel(float x, float y) {
    Mouse.MouseDown(MouseButton::Left, x, y);
    Mouse.MouseUp(MouseButton::Left, x, y);
  }

  void Use(Tool tool) { Mouse.SelectTool(static_cast<int>(tool)); }

  std::optional<SnappedPoint> Snap(float x, float y, int selfObject = 0) const {
    return OKLocation(Document, Picture, selfObject, x, y);
  }
  Selection Hit(float x, float y) const { return ObjectAt(Document, Picture, x, y); }

  bool HandlesAreShown() const { return Picture.MoveHandleB.Visible && Picture.MoveHandleS.Visible; }
  PixelPoint BigHandle() const { return {Picture.MoveHandleB.Left + 4, Picture.MoveHandleB.Top + 4}; }
  PixelPoint SmallHandle() const { return {Picture.MoveHandleS.Left + 3, Picture.MoveHandleS.Top + 3}; }

  Truss Document;
  Drawing Picture;
  BandSurface Paper;
  FakeMessageBox Messages;
  ToolPalette Tools;
  FakeValueEditor Values{Picture};
  CanvasContext Context{.Bounds = {.PixL = 48, .PixR = 448, .PixT = 70, .PixB = 270},
                        .Numbers = {},
                        .Measure = RecordingSurface::Measure};
  int Redraws = 0;
  int Shows = 0;
  NumberFormat Numbers;
  EditingContext Partners{
      .Document = Document,
      .Picture = Picture,
      .Tools = Tools,
      .Messages = Messages,
      .ValueEditor = Values,
      .Numbers = Numbers,
      .Redraw = [this] { Redraw(); },
      .ShowDrawing = [this] { ++Shows; },
      .PaintBacking = [this](const auto& paint) { paint(Paper); },
      .IsOnCanvas = [](float x, float y) { return x >= 0 && y >= 46 && x < 500 && y < 303; }};
  MouseEditing Mouse{Partners};
};

inline void PrintTo(const PixelPoint& point, std::ostream* out) {
  *out << "(" << point.X << ", " << point.Y << ")";
}

// A member as four numbers, for comparing.
inline std::vector<float> EndsOf(const MemberRec& member) {
  return {member.X1, member.Y1, member.X2, member.Y2};
}

// Everything of a truss that an abandoned drag must leave alone, as one text.
inline std::string Everything(const Truss& truss) {
  std::string text;
  const auto add = [&text](auto... values) { ((text += std::to_string(values) + ' '), ...); };
  for (const MemberRec& r : truss.MembersInUse()) {
    add(r.X1, r.Y1, r.X2, r.Y2, r.NameLabel1, r.NameLabel2, r.ArrowLine1, r.ArrowLine2, int{r.Live});
  }
  for (const SupportRec& r : truss.SupportsInUse()) {
    add(r.TypeIndex, r.X, r.Y, r.NameLabel1, r.NameLabel2, r.ArrowLine1, r.ArrowLine2, int{r.Live});
  }
  for (const ForceRec& r : truss.ForcesInUse()) add(r.X, r.Y, r.Fx, r.Fy, int{r.Active});
  for (const JointRec& r : truss.JointsInUse()) add(r.X, r.Y, r.NameLabel);
  for (const NameLabel& label : truss.Labels.First(truss.NumLabels)) text += label.Caption + label.Tag + '/';
  for (const std::string& tag : truss.ArrowLineTags.First(truss.NumArrowLines)) text += tag + ',';
  return text;
}
