// Which forces are exactly 0, beside the verdict on the truss without each of them.
#include "explanation/ExactlyZeroForces.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "ExplanationFixture.h"
#include "explanation/ExactVerdict.h"

namespace {

// A force that is determined is 0 when the loads are still in balance without it.
bool IsZeroWithout(const TrussGraph& graph, int unknown) {
  TrussGraph without = graph;
  without.Unknowns[unknown] = {.JointA = graph.Unknowns[unknown].JointA, .Sign = 0};
  return JudgeExactly(without).Code() != Outcome::Inconsistent;
}

TEST(ExactlyZeroForces, AreThoseWithoutWhichTheLoadsAreInBalance) {
  std::mt19937 random(20261123);
  int numZero = 0, numOther = 0;
  for (int i = 0; i < 400; ++i) {
    Truss truss = RandomSmallTruss(random, 6, 4);
    const TrussAnalysis analysis = SolveTruss(truss);
    if (analysis.System.NumUnknowns() == 0) continue;
    const TrussGraph graph = GraphOf(truss, analysis);
    const ExactVerdict verdict = JudgeExactly(graph);
    if (verdict.Code() == Outcome::Inconsistent) continue;
    const std::vector<int> zero = ExactlyZeroForces(graph, verdict.Rank);
    for (const int k : verdict.Determined) {
      const bool isZero = IsZeroWithout(graph, k);
      EXPECT_EQ(std::ranges::binary_search(zero, k), isZero) << "truss " << i << ", unknown " << k;
      ++(isZero ? numZero : numOther);
    }
    for (const int k : zero) EXPECT_TRUE(std::ranges::binary_search(verdict.Determined, k)) << "truss " << i;
  }
  EXPECT_GT(numZero, 100);
  EXPECT_GT(numOther, 100);
}

// Two members that hold a load of 1 in 10^7 parts straight on: the one aside takes next to nothing, but takes
// it.
TEST(ExactlyZeroForces, AForceThatIsOnlySmallIsNone) {
  const auto hanging = [](float aside) {
    return GraphOf(TrussBuilder()
                       .Member(0, 0, 0, 1)
                       .Member(0, 0, 1, 1)
                       .Clamp(0, 1)
                       .Clamp(1, 1, "Bx", "By")
                       .Force(0, 0, aside, -1000));
  };
  const TrussGraph slightly = hanging(1e-4F);
  EXPECT_EQ(ExactlyZeroForces(slightly, JudgeExactly(slightly).Rank).size(), 1U)
      << "the reaction along x where the member stands upright";
  const TrussGraph straight = hanging(0);
  const std::vector<int> zero = ExactlyZeroForces(straight, JudgeExactly(straight).Rank);
  EXPECT_EQ(zero.size(), 4U) << "the member aside, its clamp's two reactions, and the other clamp's along x";
}

}  // namespace
