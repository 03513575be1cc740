// A student's drawing against the lecturer's.
#include "practice/KeyComparison.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "PracticeFixture.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

DrawnTruss Drawn(const Truss& truss) {
  AskedTruss asked = Asked(truss);
  return {asked.Graph, asked.Solutions};
}

KeyComparison Compare(const Truss& drawn, const Truss& key = RoundTriangle()) {
  return CompareWithKey(Drawn(key), Drawn(drawn), 1, 0.5, {});
}

TEST(KeyComparison, OfTheKeyWithItselfFindsNothing) {
  const KeyComparison same = Compare(RoundTriangle());
  EXPECT_TRUE(same.IsSame());
  EXPECT_TRUE(same.AreValuesRight);
  EXPECT_THAT(same.Remarks, IsEmpty());
  EXPECT_EQ(ComparisonAsCsv("a.trs", same), "a.trs,same,,,,right,\r\n");
  EXPECT_EQ(ComparisonInWords(same), "This is the truss of the key, with its values.\n");
}

TEST(KeyComparison, IsByPlacesAndNotByNamesOrOrderOrDirection) {
  const KeyComparison same = Compare(TrussBuilder()
                                         .Force(3, 4, 0, -400)
                                         .Roller(6, 0)
                                         .Member(3, 4, 6, 0, "AB")
                                         .Clamp(0, 0, "u", "v", 3)
                                         .Member(3, 4, 0, 0, "x")
                                         .Member(6, 0, 0, 0)
                                         .Force(3, 4, 0, -600));
  EXPECT_TRUE(same.IsSame());
  EXPECT_TRUE(same.AreValuesRight);
  EXPECT_THAT(same.Remarks, IsEmpty());
}

TEST(KeyComparison, CountsMembersThatAreMissingAndTooMany) {
  const KeyComparison other = Compare(TrussBuilder()
                                          .Member(0, 0, 6, 0)
                                          .Member(0, 0, 3, 4)
                                          .Member(3, 4, 9, 0)
                                          .Member(0, 0, 6, 0)
                                          .Clamp(0, 0)
                                          .Roller(6, 0)
                                          .Force(3, 4, 0, -1000));
  EXPECT_EQ(other.Members.Text(), "-1+2");
  EXPECT_EQ(other.Supports.Text(), "");
  EXPECT_EQ(other.Loads.Text(), "");
  EXPECT_THAT(other.Remarks, ElementsAre("The member from (0, 0) to (6, 0) is there once too often.",
                                         "The member from (3, 4) to (9, 0) is not in the key.",
                                         "The member from (6, 0) to (3, 4) is missing."));
  EXPECT_EQ(
      ComparisonAsCsv("b.trs", other),
      "b.trs,differs,-1+2,,,,\"The member from (0, 0) to (6, 0) is there once too often. The member from "
      "(3, 4) to (9, 0) is not in the key. The member from (6, 0) to (3, 4) is missing.\"\r\n");
}

Truss TriangleWith(std::int16_t roller, float fx, float fy) {
  return TrussBuilder()
      .Member(0, 0, 6, 0)
      .Member(0, 0, 3, 4)
      .Member(6, 0, 3, 4)
      .Clamp(0, 0)
      .Roller(6, 0, "R", roller)
      .Force(3, 4, fx, fy);
}

TEST(KeyComparison, TellsSupportsThatDiffer) {
  const KeyComparison other = Compare(TriangleWith(8, 0, -1000));
  EXPECT_EQ(other.Supports.Text(), "-1+1");
  EXPECT_THAT(other.Remarks,
              ElementsAre("At (6, 0) stands a roller that pushes to the right in place of a roller that "
                          "pushes up."));
  const KeyComparison clamps = Compare(TrussBuilder()
                                           .Member(0, 0, 6, 0)
                                           .Member(0, 0, 3, 4)
                                           .Member(6, 0, 3, 4)
                                           .Clamp(6, 0)
                                           .Force(3, 4, 0, -1000));
  EXPECT_EQ(clamps.Supports.Text(), "-2+1");
  EXPECT_THAT(clamps.Remarks, ElementsAre("At (0, 0) a clamp is missing.",
                                          "At (6, 0) stands a clamp in place of a roller that pushes up."));
}

