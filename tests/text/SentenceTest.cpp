// Remarks as sentences.
#include "text/Sentence.h"

#include <gtest/gtest.h>

TEST(AsSentence, BeginsWithACapitalAndEndsWithAFullStop) {
  EXPECT_EQ(AsSentence("the disk is full"), "The disk is full.");
  EXPECT_EQ(AsSentence("a"), "A.");
  EXPECT_EQ(AsSentence("zero is no width"), "Zero is no width.");
}

TEST(AsSentence, LeavesWhatHasNoSmallLetterAtItsStart) {
  EXPECT_EQ(AsSentence("It is read-only"), "It is read-only.");
  EXPECT_EQ(AsSentence("9 joints are loose"), "9 joints are loose.");
  EXPECT_EQ(AsSentence("{0, 1} is no range"), "{0, 1} is no range.");
  EXPECT_EQ(AsSentence("\u00E4hnlich"), "\u00E4hnlich.");
}

TEST(AsSentence, OfNothingIsNothing) { EXPECT_EQ(AsSentence(""), ""); }
