// Defaults, derived view values, grid counts and tagged numbers.
#include "document/DocumentSettings.h"

#include <cmath>
#include <limits>

namespace {

// 400 by 300 pixels.
constexpr CanvasBounds Bounds{.PixL = 50, .PixR = 450, .PixT = 70, .PixB = 370};
constexpr float LargestLength = std::numeric_limits<float>::max();

}  // namespace

TEST(DocumentSettings, StartWithTheirDefaults) {
  const DocumentSettings settings;
  EXPECT_TRUE(settings.SnapObject);
  EXPECT_TRUE(settings.SnapGrid);
  EXPECT_TRUE(settings.GridOn);
  EXPECT_TRUE(settings.RulersOn);
  EXPECT_EQ(settings.XMin, 0);
  EXPECT_EQ(settings.XMax, 20);
  EXPECT_EQ(settings.HatchSpacing, TaggedNumber(std::int16_t{2}));
  EXPECT_EQ(settings.GridX, 0.5F);
  EXPECT_EQ(settings.YMin, 0);
  EXPECT_EQ(settings.GridY, 0.5F);
  EXPECT_EQ(settings.ForceScale, 1000);
  EXPECT_EQ(settings.SigFigs, 4);
  EXPECT_EQ(settings.ReportFontSize, 10);
}

TEST(DeriveView, KeepsTheAspectRatio) {
  DocumentSettings settings;
  settings.YMin = -1;
  const DerivedView view = DeriveView(settings, Bounds);
  EXPECT_EQ(view.YMax, -1 + 20 * 300 / 400.0F);
}

TEST(DeriveView, AWiderCanvasChangesTheTopAlone) {
  const DocumentSettings settings;
  DocumentSettings same = settings;
  CanvasBounds wider = Bounds;
  wider.PixR = 650;
  EXPECT_EQ(DeriveView(settings, wider).YMax, 10);
  EXPECT_EQ(DeriveView(settings, wider).HatchCountX, 10);
  EXPECT_EQ(settings, same);
}

TEST(DeriveView, HatchCountsAreNotRounded) {
  DocumentSettings settings;
  settings.XMin = 1;
  settings.HatchSpacing = 4.0F;
  const DerivedView view = DeriveView(settings, Bounds);
  EXPECT_EQ(view.YMax, 14.25F);
  EXPECT_EQ(view.HatchCountX, 4.75F);
  EXPECT_EQ(view.HatchCountY, 3.5625F);
}

TEST(DeriveView, RoundsToSingleOnce) {
  DocumentSettings settings;
  settings.XMin = 0.1F;
  settings.XMax = 0.7F;
  settings.HatchSpacing = 0.3;
  const DerivedView view = DeriveView(settings, Bounds);
  const double range = double{0.7F} - double{0.1F};
  EXPECT_EQ(view.YMax, static_cast<float>(range * 300 / 400));
  EXPECT_EQ(view.HatchCountX, static_cast<float>(range / 0.3));
  EXPECT_EQ(view.HatchCountY, static_cast<float>(double{view.YMax} / 0.3));
}

TEST(DeriveView, ADivisionByZeroLeavesZero) {
  DocumentSettings settings;
  settings.HatchSpacing = std::int16_t{0};
  EXPECT_EQ(DeriveView(settings, Bounds), (DerivedView{.YMax = 15, .HatchCountX = 0, .HatchCountY = 0}));
  settings.XMax = settings.XMin;  // 0 / 0
  EXPECT_EQ(DeriveView(settings, Bounds), DerivedView{});

  CanvasBounds noWidth = Bounds;
  noWidth.PixR = noWidth.PixL;
  EXPECT_EQ(DeriveView(DocumentSettings{}, noWidth),
            (DerivedView{.YMax = 0, .HatchCountX = 10, .HatchCountY = 0}));
}

TEST(DeriveView, AnEmptyRangeHasNoHatches) {
  DocumentSettings settings;
  settings.XMin = settings.XMax = 5;
  settings.YMin = 3;
  EXPECT_EQ(DeriveView(settings, Bounds), (DerivedView{.YMax = 3, .HatchCountX = 0, .HatchCountY = 0}));
}

TEST(DeriveView, AResultBeyondSinglePrecisionIsZero) {
  DocumentSettings settings;
  settings.XMin = -LargestLength;
  settings.XMax = LargestLength;
  const DerivedView view = DeriveView(settings, Bounds);
  EXPECT_EQ(view.YMax, 0);
  EXPECT_EQ(view.HatchCountX, LargestLength);  // twice the largest single over 2
  EXPECT_EQ(view.HatchCountY, 0);
}

TEST(GridCount, OfAHundredByAFifthIsFiveHundred) {
  EXPECT_EQ(GridCount(0, 100, 0.2F), 500);
  EXPECT_LE(GridCount(0, 100, 0.2F), MaxGridCount);
}

TEST(GridCount, OfAHundredByNineteenHundredthsIsTooDense) {
  EXPECT_EQ(GridCount(0, 100, 0.19F), 526);
  EXPECT_GT(GridCount(0, 100, 0.19F), MaxGridCount);
}

TEST(GridCount, IsCutOffTowardZero) {
  EXPECT_EQ(GridCount(0, 20, 0.5F), 40);
  EXPECT_EQ(GridCount(0, 9.9F, 1), 9);
  EXPECT_EQ(GridCount(-5, 4.9F, 1), 9);
  EXPECT_EQ(GridCount(0, 0.9F, 1), 0);
  EXPECT_EQ(GridCount(9.9F, 0, 1), -9);
  EXPECT_EQ(GridCount(0, 9.9F, -1), -9);
}

TEST(GridCount, OfAZeroSpacingIsZero) {
  EXPECT_EQ(GridCount(0, 100, 0), 0);
  EXPECT_EQ(GridCount(0, 0, 0), 0);
}

TEST(GridCount, OfBoundsWithoutADifferenceIsZero) {
  constexpr float infinite = std::numeric_limits<float>::infinity();
  EXPECT_EQ(GridCount(infinite, infinite, 1), 0);
  EXPECT_EQ(GridCount(0, infinite, infinite), 0);
  EXPECT_EQ(GridCount(0, infinite, 1), 32767);
}

TEST(GridCount, StaysWithin16Bits) {
  EXPECT_EQ(GridCount(0, 32767, 1), 32767);
  EXPECT_EQ(GridCount(0, 32768, 1), 32767);
  EXPECT_EQ(GridCount(0, 1e30F, 1), 32767);
  EXPECT_EQ(GridCount(1e30F, 0, 1), -32768);
  EXPECT_EQ(GridCount(-LargestLength, LargestLength, 1), 32767);
}

TEST(TaggedNumber, GivesItsValueWhateverItsType) {
  EXPECT_EQ(ValueOf(std::int16_t{-3}), -3);
  EXPECT_EQ(ValueOf(0.5F), 0.5);
  EXPECT_EQ(ValueOf(0.1F), double{0.1F});
  EXPECT_EQ(ValueOf(0.1), 0.1);
}

TEST(TaggedNumber, ShowsTheShortestTextOfItsOwnType) {
  EXPECT_EQ(TaggedNumberText(std::int16_t{2}), "2");
  EXPECT_EQ(TaggedNumberText(std::int16_t{-32768}), "-32768");
  EXPECT_EQ(TaggedNumberText(0.1F), "0.1");
  EXPECT_EQ(TaggedNumberText(double{0.1F}), "0.10000000149011612");
  EXPECT_EQ(TaggedNumberText(0.25, ","), "0,25");
  EXPECT_EQ(TaggedNumberText(0.25F, ","), "0,25");
}
