// Where there is room for a text.
#include "explanation/forces/LabelRoom.h"

#include <gtest/gtest.h>

#include "ForcesFixture.h"
#include "canvas/PixelBoxes.h"

namespace {

constexpr PixelRect Area{0, 0, 1000, 600};

TEST(LabelRoom, NothingIsFreeOutsideItsArea) {
  const LabelRoom room(Area);
  EXPECT_TRUE(room.IsFree({0, 0, 50, 20}));
  EXPECT_FALSE(room.IsFree({-1, 0, 50, 20}));
  EXPECT_FALSE(room.IsFree({0, 590, 50, 601}));
}

TEST(LabelRoom, ABoxStopsTextsAndLeaders) {
  LabelRoom room(Area);
  room.AddBox({100, 100, 200, 120});
  EXPECT_FALSE(room.IsFree({190, 110, 300, 130}));
  EXPECT_TRUE(room.IsFree({200, 110, 300, 130})) << "a common edge is none";
  EXPECT_FALSE(room.IsClear({150, 0, 150, 300}));
  EXPECT_TRUE(room.IsClear({250, 0, 250, 300}));
}

TEST(LabelRoom, AMemberStopsTextsOnlyAndAnArrowLeadersToo) {
  LabelRoom room(Area);
  room.AddLine({100, 100, 900, 500}, 6);
  EXPECT_FALSE(room.IsFree({480, 290, 520, 310}));
  EXPECT_TRUE(room.IsFree({480, 200, 520, 220}));
  EXPECT_TRUE(room.IsClear({500, 100, 500, 500}));
  room.AddArrow({400, 550, 600, 550}, 4);
  EXPECT_FALSE(room.IsClear({500, 500, 500, 599}));
  EXPECT_FALSE(room.IsFree({500, 551, 520, 570})) << "its width counts";
}

// The cells find the same as looking at everything.
TEST(LabelRoom, FindsWhatLookingAtEverythingFinds) {
  std::mt19937 random(4);
  const auto below = [&random](int count) { return static_cast<float>(Below(random, count)); };
  LabelRoom room(Area);
  std::vector<PixelLine> lines;
  for (int i = 0; i < 40; ++i) {
    lines.push_back({below(1400) - 200, below(1000) - 200, below(1400) - 200, below(1000) - 200});
    room.AddLine(lines.back(), 5);
  }
  int numFree = 0;
  for (int i = 0; i < 4000; ++i) {
    const float left = below(960);
    const float top = below(585);
    const PixelRect box{left, top, left + 40, top + 15};
    const bool isFree =
        std::ranges::none_of(lines, [&](const PixelLine& line) { return Crosses(line, Widened(box, 2.5F)); });
    EXPECT_EQ(room.IsFree(box), isFree);
    numFree += int{isFree};
  }
  EXPECT_GT(numFree, 500);
  EXPECT_LT(numFree, 3500);
}

}  // namespace
