// The displacements of a motion as whole numbers.
#include "explanation/ExactFactors.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <map>

#include "ExplanationFixture.h"
#include "explanation/ExactVerdict.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A member that swings about a clamp.
TrussGraph Lever(float x, float y) { return GraphOf(TrussBuilder().Member(0, 0, x, y).Clamp(0, 0)); }

TEST(ExactProportions, AreTurnedRoundWithTheMotion) {
  const TrussGraph graph = Lever(1, 3);
  Motion motion = ReasonExactly(graph).Motions.at(0);
  EXPECT_THAT(ExactProportions(graph, motion), ElementsAre(3, -1));
  for (JointDisplacement& at : motion.Joints) at = {at.Joint, -at.Dx, -at.Dy};
  EXPECT_THAT(ExactProportions(graph, motion), ElementsAre(-3, 1));
}

TEST(ExactProportions, AreThoseOfDecimalsAsTheyAreWritten) {
  const TrussGraph graph = Lever(0.1F, 0.00007F);
  EXPECT_THAT(ExactProportions(graph, ReasonExactly(graph).Motions.at(0)), ElementsAre(7, -10000));
}

TEST(ExactProportions, AreNoneWhereADoubleDoesNotHoldThem) {
  for (const float x : {-1.234567F, 1.234567F}) {
    EXPECT_THAT(ExactProportions(Lever(x, 7654321e9F), ReasonExactly(Lever(x, 7654321e9F)).Motions.at(0)),
                IsEmpty());
    EXPECT_EQ(
        ExactProportions(Lever(x, 7654321e2F), ReasonExactly(Lever(x, 7654321e2F)).Motions.at(0)).size(), 2U);
  }
}

TEST(ExactProportions, AreNoneWhereTheJointsMoveInMoreThanOneWay) {
  const TrussGraph graph = GraphOf(TrussBuilder().Member(0, 0, 4, 0));
  const Motion toTheRight{.Kind = MotionKind::Rigid, .Joints = {{1, 1, 0}, {2, 1, 0}}};
  EXPECT_THAT(ExactProportions(graph, toTheRight), IsEmpty());
}

__extension__ using Whole128 = __int128;

// How much the displacements lengthen the member, times its length; of whole coordinates.
Whole128 Lengthening(const TrussGraph& graph, const PlacedUnknown& member,
                     const std::map<int, std::pair<std::int64_t, std::int64_t>>& moved) {
  const auto displacement = [&](int joint) {
    const auto found = moved.find(joint);
    return found == moved.end() ? std::pair<std::int64_t, std::int64_t>{} : found->second;
  };
  const PlacedJoint& a = graph.Joints[member.JointA];
  const PlacedJoint& b = graph.Joints[member.JointB];
  const auto x = static_cast<std::int64_t>(a.X) - static_cast<std::int64_t>(b.X);
  const auto y = static_cast<std::int64_t>(a.Y) - static_cast<std::int64_t>(b.Y);
  return Whole128{x} * (displacement(member.JointA).first - displacement(member.JointB).first) +
         Whole128{y} * (displacement(member.JointA).second - displacement(member.JointB).second);
}

// Two levers with a member between them. The finer their places, the larger are the numbers.
TEST(ExactProportions, LengthenNoMemberOrAreNone) {
  std::mt19937 random(12);
  int numNone = 0;
  int numLarge = 0;
  for (int i = 0; i < 400; ++i) {
    const int size = std::vector{9, 999, 99999, 9999999}[static_cast<std::size_t>(i % 4)];
    const auto somewhere = [&] { return static_cast<float>(1 + Below(random, size)); };
    const float x1 = somewhere();
    const float y1 = somewhere();
    const float x2 = somewhere();
    const float y2 = somewhere();
    const float clamp = somewhere();
    const TrussGraph graph = GraphOf(TrussBuilder()
                                         .Member(0, 0, x1, y1)
                                         .Member(clamp, 0, x2, y2)
                                         .Member(x1, y1, x2, y2)
                                         .Clamp(0, 0)
                                         .Clamp(clamp, 0));
    const std::vector<Motion> motions = ReasonExactly(graph).Motions;
    if (motions.size() != 1) continue;
    const std::vector<std::int64_t> whole = ExactProportions(graph, motions.front());
    numNone += whole.empty() ? 1 : 0;
    if (whole.empty()) continue;
    std::map<int, std::pair<std::int64_t, std::int64_t>> moved;
    for (std::size_t j = 0; j < motions.front().Joints.size(); ++j)
      moved[motions.front().Joints[j].Joint] = {whole.at(2 * j), whole.at(2 * j + 1)};
    for (const PlacedUnknown& unknown : graph.Unknowns.First(graph.NumUnknowns())) {
      ASSERT_TRUE(!unknown.IsMember() || Lengthening(graph, unknown, moved) == 0) << i;
    }
    numLarge +=
        std::ranges::any_of(whole, [](std::int64_t number) { return std::abs(number) > 1'000'000'000'000; })
            ? 1
            : 0;
  }
  EXPECT_GT(numNone, 50);
  EXPECT_GT(numLarge, 20);
}

}  // namespace
