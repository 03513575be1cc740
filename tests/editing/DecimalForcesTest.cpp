// Forces drawn on decimal grids: the components are the decimals that are meant, wherever the force stands,
// so that opposite forces cancel to the last digit.
#include <cmath>

#include "EditingFixture.h"
#include "analysis/Analysis.h"
#include "editing/KeyboardCursor.h"

namespace {

// A grid whose numbers are whole thousandths, on a canvas of 100 pixels to the unit.
struct GridCase {
  int Spacing, Minimum;  // thousandths
  int ForceScale;        // tenths
};

float InUnits(int thousandths) { return static_cast<float>(thousandths / 1000.0); }

// The single next to a length of whole thousandths times a force scale of whole tenths.
float ForceOf(int thousandths, int tenths) { return static_cast<float>(thousandths * tenths / 10000.0); }

Truss EmptyOn(const GridCase& grid) {
  Truss truss = TrussBuilder();
  truss.Settings.XMin = InUnits(grid.Minimum);
  truss.Settings.XMax = InUnits(grid.Minimum + 4000);
  truss.Settings.YMin = InUnits(grid.Minimum / 10);
  truss.Settings.GridX = truss.Settings.GridY = InUnits(grid.Spacing);
  truss.Settings.ForceScale = static_cast<float>(grid.ForceScale / 10.0);
  return truss;
}

class GridUser {
 public:
  explicit GridUser(const GridCase& grid) : Canvas(EmptyOn(grid)), grid_(grid) {}

  PixelPoint At(int column, int row) const {
    return {48 + static_cast<float>(column * grid_.Spacing) / 10,
            270 - static_cast<float>(row * grid_.Spacing) / 10};
  }

  void Drag(PixelPoint from, PixelPoint to) {
    Canvas.Mouse.MouseDown(MouseButton::Left, from.X, from.Y);
    Canvas.Mouse.MouseMove(true, (from.X + to.X) / 2, (from.Y + to.Y) / 2);
    Canvas.Mouse.MouseUp(MouseButton::Left, to.X, to.Y);
  }

  void Draw(Tool tool, PixelPoint from, PixelPoint to) {
    Canvas.Use(tool);
    Drag(from, to);
  }

  void ExpectForce(int steps, int stepsUp) const {
    const ForceRec& force = Canvas.Document.Forces[Canvas.Document.NumForces];
    EXPECT_TRUE(force.Active);
    EXPECT_EQ(force.Fx, ForceOf(steps * grid_.Spacing, grid_.ForceScale));
    EXPECT_EQ(force.Fy, ForceOf(stepsUp * grid_.Spacing, grid_.ForceScale));
  }

  Editor Canvas;

 private:
  GridCase grid_;
};

std::vector<GridCase> SomeGrids() {
  std::vector<GridCase> grids;
  for (const int spacing : {100, 125, 200, 250, 300}) {
    for (const int minimum : {0, -3700, 50}) {
      for (const int scale : {10, 100, 10000, 2500, 3}) grids.push_back({spacing, minimum, scale});
    }
  }
  return grids;
}

void PrintTo(const GridCase& grid, std::ostream* out) {
  *out << "grid of " << grid.Spacing << " from " << grid.Minimum << ", scale " << grid.ForceScale << "/10";
}

using OnEveryGrid = testing::TestWithParam<GridCase>;
INSTANTIATE_TEST_SUITE_P(DecimalForces, OnEveryGrid, testing::ValuesIn(SomeGrids()));

}  // namespace

TEST(DecimalForces, SevenTenthsOutwardAtBothEndsOfATieAreSevenHundredAndATieIsConsistent) {
  for (int column = 8; column <= 14; ++column) {
    GridUser user({.Spacing = 100, .Minimum = 0, .ForceScale = 10000});
    user.Draw(Tool::TrussMember, user.At(column, 5), user.At(column + 9, 5));
    user.Draw(Tool::Force, user.At(column, 5), user.At(column - 7, 5));
    user.Draw(Tool::Force, user.At(column + 9, 5), user.At(column + 16, 5));
    EXPECT_EQ(user.Canvas.Document.Forces[1].Fx, -700);
    EXPECT_EQ(user.Canvas.Document.Forces[2].Fx, 700);
    EXPECT_EQ(SolveTruss(user.Canvas.Document).Reading.Code, Outcome::Redundant) << "column " << column;
  }
}

TEST_P(OnEveryGrid, OppositeForcesAtTheEndsOfAMemberAreExactlyOpposite) {
  for (int steps = 2; steps <= 4; ++steps) {
    GridUser user(GetParam());
    user.Draw(Tool::TrussMember, user.At(3, 1), user.At(9, 4));
    user.Draw(Tool::Force, user.At(3, 1), user.At(3 - steps, 1));
    user.ExpectForce(-steps, 0);
    user.Draw(Tool::Force, user.At(9, 4), user.At(9 + steps, 4));
    user.ExpectForce(steps, 0);
    user.Draw(Tool::Force, user.At(3, 1), user.At(3, 1 + steps));
    user.ExpectForce(0, steps);
    user.Draw(Tool::Force, user.At(9, 4), user.At(9 - steps, 4 - steps));
    user.ExpectForce(-steps, -steps);
  }
}

