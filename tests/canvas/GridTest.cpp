// The grid's dots, and when there are none.
#include "canvas/Grid.h"

#include "CanvasFixture.h"

namespace {

struct Grid {
  RecordingSurface Paper;
  FakeMessageBox Messages;
  DocumentSettings Settings;

  void Show() {
    const DerivedView view = DeriveView(Settings, EasyBounds);
    Graph graph;
    graph.SetMapping(EasyBounds.PixL, EasyBounds.PixR, EasyBounds.PixB, EasyBounds.PixT, Settings.XMin,
                     Settings.XMax, Settings.YMin, view.YMax);
    ShowGrid(Paper, graph, Settings, view, Messages);
  }
};

}  // namespace

TEST(Grid, DotsGoColumnByColumnWithoutTheLeftAndBottomEdge) {
  Grid grid;
  grid.Settings.GridX = 5;
  grid.Settings.GridY = 2.5F;
  grid.Show();
  std::vector<PixelPoint> expected;
  for (const float x : {148.0F, 248.0F, 348.0F, 448.0F}) {
    for (const float y : {220.0F, 170.0F, 120.0F, 70.0F}) expected.push_back({x, y});
  }
  EXPECT_EQ(grid.Paper.Dots, expected);
  EXPECT_THAT(grid.Paper.DotColours, testing::Each(0));
}

TEST(Grid, CountsFromTheMinimum) {
  Grid grid;
  grid.Settings.XMin = 1;
  grid.Settings.XMax = 21;
  grid.Settings.GridX = 12;
  grid.Settings.GridY = 8;
  grid.Show();
  EXPECT_THAT(grid.Paper.Dots, testing::ElementsAre(PixelPoint{288, 110}));
}

TEST(Grid, FiveHundredColumnsAreDrawn) {
  Grid grid;
  grid.Settings.XMax = 100;
  grid.Settings.GridX = 0.2F;
  grid.Settings.GridY = 50;
  grid.Show();
  EXPECT_EQ(grid.Paper.Dots.size(), 500U);
  EXPECT_TRUE(grid.Messages.Shown.empty());
}

TEST(Grid, FiveHundredAndTwentySixColumnsAreTooDense) {
  Grid grid;
  grid.Settings.XMax = 100;
  grid.Settings.GridX = 0.19F;
  grid.Settings.GridY = 50;
  grid.Show();
  EXPECT_TRUE(grid.Paper.Dots.empty());
  ASSERT_EQ(grid.Messages.Shown.size(), 1U);
  EXPECT_EQ(grid.Messages.Shown[0].Text, "Grid too dense");
  EXPECT_EQ(grid.Messages.Shown[0].Buttons, MessageButtons::Ok);
}

TEST(Grid, RowsCanBeTooDenseToo) {
  Grid grid;
  grid.Settings.GridY = 0.0199F;  // 502 rows in 10 units
  grid.Show();
  EXPECT_TRUE(grid.Paper.Dots.empty());
  EXPECT_EQ(grid.Messages.Shown.size(), 1U);
}

TEST(Grid, ATinySpacingIsTooDenseAndNoMore) {
  Grid grid;
  grid.Settings.GridX = 1e-38F;
  grid.Show();
  EXPECT_TRUE(grid.Paper.Dots.empty());
  EXPECT_EQ(grid.Messages.Shown.size(), 1U);
}

TEST(Grid, WithoutSpacingOrRangeThereAreNoDots) {
  for (const float spacing : {0.0F, -0.5F}) {
    Grid grid;
    grid.Settings.GridX = spacing;
    grid.Show();
    EXPECT_TRUE(grid.Paper.Order.empty());
    EXPECT_TRUE(grid.Messages.Shown.empty());
  }
  Grid grid;
  grid.Settings.XMax = 0;
  grid.Show();
  EXPECT_TRUE(grid.Paper.Order.empty());
}

TEST(Grid, ALineIsRoundedOnce) {
  EXPECT_EQ(GridLine(0, 0.1F, 3), 0.3F);
  EXPECT_EQ(GridLine(0.5F, 1, 2), 2.5F);
}
