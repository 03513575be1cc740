// The elimination against its definition, bit for bit: every edge case by name, then thousands of random and
// structured systems, sent through every phase by moving the thresholds between the phases.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "analysis/Elimination.h"
#include "analysis/EliminationTuning.h"
#include "support/PlainElimination.h"
#include "support/TrussShapes.h"

namespace {

using Matrix = SparseMatrix<double>;
constexpr unsigned Seed = 20240611;

using Reduced = ReducedMatrix;

/// A matrix of N coefficient columns and a right-hand side, written as rows of numbers.
Matrix MatrixOf(const std::vector<std::vector<double>>& rows) {
  Matrix matrix(static_cast<int>(rows.size()), static_cast<int>(rows.front().size()));
  for (int row = 1; row <= matrix.NumRows(); ++row) {
    for (int column = 1; column <= matrix.NumColumns(); ++column) {
      const double value = rows[static_cast<std::size_t>(row - 1)][static_cast<std::size_t>(column - 1)];
      if (value != 0) matrix.Set(row, column, value);
    }
  }
  return matrix;
}

std::vector<std::vector<double>> RowsOf(const Matrix& matrix) {
  std::vector<std::vector<double>> rows;
  for (int row = 1; row <= matrix.NumRows(); ++row) {
    rows.emplace_back();
    for (int column = 1; column <= matrix.NumColumns(); ++column) rows.back().push_back(matrix(row, column));
  }
  return rows;
}

std::vector<int> OrderOf(const Reduced& reduced) {
  std::vector<int> order;
  for (int k = 1; k <= reduced.ColumnOrder.Size(); ++k) order.push_back(reduced.ColumnOrder[k]);
  return order;
}

Reduced Solve(Matrix equations, const EliminationTuning& tuning = {}) {
  Reduced reduced{std::move(equations), {}};
  SolveToRREF(reduced.Equations.NumRows(), reduced.Equations.NumColumns() - 1, reduced.Equations,
              reduced.ColumnOrder, tuning);
  return reduced;
}

/// Stored entries are compared with ==, which is equality of bits, as zeros are not stored.
testing::AssertionResult SameBits(const Reduced& actual, const Reduced& expected) {
  if (!(actual.ColumnOrder == expected.ColumnOrder)) {
    return testing::AssertionFailure() << "another ColumnOrder; seed " << Seed;
  }
  for (int row = 1; row <= expected.Equations.NumRows(); ++row) {
    if (!std::ranges::equal(actual.Equations.Row(row), expected.Equations.Row(row))) {
      return testing::AssertionFailure() << "row " << row << " differs; seed " << Seed;
    }
  }
  return testing::AssertionSuccess();
}

struct NamedTuning {
  std::string Name;
  EliminationTuning Tuning;
};

/// Thresholds that lead systems of any size into each phase and across each border between phases.
std::vector<NamedTuning> AllWays() {
  return {{"as shipped", {}},
          {"sparse only", {.DenseFill = 2}},
          {"dense only", {.DenseFill = 0, .Window = 64}},
          {"dense only, nothing pending", {.DenseFill = 0, .Window = 1}},
          {"sparse, then dense with a short window", {.DenseFill = 0.3, .Window = 3}},
          {"threads, sparse", {.DenseFill = 2, .FewestRowsForThreads = 2, .MostThreads = 2}},
          {"threads, dense", {.DenseFill = 0.2, .Window = 4, .FewestRowsForThreads = 2, .MostThreads = 3}}};
}

void ExpectTheDefinition(const Matrix& equations, const std::string& what) {
  const Reduced expected = ReducedPlainly(equations);
  for (const auto& [name, tuning] : AllWays()) {
    ASSERT_TRUE(SameBits(Solve(equations, tuning), expected)) << what << ", " << name;
  }
}

/// Fills a matrix from left to right, row by row.
Matrix Filled(int R, int N, const std::function<double()>& coefficient, const std::function<double()>& load) {
  Matrix matrix(R, N + 1);
  for (int row = 1; row <= R; ++row) {
    for (int column = 1; column <= N + 1; ++column) {
      const double value = column <= N ? coefficient() : load();
      if (value != 0) matrix.Set(row, column, value);
    }
  }
  return matrix;
}

class RandomSystems : public testing::Test {
 protected:
  int Between(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }
  double Real(double low, double high) { return std::uniform_real_distribution<double>(low, high)(random_); }
  double Large() { return Real(-1e12, 1e12); }
  double Tie() { return Between(-1, 1); }
  double RealOrZero(double fill) { return Real(0, 1) < fill ? Real(-1, 1) : 0; }

