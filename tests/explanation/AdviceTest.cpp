// What is advised, in which order, and what is not.
#include "explanation/Advice.h"

#include <gmock/gmock.h>

#include <array>
#include <sstream>

#include "ExplanationFixture.h"
#include "explanation/Contradiction.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

std::string Place(const TrussGraph& graph, int joint) {
  std::ostringstream text;
  text << graph.Joints[joint].X << "," << graph.Joints[joint].Y;
  return text.str();
}

std::string Written(const TrussGraph& graph, const Advice& advice) {
  if (advice.Kind == AdviceKind::Remove) return "without " + graph.Unknowns[advice.Unknown].Name;
  if (advice.Kind == AdviceKind::SplitMember) return "split " + graph.Unknowns[advice.Unknown].Name;
  const std::string first = Place(graph, advice.JointA);
  if (advice.Kind == AdviceKind::AddRoller)
    return first + (advice.Along == Axis::X ? " along x" : " along y");
  if (advice.Kind == AdviceKind::TurnRoller)
    return "turn " + first + (advice.Along == Axis::X ? " along x" : " along y");
  if (advice.Kind == AdviceKind::ClampForRoller) return "clamp " + first;
  if (advice.Kind == AdviceKind::MoveForce) return "move " + first;
  const std::string second = Place(graph, advice.JointB);
  if (advice.Kind == AdviceKind::JoinEnds) return "join " + first + " and " + second;
  return std::min(first, second) + " to " + std::max(first, second);
}

// In a drawing 20 wide, 15 high, whose thousandth is 0.02.
NearPlaces OnTheUsualDrawing() {
  return {DocumentSettings{}, {.Bounds = {}, .SnapX = 0.4F, .SnapY = 0.4F}, 20};
}

std::vector<std::string> AdviceOn(const Truss& truss) {
  const TrussGraph graph = GraphOf(truss);
  std::vector<std::string> texts;
  for (const Advice& advice : AdviceFor(graph, ReasonExactly(graph), OnTheUsualDrawing()))
    texts.push_back(Written(graph, advice));
  return texts;
}

std::vector<std::string> OnlyAdditions(std::vector<std::string> advice) {
  std::erase_if(advice, [](const std::string& text) {
    return std::ranges::any_of(std::array{"clamp", "turn", "join", "split", "move", "without"},
                               [&text](const char* kind) { return text.starts_with(kind); });
  });
  return advice;
}

TEST(Advice, ATrussThatTurnsAboutItsClampIsHeldWhereItMovesMostInOneOfTwoWays) {
  EXPECT_THAT(AdviceOn(TrussBuilder().Member(0, 0, 4, 0).Member(4, 0, 2, 2).Member(2, 2, 0, 0).Clamp(0, 0)),
              ElementsAre("4,0 along y", "2,2 along x"));
}

TEST(Advice, TheShortestMemberComesFirst) {
  EXPECT_THAT(
      AdviceOn(
          TrussBuilder().Member(0, 0, 1, 2).Member(4, 0, 5, 2).Member(1, 2, 5, 2).Clamp(0, 0).Clamp(4, 0)),
      ElementsAre("1,2 to 4,0", "0,0 to 5,2"));
}

TEST(Advice, NoMemberIsAdvisedThatLiesAcrossAThirdJoint) {
  // Both diagonals of the square run through the joint in its middle.
  const std::vector<std::string> advice = AdviceOn(TrussBuilder()
                                                       .Member(0, 0, 0, 4)
                                                       .Member(4, 0, 4, 4)
                                                       .Member(0, 4, 4, 4)
                                                       .Member(0, 0, 2, 2)
                                                       .Member(4, 0, 2, 2)
                                                       .Clamp(0, 0)
                                                       .Clamp(4, 0));
  EXPECT_THAT(advice, Contains("0,4 to 2,2"));
  EXPECT_THAT(advice, Contains("2,2 to 4,4"));
  EXPECT_THAT(advice, Not(Contains("0,0 to 4,4")));
  EXPECT_THAT(advice, Not(Contains("0,4 to 4,0")));
}

