// With which factors equations are shown to contradict each other, from small whole ones to those that no
// double holds.
#include "explanation/Contradiction.h"

#include <gmock/gmock.h>

#include "ExplanationFixture.h"
#include "explanation/ExactVerdict.h"

namespace {

// A member from (x, 0) that swings about a clamp, under a load to the right.
ContradictionProof ProofOfLever(float x, float topX, float topY) {
  const TrussGraph graph =
      GraphOf(TrussBuilder().Member(x, 0, topX, topY).Clamp(x, 0).Force(topX, topY, 1000, 0));
  return ProveContradiction(graph, ReasonExactly(graph).Motions).value();
}

double RatioOfFactors(const ContradictionProof& proof) {
  return proof.Equations.at(0).Factor / proof.Equations.at(1).Factor;
}

TEST(ProveContradiction, TakesWholeFactorsUpTo9999) {
  const ContradictionProof proof = ProofOfLever(0, 1, 9999);
  EXPECT_TRUE(proof.IsWhole);
  EXPECT_EQ(proof.Equations.at(0).Factor, -9999);
  EXPECT_EQ(proof.Equations.at(1).Factor, 1);
}

TEST(ProveContradiction, LargerFactorsAreExactButNotSmall) {
  const ContradictionProof proof = ProofOfLever(0, 1, 20000);
  EXPECT_FALSE(proof.IsWhole);
  EXPECT_TRUE(proof.IsExact);
  EXPECT_EQ(RatioOfFactors(proof), -20000);
}

// By three and one the equations would cancel but for the tenth figure.
TEST(ProveContradiction, DoesNotTakeTheWholeFactorsOfANeighbouringSlope) {
  const ContradictionProof proof = ProofOfLever(1e-10F, 1, 3);
  EXPECT_FALSE(proof.IsWhole);
  EXPECT_TRUE(proof.IsExact);
  EXPECT_NE(RatioOfFactors(proof), -3);
  EXPECT_NEAR(RatioOfFactors(proof), -3.0000000003, 1e-14);
  EXPECT_TRUE(ProofOfLever(0, 1, 3).IsWhole);
}

TEST(ProveContradiction, ComesAsNearAsDoublesDoWhereNoneHoldsTheFactors) {
  const ContradictionProof proof = ProofOfLever(0, 1.234567F, 7654321e9F);
  EXPECT_FALSE(proof.IsWhole);
  EXPECT_FALSE(proof.IsExact);
  EXPECT_GT(proof.Sum, 0);
  EXPECT_NEAR(RatioOfFactors(proof) / (-7654321e9 / 1.234567), 1, 1e-12);
}

}  // namespace
