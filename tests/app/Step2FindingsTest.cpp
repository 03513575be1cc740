// What is said about a drawing before its forces are named.
#include "app/Step2Findings.h"

#include <gtest/gtest.h>

#include "support/TrussBuilder.h"

namespace {

TEST(Step2Findings, AreNoneForATrussThatIsDrawnWell) {
  EXPECT_EQ(Step2Findings(TrussBuilder().Member(0, 0, 4, 0).Clamp(0, 0).Roller(4, 0), 0, {}), "");
}

TEST(Step2Findings, TellWhereSupportsStandOnOneAnother) {
  EXPECT_EQ(Step2Findings(TrussBuilder().Clamp(4, 0.5F).Roller(4, 0.5F), 0, {}),
            " Supports stand on one another at (4, 0.5). ");
}

TEST(Step2Findings, TellBetweenWhichEndsMembersLieOnOneAnother) {
  EXPECT_EQ(Step2Findings(
                TrussBuilder().Member(0, 0, 4, -3).Member(4, -3, 0, 0).Member(1, 1, 2, 2).Member(1, 1, 2, 2),
                0, {}),
            " Members lie on one another from (0, 0) to (4, -3) and from (1, 1) to (2, 2). ");
}

TEST(Step2Findings, CountWhatWouldMakeTheLineTooLong) {
  TrussBuilder builder;
  for (const float x : {1.0F, 2.0F, 3.0F}) builder.Roller(x, 0).Roller(x, 0);
  EXPECT_EQ(Step2Findings(builder, 0, {}),
            " Supports stand on one another at (1, 0), at (2, 0) and 1 more place. ");
  builder.Roller(4, 0).Roller(4, 0);
  EXPECT_EQ(Step2Findings(builder, 0, {}),
            " Supports stand on one another at (1, 0), at (2, 0) and 2 more places. ");
}

TEST(Step2Findings, CountTheNamesOutsideTheDrawingAndTellTheRemedy) {
  const Truss truss = TrussBuilder().Member(0, 0, 4, 0);
  EXPECT_EQ(Step2Findings(truss, 1, {}), " 1 name lies outside the drawing; Settings can widen it. ");
  EXPECT_EQ(Step2Findings(truss, 12, {}), " 12 names lie outside the drawing; Settings can widen it. ");
}

TEST(Step2Findings, WriteNumbersAsTheUserDoes) {
  EXPECT_EQ(Step2Findings(TrussBuilder().Roller(1.0F / 3, 0).Roller(1.0F / 3, 0), 0, {","}),
            " Supports stand on one another at (0,3333333, 0). ");
}

TEST(Step2Findings, ComeOneAfterTheOther) {
  const Truss truss =
      TrussBuilder().Member(0, 0, 4, 0).Member(0, 0, 4, 0).Clamp(0, 0).Clamp(0, 0).Roller(4, 0);
  EXPECT_EQ(Step2Findings(truss, 2, {}),
            " Supports stand on one another at (0, 0).  Members lie on one another from (0, 0) to (4, 0). "
            " 2 names lie outside the drawing; Settings can widen it. ");
}

}  // namespace
