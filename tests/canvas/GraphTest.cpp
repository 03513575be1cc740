// The mapping between world and pixels.
#include "canvas/Graph.h"

#include <limits>

#include "CanvasFixture.h"

TEST(Graph, MapsTheCornersOfTheRangeToTheBounds) {
  const Graph graph = EasyGraph();
  EXPECT_EQ(graph.XPixel(0), 48);
  EXPECT_EQ(graph.XPixel(20), 448);
  EXPECT_EQ(graph.YPixel(0), 270);
  EXPECT_EQ(graph.YPixel(10), 70);
}

TEST(Graph, WorldYGrowsUpward) {
  const Graph graph = EasyGraph();
  EXPECT_EQ(graph.YPixel(3), 210);
  EXPECT_EQ(graph.YWorld(210), 3);
  EXPECT_EQ(graph.XPixel(2.5F), 98);
  EXPECT_EQ(graph.XWorld(98), 2.5F);
}

TEST(Graph, PointsOutsideTheRangeAreMappedToo) {
  EXPECT_EQ(EasyGraph().XPixel(-1), 28);
  EXPECT_EQ(EasyGraph().YPixel(11), 50);
}

TEST(Graph, WorldOfPixelOfAValueIsTheValueUpToSingleRounding) {
  Graph graph;
  graph.SetMapping(48, 731, 412, 70, -2.5F, 17.3F, 0.1F, 9.4F);
  for (const float value : {-2.5F, -0.3F, 0.1F, 1.0F / 3, 7.77F, 17.3F}) {
    EXPECT_NEAR(graph.XWorld(graph.XPixel(value)), value, 2e-6);
    EXPECT_NEAR(graph.YWorld(graph.YPixel(value)), value, 2e-6);
  }
}

TEST(Graph, ArithmeticIsDoneInDoublePrecision) {
  Graph graph;
  graph.SetMapping(0, 1000, 0, 1000, 16777216, 16777218, 0, 1);
  EXPECT_EQ(graph.XWorld(500), 16777216);  // 16777217 is no single; it rounds to even
  graph.SetMapping(0, 3, 0, 3, 0, 3e38F, 0, 3e38F);
  EXPECT_FLOAT_EQ(graph.XPixel(2e38F), 2);  // 2e38 * 3 is beyond single precision
}

TEST(Graph, AnEmptyRangeGivesNumbersAndSaysThatItIsEmpty) {
  Graph graph;
  graph.SetMapping(48, 448, 270, 70, 5, 5, 0, 10);
  EXPECT_EQ(graph.XPixel(7), 48);
  EXPECT_TRUE(graph.IsEmpty());
  EXPECT_FALSE(EasyGraph().IsEmpty());
  EXPECT_TRUE(Graph().IsEmpty());
}

TEST(Graph, NoCoordinateMakesAPixelInfinite) {
  Graph graph;
  graph.SetMapping(48, 448, 270, 70, 0, 1e-30F, 0, 1e-30F);
  EXPECT_EQ(graph.XPixel(3e38F), std::numeric_limits<float>::max());
  EXPECT_EQ(graph.YPixel(3e38F), -std::numeric_limits<float>::max());
}
