// Selecting a tool and showing hints.
#include "editing/ToolPalette.h"

#include <gtest/gtest.h>

TEST(ToolPalette, NoToolIsSelectedAtStart) {
  const ToolPalette palette;
  EXPECT_EQ(palette.Selected(), Tool::None);
  for (int tool = 1; tool <= NumTools; ++tool) EXPECT_FALSE(palette.IsDown(tool));
}

TEST(ToolPalette, OfAllToolsOnlyTheSelectedOneIsDown) {
  ToolPalette palette;
  for (int selected = 1; selected <= NumTools; ++selected) {
    palette.Select(selected);
    for (int tool = 1; tool <= NumTools; ++tool) EXPECT_EQ(palette.IsDown(tool), tool == selected);
  }
  palette.Clear();
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
  palette.MouseLeave();
  EXPECT_EQ(palette.MouseMove(4), std::nullopt);
  EXPECT_EQ(palette.MouseMove(7), ToolHint(7));
}

TEST(ToolPalette, LeavingItWithoutASelectedToolShowsNoHintAndTheNextOneIsShownAgain) {
  ToolPalette palette;
  EXPECT_NE(palette.MouseMove(7), std::nullopt);
  palette.MouseLeave();
  EXPECT_EQ(palette.MouseMove(7), ToolHint(7));
  palette.Select(7);
  palette.Clear();
  EXPECT_EQ(palette.MouseMove(7), ToolHint(7));
}

TEST(ToolPalette, EachToolHasItsHint) {
  EXPECT_STREQ(
      ToolHint(1),
      " When the Truss Member Tool is selected, click and drag the mouse to create a new truss member ");
  EXPECT_STREQ(ToolHint(2), " When the Clamp Tool is selected, click to place a new clamp ");
  EXPECT_STREQ(ToolHint(3), " When the Roller Tool is selected, click to place a new roller ");
  EXPECT_STREQ(ToolHint(4),
               " When the Force Tool is selected, click on a joint and drag in the direction of the force ");
  EXPECT_STREQ(
      ToolHint(5),
      " When the Numerical Value Tool is selected, click on a truss member or a force to change its value ");
  EXPECT_STREQ(
      ToolHint(6),
      " When the Re-orientation Tool is selected, click on a roller or clamp to change its orientation ");
  EXPECT_STREQ(ToolHint(7), " When the Move Tool is selected, click on an object to move it ");
  EXPECT_STREQ(ToolHint(8), " When the Erase Tool is selected, click on an object to erase it ");
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
