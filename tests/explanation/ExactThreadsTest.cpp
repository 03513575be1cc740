// The exact verdict of large trusses, whose two primes are tried on two threads; the thread sanitizer watches
// it (the preset "threads").
#include <gtest/gtest.h>

#include <cstddef>

#include "ExplanationFixture.h"
#include "explanation/ExactVerdict.h"
#include "support/TrussShapes.h"

namespace {

Truss StripWithout(int numMembers) {
  TrussShape strip = WarrenStrip(600);
  for (int i = 0; i < numMembers; ++i) strip.Members.erase(strip.Members.begin() + 100 * (i + 1));
  const auto at = [&strip](int joint) { return strip.Joints[static_cast<std::size_t>(joint)]; };
  TrussBuilder builder;
  for (const auto& [from, to] : strip.Members) builder.Member(at(from).X, at(from).Y, at(to).X, at(to).Y);
  builder.Clamp(at(strip.ClampJoint).X, at(strip.ClampJoint).Y);
  builder.Roller(at(strip.RollerJoint).X, at(strip.RollerJoint).Y);
  return builder;
}

}  // namespace

TEST(ExactVerdictThreads, CountEveryMotionOfALargeTruss) {
  for (const int numMissing : {0, 1, 3}) {
    const TrussGraph graph = GraphOf(StripWithout(numMissing));
    const ExactVerdict verdict = JudgeExactly(graph);
    EXPECT_EQ(verdict.Rank, graph.NumUnknowns());
    EXPECT_EQ(verdict.Mechanisms(), numMissing);
    const ExactReasons reasons = ReasonExactly(graph);
    EXPECT_EQ(reasons.Verdict.Rank, verdict.Rank);
    EXPECT_EQ(reasons.Motions.size(), static_cast<std::size_t>(numMissing));
  }
}
