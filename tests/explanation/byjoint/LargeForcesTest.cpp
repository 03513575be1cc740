// Forces of very different sizes beside each other: what is small is not lost, and what is shown is true.
#include <gmock/gmock.h>

#include "HandSolutionFixture.h"
#include "support/Pattern.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

std::map<std::string, double> ValuesOf(const Truss& truss) {
  const TrussGraph graph = GraphOf(truss);
  return ByName(graph, SolveByHand(graph));
}

TEST(LargeForces, LoadsThatCancelLeaveWhatTheOthersCause) {
  const std::map<std::string, double> plain = ValuesOf(HandTriangle());
  for (const float load : {1e16F, 1e20F, 3e38F}) {
    EXPECT_EQ(ValuesOf(HandTriangle().Force(4, 4, load, -load).Force(4, 4, -load, load)), plain);
    // At different joints: only the member between them takes the two.
    std::map<std::string, double> pulled =
        ValuesOf(HandTriangle().Force(0, 0, -load, 0).Force(8, 0, load, 0));
    EXPECT_NEAR(pulled.at("AB") / load, -1, 1e-6);
    pulled["AB"] = plain.at("AB");
    EXPECT_EQ(pulled, plain);
  }
}

// Its forces must be found together, in doubles; only one member lies between the two large loads.
TEST(LargeForces, OneMemberTakesTwoLargeLoadsAlsoWhereTheMatrixIsNeeded) {
  const Truss hexagon = HandHexagon(4);
  ASSERT_EQ(CountSteps(SolveByHand(GraphOf(hexagon)), HandStepKind::Together), 1);
  const std::map<std::string, double> plain = ValuesOf(hexagon);
  for (const float load : {1e8F, 1e20F, 1e30F}) {
    const std::map<std::string, double> pulled =
        ValuesOf(HandHexagon(4).Force(4, 0, load, 0).Force(-5, 0, -load, 0));
    ASSERT_EQ(pulled.size(), plain.size());
    for (const auto& [name, value] : pulled) {
      if (name == "AE") {
        EXPECT_NEAR(value / load, -1, 1e-4);
      } else {
        EXPECT_NEAR(value, plain.at(name), 1e-9 * std::abs(plain.at(name))) << name << ", " << load;
      }
    }
  }
}

// Whichever member lies between the two. Forces are the decimals that they are written as, so that these lie
// exactly on its line.
TEST(LargeForces, AnyMemberTakesTheTwoLargeLoadsAtItsEnds) {
  const Truss hexagon = HandHexagon(4);
  const std::map<std::string, double> plain = ValuesOf(hexagon);
  for (const double times : {1e8, 1e20, 1e30}) {
    for (const MemberRec& member : hexagon.MembersInUse()) {
      const auto x = static_cast<float>(times * (member.X2 - member.X1));
      const auto y = static_cast<float>(times * (member.Y2 - member.Y1));
      const std::string& pulled = hexagon.Name(member.NameLabel1);
      for (const auto& [name, value] :
           ValuesOf(HandHexagon(4).Force(member.X1, member.Y1, -x, -y).Force(member.X2, member.Y2, x, y))) {
        if (name == pulled) continue;
        EXPECT_NEAR(value, plain.at(name), 1e-9 * std::abs(plain.at(name))) << name << " with " << pulled;
      }
    }
  }
}

TEST(LargeForces, AReactionThatIsNothingIsSaidToBeNothing) {
  const std::string lines = AllLines(ToldByHand(
      HandTriangle().Force(4, 4, 1e20F, -1e20F).Force(4, 4, -1e20F, 1e20F).Force(4, 4, 500, -500)));
  // 1500 down in the middle and 500 to the right 4 above the ground.
  EXPECT_THAT(lines, HasSubstr("So  B = 8000 / 8 = 1000.\n"));
  EXPECT_THAT(lines, HasSubstr("So  Ay = 500.\n"));
  EXPECT_THAT(lines, HasSubstr("So  Ax = -500, against its arrow.\n"));
}

