// What the status bar shows when several have something to say.
#include "app/StatusTexts.h"

#include <gtest/gtest.h>

namespace {

constexpr const char* Step = " Step 1: Design the truss. ";
constexpr const char* Hint = " Click to place a new clamp ";
constexpr const char* OtherHint = " Click to erase ";
constexpr const char* FileNote = " The file was not read to its end. ";
constexpr const char* StepNote = " Step 2 is not possible. ";

struct StatusTextsTest : testing::Test {
  StatusTextsTest() { status.EnterStep(Step); }
  StatusTexts status;
};

TEST_F(StatusTextsTest, TheTextOfTheStepStands) { EXPECT_EQ(status.Shown(), Step); }

TEST_F(StatusTextsTest, ANoteCoversTheStepUntilTheNextOne) {
  status.Note(StatusNote::File, FileNote);
  EXPECT_EQ(status.Shown(), FileNote);
  status.EnterStep(" Step 2 ");
  EXPECT_EQ(status.Shown(), " Step 2 ");
}

TEST_F(StatusTextsTest, AHintGivesTheNoteBackWhenItEnds) {
  status.Note(StatusNote::File, FileNote);
  status.ShowHint(StatusHint::Tool, Hint);
  EXPECT_EQ(status.Shown(), Hint);
  status.ShowHint(StatusHint::Tool, OtherHint);
  EXPECT_EQ(status.Shown(), OtherHint);
  status.EndHint(StatusHint::Tool);
  EXPECT_EQ(status.Shown(), FileNote);
}

TEST_F(StatusTextsTest, AHintEndsOnlyWhenItsOwnTimeIsOver) {
  status.ShowHint(StatusHint::Tool, Hint);
  status.ShowHint(StatusHint::Menu, OtherHint);
  status.EndHint(StatusHint::Tool);
  EXPECT_EQ(status.Shown(), OtherHint) << "the mouse leaves the tool because a menu opens";
  status.EndHint(StatusHint::Menu);
  EXPECT_EQ(status.Shown(), Step);
}

TEST_F(StatusTextsTest, ANoteThatComesUnderAHintWaitsForItsEnd) {
  status.ShowHint(StatusHint::Tool, Hint);
  status.Note(StatusNote::File, FileNote);
  EXPECT_EQ(status.Shown(), Hint);
  status.EndHint(StatusHint::Tool);
  EXPECT_EQ(status.Shown(), FileNote);
}

TEST_F(StatusTextsTest, NotesOnTwoMattersAreShownTogether) {
  status.Note(StatusNote::Step, StepNote);
  status.Note(StatusNote::File, FileNote);
  EXPECT_EQ(status.Shown(), std::string(FileNote) + StepNote);
}

TEST_F(StatusTextsTest, ANoteReplacesTheOneOnTheSameMatterAndCanBeWithdrawn) {
  status.Note(StatusNote::File, FileNote);
  status.Note(StatusNote::File, " Saved. ");
  EXPECT_EQ(status.Shown(), " Saved. ");
  status.Note(StatusNote::File, "");
  EXPECT_EQ(status.Shown(), Step);
}

TEST_F(StatusTextsTest, TheHintOfTheChosenToolStandsButCoversNoNote) {
  status.ChooseTool(Hint);
  EXPECT_EQ(status.Shown(), Hint);
  status.ShowHint(StatusHint::Tool, OtherHint);
  status.EndHint(StatusHint::Tool);
  EXPECT_EQ(status.Shown(), Hint);
  status.Note(StatusNote::File, FileNote);
  status.ChooseTool(OtherHint);
  EXPECT_EQ(status.Shown(), FileNote);
}

TEST_F(StatusTextsTest, AStepEndsHints) {
  status.ChooseTool(Hint);
  status.ShowHint(StatusHint::Tool, OtherHint);
  status.EnterStep(Step);
  EXPECT_EQ(status.Shown(), Step);
}

}  // namespace
