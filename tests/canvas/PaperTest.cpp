// What lies far off is cut to the paper before it is drawn.
#include "canvas/Paper.h"

#include <limits>

#include "support/RecordingSurface.h"

namespace {
constexpr float Infinity = std::numeric_limits<float>::infinity();
constexpr float NotANumber = std::numeric_limits<float>::quiet_NaN();
constexpr float Largest = std::numeric_limits<float>::max();
}  // namespace

TEST(Paper, ALineOnThePaperStaysAsItIs) {
  const PixelLine line{1.1F, -2.2F, 1e6F, -1e6F};
  EXPECT_EQ(PartOnPaper(line), line);
}

TEST(Paper, ALineThatLeavesThePaperKeepsItsDirection) {
  const auto part = PartOnPaper({0, 0, 1e9F, 5e8F});
  ASSERT_TRUE(part);
  EXPECT_EQ(*part, (PixelLine{0, 0, 1e6F, 5e5F}));
  EXPECT_EQ(PartOnPaper({-4e6F, 100, 4e6F, 100}), (PixelLine{-1e6F, 100, 1e6F, 100}));
}

TEST(Paper, ALineBesideThePaperIsNotThere) {
  EXPECT_FALSE(PartOnPaper({2e6F, 0, 2e6F, 10}));
  EXPECT_FALSE(PartOnPaper({0, 3e6F, 3e6F, 0}));  // it passes the corner outside
}

TEST(Paper, TheLargestNumbersAreCutWithoutOverflow) {
  EXPECT_EQ(PartOnPaper({-Largest, 7, Largest, 7}), (PixelLine{-1e6F, 7, 1e6F, 7}));
}

TEST(Paper, WhatIsNoNumberIsNotDrawn) {
  RecordingSurface surface;
  DrawLine(surface, {0, 0, NotANumber, 1});
  DrawLine(surface, {-Infinity, 0, 5, 1});
  EXPECT_TRUE(surface.Lines.empty());
  EXPECT_EQ(OntoPaper(NotANumber), 0);
  EXPECT_EQ(OntoPaper(Infinity), 1e6F);
  EXPECT_EQ(FiniteSingle(1e300), Largest);
}
