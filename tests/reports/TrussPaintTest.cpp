// The truss as a picture: the same drawing as on the canvas, at the scale of a page, cropped to what was
// drawn.
#include "reports/TrussPaint.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "canvas/CanvasFixture.h"
#include "canvas/PaintDrawing.h"
#include "platform/Palette.h"

namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::Not;

constexpr PictureContent Plain{.ForceValues = false, .Names = false};
constexpr PictureContent WithNames{.ForceValues = false, .Names = true};
constexpr PictureContent WithValues{.ForceValues = true, .Names = false};
constexpr PictureContent WithBoth{.ForceValues = true, .Names = true};

// The world window is 20 by 10 units.
Truss InWindow(Truss truss) {
  truss.View = DeriveView(truss.Settings, EasyBounds);
  return truss;
}

Picture Paint(const Truss& truss, PictureContent content) {
  return TrussPaint(truss, {}, RecordingSurface::Measure, content);
}

RecordingSurface Drawn(const Truss& truss, PictureContent content) {
  RecordingSurface paper;
  Paint(truss, content).DrawOn(paper);
  return paper;
}

// Stands out of the window on both sides, so that its picture is 640 pixels wide for the window's 20 units,
// borders of 40 included: 28 pixels to the unit, the origin at (40, 320).
Truss Wide() {
  return InWindow(TrussBuilder()
                      .Member(-3, 0, 10, 5, "AB")
                      .Member(10, 5, 23, 0, "BC")
                      .Member(-3, 0, 23, 0, "AC")
                      .Clamp(-3, 0, "Ax", "Ay")
                      .Roller(23, 0, "C")
                      .Force(10, 5, 300, -400)
                      .Joint(-3, 0, "A"));
}

constexpr CanvasBounds BoundsOfWide{.PixL = 40, .PixR = 600, .PixT = 40, .PixB = 320};

// What the canvas shows within these bounds, but for what lies behind the objects.
RecordingSurface OnCanvas(Truss truss, bool named) {
  Canvas canvas;
  canvas.Context.Bounds = BoundsOfWide;
  canvas.Picture.LabelsShown = named;
  truss = Bare(truss);
  EXPECT_TRUE(RedrawTruss(truss, canvas.Picture, canvas.Paper, canvas.Context, canvas.Messages));
  RecordingSurface scene;
  PaintDrawing(scene, canvas.Picture, truss);
  return scene;
}

void ExpectSame(const RecordingSurface& picture, const RecordingSurface& canvas) {
  EXPECT_EQ(picture.Lines, canvas.Lines);
  EXPECT_EQ(picture.Texts, canvas.Texts);
  EXPECT_EQ(picture.Fills, canvas.Fills);
  EXPECT_EQ(picture.FillColours, canvas.FillColours);
  ASSERT_FALSE(canvas.Order.empty());
  EXPECT_EQ(picture.Order, canvas.Order);
}

std::vector<std::string> TextsOf(const RecordingSurface& paper) {
  std::vector<std::string> texts;
  for (const DrawnText& text : paper.Texts) texts.push_back(text.Text);
  return texts;
}

TEST(TrussPaint, DrawsWhatTheCanvasDraws) { ExpectSame(Drawn(Wide(), Plain), OnCanvas(Wide(), false)); }

TEST(TrussPaint, DrawsTheNamesThatTheCanvasShows) {
  ExpectSame(Drawn(Wide(), WithNames), OnCanvas(Wide(), true));
}

TEST(TrussPaint, PaintsForcesOverMembersAndTheirSupports) {
  const Truss truss = InWindow(TrussBuilder().Member(2, 2, 12, 2).Clamp(2, 2).Force(2, 2, 4000, 0));
  for (const PictureContent content : {Plain, WithNames, WithValues, WithBoth}) {
    const RecordingSurface paper = Drawn(truss, content);
    const auto lastOf = [&paper](int colour) {
      const auto found =
          std::ranges::find(paper.Lines.rbegin(), paper.Lines.rend(), colour, &DrawnLine::Colour);
      return paper.Lines.rend() - found;
    };
    const auto rod = std::ranges::find(paper.Lines, RodLineWidth, &DrawnLine::Width) - paper.Lines.begin();
    EXPECT_GT(lastOf(LightRed), rod + 1);
    EXPECT_GT(lastOf(LightRed), lastOf(White));
  }
}

TEST(TrussPaint, DrawsNeitherRulersNorGrid) {
  Truss truss = Wide();
  truss.Settings.RulersOn = truss.Settings.GridOn = true;
  const RecordingSurface paper = Drawn(truss, Plain);
  EXPECT_THAT(paper.Dots, IsEmpty());
  EXPECT_THAT(paper.Texts, IsEmpty());
}

