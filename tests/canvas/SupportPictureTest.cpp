// The eight support pictures.
#include "canvas/SupportPicture.h"

#include <algorithm>

#include "support/RecordingSurface.h"

namespace {

PixelPoint MeanOfLines(const std::vector<PictureShape>& picture) {
  PixelPoint sum;
  float count = 0;
  for (const PictureShape& shape : picture) {
    if (shape.Kind != ShapeKind::Line) continue;
    for (const PixelPoint& point : shape.Points) {
      sum = {sum.X + point.X, sum.Y + point.Y};
      ++count;
    }
  }
  return {sum.X / count, sum.Y / count};
}

int NumCircles(std::int16_t type) {
  return static_cast<int>(std::ranges::count(SupportPicture(type), ShapeKind::Circle, &PictureShape::Kind));
}

}  // namespace

TEST(SupportPicture, EveryShapeLiesInTheBox) {
  for (std::int16_t type = 1; type <= 8; ++type) {
    for (const PictureShape& shape : SupportPicture(type)) {
      for (const PixelPoint& point : shape.Points) {
        EXPECT_GE(point.X - shape.Radius, 0) << type;
        EXPECT_LE(point.X + shape.Radius, 32) << type;
        EXPECT_GE(point.Y - shape.Radius, 0) << type;
        EXPECT_LE(point.Y + shape.Radius, 32) << type;
      }
    }
  }
}

TEST(SupportPicture, ThePinIsAtTheCentreAndInFront) {
  for (std::int16_t type = 1; type <= 8; ++type) {
    const PictureShape& pin = SupportPicture(type).back();
    EXPECT_EQ(pin.Kind, ShapeKind::Circle);
    EXPECT_EQ(pin.Points, (std::vector<PixelPoint>{{16, 16}}));
  }
}

TEST(SupportPicture, RollersHaveWheelsAndClampsHaveNone) {
  for (std::int16_t type = 1; type <= 4; ++type) EXPECT_EQ(NumCircles(type), 1);
  for (std::int16_t type = 5; type <= 8; ++type) EXPECT_EQ(NumCircles(type), 3);
}

TEST(SupportPicture, GroundOfAClampLiesWhereThatOfTheRollerFourTypesOnLies) {
  EXPECT_GT(MeanOfLines(SupportPicture(1)).Y, 26);
  EXPECT_LT(MeanOfLines(SupportPicture(2)).Y, 6);
  EXPECT_GT(MeanOfLines(SupportPicture(3)).X, 26);
  EXPECT_LT(MeanOfLines(SupportPicture(4)).X, 6);
}

TEST(SupportPicture, GroundOfARollerLiesOppositeToItsPush) {
  EXPECT_GT(MeanOfLines(SupportPicture(5)).Y, 26);  // pushes up
  EXPECT_LT(MeanOfLines(SupportPicture(6)).Y, 6);   // pushes down
  EXPECT_GT(MeanOfLines(SupportPicture(7)).X, 26);  // pushes left
  EXPECT_LT(MeanOfLines(SupportPicture(8)).X, 6);   // pushes right
}

TEST(SupportPicture, AllEightDiffer) {
  for (std::int16_t a = 1; a <= 8; ++a) {
    for (std::int16_t b = 1; b < a; ++b) {
      RecordingSurface paperA;
      RecordingSurface paperB;
      PaintSupportPicture(paperA, a, 0, 0);
      PaintSupportPicture(paperB, b, 0, 0);
      EXPECT_NE(paperA.Lines, paperB.Lines) << a << " and " << b;
    }
  }
}

TEST(SupportPicture, IsPaintedAtItsPlaceAndSize) {
  RecordingSurface paper;
  PaintSupportPicture(paper, 1, 100, 200);
  EXPECT_EQ(paper.Lines[0], (DrawnLine{104, 227, 128, 227}));
  RecordingSurface twice;
  PaintSupportPicture(twice, 1, 100, 200, 2);
  EXPECT_EQ(twice.Lines[0], (DrawnLine{108, 254, 156, 254}));
}

TEST(SupportPicture, LeavesBlackAndAWidthOfOne) {
  RecordingSurface paper;
  paper.SetForeground(5);
  paper.SetLineWidth(3);
  PaintSupportPicture(paper, 8, 0, 0);
  EXPECT_EQ(paper.Colour, 0);
  EXPECT_EQ(paper.Width, 1);
  for (const DrawnLine& line : paper.Lines) EXPECT_EQ(line.Colour, 0);
}

TEST(SupportPicture, OtherCodesHaveNoPicture) {
  for (const std::int16_t type : {std::int16_t{0}, std::int16_t{9}, std::int16_t{-1}}) {
    EXPECT_TRUE(SupportPicture(type).empty());
  }
}
