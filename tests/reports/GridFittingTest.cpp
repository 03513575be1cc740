// When a table gets scroll bars, to the pixel.
#include "reports/GridFitting.h"

#include <gtest/gtest.h>

#include <ostream>

void PrintTo(const GridFit& fit, std::ostream* out) {
  *out << fit.Width << " x " << fit.Height << (fit.HorizontalBar ? " horizontal" : "")
       << (fit.VerticalBar ? " vertical" : "");
}

namespace {

constexpr bool Bar = true;
constexpr bool NoBar = false;

// Into 300 by 200 pixels.
GridFit Fitted(float width, float height) { return LimitGridSize(width, height, 300, 200); }

}  // namespace

TEST(LimitGridSize, AGridThatFitsHasNoBars) {
  EXPECT_EQ(Fitted(100, 50), (GridFit{100, 50, NoBar, NoBar}));
  EXPECT_EQ(Fitted(300, 200), (GridFit{300, 200, NoBar, NoBar}));
}

TEST(LimitGridSize, TooWideWithRoomBelowGetsAHorizontalBar) {
  EXPECT_EQ(Fitted(301, 186), (GridFit{300, 200, Bar, NoBar}));
  EXPECT_EQ(Fitted(301, 50), (GridFit{300, 64, Bar, NoBar}));
}

TEST(LimitGridSize, TooWideWithoutRoomForTheBarGetsBoth) {
  EXPECT_EQ(Fitted(301, 187), (GridFit{300, 200, Bar, Bar}));
  EXPECT_EQ(Fitted(301, 200), (GridFit{300, 200, Bar, Bar}));
}

TEST(LimitGridSize, TooHighWithRoomBesideGetsAVerticalBar) {
  EXPECT_EQ(Fitted(286, 201), (GridFit{300, 200, NoBar, Bar}));
  EXPECT_EQ(Fitted(100, 5000), (GridFit{114, 200, NoBar, Bar}));
}

TEST(LimitGridSize, TooHighWithoutRoomForTheBarGetsBoth) {
  EXPECT_EQ(Fitted(287, 201), (GridFit{300, 200, Bar, Bar}));
  EXPECT_EQ(Fitted(300, 201), (GridFit{300, 200, Bar, Bar}));
}

TEST(LimitGridSize, TooWideAndTooHighGetsBoth) { EXPECT_EQ(Fitted(301, 201), (GridFit{300, 200, Bar, Bar})); }

TEST(LimitGridSize, FractionsOfAPixelCount) {
  EXPECT_EQ(Fitted(300.25F, 186), (GridFit{300, 200, Bar, NoBar}));
  EXPECT_EQ(Fitted(300.25F, 186.25F), (GridFit{300, 200, Bar, Bar}));
}
