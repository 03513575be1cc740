// Which element's name a truss file cannot hold.
#include "document/BrokenName.h"

#include <gtest/gtest.h>

#include "support/TrussBuilder.h"

namespace {

TEST(ElementWithBrokenName, AreReactionsMembersAndJoints) {
  EXPECT_EQ(ElementWithBrokenName(TrussBuilder().Clamp(0, 0, "A\"x", "Ay")), "reaction \"A\"x\"");
  EXPECT_EQ(ElementWithBrokenName(TrussBuilder().Clamp(0, 0, "Ax", "A\"y")), "reaction \"A\"y\"");
  EXPECT_EQ(ElementWithBrokenName(TrussBuilder().Roller(0, 0, "\"")), "reaction \"\"\"");
  EXPECT_EQ(ElementWithBrokenName(TrussBuilder().Member(0, 0, 4, 0, "a\",\"b")), "member \"a\",\"b\"");
  EXPECT_EQ(ElementWithBrokenName(TrussBuilder().Member(0, 0, 4, 0, "A").Joint(0, 0, "5\"")),
            "joint \"5\"\"");
}

TEST(ElementWithBrokenName, IsTheFirstInTheOrderOfTheFile) {
  const Truss truss = TrussBuilder().Member(0, 0, 4, 0, "m\"").Joint(0, 0, "j\"").Roller(0, 0, "r\"");
  EXPECT_EQ(ElementWithBrokenName(truss), "reaction \"r\"\"");
}

TEST(ElementWithBrokenName, ErasedElementsStandInNoFile) {
  Truss truss = TrussBuilder().Member(0, 0, 4, 0, "m\"").Roller(0, 0, "r\"");
  truss.Members[1].Live = false;
  truss.Supports[1].Live = false;
  EXPECT_EQ(ElementWithBrokenName(truss), "");
}

TEST(ElementWithBrokenName, IsShownOnOneLineInUtf8AndShort) {
  EXPECT_EQ(ElementWithBrokenName(TrussBuilder().Member(0, 0, 4, 0, "\xE9\n\"")),
            "member \"\xC3\xA9\xE2\x90\x8A\"\"");
  const std::string element =
      ElementWithBrokenName(TrussBuilder().Member(0, 0, 4, 0, std::string(5000, 'x') + "\""));
  EXPECT_EQ(element, "member \"" + std::string(40, 'x') + "...\"");
}

}  // namespace
