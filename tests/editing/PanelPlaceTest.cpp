// Where the value panel opens and where it can be dragged.
#include "editing/PanelPlace.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

constexpr PixelBox CanvasRoom{0, 46, 500, 454};
constexpr PanelSize Panel{200, 150};

bool IsInside(PixelPoint place) {
  return place.X >= CanvasRoom.Left && place.Y >= CanvasRoom.Top &&
         place.X + Panel.Width <= CanvasRoom.Right() && place.Y + Panel.Height <= CanvasRoom.Bottom();
}

// Whether a point every tenth of a percent of the line is off the panel, by `distance` pixels.
bool IsClear(const PixelLine& line, PixelPoint place, float distance = 0) {
  for (int i = 0; i <= 1000; ++i) {
    const float t = static_cast<float>(i) / 1000;
    const float x = line.X1 + t * (line.X2 - line.X1);
    const float y = line.Y1 + t * (line.Y2 - line.Y1);
    const bool covers = x > place.X - distance && x < place.X + Panel.Width + distance &&
                        y > place.Y - distance && y < place.Y + Panel.Height + distance;
    if (covers) return false;
  }
  return true;
}

void ExpectGoodPlace(const PixelLine& line) {
  SCOPED_TRACE(testing::Message() << "(" << line.X1 << ", " << line.Y1 << ") - (" << line.X2 << ", "
                                  << line.Y2 << ")");
  const PixelPoint place = PanelPlace(line, Panel, CanvasRoom);
  EXPECT_TRUE(IsInside(place)) << place.X << ", " << place.Y;
  EXPECT_TRUE(IsClear(line, place)) << place.X << ", " << place.Y;
}

}  // namespace

TEST(PanelPlace, IsBesideTheObject) {
  const PixelPoint place = PanelPlace({100, 200, 150, 300}, Panel, CanvasRoom);
  EXPECT_EQ(place, (PixelPoint{164, 175}));
}

TEST(PanelPlace, IsLeftOfAnObjectAtTheRightEdge) {
  const PixelPoint place = PanelPlace({450, 200, 450, 300}, Panel, CanvasRoom);
  EXPECT_EQ(place, (PixelPoint{236, 175}));
}

TEST(PanelPlace, IsBelowAWideObjectOrAboveIt) {
  EXPECT_EQ(PanelPlace({10, 200, 490, 200}, Panel, CanvasRoom), (PixelPoint{150, 214}));
  EXPECT_EQ(PanelPlace({10, 450, 490, 450}, Panel, CanvasRoom), (PixelPoint{150, 286}));
}

TEST(PanelPlace, IsInTheFreeCornerBesideASlopingObject) {
  ExpectGoodPlace({10, 490, 490, 60});
  ExpectGoodPlace({10, 60, 490, 490});
  ExpectGoodPlace({490, 490, 10, 60});
}

TEST(PanelPlace, LeavesRoomForHandlesAndArrowHeads) {
  const PixelLine line{100, 200, 150, 300};
  EXPECT_TRUE(IsClear(line, PanelPlace(line, Panel, CanvasRoom), 12));
}

TEST(PanelPlace, MindsOnlyWhatCanBeSeenOfTheObject) {
  const PixelPoint place = PanelPlace({-3e38F, 200, 100, 200}, Panel, CanvasRoom);
  EXPECT_EQ(place, (PixelPoint{114, 125}));
}

TEST(PanelPlace, IsNearestToAnObjectThatCannotBeSeen) {
  ExpectGoodPlace({5000, 100, 6000, 100});
  ExpectGoodPlace({-3e38F, -3e38F, -2e38F, -3e38F});
}

TEST(PanelPlace, HidesAsLittleAsItCanWhereNothingIsClear) {
  constexpr PixelBox small{0, 0, 210, 200};
  const PixelPoint place = PanelPlace({0, 100, 210, 100}, Panel, small);
  EXPECT_GE(place.X, 0);
  EXPECT_LE(place.X + Panel.Width, small.Right());
  EXPECT_GE(place.Y, 0);
  EXPECT_LE(place.Y + Panel.Height, small.Bottom());
}

TEST(PanelPlace, IsClearOfEveryObjectInACanvasOfTheStartingSize) {
  constexpr unsigned seed = 20260311;
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  const auto below = [&random](float end) { return end * static_cast<float>(random() % 10000U) / 10000.0F; };
  for (int i = 0; i < 5000; ++i) ExpectGoodPlace({below(500), 46 + below(454), below(500), 46 + below(454)});
}

TEST(KeptInside, LeavesAPanelThatLiesInsideAlone) {
  EXPECT_EQ(KeptInside({20, 60}, Panel, CanvasRoom), (PixelPoint{20, 60}));
  EXPECT_EQ(KeptInside({300, 350}, Panel, CanvasRoom), (PixelPoint{300, 350}));
}

TEST(KeptInside, PushesAPanelBackFromEveryEdge) {
  EXPECT_EQ(KeptInside({-5, 10}, Panel, CanvasRoom), (PixelPoint{0, 46}));
  EXPECT_EQ(KeptInside({301, 351}, Panel, CanvasRoom), (PixelPoint{300, 350}));
}

TEST(KeptInside, KeepsTheLeftTopCornerInARoomThatIsTooSmall) {
  EXPECT_EQ(KeptInside({70, 70}, Panel, {10, 20, 50, 50}), (PixelPoint{10, 20}));
}

TEST(PanelDrag, DropsThePanelAtThePointerMinusTheGrabOffset) {
  PanelDrag drag;
  EXPECT_FALSE(drag.IsDragging());
  drag.Begin(30, 12);
  EXPECT_TRUE(drag.IsDragging());
  EXPECT_EQ(drag.Place({130, 212}, Panel, CanvasRoom), (PixelPoint{100, 200}));
  EXPECT_EQ(drag.Place({1000, 0}, Panel, CanvasRoom), (PixelPoint{300, 46}));
  drag.End();
  EXPECT_FALSE(drag.IsDragging());
}
