// Selecting a tool and showing hints.
#include "editing/ToolPalette.h"

#include <gtest/gtest.h>

TEST(ToolPalette, NoToolIsSelectedAtStart) {
  const ToolPalette palette;
  EXPECT_EQ(palette.Selected(), Tool::None);
  for (int tool = 1; tool <= NumTools; ++tool) EXPECT_FALSE(palette.IsDown(tool));
}

TEST(ToolPalette, SelectingAToolRaisesTheOneBefore) {
  ToolPalette palette;
  palette.Select(3);
  palette.Select(7);
  EXPECT_FALSE(palette.IsDown(3));
  EXPECT_TRUE(palette.IsDown(7));
  EXPECT_EQ(palette.Selected(), Tool::Move);
}

TEST(ToolPalette, TheSelectedToolStaysSelectedWhenClickedAgain) {
  ToolPalette palette;
  palette.Select(2);
  palette.Select(2);
  EXPECT_EQ(palette.Selected(), Tool::Clamp);
}

TEST(ToolPalette, AHintIsShownOnceWhileTheMouseStaysOnAButton) {
  ToolPalette palette;
  EXPECT_EQ(palette.MouseMove(2), " When the Clamp Tool is selected, click to place a new clamp ");
  EXPECT_EQ(palette.MouseMove(2), std::nullopt);
  EXPECT_EQ(palette.MouseMove(8), " When the Erase Tool is selected, click on an object to erase it ");
  EXPECT_NE(palette.MouseMove(2), std::nullopt);
}

TEST(ToolPalette, TheHintOfAChosenToolCountsAsShown) {
  ToolPalette palette;
  EXPECT_NE(palette.MouseMove(2), std::nullopt);
  EXPECT_EQ(palette.HintOfChosen(3), ToolHint(3));
  EXPECT_EQ(palette.MouseMove(3), std::nullopt);
  EXPECT_EQ(palette.MouseMove(2), ToolHint(2));
}

TEST(ToolPalette, LeavingItShowsTheHintOfTheSelectedTool) {
  ToolPalette palette;
  palette.Select(4);
  EXPECT_NE(palette.MouseMove(7), std::nullopt);
  EXPECT_EQ(palette.MouseLeave(), ToolHint(4));
  EXPECT_EQ(palette.MouseMove(4), std::nullopt);
  EXPECT_EQ(palette.MouseMove(7), ToolHint(7));
}

TEST(ToolPalette, LeavingItWithoutASelectedToolShowsNoHintAndTheNextOneIsShownAgain) {
  ToolPalette palette;
  EXPECT_NE(palette.MouseMove(7), std::nullopt);
  EXPECT_EQ(palette.MouseLeave(), std::nullopt);
  EXPECT_EQ(palette.MouseMove(7), ToolHint(7));
  palette.Select(7);
  palette.Clear();
  EXPECT_EQ(palette.MouseMove(7), ToolHint(7));
}

TEST(ToolPalette, EveryHintBeginsAndEndsWithABlankAndNamesItsTool) {
  for (int tool = 1; tool <= NumTools; ++tool) {
    const std::string hint = ToolHint(tool);
    EXPECT_EQ(hint.front(), ' ');
    EXPECT_EQ(hint.back(), ' ');
    EXPECT_NE(hint.find(std::string("the ") + ToolName(tool) + " Tool is selected, click"),
              std::string::npos);
  }
}