  std::mt19937 random_{Seed};
};

}  // namespace

TEST(Elimination, OfEqualMagnitudesTheFirstRowAndThenTheFirstColumnGivesThePivot) {
  const Reduced reduced = Solve(MatrixOf({{1, -2, 2, 3, 1}, {2, 2, -2, 0, 2}}));
  EXPECT_EQ(OrderOf(reduced), (std::vector<int>{4, 2, 3, 1}));
  const Reduced tied = Solve(MatrixOf({{1, -2, 2, 1}, {2, 2, 1, 2}}));
  EXPECT_EQ(OrderOf(tied), (std::vector<int>{2, 1, 3}));
  const Reduced lowerRowLeft = Solve(MatrixOf({{0, 0, -1, 1}, {1, 1, 1, 2}}));
  EXPECT_EQ(OrderOf(lowerRowLeft), (std::vector<int>{3, 2, 1}));
}

TEST(Elimination, AMagnitudeOfExactlyTheToleranceIsAPivot) {
  const Reduced reduced = Solve(MatrixOf({{1e-10, 0, 3}, {0, -1, 2}}));
  EXPECT_EQ(RowsOf(reduced.Equations), (std::vector<std::vector<double>>{{1, 0, 3 / 1e-10}, {0, 1, -2}}));
}

TEST(Elimination, AMagnitudeBelowTheToleranceStopsTheEliminationAndIsCleaned) {
  const Reduced reduced = Solve(MatrixOf({{9.99e-11, 0, 3}, {0, -1, 2}}));
  EXPECT_EQ(RowsOf(reduced.Equations), (std::vector<std::vector<double>>{{0, 0, 3}, {0, 1, -2}}));
}

TEST(Elimination, TheSmallestPivotIsTheSameInEveryPhase) {
  for (const NamedTuning& way : AllWays()) {
    const auto rows = [&](double smallest) {
      return RowsOf(Solve(MatrixOf({{smallest, 0, 3}, {0, -1, 2}}), way.Tuning).Equations);
    };
    EXPECT_EQ(rows(1e-10), (std::vector<std::vector<double>>{{1, 0, 3 / 1e-10}, {0, 1, -2}})) << way.Name;
    EXPECT_EQ(rows(-1e-10), (std::vector<std::vector<double>>{{1, 0, -3 / 1e-10}, {0, 1, -2}})) << way.Name;
    EXPECT_EQ(rows(9.99e-11), (std::vector<std::vector<double>>{{0, 0, 3}, {0, 1, -2}})) << way.Name;
  }
}

TEST(Elimination, TiesGoToTheFirstRowAndThenTheFirstColumnInEveryPhase) {
  for (const NamedTuning& way : AllWays()) {
    const auto order = [&](const std::vector<std::vector<double>>& rows) {
      return OrderOf(Solve(MatrixOf(rows), way.Tuning));
    };
    EXPECT_EQ(order({{0, 2, -2, 1, 0}, {2, 0, 0, 1, 0}}), (std::vector<int>{2, 1, 3, 4})) << way.Name;
    EXPECT_EQ(order({{1, 0, -2, 2, 0}, {0, 2, 0, 0, 0}}), (std::vector<int>{3, 2, 1, 4})) << way.Name;
  }
}