TEST(Advice, OfTheMembersThatCanGoTheLongestComeFirst) {
  EXPECT_THAT(AdviceOn(TrussBuilder()
                           .Member(0, 0, 4, 0, "s1")
                           .Member(4, 0, 4, 3, "s2")
                           .Member(4, 3, 0, 3, "s3")
                           .Member(0, 3, 0, 0, "s4")
                           .Member(0, 0, 4, 3, "d1")
                           .Member(4, 0, 0, 3, "d2")
                           .Clamp(0, 0, "x", "y")
                           .Roller(4, 0, "r")),
              ElementsAre("without d1", "without d2", "without s1", "without s3", "without s2"));
}

// Two clamps push against each other through the chord: one of their four reactions is too many.
TEST(Advice, OfSupportsOneTooManyAReactionCanGo) {
  const Truss truss = TrussBuilder()
                          .Member(0, 0, 4, 0, "AB")
                          .Member(0, 0, 2, 3, "AC")
                          .Member(4, 0, 2, 3, "BC")
                          .Clamp(0, 0, "Ax", "Ay")
                          .Clamp(4, 0, "Bx", "By")
                          .Force(2, 3, 0, -1000);
  EXPECT_THAT(AdviceOn(truss), ElementsAre("without Ax", "without Bx", "without AB"));
}

TEST(Advice, OfManyReactionsNotAllAreNamedSoThatMembersAreToo) {
  TrussBuilder builder;
  for (int i = 0; i < 6; ++i)
    builder.Clamp(static_cast<float>(i), 0, "x" + std::to_string(i), "y" + std::to_string(i));
  for (int i = 0; i < 5; ++i)
    builder.Member(static_cast<float>(i), 0, static_cast<float>(i) + 1, 0, "m" + std::to_string(i));
  const std::vector<std::string> advice = AdviceOn(builder);
  EXPECT_EQ(advice.size(), 5U);
  EXPECT_EQ(
      std::ranges::count_if(advice, [](const std::string& text) { return text.starts_with("without m"); }),
      2);
}

// Two rollers hold the beam up and let it slide: the third support goes where none stands.
TEST(Advice, ARollerIsAdvisedWhereNoSupportStands) {
  EXPECT_THAT(OnlyAdditions(AdviceOn(TrussBuilder()
                                         .Member(0, 0, 4, 0)
                                         .Member(0, 0, 2, 3)
                                         .Member(4, 0, 2, 3)
                                         .Roller(0, 0, "A")
                                         .Roller(4, 0, "B"))),
              ElementsAre("2,3 along x"));
}

TEST(Advice, WhereEveryJointHasASupportOneOfThemBecomesAClamp) {
  EXPECT_THAT(OnlyAdditions(AdviceOn(TrussBuilder().Member(0, 0, 4, 0).Roller(0, 0, "A").Roller(4, 0, "B"))),
              ElementsAre("0,0 along x"));
}

TEST(Advice, NoRollerIsAdvisedWhereAClampOrOneOfItsKindStands) {
  std::mt19937 random(12);
  int numRollers = 0;
  for (int i = 0; i < 500; ++i) {
    const TrussGraph graph = GraphOf(RandomSmallTruss(random, 6, 5));
    if (graph.NumUnknowns() == 0) continue;
    for (const Advice& advice : AdviceFor(graph, ReasonExactly(graph), {})) {
      if (advice.Kind != AdviceKind::AddRoller) continue;
      ++numRollers;
      for (const PlacedUnknown& unknown : graph.Unknowns.First(graph.NumUnknowns())) {
        const bool isThere = !unknown.IsMember() && unknown.JointA == advice.JointA;
        EXPECT_FALSE(isThere && unknown.Along == advice.Along) << "truss " << i;
      }
    }
  }
  EXPECT_GT(numRollers, 100);
}

// The triangle stands on a clamp and a roller whose line passes through the clamp.
TEST(Advice, ARollerThatHoldsTheWrongWayIsTurned) {
  const auto triangle = TrussBuilder().Member(0, 0, 4, 0).Member(4, 0, 2, 3).Member(2, 3, 0, 0).Clamp(0, 0);
  EXPECT_THAT(AdviceOn(TrussBuilder(triangle).Roller(4, 0, "R", 8)).front(), "turn 4,0 along y");
  EXPECT_THAT(AdviceOn(TrussBuilder(triangle).Roller(4, 0, "R")), testing::IsEmpty());
}