// A check's two sides as they are told.
std::vector<Pattern::Parts> ChecksOf(const Truss& truss, int figures) {
  static const Pattern check("So  ([^ ]+) = ([^ ]+), which holds");
  return check.All(AllLines(ToldByHand(truss, figures)));
}

// A clamp and a roller so near to each other that the reactions are huge.
TrussBuilder NarrowTriangle(float width) {
  return TrussBuilder()
      .Member(0, 0, width, 0, "AB")
      .Member(0, 0, 2, 2, "AC")
      .Member(width, 0, 2, 2, "BC")
      .Clamp(0, 0, "Ax", "Ay")
      .Roller(width, 0, "B")
      .Joint(0, 0, "A")
      .Joint(width, 0, "B")
      .Joint(2, 2, "C")
      .Force(2, 2, 0, -100);
}

TrussBuilder ShallowTriangle(float height) {
  return TrussBuilder()
      .Member(0, 0, 4, 0, "AB")
      .Member(0, 0, 2, height, "AC")
      .Member(4, 0, 2, height, "BC")
      .Clamp(0, 0, "Ax", "Ay")
      .Roller(4, 0, "B")
      .Joint(0, 0, "A")
      .Joint(4, 0, "B")
      .Joint(2, height, "C")
      .Force(2, height, 0, -100);
}

TEST(LargeForces, AChecksTwoSidesAreTheSameNumber) {
  for (const float small : {0.5F, 1e-4F, 1e-6F, 1e-9F, 1e-16F, 1e-20F, 1e-30F, 1e-38F}) {
    for (const Truss& truss : {Truss(NarrowTriangle(small)), Truss(ShallowTriangle(small))}) {
      SCOPED_TRACE(small);
      EXPECT_THAT(AllLines(ToldByHand(truss)), Not(HasSubstr("false")));
      const std::vector<Pattern::Parts> checks = ChecksOf(truss, 4);
      for (const Pattern::Parts& sides : checks) EXPECT_EQ(sides.at(1), sides.at(2));
      EXPECT_GE(checks.size(), 3U);
    }
  }
}

TEST(LargeForces, ACheckThatTheShownFiguresCannotGiveSaysSo) {
  const std::string remark = "cancel here: it takes more figures of them than are shown.\n";
  EXPECT_THAT(AllLines(ToldByHand(NarrowTriangle(1e-16F))),
              AllOf(HasSubstr("0.7071 \xB7 (-2.828E+18) + 0.7071 \xB7 2.828E+18 = 100\nSo  100 = 100, which "
                              "holds.  Terms as large as 2.000E+18 " +
                              remark),
                    HasSubstr("2.828E+18 = 0\nSo  0 = 0, which holds.\n")));
  EXPECT_THAT(AllLines(ToldByHand(NarrowTriangle(0.5F))), Not(HasSubstr(remark)));
  EXPECT_THAT(AllLines(ToldByHand(HandTriangle())), Not(HasSubstr(remark)));
}

TEST(LargeForces, NothingIsDividedByAShownZero) {
  const Pattern shownZero("/ 0 |[^0-9]0 \xB7|times 0[:; ]|sin\\(0\\.?0*\xB0");
  for (const float small : {1e-6F, 1e-9F, 1e-16F, 1e-30F}) {
    for (const int figures : {2, 4, 7}) {
      for (const Truss& truss : {Truss(NarrowTriangle(small)), Truss(ShallowTriangle(small))}) {
        const std::string lines = AllLines(ToldByHand(truss, figures));
        EXPECT_FALSE(shownZero.StandsIn(lines)) << lines;
      }
    }
  }
  EXPECT_THAT(AllLines(ToldByHand(NarrowTriangle(1e-30F))), HasSubstr("B = 200 / 1.000E-30 = 2.000E+32.\n"));
  EXPECT_THAT(AllLines(ToldByHand(ShallowTriangle(1e-9F))), HasSubstr("AC sin(2.86479E-8\xB0)"));
}

}  // namespace