TEST(Elimination, WhatIsJustTheToleranceIsNotCleanedAway) {
  for (const auto& [name, tuning] : AllWays()) {
    const Reduced reduced = Solve(MatrixOf({{1, 1e-10}, {0, 1e-10}, {0, 9.99e-11}}), tuning);
    EXPECT_EQ(RowsOf(reduced.Equations), (std::vector<std::vector<double>>{{1, 1e-10}, {0, 1e-10}, {0, 0}}))
        << name;
    const Reduced tied = Solve(MatrixOf({{1, 1e-10, 9.99e-11, 5}}), tuning);
    EXPECT_EQ(RowsOf(tied.Equations).front()[1], 1e-10) << name;
  }
}

TEST(Elimination, RightHandSidesBelowTheToleranceAreCleaned) {
  const Reduced reduced = Solve(MatrixOf({{2, 0, 1.9e-10}, {0, 4, 4e-10}}));
  EXPECT_EQ(RowsOf(reduced.Equations), (std::vector<std::vector<double>>{{1, 0, 0}, {0, 1, 1e-10}}));
}

TEST(Elimination, AProductThatIsTooSmallForANumberIsNoEntry) {
  for (const double tiny : {1e-200, -1e-200}) {
    const Matrix equations = MatrixOf({{1, 1e-200, 0, 3}, {tiny, 0, -1, 2}});
    EXPECT_EQ(RowsOf(Solve(equations, {.DenseFill = 2}).Equations),
              (std::vector<std::vector<double>>{{1, 0, 0, 3}, {0, 1, 0, -2}}));
    ExpectTheDefinition(equations, "a product that is too small");
  }
}

TEST(Elimination, FewerEquationsThanUnknownsLeaveTheColumnsPermuted) {
  const Reduced reduced = Solve(MatrixOf({{1, 0, 4, 8}, {0, 2, 4, 6}}));
  EXPECT_EQ(OrderOf(reduced), (std::vector<int>{3, 2, 1}));
  EXPECT_EQ(RowsOf(reduced.Equations), (std::vector<std::vector<double>>{{1, 0, 0.25, 2}, {0, 1, -0.5, -1}}));
}

TEST(Elimination, ADeterminateSystemBecomesTheIdentityAndItsSolution) {
  Reduced reduced{MatrixOf({{0, 2, 0, 4}, {0, 0, 4, 2}, {8, 0, 0, 8}}), {}};
  SolveToRREF(3, 3, reduced.Equations, reduced.ColumnOrder);
  EXPECT_EQ(OrderOf(reduced), (std::vector<int>{1, 2, 3}));
  EXPECT_EQ(RowsOf(reduced.Equations),
            (std::vector<std::vector<double>>{{1, 0, 0, 1}, {0, 1, 0, 2}, {0, 0, 1, 0.5}}));
}

TEST(Elimination, AConsistentSystemWithMoreEquationsThanUnknownsLeavesZeroRows) {
  const Reduced reduced = Solve(MatrixOf({{1, 1, 3}, {1, -1, 1}, {2, 0, 4}, {0, 2, 2}}));
  EXPECT_EQ(RowsOf(reduced.Equations),
            (std::vector<std::vector<double>>{{1, 0, 2}, {0, 1, 1}, {0, 0, 0}, {0, 0, 0}}));
  for (int row = 3; row <= 4; ++row) EXPECT_TRUE(reduced.Equations.Row(row).empty());
}

TEST(Elimination, AContradictionLeavesARightHandSideAlone) {
  EXPECT_EQ(RowsOf(Solve(MatrixOf({{4, 8}, {2, 5}})).Equations),
            (std::vector<std::vector<double>>{{1, 2}, {0, 1}}));
}

TEST(Elimination, NoUnknownsOrNoEquationsAreReduced) {
  const Reduced noUnknowns = Solve(MatrixOf({{5}, {1e-11}}));
  EXPECT_EQ(noUnknowns.ColumnOrder.Size(), 0);
  EXPECT_EQ(RowsOf(noUnknowns.Equations), (std::vector<std::vector<double>>{{5}, {0}}));
  const Reduced noEquations = Solve(Matrix(0, 4));
  EXPECT_EQ(OrderOf(noEquations), (std::vector<int>{1, 2, 3}));
  Solve(Matrix(0, 1));
}