TEST(Advice, OneOfThreeParallelRollersIsTurned) {
  const Truss truss = TrussBuilder()
                          .Member(0, 0, 4, 0)
                          .Member(4, 0, 8, 0)
                          .Member(0, 0, 2, 3)
                          .Member(4, 0, 2, 3)
                          .Member(4, 0, 6, 3)
                          .Member(8, 0, 6, 3)
                          .Member(2, 3, 6, 3)
                          .Roller(0, 0, "A")
                          .Roller(4, 0, "B")
                          .Roller(8, 0, "C");
  const std::vector<std::string> advice = AdviceOn(truss);
  ASSERT_GE(advice.size(), 3U);
  EXPECT_THAT(std::vector(advice.begin(), advice.begin() + 3),
              ElementsAre("turn 0,0 along x", "turn 4,0 along x", "turn 8,0 along x"));
}

TEST(Advice, ARollerIsNotTurnedWhereThatLetsGoAsMuchAsItHolds) {
  // It slides on the first roller; turned, it would turn about the second, which stands on a clamp's line.
  EXPECT_THAT(AdviceOn(TrussBuilder()
                           .Member(0, 0, 4, 0)
                           .Member(4, 0, 2, 3)
                           .Member(2, 3, 0, 0)
                           .Roller(0, 0, "A", 5)
                           .Clamp(9, 9)),
              Not(Contains(testing::StartsWith("turn 0,0"))));
}

// The strut CE ends 0.02 beside the foot D, which is free to move, as is its own end.
TrussBuilder NearFoot(float gap) {
  return TrussBuilder()
      .Member(0, 0, 4, 0, "AD")
      .Member(4, 0, 8, 0, "BD")
      .Member(0, 0, 4, 3, "AC")
      .Member(8, 0, 4, 3, "BC")
      .Member(4, 3, 4 + gap, 0, "CE")
      .Clamp(0, 0)
      .Roller(8, 0);
}

TEST(Advice, EndsThatNearlyMeetAreJoinedBeforeAnythingElse) {
  for (const float gap : {0.02F, 0.3F}) {
    const std::vector<std::string> advice = AdviceOn(NearFoot(gap));
    const std::string end = gap < 0.1F ? "4.02,0" : "4.3,0";
    EXPECT_EQ(advice.front(), "join 4,0 and " + end);
    for (const std::string& text : advice) EXPECT_THAT(text, Not(testing::HasSubstr(" to ")));
  }
  EXPECT_THAT(AdviceOn(NearFoot(0.5F)), Not(Contains(testing::StartsWith("join"))));
  EXPECT_THAT(AdviceOn(NearFoot(0.5F)), Contains("4,0 to 4,3"));
}

TEST(Advice, EndsAreNotJoinedWhereThatStopsNothingOrAMemberIsBetweenThem) {
  EXPECT_THAT(AdviceOn(NearFoot(0.02F).Member(4, 0, 4.02F, 0, "DE")),
              Not(Contains(testing::StartsWith("join"))));
  // The strut's foot has a support of its own, and the chord's joint another one.
  EXPECT_THAT(AdviceOn(NearFoot(0.02F).Clamp(4.02F, 0).Roller(4, 0).Member(11, 0, 12, 0)),
              Not(Contains(testing::StartsWith("join"))));
}

// The mouse would join them, but as seen from their members they are far apart.
TEST(Advice, EndsOfShortMembersAreNotJoinedAcrossAsMuchAsAQuarterOfThem) {
  const auto apart = [](float gap) {
    return TrussBuilder().Member(5, 5, 5, 6).Clamp(5, 5).Member(5 + gap, 6, 6 + gap, 6).Clamp(6 + gap, 6);
  };
  EXPECT_THAT(AdviceOn(apart(0.2F)), Contains("join 5,6 and 5.2,6"));
  EXPECT_THAT(AdviceOn(apart(0.3F)), Not(Contains(testing::StartsWith("join"))));
}