TEST(TrussPaint, HasNamesOnlyWhenAsked) {
  EXPECT_THAT(TextsOf(Drawn(Wide(), WithValues)), Not(Contains("AB")));
  for (const char* name : {"AB", "BC", "AC", "Ax", "Ay", "C", "A"}) {
    EXPECT_THAT(TextsOf(Drawn(Wide(), WithNames)), Contains(name));
  }
}

TEST(TrussPaint, HasForceValuesOnlyWhenAsked) {
  const std::string value =
      "500 at \x96"
      "53.13\xB0";
  EXPECT_THAT(TextsOf(Drawn(Wide(), WithNames)), Not(Contains(value)));
  EXPECT_THAT(TextsOf(Drawn(Wide(), WithValues)), Contains(value));
  EXPECT_EQ(TextsOf(Drawn(Wide(), WithBoth)).back(), value) << "values stand over everything else";
}

TEST(TrussPaint, PrintsValuesWithTheGivenFigures) {
  RecordingSurface paper;
  TrussPaint(Wide(), {.SigFigs = 6, .Numbers = {","}}, RecordingSurface::Measure, WithValues).DrawOn(paper);
  EXPECT_EQ(paper.Texts.back().Text,
            "500 at \x96"
            "53,1301\xB0");
}

TEST(TrussPaint, MapsTheWorldWindowOntoThePictureWithinItsBorder) {
  const RecordingSurface paper = Drawn(Wide(), Plain);
  EXPECT_THAT(paper.Lines, Contains(DrawnLine{-44, 320, 320, 180, RodLineWidth, 0}));
}

TEST(TrussPaint, IsCroppedToWhatWasDrawnWithASmallMargin) {
  // The lower member with its pins, and the supports, whose ground reaches 15 pixels down and 12 to the
  // sides.
  const PixelRect frame = Paint(Wide(), Plain).Frame();
  EXPECT_FLOAT_EQ(frame.Top, 180 - 3 - 6) << "the upper pin";
  EXPECT_NEAR(frame.Left, -44 - 16 - 6, 4.5);
  EXPECT_NEAR(frame.Right, 684 + 16 + 6, 4.5);
  EXPECT_NEAR(frame.Bottom, 320 + 16 + 6, 3.5);
}

TEST(TrussPaint, HoldsWhatStandsOutsideTheWindow) {
  const Truss truss = InWindow(TrussBuilder().Member(30, 0, 45, -10));
  const RecordingSurface paper = Drawn(truss, Plain);
  ASSERT_FALSE(paper.Lines.empty());
  const DrawnLine& rod = paper.Lines[0];
  EXPECT_GT(rod.X1, 40 + 20 * 28);
  const PixelRect frame = Paint(truss, Plain).Frame();
  EXPECT_LT(frame.Left, rod.X1);
  EXPECT_LT(frame.Top, rod.Y1);
  EXPECT_GT(frame.Right, rod.X2);
  EXPECT_GT(frame.Bottom, rod.Y2);
}

TEST(TrussPaint, StaysWiderThanThePageWhenTheSmallestScaleIsTooLarge) {
  EXPECT_GT(Paint(Wide(), Plain).Frame().Width(), PictureWidth);
}

TEST(TrussPaint, MagnifiesASmallTrussUntilItFillsThePage) {
  const Truss small = InWindow(TrussBuilder()
                                   .Member(7, 4, 13, 4, "AB")
                                   .Member(7, 4, 10, 6, "AC")
                                   .Member(13, 4, 10, 6, "BC")
                                   .Clamp(7, 4)
                                   .Roller(13, 4)
                                   .Force(10, 6, 0, -1000));
  for (const PictureContent content : {Plain, WithNames, WithValues, WithBoth}) {
    const PixelRect frame = Paint(small, content).Frame();
    EXPECT_LE(frame.Width(), PictureWidth);
    EXPECT_GE(frame.Width(), PictureWidth - 2);
    EXPECT_LE(frame.Height(), PictureHeight);
  }
}

TEST(TrussPaint, MagnifiesAtMostFourTimes) {
  const RecordingSurface paper = Drawn(InWindow(TrussBuilder().Member(8, 4, 9, 4)), Plain);
  ASSERT_FALSE(paper.Lines.empty());
  EXPECT_FLOAT_EQ(paper.Lines[0].X2 - paper.Lines[0].X1, (4 * 640 - 80) / 20.0F);
}

