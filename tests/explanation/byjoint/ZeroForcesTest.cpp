// The rules by which members carry nothing, one by one.
#include "explanation/byjoint/ZeroForces.h"

#include "HandSolutionFixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// What the rules say of a joint when nothing is known yet.
struct RuleTold {
  std::vector<std::string> Nothing;
  std::vector<std::string> InLine;
  ZeroRule Rule = ZeroRule::Alone;
};

RuleTold TellOf(const Truss& truss, float x, float y) {
  const TrussGraph graph = GraphOf(truss);
  TrussBalance balance(graph);
  RuleTold told;
  for (int j = 1; j <= graph.NumJoints(); ++j) {
    if (graph.Joints[j].X != x || graph.Joints[j].Y != y) continue;
    const auto step = ZeroForcesAt(balance, j);
    if (!step) break;
    EXPECT_EQ(step->Joint, j);
    told.Rule = step->Rule;
    for (const UnknownForce& force : step->Solved) {
      EXPECT_EQ(force.Value, 0);
      EXPECT_TRUE(balance.IsKnownZero(force.Unknown));
      told.Nothing.push_back(graph.Unknowns[force.Unknown].Name);
    }
    for (const int k : step->InLine) told.InLine.push_back(graph.Unknowns[k].Name);
  }
  return told;
}

TEST(ZeroForces, TwoMembersOutOfLineWithoutALoadCarryNothing) {
  const RuleTold told = TellOf(TrussBuilder().Member(0, 0, 1, 2, "a").Member(0, 0, 3, 1, "b"), 0, 0);
  EXPECT_THAT(told.Nothing, ElementsAre("a", "b"));
  EXPECT_EQ(told.Rule, ZeroRule::TwoOutOfLine);
}

TEST(ZeroForces, TwoMembersInLineMayCarryAnything) {
  EXPECT_THAT(TellOf(TrussBuilder().Member(0, 0, 1, 2, "a").Member(0, 0, -2, -4, "b"), 0, 0).Nothing,
              IsEmpty());
  EXPECT_THAT(TellOf(TrussBuilder().Member(0, 0, 1, 2, "a").Member(0, 0, 2, 4, "b"), 0, 0).Nothing,
              IsEmpty());
}

TEST(ZeroForces, TwoMembersUnderALoadMayCarryAnything) {
  const Truss truss = TrussBuilder().Member(0, 0, 1, 2, "a").Member(0, 0, 3, 1, "b").Force(0, 0, 1, 1);
  EXPECT_THAT(TellOf(truss, 0, 0).Nothing, IsEmpty());
}

TEST(ZeroForces, LoadsThatCancelAreNoLoad) {
  const Truss truss = TrussBuilder()
                          .Member(0, 0, 1, 2, "a")
                          .Member(0, 0, 3, 1, "b")
                          .Force(0, 0, 0.1F, 0.2F)
                          .Force(0, 0, 0.2F, 0)
                          .Force(0, 0, -0.3F, -0.2F);
  EXPECT_THAT(TellOf(truss, 0, 0).Nothing, ElementsAre("a", "b"));
}

TEST(ZeroForces, TheThirdMemberBesideTwoInLineCarriesNothing) {
  const RuleTold told =
      TellOf(TrussBuilder().Member(0, 0, 1, 2, "a").Member(0, 0, -2, -4, "b").Member(0, 0, 3, 1, "c"), 0, 0);
  EXPECT_THAT(told.Nothing, ElementsAre("c"));
  EXPECT_THAT(told.InLine, ElementsAre("a", "b"));
  EXPECT_EQ(told.Rule, ZeroRule::ThirdOfThree);
}

TEST(ZeroForces, InLineMeansExactlyAsTheCoordinatesAreWritten) {
  // 0.1, 0.2 and 0.3 are not in line as binary numbers.
  const auto third = [](float y) {
    return TellOf(TrussBuilder()
                      .Member(0.2F, 0.2F, 0.1F, 0.1F, "a")
                      .Member(0.2F, 0.2F, 0.3F, y, "b")
                      .Member(0.2F, 0.2F, 1, 0, "c"),
                  0.2F, 0.2F)
        .Nothing;
  };
  EXPECT_THAT(third(0.3F), ElementsAre("c"));
  EXPECT_THAT(third(0.3000001F), IsEmpty());
}

