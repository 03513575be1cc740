// The exact verdict of large trusses, whose two primes are tried on two threads; the thread sanitizer watches
// it (the preset "threads").
#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <thread>

#include "ExplanationFixture.h"
#include "explanation/ExactVerdict.h"
#include "explanation/Explanation.h"
#include "support/TrussOfShape.h"

namespace {

Truss StripWithout(int numMembers) {
  TrussShape strip = WarrenStrip(600);
  for (int i = 0; i < numMembers; ++i) strip.Members.erase(strip.Members.begin() + 100 * (i + 1));
  return TrussOf(strip);
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

// As the window asks, which draws meanwhile.
TEST(RoundingThreads, WhatAThreadHasWorkedOutIsWhatIsWorkedOutAtOnce) {
  Truss strip = StripWithout(0);
  const TrussAnalysis analysis = SolveTruss(strip);
  ExplanationOnDemand atOnce(strip, analysis), later(strip, analysis), whole(strip, analysis);
  EXPECT_FALSE(later.HasRounded());
  while (!later.HasRounded()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  EXPECT_FALSE(whole.HasRounded());
  for (const Rounding& rounding : {later.Rounded(), whole.Whole().Rounded}) {
    EXPECT_EQ(rounding.Verdict.Rank, atOnce.Rounded().Verdict.Rank);
    EXPECT_EQ(rounding.Figures.CertainFigures, atOnce.Rounded().Figures.CertainFigures);
    EXPECT_EQ(rounding.Figures.Magnification, atOnce.Rounded().Figures.Magnification);
  }
  EXPECT_TRUE(later.HasRounded());
}

TEST(RoundingThreads, WhoeverNoLongerAsksLeavesNothingBehind) {
  Truss strip = StripWithout(0);
  const TrussAnalysis analysis = SolveTruss(strip);
  ExplanationOnDemand begun(strip, analysis);
  EXPECT_FALSE(begun.HasRounded());
}

TEST(RoundingThreads, ASmallTrussIsAnsweredAtOnce) {
  Truss truss = TrussBuilder().Member(0, 0, 3, 4).Clamp(0, 0).Roller(3, 4).Force(3, 4, 1, 0);
  const TrussAnalysis analysis = SolveTruss(truss);
  EXPECT_TRUE(ExplanationOnDemand(truss, analysis).HasRounded());
}
