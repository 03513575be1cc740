// Whether boxes and lines touch each other.
#include "canvas/PixelBoxes.h"

#include <gtest/gtest.h>

namespace {

constexpr PixelRect Box{10, 20, 30, 40};

TEST(PixelBoxes, OverlapWithAPartInCommon) {
  EXPECT_TRUE(Overlap(Box, {29, 39, 50, 60}));
  EXPECT_TRUE(Overlap(Box, {15, 25, 20, 30})) << "one inside the other";
  EXPECT_FALSE(Overlap(Box, {30, 20, 40, 40})) << "a common edge is no part";
  EXPECT_FALSE(Overlap(Box, {10, 41, 30, 50}));
}

TEST(PixelBoxes, ALineCrossesABoxThatAPartOfItLiesIn) {
  EXPECT_TRUE(Crosses({0, 30, 100, 30}, Box));
  EXPECT_TRUE(Crosses({15, 25, 16, 26}, Box)) << "all of it inside";
  EXPECT_TRUE(Crosses({0, 10, 40, 50}, Box)) << "from corner to corner";
  EXPECT_FALSE(Crosses({0, 20, 100, 20}, Box)) << "along the edge";
  EXPECT_FALSE(Crosses({0, 30, 9, 30}, Box)) << "it ends before";
  EXPECT_FALSE(Crosses({0, 40, 20, 60}, Box)) << "past the corner";
}

TEST(PixelBoxes, AWidenedBoxReachesFartherOnEverySide) {
  EXPECT_EQ(Widened(Box, 5), (PixelRect{5, 15, 35, 45}));
}

}  // namespace
