// The arrow's shape, painted and placed.
#include "canvas/Arrow.h"

#include <limits>

#include "CanvasFixture.h"

namespace {

void ExpectLine(const PixelLine& line, float x1, float y1, float x2, float y2) {
  EXPECT_NEAR(line.X1, x1, 1e-4);
  EXPECT_NEAR(line.Y1, y1, 1e-4);
  EXPECT_NEAR(line.X2, x2, 1e-4);
  EXPECT_NEAR(line.Y2, y2, 1e-4);
}

ArrowShape Shape(float x1, float y1, float x2, float y2) {
  const auto shape = ArrowGeometry(x1, y1, x2, y2, 10);
  EXPECT_TRUE(shape);
  return shape.value_or(ArrowShape{});
}

}  // namespace

TEST(Arrow, PointsRight) {
  const ArrowShape shape = Shape(100, 50, 150, 50);
  ExpectLine(shape.Shaft, 100, 50, 150, 50);
  ExpectLine(shape.Side1, 150, 50, 140, 52);
  ExpectLine(shape.Base, 140, 52, 140, 48);
  ExpectLine(shape.Side2, 140, 48, 150, 50);
}

TEST(Arrow, PointsLeft) {
  const ArrowShape shape = Shape(150, 50, 100, 50);
  ExpectLine(shape.Side1, 100, 50, 110, 48);
  ExpectLine(shape.Base, 110, 48, 110, 52);
}

TEST(Arrow, PointsDownThePage) {
  const ArrowShape shape = Shape(50, 100, 50, 150);
  ExpectLine(shape.Side1, 50, 150, 48, 140);
  ExpectLine(shape.Base, 48, 140, 52, 140);
}

TEST(Arrow, PointsUpThePage) {
  const ArrowShape shape = Shape(50, 150, 50, 100);
  ExpectLine(shape.Side1, 50, 100, 52, 110);
  ExpectLine(shape.Base, 52, 110, 48, 110);
}

TEST(Arrow, PointsAlongASlope) {
  // Direction (3, 4) / 5 and (-3, 4) / 5; the head is 10 long and 4 wide.
  ExpectLine(Shape(0, 0, 30, 40).Side1, 30, 40, 22.4F, 33.2F);
  ExpectLine(Shape(0, 0, 30, 40).Side2, 25.6F, 30.8F, 30, 40);
  ExpectLine(Shape(0, 0, -30, 40).Side1, -30, 40, -25.6F, 30.8F);
  ExpectLine(Shape(0, 0, -30, 40).Side2, -22.4F, 33.2F, -30, 40);
}

TEST(Arrow, SteeperThanAThousandToOneCountsAsVertical) {
  ExpectLine(Shape(0, 0, 0.0001F, 1).Base, 0.0001F - 2, -9, 0.0001F + 2, -9);
  ExpectLine(Shape(0, 0, -0.0001F, -1).Base, -0.0001F + 2, 9, -0.0001F - 2, 9);
}

TEST(Arrow, AtAThousandToOneItStillLeans) {
  const ArrowShape leaning = Shape(0, 0, 1, 1000);
  EXPECT_LT(leaning.Base.Y1, leaning.Base.Y2 + 0.1F);
  EXPECT_NE(leaning.Base.Y1, leaning.Base.Y2);
  const ArrowShape vertical = Shape(0, 0, 1, 1001);
  EXPECT_EQ(vertical.Base.Y1, vertical.Base.Y2);
}

TEST(Arrow, IsPaintedTipToCornerToCornerToTip) {
  RecordingSurface paper;
  DrawArrow(paper, 100, 50, 150, 50, 2, 10, 12);
  ASSERT_EQ(paper.Lines.size(), 4U);
  for (const DrawnLine& line : paper.Lines) {
    EXPECT_EQ(line.Width, 2);
    EXPECT_EQ(line.Colour, 12);
  }
  EXPECT_EQ(paper.Lines[0], (DrawnLine{100, 50, 150, 50, 2, 12}));
  EXPECT_EQ(paper.Lines[1], (DrawnLine{150, 50, 140, 52, 2, 12}));
  EXPECT_EQ(paper.Lines[2], (DrawnLine{140, 52, 140, 48, 2, 12}));
  EXPECT_EQ(paper.Lines[3], (DrawnLine{140, 48, 150, 50, 2, 12}));
}

TEST(Arrow, LeavesBlackAndAWidthOfOne) {
  RecordingSurface paper;
  paper.SetLineWidth(7);
  paper.SetForeground(9);
  DrawArrow(paper, 0, 0, 30, 40, 2, 12, 12);
  EXPECT_EQ(paper.Colour, 0);
  EXPECT_EQ(paper.Width, 1);
}

TEST(Arrow, WithoutLengthLeavesWidthAndColourUntouched) {
  RecordingSurface paper;
  paper.SetLineWidth(7);
  paper.SetForeground(9);
  DrawArrow(paper, 30, 40, 30, 40, 2, 12, 12);
  EXPECT_TRUE(paper.Order.empty());
  EXPECT_EQ(paper.Colour, 9);
  EXPECT_EQ(paper.Width, 7);
}

TEST(Arrow, WhatIsNoNumberIsNoArrow) {
  RecordingSurface paper;
  DrawArrow(paper, 0, 0, std::numeric_limits<float>::quiet_NaN(), 1, 2, 12, 12);
  DrawArrow(paper, 0, 0, std::numeric_limits<float>::infinity(), 1, 2, 12, 12);
  EXPECT_TRUE(paper.Order.empty());
}

TEST(Arrow, AFarHeadKeepsTheDirectionOfTheShaft) {
  RecordingSurface paper;
  DrawArrow(paper, 0, 0, 3e38F, 3e38F, 2, 12, 12);
  ASSERT_FALSE(paper.Lines.empty());
  EXPECT_EQ(paper.Lines[0], (DrawnLine{0, 0, 1e6F, 1e6F, 2, 12}));
  EXPECT_EQ(paper.Colour, 0);
}

TEST(Arrow, IsPlacedWithFourSegments) {
  Drawing drawing;
  drawing.ArLin.Resize(8);
  ArrowControl(drawing, 8, 100, 50, 150, 50, 10);
  ExpectLine(drawing.ArLin[5].Line, 100, 50, 150, 50);
  ExpectLine(drawing.ArLin[6].Line, 150, 50, 140, 52);
  ExpectLine(drawing.ArLin[7].Line, 140, 48, 150, 50);
  ExpectLine(drawing.ArLin[8].Line, 140, 52, 140, 48);
  EXPECT_EQ(drawing.ArLin[4].Line, PixelLine{});
}

TEST(Arrow, WithoutLengthLeavesItsSegmentsWhereTheyAre) {
  Drawing drawing;
  drawing.ArLin.Resize(4);
  ArrowControl(drawing, 4, 100, 50, 150, 50, 10);
  const PixelLine shaft = drawing.ArLin[1].Line;
  ArrowControl(drawing, 4, 7, 7, 7, 7, 10);
  EXPECT_EQ(drawing.ArLin[1].Line, shaft);
}

TEST(Arrow, ATinyShaftStillHasAWholeHead) { ExpectLine(Shape(0, 0, 1e-30F, 0).Base, -10, 2, -10, -2); }
