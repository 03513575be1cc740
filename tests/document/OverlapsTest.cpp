// Supports at one place and members on one another.
#include "document/Overlaps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/TrussBuilder.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(FindOverlaps, ATrussThatIsDrawnWellHasNone) {
  const Overlaps overlaps = FindOverlaps(
      TrussBuilder().Member(0, 0, 4, 0).Member(4, 0, 2, 3).Member(2, 3, 0, 0).Clamp(0, 0).Roller(4, 0));
  EXPECT_THAT(overlaps.Supports, IsEmpty());
  EXPECT_THAT(overlaps.Members, IsEmpty());
}

TEST(FindOverlaps, SupportsAtOnePlaceAreCountedWhateverTheirKind) {
  const Overlaps overlaps = FindOverlaps(
      TrussBuilder().Roller(8, 1).Clamp(0, 0).Roller(4, 0).Roller(0, 0, "B", 7).Roller(8, 1).Clamp(0, 0));
  EXPECT_THAT(overlaps.Supports, ElementsAre(SupportOverlap{8, 1, 2}, SupportOverlap{0, 0, 3}));
}

TEST(FindOverlaps, MembersWithTheSameEndsInEitherOrderLieOnOneAnother) {
  const Overlaps overlaps = FindOverlaps(TrussBuilder()
                                             .Member(9, 9, 9, 8)
                                             .Member(0, 0, 4, 3)
                                             .Member(4, 3, 0, 0)
                                             .Member(9, 8, 9, 9)
                                             .Member(0, 0, 4, 3));
  EXPECT_THAT(overlaps.Members, ElementsAre(MemberOverlap{1, 2}, MemberOverlap{2, 3}));
}

TEST(FindOverlaps, MembersThatShareOneEndOrAPartOfTheirLineAreNone) {
  EXPECT_THAT(FindOverlaps(TrussBuilder().Member(0, 0, 4, 0).Member(0, 0, 8, 0).Member(4, 0, 8, 0)).Members,
              IsEmpty());
}

TEST(FindOverlaps, EndsThatSwapTheirCoordinatesAreOtherEnds) {
  EXPECT_THAT(FindOverlaps(TrussBuilder().Member(0, 1, 2, 3).Member(1, 0, 3, 2).Member(0, 3, 2, 1)).Members,
              IsEmpty());
}

TEST(FindOverlaps, WhatIsErasedCountsNoMore) {
  const Overlaps overlaps = FindOverlaps(
      TrussBuilder().Member(0, 0, 4, 0).Member(0, 0, 4, 0).ThenErased().Clamp(0, 0).ThenErased().Clamp(0, 0));
  EXPECT_THAT(overlaps.Supports, IsEmpty());
  EXPECT_THAT(overlaps.Members, IsEmpty());
}

TEST(FindOverlaps, PlacesAreComparedBitByBitButZeroHasNoSign) {
  EXPECT_THAT(FindOverlaps(TrussBuilder().Clamp(0, 1).Clamp(-0.0F, 1)).Supports,
              ElementsAre(SupportOverlap{0, 1, 2}));
  EXPECT_THAT(FindOverlaps(TrussBuilder().Clamp(1, 1).Clamp(1.0000001F, 1)).Supports, IsEmpty());
}

}  // namespace
