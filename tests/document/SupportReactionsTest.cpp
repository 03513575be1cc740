// Along what each type of support pushes.
#include "document/SupportReactions.h"

#include <gtest/gtest.h>

TEST(DirectionOf, AClampPushesRightAndUp) {
  for (std::int16_t type = 1; type <= LastClampType; ++type) {
    EXPECT_TRUE(DirectionOf(type, 1).IsAlongX());
    EXPECT_EQ(DirectionOf(type, 1).Sign(), 1);
    EXPECT_TRUE(DirectionOf(type, 2).Exists());
    EXPECT_FALSE(DirectionOf(type, 2).IsAlongX());
    EXPECT_EQ(DirectionOf(type, 2).Sign(), 1);
  }
}

TEST(DirectionOf, ARollerPushesOneWay) {
  const std::array<ReactionDirection, 4> ways = {{{0, 1}, {0, -1}, {-1, 0}, {1, 0}}};
  for (std::int16_t type = 5; type <= LastSupportType; ++type) {
    const ReactionDirection way = ways[static_cast<std::size_t>(type - 5)];
    EXPECT_EQ(DirectionOf(type, 1).X, way.X) << type;
    EXPECT_EQ(DirectionOf(type, 1).Y, way.Y) << type;
    EXPECT_FALSE(DirectionOf(type, 2).Exists()) << type;
  }
}

TEST(DirectionOf, OtherTypesAndComponentsHaveNone) {
  for (const int type : {-1, 0, 9, 32767})
    EXPECT_FALSE(DirectionOf(static_cast<std::int16_t>(type), 1).Exists()) << type;
  for (const int component : {-1, 0, 3}) EXPECT_FALSE(DirectionOf(1, component).Exists()) << component;
}

TEST(MirroredSupport, GroundOnTheLeftComesToTheRight) {
  EXPECT_EQ(MirroredSupport(3), 4);
  EXPECT_EQ(MirroredSupport(4), 3);
  EXPECT_EQ(MirroredSupport(7), 8);
  EXPECT_EQ(MirroredSupport(8), 7);
}

TEST(MirroredSupport, OtherTypesStayAsTheyAre) {
  for (const int type : {-1, 0, 1, 2, 5, 6, 9, 32767})
    EXPECT_EQ(MirroredSupport(static_cast<std::int16_t>(type)), type);
}
