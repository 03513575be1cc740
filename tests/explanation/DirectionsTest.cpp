// Small pieces of sentences.
#include "explanation/Directions.h"

#include <gtest/gtest.h>

TEST(DirectionText, NamesUpToTwoDirections) {
  EXPECT_EQ(DirectionText(2, 0), "to the right");
  EXPECT_EQ(DirectionText(-2, 0), "to the left");
  EXPECT_EQ(DirectionText(0, 0.5), "up");
  EXPECT_EQ(DirectionText(0, -0.5), "down");
  EXPECT_EQ(DirectionText(1, 3), "to the right and up");
  EXPECT_EQ(DirectionText(-1, -3), "to the left and down");
  EXPECT_EQ(DirectionText(1, -1e-12), "to the right");
  EXPECT_EQ(DirectionText(1e-12, -1), "down");
}

TEST(PairText, PartsItsNumbersByWhatIsNoDecimalSeparator) {
  EXPECT_EQ(PairText(0.6, -0.8, {}), "(0.6, -0.8)");
  EXPECT_EQ(PairText(0.6, -0.8, {.SigFigs = 4, .Numbers = {","}}), "(0,6; -0,8)");
}

TEST(Capital, IsTheFirstLetterWhereItIsOne) {
  EXPECT_EQ(Capital("member a"), "Member a");
  EXPECT_EQ(Capital("z"), "Z");
  for (const char* text : {"", "Member a", "(4, 0)", "[a]", "{a}", "\xE4"}) EXPECT_EQ(Capital(text), text);
}

TEST(ListOf, EndsWithAndOrTellsHowManyMoreThereAre) {
  EXPECT_EQ(ListOf({"A"}), "A");
  EXPECT_EQ(ListOf({"A", "B"}), "A and B");
  EXPECT_EQ(ListOf({"A", "B", "C"}), "A, B and C");
  EXPECT_EQ(ListOf({"A", "B", "C"}, 3), "A, B and C");
  EXPECT_EQ(ListOf({"A", "B", "C", "D"}, 2), "A, B and 2 more");
}

TEST(DirectionOfReaction, TurnsWithTheSignOfTheNumber) {
  const PlacedUnknown fromTheRight{.JointA = 1, .Along = Axis::X, .Sign = -1};
  EXPECT_EQ(DirectionOfReaction(fromTheRight, 1), "to the left");
  EXPECT_EQ(DirectionOfReaction(fromTheRight, -1), "to the right");
  const PlacedUnknown fromBelow{.JointA = 1, .Along = Axis::Y, .Sign = 1};
  EXPECT_EQ(DirectionOfReaction(fromBelow, 1), "up");
  EXPECT_EQ(DirectionOfReaction(fromBelow, -1), "down");
}
