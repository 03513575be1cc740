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

TEST(ToolPalette, AHintIsShownAgainWhenTheMouseComesBack) {
  ToolPalette palette;
  palette.MouseMove(2);
  palette.MouseLeft();
  EXPECT_NE(palette.MouseMove(2), std::nullopt);
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