TEST(ZeroForces, OfTwoMembersWithALoadAlongOneTheOtherCarriesNothing) {
  const auto other = [](float fx, float fy) {
    return TellOf(TrussBuilder().Member(0, 0, 1, 2, "a").Member(0, 0, 3, 1, "b").Force(0, 0, fx, fy), 0, 0);
  };
  EXPECT_THAT(other(6, 2).Nothing, ElementsAre("a"));
  EXPECT_THAT(other(6, 2).InLine, ElementsAre("b"));
  EXPECT_EQ(other(6, 2).Rule, ZeroRule::LoadAlongOne);
  EXPECT_THAT(other(-0.1F, -0.2F).Nothing, ElementsAre("b"));
  EXPECT_THAT(other(6, 2.000001F).Nothing, IsEmpty());
}

TEST(ZeroForces, AReactionCountsAsALoadAlongItsAxis) {
  const auto with = [](std::int16_t type) {
    return TellOf(TrussBuilder().Member(0, 0, 0, 2, "up").Member(0, 0, 3, 0, "along").Roller(0, 0, "r", type),
                  0, 0)
        .Nothing;
  };
  EXPECT_THAT(with(5), ElementsAre("along"));
  EXPECT_THAT(with(8), ElementsAre("up"));
  const Truss clamped =
      TrussBuilder().Member(0, 0, 0, 2, "up").Member(0, 0, 3, 0, "along").Clamp(0, 0, "x", "y");
  EXPECT_THAT(TellOf(clamped, 0, 0).Nothing, IsEmpty());
}

TEST(ZeroForces, AMemberAloneCarriesNothingUnlessSomethingActsAtItsEnd) {
  EXPECT_THAT(TellOf(TrussBuilder().Member(0, 0, 1, 2, "a"), 0, 0).Nothing, ElementsAre("a"));
  EXPECT_THAT(TellOf(TrussBuilder().Member(0, 0, 1, 2, "a").Force(0, 0, 0, 1), 0, 0).Nothing, IsEmpty());
  EXPECT_THAT(TellOf(TrussBuilder().Member(0, 0, 1, 2, "a").Roller(0, 0, "r"), 0, 0).Nothing, IsEmpty());
}

TEST(ZeroForces, MembersOnOneAnotherAreInLine) {
  const Truss truss = TrussBuilder()
                          .Member(0, 0, 1, 2, "a")
                          .Member(1, 2, 0, 0, "b")
                          .Member(0, 0, 3, 1, "c")
                          .Member(0, 0, 0, 0, "dot");
  EXPECT_THAT(TellOf(truss, 0, 0).Nothing, ElementsAre("c"));
}

TEST(ZeroForces, AreRepeatedUntilNothingIsNew) {
  // A tower of panels beside the loaded ones: each empties the next.
  const TrussGraph graph = GraphOf(TrussBuilder()
                                       .Member(0, 0, 4, 0, "bottom")
                                       .Member(0, 0, 2, 3, "left")
                                       .Member(4, 0, 2, 3, "right")
                                       .Member(4, 0, 6, 3, "p")
                                       .Member(2, 3, 6, 3, "q")
                                       .Member(6, 3, 7, 6, "r")
                                       .Member(2, 3, 7, 6, "s")
                                       .Clamp(0, 0, "x", "y")
                                       .Roller(4, 0, "z")
                                       .Force(2, 3, 0, -100));
  const HandSolution solution = SolveByHand(graph);
  std::vector<std::string> zero;
  for (const HandStep& step : solution.Steps) {
    if (step.Kind != HandStepKind::ZeroForce) continue;
    for (const UnknownForce& force : step.Solved) zero.push_back(graph.Unknowns[force.Unknown].Name);
  }
  EXPECT_THAT(zero, testing::UnorderedElementsAre("r", "s", "p", "q"));
  EXPECT_EQ(solution.Steps[1].Kind, HandStepKind::ZeroForce);  // right after the reactions
}

}  // namespace
