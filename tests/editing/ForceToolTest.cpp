// Drawing forces, with the rubber band that leaves no trace.
#include <cmath>
#include <limits>

#include "EditingFixture.h"
#include "editing/ForceDrawing.h"

TEST(ForceTool, ADragMakesAForce) {
  Editor editor(TrussBuilder().Member(1, 1, 9, 1));
  editor.Use(Tool::Force);
  editor.Drag(9, 1, 9, 3);
  ASSERT_EQ(editor.Document.NumForces, 1);
  const ForceRec& force = editor.Document.Forces[1];
  EXPECT_TRUE(force.Active);
  EXPECT_EQ(force.X, 9);
  EXPECT_EQ(force.Y, 1);
  EXPECT_EQ(force.Fx, 0);
  EXPECT_EQ(force.Fy, 2000);
  EXPECT_EQ(force.PixX2, Editor::Px(9));
  EXPECT_EQ(force.PixY2, Editor::Py(3));
}

TEST(ForceTool, TheForceScaleTurnsLengthIntoForce) {
  Truss truss = TrussBuilder();
  truss.Settings.ForceScale = 250;
  Editor editor(truss);
  editor.Use(Tool::Force);
  editor.Drag(2, 2, 5, 1);
  EXPECT_EQ(editor.Document.Forces[1].Fx, 750);
  EXPECT_EQ(editor.Document.Forces[1].Fy, -250);
  EXPECT_EQ(editor.Document.Forces[1].PixX2, Editor::Px(5));
}

TEST(ForceTool, ThePressAddsARecordThatIsNotActiveYet) {
  Editor editor;
  editor.Use(Tool::Force);
  editor.Press(2, 2);
  EXPECT_EQ(editor.Document.NumForces, 1);
  EXPECT_FALSE(editor.Document.Forces[1].Active);
  EXPECT_TRUE(editor.Paper.Strokes.empty());
}

TEST(ForceTool, AClickWithoutADragLeavesNothing) {
  Editor editor(TrussBuilder().Member(1, 1, 9, 1));
  editor.Use(Tool::Force);
  const std::string before = Everything(editor.Document);
  editor.Click(9, 1);
  EXPECT_EQ(Everything(editor.Document), before);
  EXPECT_TRUE(editor.Messages.Shown.empty());
}

TEST(ForceTool, AForceReleasedOnItsTailIsDroppedSilently) {
  Editor editor(TrussBuilder().Member(1, 1, 9, 1));
  editor.Use(Tool::Force);
  editor.Press(9, 1);
  editor.Move(9, 4);
  editor.Release(9.3F, 1.3F);
  EXPECT_EQ(editor.Document.NumForces, 0);
  EXPECT_TRUE(editor.Paper.Standing.empty());
  EXPECT_TRUE(editor.Messages.Shown.empty());
}

TEST(ForceTool, TheRubberBandIsDrawnTwiceAtEveryPosition) {
  Editor editor;
  editor.Use(Tool::Force);
  editor.Press(2, 2);
  editor.Move(4, 2);
  EXPECT_EQ(editor.Paper.Standing.size(), 4U);
  editor.Move(4, 3);
  editor.Move(4.1F, 3.1F);  // the same grid point: nothing to draw
  editor.Move(2, 2);        // on the tail there is no arrow
  EXPECT_TRUE(editor.Paper.Standing.empty());
  editor.Move(6, 6);
  EXPECT_EQ(editor.Paper.Standing.size(), 4U);
  editor.Paper.Lines.clear();
  editor.Release(6, 6);
  EXPECT_TRUE(editor.Paper.Standing.empty());

  // Three positions with an arrow of four lines, twice each.
  EXPECT_EQ(editor.Paper.Strokes.size(), 24U);
  std::map<std::pair<float, float>, int> shafts;
  for (const DrawnLine& line : editor.Paper.Strokes) {
    EXPECT_EQ(line.Width, 2);
    EXPECT_EQ(line.Colour, 8);
    if (line.X1 == 88 && line.Y1 == 230) ++shafts[{line.X2, line.Y2}];
  }
  EXPECT_THAT(shafts, testing::ElementsAre(testing::Pair(std::pair(128.0F, 210.0F), 2),
                                           testing::Pair(std::pair(128.0F, 230.0F), 2),
                                           testing::Pair(std::pair(168.0F, 150.0F), 2)));
  EXPECT_EQ(editor.Paper.CurrentPen, Pen::Copy);
  // The last arrow is gone before the force is drawn as every redraw draws it.
  EXPECT_EQ(editor.Paper.Lines.back().Colour, 12);
  EXPECT_EQ(editor.Paper.Lines.back().Width, 2);
}

TEST(ForceTool, ComponentsThatNoNumberHoldsAreRefusedQuietly) {
  Truss truss = TrussBuilder();
  truss.Settings.ForceScale = std::numeric_limits<float>::max();
  Editor editor(truss);
  editor.Use(Tool::Force);
  editor.Drag(2, 2, 9, 2);
  EXPECT_EQ(editor.Document.NumForces, 0);
  editor.Document.Settings.ForceScale = 0;
  editor.Drag(2, 2, 9, 2);
  EXPECT_EQ(editor.Document.NumForces, 0);
  EXPECT_TRUE(editor.Messages.Shown.empty());
  EXPECT_TRUE(editor.Paper.Standing.empty());
}

TEST(ForceTool, TheRecordOfAnErasedForceStays) {
  Editor editor(TrussBuilder().Force(2, 2, 1000, 0).ThenErased());
  editor.Use(Tool::Force);
  editor.Drag(2, 2, 4, 2);
  EXPECT_EQ(editor.Document.NumForces, 2);
  EXPECT_FALSE(editor.Document.Forces[1].Active);
  EXPECT_EQ(NumActiveForces(editor.Document), 1);
}

TEST(ComponentsBetween, AreNoneThatNoNumberHolds) {
  const auto at = [](float x, float y) {
    return SnappedPoint{{x, y}, x, y, ExactDecimal::Of(x), ExactDecimal::Of(y)};
  };
  const auto between = [&](float x, float y, float scale) {
    const auto components = ComponentsBetween(at(1, 1), at(1 + x, 1 + y), scale);
    return components ? std::optional(std::pair(components->Fx, components->Fy)) : std::nullopt;
  };
  EXPECT_EQ(between(2, -4, 100), std::pair(200.0F, -400.0F));
  EXPECT_EQ(between(0, 4, 100), std::pair(0.0F, 400.0F));
  for (const float scale :
       {std::numeric_limits<float>::infinity(), std::numeric_limits<float>::quiet_NaN()}) {
    EXPECT_EQ(between(2, -4, scale), std::nullopt);
  }
  EXPECT_EQ(between(2, 0, 3e38F), std::nullopt);
  EXPECT_EQ(between(0.5F, 2, 3e38F), std::nullopt);
  EXPECT_EQ(between(2, -4, 0), std::nullopt);
  EXPECT_EQ(between(0, 0, 100), std::nullopt);
}
