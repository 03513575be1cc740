// The line of a cut through the drawing.
#include "explanation/byjoint/CutLine.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

// On which side of a line a point lies.
double SideOfLine(const PixelLine& line, PixelPoint at) {
  return (double{line.X2} - double{line.X1}) * (double{at.Y} - double{line.Y1}) -
         (double{line.Y2} - double{line.Y1}) * (double{at.X} - double{line.X1});
}

double DistanceToLine(const PixelLine& line, PixelPoint at) {
  const double dx = double{line.X2} - double{line.X1};
  const double dy = double{line.Y2} - double{line.Y1};
  const double share = std::clamp(
      ((double{at.X} - double{line.X1}) * dx + (double{at.Y} - double{line.Y1}) * dy) / (dx * dx + dy * dy),
      0.0, 1.0);
  return std::hypot(line.X1 + share * dx - double{at.X}, line.Y1 + share * dy - double{at.Y});
}

// Each crossing lies on its member and on a line of the cut.
void ExpectCrossings(const CutLine& line, const std::vector<PixelLine>& cut) {
  ASSERT_EQ(line.Crossings.size(), cut.size());
  for (std::size_t i = 0; i < cut.size(); ++i) {
    EXPECT_LT(DistanceToLine(cut[i], line.Crossings[i]), 0.1);
    double nearest = 1e9;
    for (const PixelLine& part : line.Lines)
      nearest = std::min(nearest, DistanceToLine(part, line.Crossings[i]));
    EXPECT_LT(nearest, 0.1);
  }
}

TEST(CutLine, RunsStraightBetweenTheJointsOfAPanel) {
  const std::vector<PixelPoint> part = {{0, 0}, {0, 40}, {50, 0}, {50, 40}};
  const std::vector<PixelLine> cut = {{50, 0, 90, 0}, {50, 40, 90, 40}, {50, 0, 90, 40}};
  const CutLine line = DrawCut(part, cut);
  ASSERT_EQ(line.Lines.size(), 1U);
  EXPECT_NEAR(line.Lines.front().X1, 70, 1e-3);
  EXPECT_NEAR(line.Lines.front().X2, 70, 1e-3);
  EXPECT_LT(std::min(line.Lines.front().Y1, line.Lines.front().Y2), -10) << "it stands out";
  EXPECT_GT(std::max(line.Lines.front().Y1, line.Lines.front().Y2), 50);
  ExpectCrossings(line, cut);
}

TEST(CutLine, PartsWhatAStraightLineCanPart) {
  std::mt19937 random(21);
  const auto below = [&random](int count) {
    return static_cast<float>(random() % static_cast<unsigned>(count));
  };
  for (int i = 0; i < 300; ++i) {
    SCOPED_TRACE(i);
    const double turn = below(628) / 100.0;
    // To both sides of a strip 20 wide, turned anyhow.
    const auto turned = [&](double x, double y) {
      return PixelPoint{static_cast<float>(x * std::cos(turn) - y * std::sin(turn)),
                        static_cast<float>(x * std::sin(turn) + y * std::cos(turn))};
    };
    std::vector<PixelPoint> part;
    std::vector<PixelLine> cut;
    for (int j = 1 + i % 5; j > 0; --j) part.push_back(turned(-10 - below(100), below(100)));
    for (int j = 1 + i % 4; j > 0; --j) {
      const PixelPoint inner = part[static_cast<std::size_t>(j) % part.size()];
      const PixelPoint outer = turned(10 + below(100), below(100));
      cut.push_back({inner.X, inner.Y, outer.X, outer.Y});
    }
    const CutLine line = DrawCut(part, cut);
    ASSERT_EQ(line.Lines.size(), 1U);
    const bool isLeft = SideOfLine(line.Lines.front(), part.front()) > 0;
    for (const PixelPoint& joint : part) EXPECT_EQ(SideOfLine(line.Lines.front(), joint) > 0, isLeft);
    for (const PixelLine& member : cut) EXPECT_NE(SideOfLine(line.Lines.front(), member.End2()) > 0, isLeft);
    ExpectCrossings(line, cut);
  }
}

TEST(CutLine, GoesAroundAPartThatStandsInTheMiddle) {
  const std::vector<PixelPoint> part = {{100, 100}, {140, 100}, {120, 130}};
  const std::vector<PixelLine> cut = {{100, 100, 0, 60}, {140, 100, 240, 60}, {120, 130, 120, 240}};
  const CutLine line = DrawCut(part, cut);
  EXPECT_GT(line.Lines.size(), 3U);
  ExpectCrossings(line, cut);
  for (const PixelLine& piece : line.Lines) {
    for (const PixelPoint& joint : part) EXPECT_GT(DistanceToLine(piece, joint), 5);
  }
}

TEST(CutLine, GoesAroundWhatThePartEncloses) {
  const std::vector<PixelPoint> part = {{0, 60}, {240, 60}, {120, 240}};
  const std::vector<PixelLine> cut = {{0, 60, 100, 100}, {240, 60, 140, 100}, {120, 240, 120, 130}};
  const CutLine line = DrawCut(part, cut);
  EXPECT_GT(line.Lines.size(), 3U);
  ExpectCrossings(line, cut);
  for (const PixelLine& piece : line.Lines) {
    EXPECT_LT(piece.Y1, 170) << "it keeps to the inner joints";
    EXPECT_GT(piece.Y1, 60);
  }
}

TEST(CutLine, StrikesOutEachMemberWhereNoLineParts) {
  // Inner and outer joints alternate on one line.
  const std::vector<PixelPoint> part = {{0, 0}, {100, 0}};
  const std::vector<PixelLine> cut = {{0, 0, 50, 0}, {100, 0, 150, 0}, {0, 0, -50, 0}};
  const CutLine line = DrawCut(part, cut);
  EXPECT_EQ(line.Lines.size(), cut.size());
  ExpectCrossings(line, cut);
  EXPECT_TRUE(DrawCut(part, {}).Lines.empty());
}

// Wherever joints lie, on each other too.
TEST(CutLine, HasACrossingForEveryMember) {
  std::mt19937 random(22);
  for (int i = 0; i < 2000; ++i) {
    SCOPED_TRACE(i);
    const int size = 2 + i % 40;
    const auto somewhere = [&] {
      return PixelPoint{static_cast<float>(random() % static_cast<unsigned>(size)),
                        static_cast<float>(random() % static_cast<unsigned>(size))};
    };
    std::vector<PixelPoint> part = {somewhere()};
    for (int j = i % 6; j > 0; --j) part.push_back(somewhere());
    std::vector<PixelLine> cut;
    for (int j = 1 + i % 5; j > 0; --j) {
      const PixelPoint inner = part[static_cast<std::size_t>(j) % part.size()];
      const PixelPoint outer = somewhere();
      cut.push_back({inner.X, inner.Y, outer.X, outer.Y});
    }
    const CutLine line = DrawCut(part, cut);
    ASSERT_EQ(line.Crossings.size(), cut.size());
    for (std::size_t j = 0; j < cut.size(); ++j) {
      if (cut[j].End1() != cut[j].End2()) {
        EXPECT_LT(DistanceToLine(cut[j], line.Crossings[j]), 0.1);
      }
    }
  }
}

}  // namespace