TEST_P(OnEveryGrid, AForceBetweenTwoPointsOfTheGridOrTwoObjectsIsAsLongAsTheyAreApart) {
  GridUser user(GetParam());
  user.Draw(Tool::Force, user.At(9, 3), user.At(2, 6));
  user.ExpectForce(-7, 3);
  user.Draw(Tool::TrussMember, user.At(3, 2), user.At(7, 5));
  user.Draw(Tool::Force, user.At(3, 2), user.At(7, 5));
  user.ExpectForce(4, 3);
  user.Canvas.Document.Settings.SnapGrid = false;
  user.Draw(Tool::Force, user.At(7, 5), user.At(3, 2));
  user.ExpectForce(-4, -3);
}

TEST_P(OnEveryGrid, AHeadThatIsDraggedLaterGivesTheSameForce) {
  GridUser user(GetParam());
  user.Draw(Tool::Force, user.At(9, 3), user.At(4, 3));
  user.Canvas.Use(Tool::Move);
  const PixelPoint middle{(user.At(9, 3).X + user.At(4, 3).X) / 2, user.At(9, 3).Y};
  user.Canvas.ClickPixel(middle.X, middle.Y);
  user.Drag(user.At(4, 3), user.At(6, 6));
  user.ExpectForce(-3, 3);
}

TEST_P(OnEveryGrid, TheKeyboardDrawsTheSameForce) {
  GridUser user(GetParam());
  KeyboardCursor cursor(user.Canvas.Mouse, user.Canvas.Document, user.Canvas.Picture);
  user.Canvas.Use(Tool::Force);
  cursor.FollowMouse(user.At(8, 3).X, user.At(8, 3).Y);
  cursor.PressOrRelease();
  for (int step = 0; step < 3; ++step) cursor.Move(ArrowKey::Left, false);
  cursor.Move(ArrowKey::Up, false);
  cursor.PressOrRelease();
  user.ExpectForce(-3, 1);
}

TEST(DecimalForces, WhatStandsBesideTheGridIsTakenByItsOwnDecimals) {
  Truss truss = TrussBuilder().Member(0.97F, 0.33F, 2.41F, 1.28F);
  truss.Settings = EmptyOn({.Spacing = 100, .Minimum = 0, .ForceScale = 10000}).Settings;
  Editor editor(truss);
  editor.Use(Tool::Force);
  const auto drag = [&editor](float x1, float y1, float x2, float y2) {
    editor.Mouse.MouseDown(MouseButton::Left, 48 + 100 * x1, 270 - 100 * y1);
    editor.Mouse.MouseUp(MouseButton::Left, 48 + 100 * x2, 270 - 100 * y2);
    return editor.Document.Forces[editor.Document.NumForces];
  };
  const ForceRec toGrid = drag(0.97F, 0.33F, 1.7F, 0.9F);
  EXPECT_EQ(toGrid.Fx, 730);
  EXPECT_EQ(toGrid.Fy, 570);
  const ForceRec toObject = drag(0.97F, 0.33F, 2.41F, 1.28F);
  EXPECT_EQ(toObject.Fx, 1440);
  EXPECT_EQ(toObject.Fy, 950);
}

TEST(DecimalForces, WithoutSnappingArrowsOfTheSamePixelsAreTheSameForce) {
  Truss truss = EmptyOn({.Spacing = 100, .Minimum = -3700, .ForceScale = 10000});
  truss.Settings.SnapGrid = truss.Settings.SnapObject = false;
  truss.Settings.XMax = 3.3F;  // a pixel is no decimal length
  Editor editor(truss);
  editor.Use(Tool::Force);
  const auto drag = [&editor](float x, float y, float dx, float dy) {
    editor.Mouse.MouseDown(MouseButton::Left, x, y);
    editor.Mouse.MouseUp(MouseButton::Left, x + dx, y + dy);
    return editor.Document.Forces[editor.Document.NumForces];
  };
  const ForceRec first = drag(101, 133, 57, 31);
  EXPECT_EQ(first.Fx, static_cast<float>(57 * 7000.0 / 400));
  for (float x = 150; x < 350; x += 7) {
    const ForceRec same = drag(x, 200, 57, 31);
    EXPECT_EQ(same.Fx, first.Fx) << x;
    EXPECT_EQ(same.Fy, first.Fy) << x;
    const ForceRec opposite = drag(x, 200, -57, -31);
    EXPECT_EQ(opposite.Fx, -first.Fx) << x;
    EXPECT_EQ(opposite.Fy, -first.Fy) << x;
    EXPECT_EQ(drag(x, 111, 40, 0).Fy, 0);
  }
}

TEST(DecimalForces, AHeadDraggedAlongALineKeepsTheForceOnIt) {
  Truss truss = EmptyOn({.Spacing = 100, .Minimum = 0, .ForceScale = 10000});
  truss.Settings.SnapGrid = truss.Settings.SnapObject = false;
  Editor editor(truss);
  editor.Use(Tool::Force);
  editor.Mouse.MouseDown(MouseButton::Left, 111, 177);
  editor.Mouse.MouseUp(MouseButton::Left, 161, 177);
  editor.Use(Tool::Move);
  editor.ClickPixel(140, 177);
  editor.Mouse.MouseDown(MouseButton::Left, 161, 177);
  editor.Mouse.MouseUp(MouseButton::Left, 202, 177);
  EXPECT_EQ(editor.Document.Forces[1].Fy, 0);
  EXPECT_FLOAT_EQ(editor.Document.Forces[1].Fx, 910);
}
