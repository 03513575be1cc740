// What runs in threads: that all of them work, that no failure of one is lost, and that the elimination gives
// the same bits however many there are. The thread sanitizer watches these tests (the preset "threads").
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <latch>
#include <new>
#include <string>
#include <thread>
#include <vector>

#include "analysis/EliminationTuning.h"
#include "analysis/Parallel.h"
#include "support/PlainElimination.h"
#include "support/TrussShapes.h"

namespace {

constexpr unsigned NumbersOfThreads[] = {1, 2, 3, 16};

ReducedMatrix ReducedBy(unsigned numThreads, const SparseMatrix<double>& equations,
                        EliminationTuning tuning) {
  tuning.FewestRowsForThreads = 2;
  tuning.MostThreads = numThreads;
  ReducedMatrix reduced{equations, {}};
  SolveToRREF(equations.NumRows(), equations.NumColumns() - 1, reduced.Equations, reduced.ColumnOrder,
              tuning);
  return reduced;
}

/// Stored entries are compared with ==, which is equality of bits, as zeros are not stored.
bool HaveTheSameBits(const ReducedMatrix& left, const ReducedMatrix& right) {
  if (!(left.ColumnOrder == right.ColumnOrder)) return false;
  for (int row = 1; row <= left.Equations.NumRows(); ++row) {
    if (!std::ranges::equal(left.Equations.Row(row), right.Equations.Row(row))) return false;
  }
  return left.Equations.NumRows() == right.Equations.NumRows();
}

/// Three unknowns more than a strip needs, so that columns are left beside the pivots.
TrussShape StripWithTooManyMembers(int numUnknowns) {
  TrussShape strip = WarrenStrip(numUnknowns);
  for (int joint = 1; joint < 4; ++joint) strip.Members.emplace_back(joint, joint + 7);
  return strip;
}

struct NamedShape {
  std::string Name;
  TrussShape Shape;
};

std::vector<NamedShape> ShapesOf(int numUnknowns) {
  return {{"a strip", WarrenStrip(numUnknowns)},
          {"a simple truss", RandomSimpleTruss(numUnknowns, 5)},
          {"a grid with joints in the air", TriangulatedGrid(numUnknowns)},
          {"a braced grid", BracedGrid(numUnknowns)},
          {"a strip with too many members", StripWithTooManyMembers(numUnknowns)}};
}

}  // namespace

TEST(ParallelThreads, AsManyAsAreAskedForWorkAtTheSameTime) {
  for (const unsigned numThreads : NumbersOfThreads) {
    std::latch allAreHere(static_cast<std::ptrdiff_t>(numThreads));
    std::atomic<unsigned> numRuns = 0;
    RunInParallel(numThreads, [&] {
      allAreHere.arrive_and_wait();
      ++numRuns;
    });
    EXPECT_EQ(numRuns, numThreads);
  }
}

TEST(ParallelThreads, ZeroAsksForAsManyAsTheMachineHas) {
  std::atomic<unsigned> numRuns = 0;
  RunInParallel(0, [&] { ++numRuns; });
  EXPECT_EQ(numRuns, std::max(1U, std::thread::hardware_concurrency()));
}

TEST(ParallelThreads, WhatOneThrowsReachesTheCallerWhenAllHaveEnded) {
  for (const unsigned numThreads : NumbersOfThreads) {
    for (unsigned failing = 1; failing <= numThreads; ++failing) {
      std::atomic<unsigned> numStarted = 0;
      std::atomic<unsigned> numEnded = 0;
      EXPECT_THROW(RunInParallel(numThreads,
                                 [&] {
                                   const unsigned number = ++numStarted;
                                   ++numEnded;
                                   if (number == failing) throw std::bad_alloc();
                                 }),
                   std::bad_alloc);
      EXPECT_EQ(numEnded, numThreads);
    }
  }
}

TEST(ParallelThreads, OneOfSeveralFailuresReachesTheCaller) {
  for (const unsigned numThreads : NumbersOfThreads) {
    std::latch allAreHere(static_cast<std::ptrdiff_t>(numThreads));
    EXPECT_THROW(RunInParallel(numThreads,
                               [&] {
                                 allAreHere.arrive_and_wait();
                                 throw std::bad_alloc();
                               }),
                 std::bad_alloc);
  }
}

TEST(EliminationThreads, GiveTheSameBitsHoweverManyThereAre) {
  const std::vector<EliminationTuning> tunings = {
      {}, {.DenseFill = 2}, {.DenseFill = 0.01, .Window = 4}, {.DenseFill = 0, .Window = 64}};
  for (const auto& [name, shape] : ShapesOf(120)) {
    const SparseMatrix<double> equations = EquationsOf(shape);
    const ReducedMatrix expected = ReducedPlainly(equations);
    for (const unsigned numThreads : NumbersOfThreads) {
      for (const EliminationTuning& tuning : tunings) {
        EXPECT_TRUE(HaveTheSameBits(ReducedBy(numThreads, equations, tuning), expected))
            << name << ", " << numThreads << " threads, dense from " << tuning.DenseFill << " on";
      }
    }
  }
}

TEST(EliminationThreads, GiveTheSameBitsOfLargeSystemsAsOneDoes) {
  for (const auto& [name, shape] : ShapesOf(1000)) {
    const SparseMatrix<double> equations = EquationsOf(shape);
    const ReducedMatrix expected = ReducedBy(1, equations, {});
    for (const unsigned numThreads : NumbersOfThreads) {
      EXPECT_TRUE(HaveTheSameBits(ReducedBy(numThreads, equations, {}), expected))
          << name << ", " << numThreads << " threads";
    }
  }
}