TEST(KeyComparison, TellsLoadsThatDiffer) {
  EXPECT_EQ(Compare(TriangleWith(5, 0, -1000)).Loads.Text(), "");
  EXPECT_EQ(Compare(TriangleWith(5, 0, -1000.005F)).Loads.Text(), "") << "rounded where it was typed";
  const KeyComparison other = Compare(TriangleWith(5, 0, 1000));
  EXPECT_EQ(other.Loads.Text(), "-1+1");
  EXPECT_THAT(other.Remarks,
              ElementsAre("At (3, 4) stands a load of (0, 1000) in place of a load of (0, -1000)."));
  EXPECT_EQ(Compare(TriangleWith(5, 0, 0)).Loads.Text(), "-1");
}

TEST(KeyComparison, TellsAPlaceThatIsOffByUpToATenthOfTheGrid) {
  const auto with = [](float x, float y) {
    return TrussBuilder()
        .Member(0, 0, 6, 0, "AB")
        .Member(0, 0, x, y, "AC")
        .Member(6, 0, x, y, "BC")
        .Clamp(0, 0)
        .Roller(6, 0)
        .Force(x, y, 0, -1000);
  };
  const KeyComparison near = Compare(with(3.09F, 4.04F));
  EXPECT_TRUE(near.IsSame());
  EXPECT_THAT(near.Remarks, Contains("The joint at (3.09, 4.04) is taken for that at (3, 4) of the key."));
  EXPECT_FALSE(near.AreValuesRight) << "3 % make a difference";
  EXPECT_EQ(Compare(with(3.01F, 4)).AreValuesRight, true);
  EXPECT_FALSE(Compare(with(3.11F, 4)).IsSame()) << "across the grid";
  EXPECT_FALSE(Compare(with(3, 4.06F)).IsSame()) << "the grid is finer upwards";
}

TEST(KeyComparison, TakesEndsThatOnlyNearlyMeetForWhatTheyAre) {
  const KeyComparison other = Compare(TrussBuilder()
                                          .Member(0, 0, 6, 0)
                                          .Member(0, 0, 3.02F, 4)
                                          .Member(6, 0, 3, 4)
                                          .Clamp(0, 0)
                                          .Roller(6, 0)
                                          .Force(3, 4, 0, -1000));
  EXPECT_EQ(other.Members.Text(), "-1+1");
  EXPECT_THAT(other.Remarks, Contains("The end at (3.02, 4) is not joined to the joint at (3, 4)."));
  EXPECT_THAT(other.Remarks, Contains("The member from (0, 0) to (3.02, 4) is not in the key."));
}

TEST(KeyComparison, SaysWhenTheWholeTrussStandsElsewhere) {
  const KeyComparison other = Compare(TrussBuilder()
                                          .Member(2, 1, 8, 1)
                                          .Member(2, 1, 5, 5)
                                          .Member(8, 1, 5, 5)
                                          .Clamp(2, 1)
                                          .Roller(8, 1)
                                          .Force(5, 5, 0, -1000));
  EXPECT_FALSE(other.IsSame());
  EXPECT_EQ(other.Remarks.front(), "The whole truss stands off by (2, 1).");
}

TEST(KeyComparison, OfWhatHasNoSolutionAgreesWhenNeitherHas) {
  const Truss square = TrussBuilder().Member(0, 0, 4, 0, "a").Clamp(0, 0, "x", "y").Force(4, 0, 0, -1);
  EXPECT_TRUE(Compare(square, square).AreValuesRight);
}

TEST(KeyComparison, OfNothingIsAllMissing) {
  const KeyComparison none = Compare(Truss());
  EXPECT_EQ(none.Members.Text(), "-3");
  EXPECT_EQ(none.Supports.Text(), "-2");
  EXPECT_EQ(none.Loads.Text(), "-1");
  EXPECT_EQ(Compare(RoundTriangle(), Truss()).Members.Text(), "+3");
}

}  // namespace