TEST(TrussPaint, IsNoHigherThanAPageForTheSakeOfItsWidth) {
  const PixelRect frame = Paint(InWindow(TrussBuilder().Member(8, 0, 9, 10)), Plain).Frame();
  EXPECT_LE(frame.Height(), PictureHeight);
  EXPECT_GE(frame.Height(), PictureHeight - 2);
  EXPECT_LT(frame.Width(), PictureWidth / 2);
}

TEST(TrussPaint, KeepsTheTrussesProportions) {
  const RecordingSurface paper = Drawn(InWindow(TrussBuilder().Member(8, 4, 11, 8)), Plain);
  ASSERT_FALSE(paper.Lines.empty());
  const DrawnLine& rod = paper.Lines[0];
  EXPECT_NEAR((rod.Y1 - rod.Y2) / (rod.X2 - rod.X1), 4.0 / 3.0, 1e-4);
}

TEST(TrussPaint, LeavesErasedElementsOut) {
  const Truss truss = InWindow(TrussBuilder()
                                   .Member(4, 4, 12, 4, "AB")
                                   .Member(4, 4, 4, 8, "gone")
                                   .ThenErased()
                                   .Roller(4, 4, "lost")
                                   .ThenErased()
                                   .Force(12, 4, 0, -77)
                                   .ThenErased());
  const RecordingSurface paper = Drawn(truss, WithBoth);
  const RecordingSurface kept = Drawn(InWindow(TrussBuilder().Member(4, 4, 12, 4, "AB")), WithBoth);
  EXPECT_EQ(paper.Lines, kept.Lines);
  EXPECT_EQ(paper.Fills, kept.Fills);
  EXPECT_EQ(paper.Texts, kept.Texts);
}

TEST(TrussPaint, LeavesTheTrussAsItIs) {
  const Truss truss = Wide();
  Paint(truss, WithBoth);
  EXPECT_EQ(truss.Forces[1].PixX1, 0) << "picking works on the canvas's arrows";
}

TEST(TrussPaint, IsEmptyWithoutALiveElement) {
  EXPECT_EQ(Paint(InWindow(TrussBuilder()), WithBoth).Frame(), PixelRect{});
  EXPECT_EQ(Paint(InWindow(TrussBuilder().Member(0, 0, 4, 4).ThenErased()), WithBoth).Frame(), PixelRect{});
}

TEST(TrussPaint, IsEmptyWhenTheWindowHasNoExtent) {
  Truss truss = Wide();
  truss.View.YMax = truss.Settings.YMin;
  EXPECT_EQ(Paint(truss, WithBoth).Frame(), PixelRect{});
  truss = Wide();
  truss.Settings.XMax = truss.Settings.XMin;
  EXPECT_EQ(Paint(truss, WithBoth).Frame(), PixelRect{});
  truss = Wide();
  truss.View.YMax = -truss.View.YMax;
  EXPECT_EQ(Paint(truss, WithBoth).Frame(), PixelRect{}) << "the ranges run in opposite directions";
}

TEST(TrussPaint, TakesAWindowOfAnySize) {
  for (const float range : {1e-30F, 1e30F, std::numeric_limits<float>::max()}) {
    Truss truss = Wide();
    truss.Settings.XMin = 0;
    truss.Settings.XMax = range;
    truss = InWindow(truss);
    const PixelRect frame = Paint(truss, WithBoth).Frame();
    EXPECT_TRUE(frame.Width() >= 0 && frame.Height() >= 0) << range;
    EXPECT_LE(frame.Width(), 2.1e6F) << range;
  }
}

TEST(TrussPaint, TakesSettingsThatAreNoNumbers) {
  Truss truss = Wide();
  truss.View.YMax = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(Paint(truss, WithBoth).Frame(), PixelRect{});
  truss.View.YMax = std::numeric_limits<float>::infinity();
  EXPECT_EQ(Paint(truss, WithBoth).Frame(), PixelRect{});
}

TEST(TrussPaint, OfAWindowTurnedAroundIsAMirrorImageAsOnTheCanvas) {
  Truss truss = TrussBuilder().Member(0, 0, 10, 5);
  truss.Settings.XMin = 20;
  truss.Settings.XMax = 0;
  const RecordingSurface paper = Drawn(InWindow(truss), Plain);
  ASSERT_FALSE(paper.Lines.empty());
  EXPECT_GT(paper.Lines[0].X1, paper.Lines[0].X2);
}

TEST(TrussPaint, IsTheSameEveryTime) {
  const RecordingSurface first = Drawn(Wide(), WithBoth);
  const RecordingSurface second = Drawn(Wide(), WithBoth);
  EXPECT_EQ(first.Lines, second.Lines);
  EXPECT_EQ(first.Texts, second.Texts);
}

}  // namespace
