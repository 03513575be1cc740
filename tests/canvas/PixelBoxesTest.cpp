// Whether boxes and lines touch each other.
#include "canvas/PixelBoxes.h"

#include <gtest/gtest.h>

namespace {

constexpr PixelRect SomeBox{10, 20, 30, 40};

TEST(PixelBoxes, OverlapWithAPartInCommon) {
  EXPECT_TRUE(Overlap(SomeBox, {29, 39, 50, 60}));
  EXPECT_TRUE(Overlap(SomeBox, {15, 25, 20, 30})) << "one inside the other";
  EXPECT_FALSE(Overlap(SomeBox, {30, 20, 40, 40})) << "a common edge is no part";
  EXPECT_FALSE(Overlap(SomeBox, {10, 41, 30, 50}));
}

TEST(PixelBoxes, ALineCrossesABoxThatAPartOfItLiesIn) {
  EXPECT_TRUE(Crosses({0, 30, 100, 30}, SomeBox));
  EXPECT_TRUE(Crosses({15, 25, 16, 26}, SomeBox)) << "all of it inside";
  EXPECT_TRUE(Crosses({0, 10, 40, 50}, SomeBox)) << "from corner to corner";
  EXPECT_FALSE(Crosses({0, 20, 100, 20}, SomeBox)) << "along the edge";
  EXPECT_FALSE(Crosses({0, 30, 9, 30}, SomeBox)) << "it ends before";
  EXPECT_FALSE(Crosses({0, 40, 20, 60}, SomeBox)) << "past the corner";
}

TEST(PixelBoxes, AWidenedBoxReachesFartherOnEverySide) {
  EXPECT_EQ(Widened(SomeBox, 5), (PixelRect{5, 15, 35, 45}));
}

}  // namespace
