// A Warren truss drawn with nothing but the mouse equals the example file and solves like it.
#include "EditingFixture.h"
#include "analysis/Analysis.h"
#include "analysis/Classification.h"
#include "document/TrussFile.h"

namespace {

struct DrawnTruss : Editor {
  DrawnTruss() {
    Example.View = {};
    EXPECT_EQ(ReadTruss(Example, Context.Bounds, ORVANE_EXAMPLES_DIR "/warren.trs"), std::nullopt);
    Document.Settings = Example.Settings;
    Redraw();
  }

  PixelPoint At(float x, float y) const { return {Picture.Mapping.XPixel(x), Picture.Mapping.YPixel(y)}; }

  // A few pixels beside the points: snapping does the rest.
  void DragNear(float x1, float y1, float x2, float y2) {
    const PixelPoint from = At(x1, y1);
    const PixelPoint to = At(x2, y2);
    Mouse.MouseDown(MouseButton::Left, from.X + 2, from.Y - 3);
    Mouse.MouseMove(true, (from.X + to.X) / 2, (from.Y + to.Y) / 2);
    Mouse.MouseMove(true, to.X - 3, to.Y + 2);
    Mouse.MouseUp(MouseButton::Left, to.X - 3, to.Y + 2);
  }
  void ClickNear(float x, float y) { ClickPixel(At(x, y).X + 3, At(x, y).Y + 3); }

  void TakeNamesOf(const Truss& other) {
    const auto name = [&](LabelIndex label, LabelIndex from) {
      Document.Labels[label].Caption = other.Name(from);
    };
    for (int i = 1; i <= other.NumMembers; ++i) {
      name(Document.Members[i].NameLabel1, other.Members[i].NameLabel1);
      name(Document.Members[i].NameLabel2, other.Members[i].NameLabel2);
    }
    name(Document.Supports[1].NameLabel1, other.Supports[1].NameLabel1);
    name(Document.Supports[1].NameLabel2, other.Supports[1].NameLabel2);
    name(Document.Supports[2].NameLabel1, other.Supports[2].NameLabel1);
    for (const JointRec& joint : Document.JointsInUse()) {
      for (const JointRec& its : other.JointsInUse()) {
        if (joint.X == its.X && joint.Y == its.Y) name(joint.NameLabel, its.NameLabel);
      }
    }
  }

  Truss Example;
};

}  // namespace

TEST(WholeTruss, AWarrenTrussDrawnByHandEqualsTheExampleAndItsSolution) {
  DrawnTruss drawn;
  Truss& example = drawn.Example;
  drawn.Use(Tool::TrussMember);
  for (const MemberRec& member : example.MembersInUse()) {
    drawn.DragNear(member.X1, member.Y1, member.X2, member.Y2);
  }
  drawn.Use(Tool::Clamp);
  drawn.ClickNear(0, 0);
  drawn.Use(Tool::Roller);
  drawn.ClickNear(24, 0);
  drawn.Use(Tool::Force);
  for (const float x : {6.0F, 12.0F, 18.0F}) drawn.DragNear(x, 0, x, -2);
  ASSERT_EQ(drawn.Document.NumMembers, 15);
  ASSERT_EQ(drawn.Document.NumSupports, 2);
  drawn.TakeNamesOf(example);
  EXPECT_EQ(TrussText(drawn.Document), TrussText(example));

  const EquationSystem system = SolveTruss(drawn.Document).System;
  const Classification reading = ClassifyRREF(system);
  EXPECT_EQ(reading.Code, Outcome::Neither);
  std::map<std::string, double> force;
  for (int k = 1; k <= system.NumUnknowns(); ++k) {
    ASSERT_TRUE(reading.Values[k].has_value());
    force[system.UnknownList[k].Name] = *reading.Values[k];
  }
  // Three loads of 800 on a span of 24: 1200 at each end; at A the diagonal of slope 4 : 3 carries it.
  EXPECT_NEAR(force["Ay"], 1200, 1e-3);
  EXPECT_NEAR(force["I"], 1200, 1e-3);
  EXPECT_NEAR(force["Ax"], 0, 1e-3);
  EXPECT_NEAR(force["AB"], 1500, 1e-3);
  EXPECT_NEAR(force["AC"], -900, 1e-3);
  EXPECT_NEAR(force["DF"], 2400, 1e-3);

  const EquationSystem expected = SolveTruss(example).System;
  for (int row = 1; row <= expected.EquationMatrix.NumRows(); ++row) {
    EXPECT_THAT(system.EquationMatrix.Row(row), testing::ElementsAreArray(expected.EquationMatrix.Row(row)));
  }
}