TEST(Elimination, AMatrixOfZerosHasNoPivot) {
  const Reduced reduced = Solve(Matrix(1, 6));
  EXPECT_EQ(OrderOf(reduced), (std::vector<int>{1, 2, 3, 4, 5}));
  EXPECT_TRUE(reduced.Equations.Row(1).empty());
}

TEST(PivotsOf, AreThoseOfThePlainAlgorithmInEveryPhase) {
  for (const Matrix& equations :
       {MatrixOf({{9.99e-11, 0, 3}, {0, -1, 2}}), MatrixOf({{1, -2, 2, 3, 1}, {2, 2, -2, 0, 2}}),
        EquationsOf(WarrenStrip(40)), EquationsOf(RandomSimpleTruss(60, Seed)),
        EquationsOf(TriangulatedGrid(60)), Matrix(2, 3)}) {
    StepMatrix plain(equations);
    std::vector<EliminationPivot> expected;
    EliminatePlainly(plain, [&](const EliminationStep& step) {
      if (step.Kind == StepKind::Pivot) expected.push_back({step.Row, step.Column, step.Number});
    });
    for (const auto& [name, tuning] : AllWays()) EXPECT_EQ(PivotsOf(equations, tuning), expected) << name;
    EXPECT_EQ(PivotsOf(equations), expected);
  }
  EXPECT_EQ(PivotsOf(MatrixOf({{0, 2, 6}, {-4, 0, 4}})),
            (std::vector<EliminationPivot>{{2, 1, -4}, {1, 2, 2}}));
}

TEST_F(RandomSystems, OfAllFillsAndProportions) {
  for (int run = 0; run < 400; ++run) {
    const int R = Between(1, 40);
    const int N = Between(1, 40);
    const double fill = Real(0.02, 1);
    const Matrix equations = Filled(
        R, N, [&] { return RealOrZero(fill); }, [&] { return RealOrZero(0.5); });
    ExpectTheDefinition(equations, "run " + std::to_string(run));
  }
}

TEST_F(RandomSystems, OfTies) {
  for (int run = 0; run < 500; ++run) {
    const int R = Between(1, 30);
    const int N = run % 2 == 0 ? R : Between(1, 30);
    const Matrix equations = Filled(
        R, N, [&] { return Tie(); }, [&] { return Tie(); });
    ExpectTheDefinition(equations, "run " + std::to_string(run));
  }
}

TEST_F(RandomSystems, OfSparseTies) {
  for (int run = 0; run < 400; ++run) {
    const int R = Between(1, 60);
    const int N = run % 2 == 0 ? R : Between(1, 60);
    const double fill = Real(0.02, 0.3);
    const auto coefficient = [&] { return Real(0, 1) < fill ? Tie() : 0; };
    ExpectTheDefinition(Filled(R, N, coefficient, [&] { return Tie(); }), "run " + std::to_string(run));
  }
}

TEST_F(RandomSystems, WithRightHandSidesZeroOrLarge) {
  for (int run = 0; run < 200; ++run) {
    const int R = Between(1, 30);
    const double share = Between(0, 2) / 2.0;
    const auto load = [&] { return Real(0, 1) < share ? Large() : 0; };
    ExpectTheDefinition(Filled(
                            R, Between(1, 30), [&] { return RealOrZero(0.4); }, load),
                        "run " + std::to_string(run));
  }
}

TEST_F(RandomSystems, WithRowsAndColumnsThatDependOnEachOther) {
  for (int run = 0; run < 200; ++run) {
    const int R = Between(2, 30);
    const int N = Between(2, 30);
    Matrix equations = Filled(
        R, N, [&] { return RealOrZero(0.4); }, [&] { return RealOrZero(0.4); });
    for (int row = 2; row <= R; row += Between(1, 4)) {
      const double scale = Between(-2, 2);
      const int copied = Between(1, row - 1);
      for (int column = 1; column <= N + 1; ++column) {
        equations.Set(row, column, scale * equations(copied, column));
      }
    }
    for (int row = 1; row <= R; ++row) equations.Set(row, N, -equations(row, 1));
    ExpectTheDefinition(equations, "run " + std::to_string(run));
  }
}

