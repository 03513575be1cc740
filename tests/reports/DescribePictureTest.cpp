// What the pictures of the printable report say to those who cannot see them.
#include "reports/DescribePicture.h"

#include <gmock/gmock.h>

#include "support/TrussBuilder.h"

using ::testing::EndsWith;
using ::testing::HasSubstr;

namespace {

constexpr PictureContent WithForces{.ForceValues = true, .Names = false};
constexpr PictureContent NamesAlone{.ForceValues = false, .Names = true};

TrussBuilder Rod() {
  return TrussBuilder().Member(0, 0, 4, 0, "AB").Clamp(0, 0, "Ax", "Ay").Joint(0, 0, "A").Joint(4, 0, "B");
}

}  // namespace

TEST(DescribePicture, CountsWhatIsToBeSeen) {
  const Truss truss = Rod()
                          .Member(4, 0, 4, 3, "BC")
                          .Roller(4, 0, "By")
                          .Roller(4, 3, "Cy")
                          .Force(4, 3, 0, -1)
                          .Force(4, 0, 2, 0)
                          .Joint(4, 3, "C");
  EXPECT_EQ(
      DescribePicture(truss, WithForces),
      "Drawing of a truss with 2 members, 3 joints, 3 supports (1 clamp, 2 rollers) and 2 applied forces "
      "(its size beside each arrow). Names are not shown.");
}

TEST(DescribePicture, OneOfAKindAndNone) {
  EXPECT_EQ(
      DescribePicture(TrussBuilder().Roller(0, 0, "R").Force(0, 0, 1, 0), WithForces),
      "Drawing of a truss with no members, 1 joint, 1 support (no clamps, 1 roller) and 1 applied force "
      "(its size beside each arrow). Names are not shown.");
  EXPECT_THAT(DescribePicture(Rod(), WithForces),
              HasSubstr("1 member, 2 joints, 1 support (1 clamp, no rollers) and no applied forces. "));
  EXPECT_THAT(DescribePicture(TrussBuilder(), WithForces),
              HasSubstr("no members, no joints, no supports and no applied forces. "));
}

TEST(DescribePicture, WhatIsErasedIsNotToBeSeen) {
  Truss truss = Rod().Member(0, 0, 4, 0).Force(4, 0, 2, 0).Force(4, 0, 3, 0);
  truss.Members[2].Live = false;
  truss.Supports[1].Live = false;
  truss.Forces[1].Active = false;
  EXPECT_THAT(DescribePicture(truss, NamesAlone),
              HasSubstr("1 member, 2 joints, no supports and 1 applied force. "));
  EXPECT_THAT(DescribePicture(truss, NamesAlone), EndsWith("are named.")) << "the erased member has no name";
}

TEST(DescribePicture, OfTheSupportsOnlyLiveOnesAreClampsOrRollers) {
  EXPECT_THAT(DescribePicture(Rod().Roller(4, 0, "R").Clamp(4, 0, "x", "y").ThenErased(), WithForces),
              HasSubstr("2 supports (1 clamp, 1 roller)"));
}

TEST(DescribePicture, SaysHowFarItIsNamed) {
  EXPECT_THAT(DescribePicture(Rod(), NamesAlone),
              EndsWith("forces. Joints, member forces and reaction forces are named."));
  EXPECT_THAT(DescribePicture(Rod().Member(4, 0, 4, 3).Roller(4, 0), NamesAlone),
              EndsWith("are named, but for 3 of 8."));
  EXPECT_THAT(DescribePicture(TrussBuilder().Member(0, 0, 4, 0).Roller(0, 0), NamesAlone),
              EndsWith("Nothing is named yet."));
}