TEST(Advice, NoMemberIsAdvisedThatLiesOnAnother) {
  // The long member passes over the joint (4, 0), at which two others meet; from there a member to either of
  // its ends would lie on it.
  const std::vector<std::string> advice = AdviceOn(TrussBuilder()
                                                       .Member(0, 0, 8, 0.1F)
                                                       .Member(4, 0.05F, 3, 4)
                                                       .Member(3, 4, 0, 0)
                                                       .Member(3, 4, 8, 0.1F)
                                                       .Clamp(0, 0)
                                                       .Roller(8, 0.1F));
  EXPECT_THAT(advice, Not(Contains("0,0 to 4,0.05")));
  EXPECT_THAT(advice, Not(Contains("4,0.05 to 8,0.1")));
  EXPECT_THAT(advice, Not(testing::IsEmpty()));
}

TEST(Advice, MembersForSeveralMotionsStandWithTheShortestFirst) {
  // Two parallelograms, the small one on the right.
  const std::vector<std::string> advice = AdviceOn(TrussBuilder()
                                                       .Member(0, 0, 1, 4)
                                                       .Member(6, 0, 7, 4)
                                                       .Member(1, 4, 7, 4)
                                                       .Clamp(0, 0)
                                                       .Clamp(6, 0)
                                                       .Member(12, 0, 12, 1)
                                                       .Member(13, 0, 13, 1)
                                                       .Member(12, 1, 13, 1)
                                                       .Clamp(12, 0)
                                                       .Clamp(13, 0));
  ASSERT_GE(advice.size(), 4U);
  EXPECT_THAT(std::vector(advice.begin(), advice.begin() + 2),
              testing::UnorderedElementsAre("12,0 to 13,1", "12,1 to 13,0"));
  EXPECT_THAT(advice, Contains("1,4 to 6,0"));
}

// On trusses of all kinds, as the checks of a drawing see them.
TEST(Advice, MakesNoMistakeThatTheChecksOfTheDrawingWouldFind) {
  std::mt19937 random(31);
  int numMembers = 0;
  const NearPlaces near = OnTheUsualDrawing();
  for (int i = 0; i < 400; ++i) {
    const TrussGraph graph = GraphOf(RandomSmallTruss(random, 8, 5));
    if (graph.NumUnknowns() == 0) continue;
    double longest = 0;
    for (const Advice& advice : AdviceFor(graph, ReasonExactly(graph), near)) {
      if (advice.Kind != AdviceKind::AddMember) continue;
      ++numMembers;
      const PlacedJoint& a = graph.Joints[advice.JointA];
      const PlacedJoint& b = graph.Joints[advice.JointB];
      const MemberLine line(a, b);
      EXPECT_GE(line.Length(), longest) << "truss " << i;
      longest = line.Length();
      for (const PlacedJoint& joint : graph.Joints.First(graph.NumJoints()))
        EXPECT_FALSE(near.PassesThrough(line, joint)) << "truss " << i;
      for (const PlacedUnknown& member : graph.Unknowns.First(graph.NumUnknowns())) {
        EXPECT_FALSE(member.IsMember() &&
                     near.LieOnOneAnother(a, b, graph.Joints[member.JointA], graph.Joints[member.JointB]))
            << "truss " << i;
      }
    }
  }
  EXPECT_GT(numMembers, 300);
}

TEST(ContradictionProof, IsFromTheDrivenMotionOfTheFewestJoints) {
  const auto panel = [](TrussBuilder& builder) {
    builder.Member(0, 0, 1, 2)
        .Member(4, 0, 5, 2)
        .Member(1, 2, 5, 2)
        .Clamp(0, 0)
        .Clamp(4, 0)
        .Force(1, 2, 7, 0);
  };
  const auto pendulum = [](TrussBuilder& builder) {
    builder.Member(9, 4, 9, 2).Clamp(9, 4).Force(9, 2, 3, 0);
  };
  const auto still = [](TrussBuilder& builder) { builder.Member(12, 4, 12, 2).Clamp(12, 4); };
  for (const bool panelFirst : {true, false}) {
    TrussBuilder builder;
    still(builder);
    if (panelFirst) panel(builder);
    pendulum(builder);
    if (!panelFirst) panel(builder);
    const TrussGraph graph = GraphOf(builder);
    const auto proof = ProveContradiction(graph, ReasonExactly(graph).Motions);
    ASSERT_TRUE(proof);
    ASSERT_EQ(proof->Equations.size(), 1U);
    EXPECT_EQ(Place(graph, proof->Equations[0].Joint), "9,2");
    EXPECT_EQ(proof->Sum, 3);
  }
}

}  // namespace