TEST_F(RandomSystems, WithMagnitudesAroundTheTolerance) {
  for (int run = 0; run < 200; ++run) {
    const int R = Between(1, 20);
    const auto coefficient = [&] { return Real(0, 1) < 0.5 ? Real(-3e-10, 3e-10) : Tie(); };
    ExpectTheDefinition(Filled(R, Between(1, 20), coefficient, [&] { return Real(-1e-9, 1e-9); }),
                        "run " + std::to_string(run));
  }
}

TEST(TrussSystems, OfEveryShape) {
  for (const int numUnknowns : {6, 8, 14, 40, 100, 210, 400}) {
    for (const NamedShape& shape : AllShapes()) {
      ExpectTheDefinition(EquationsOf(shape.Make(numUnknowns)),
                          shape.Name + " of " + std::to_string(numUnknowns));
    }
  }
}

TEST(TrussShapes, AreWhatTheyAreCalled) {
  for (const int numUnknowns : {200, 1600, 4096}) {
    for (const NamedShape& shape : AllShapes()) {
      const TrussShape truss = shape.Make(numUnknowns);
      const int size = std::max(truss.NumUnknowns(), truss.NumEquations());
      EXPECT_NEAR(size, numUnknowns, numUnknowns / 8.0) << shape.Name;
      EXPECT_LE(size, numUnknowns) << shape.Name;
    }
    const auto surplus = [](const TrussShape& shape) { return shape.NumUnknowns() - shape.NumEquations(); };
    EXPECT_NEAR(surplus(TwoTours(numUnknowns, Seed)), 0, 6) << "the tours may share members";
    EXPECT_GT(surplus(DelaunayTruss(numUnknowns, Seed)), numUnknowns / 4);
    EXPECT_GT(surplus(CompleteTruss(numUnknowns)), numUnknowns / 2);
    EXPECT_LT(surplus(GappedStrip(numUnknowns)), -numUnknowns / 5);
  }
}

TEST(TrussShapes, ADelaunayTriangulationHasNoJointInACircle) {
  const TrussShape truss = DelaunayTruss(300, Seed);
  const auto numJoints = static_cast<int>(truss.Joints.size());
  EXPECT_LE(static_cast<int>(truss.Members.size()), 3 * numJoints - 6);
  EXPECT_GE(static_cast<int>(truss.Members.size()), 3 * numJoints - 40) << "all but the edge is triangles";
  // A member whose circle, with itself as the diameter, is empty belongs to it.
  const auto between = [&](int a, int b, int at) {
    const auto& p = truss.Joints[static_cast<std::size_t>(a)];
    const auto& q = truss.Joints[static_cast<std::size_t>(b)];
    const auto& c = truss.Joints[static_cast<std::size_t>(at)];
    return (p.X - c.X) * (q.X - c.X) + (p.Y - c.Y) * (q.Y - c.Y) < 0;
  };
  for (int a = 0; a < numJoints; ++a) {
    for (int b = a + 1; b < numJoints; ++b) {
      bool isEmpty = true;
      for (int c = 0; c < numJoints && isEmpty; ++c) isEmpty = c == a || c == b || !between(a, b, c);
      const bool isMember = std::ranges::count(truss.Members, std::pair(a, b)) == 1;
      EXPECT_TRUE(isMember || !isEmpty) << a << ", " << b;
    }
  }
}

TEST(TrussSystems, WithMembersAndJointsLeftOver) {
  for (unsigned seed = Seed; seed < Seed + 20; ++seed) {
    TrussShape fewMembers = RandomSimpleTruss(60, seed);
    fewMembers.Members.resize(fewMembers.Members.size() - seed % 20);
    ExpectTheDefinition(EquationsOf(fewMembers), "too few members, seed " + std::to_string(seed));
    TrussShape manyMembers = RandomSimpleTruss(60, seed);
    for (int joint = 2; joint < 20; ++joint) manyMembers.Members.emplace_back(joint, joint + 7);
    ExpectTheDefinition(EquationsOf(manyMembers), "too many members, seed " + std::to_string(seed));
  }
}
