// From a drawn truss to its answers: small trusses whose forces are known from the geometry.
#include "analysis/Analysis.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "analysis/Classification.h"
#include "support/TrussBuilder.h"

using ::testing::ElementsAre;

namespace {

struct Answers {
  Truss Drawn;
  EquationSystem System;
  Classification Reading;

  explicit Answers(Truss truss)
      : Drawn(std::move(truss)), System(SolveTruss(Drawn).System), Reading(ClassifyRREF(System)) {}

  std::optional<double> Force(const std::string& name) const {
    for (int k = 1; k <= System.UnknownList.Size(); ++k) {
      if (System.UnknownList[k].Name == name) return Reading.Values[k];
    }
    ADD_FAILURE() << "no force " << name;
    return std::nullopt;
  }
};

// 3-4-5 members on a clamp and a roller, 8 wide and 3 high.
TrussBuilder SmallTriangle() {
  return TrussBuilder()
      .Member(0, 0, 8, 0, "AB")
      .Member(0, 0, 4, 3, "AC")
      .Member(8, 0, 4, 3, "BC")
      .Clamp(0, 0, "Ax", "Ay")
      .Roller(8, 0, "B")
      .Joint(0, 0, "A")
      .Joint(8, 0, "B")
      .Joint(4, 3, "C");
}

// Four bars round a square, with nothing to keep the corners square: one equation too many.
TrussBuilder Square() {
  return TrussBuilder()
      .Member(0, 0, 2, 0, "AB")
      .Member(2, 0, 2, 2, "BC")
      .Member(2, 2, 0, 2, "CD")
      .Member(0, 2, 0, 0, "DA")
      .Clamp(0, 0, "Ax", "Ay")
      .Roller(2, 0, "B");
}

}  // namespace

TEST(SolveTruss, ATriangleHasTheForcesOfItsGeometry) {
  // 600 down at the top: 300 on each support; each leaning member 300 * 5/3 in compression, the lower one
  // 500 * 4/5 in tension. The ratios 0.6 and 0.8 are singles, hence the tolerance.
  const Answers answers(SmallTriangle().Force(4, 3, 0, -600));
  EXPECT_EQ(answers.Reading.Code, Outcome::Neither);
  EXPECT_NEAR(*answers.Force("Ax"), 0, 1e-9);
  EXPECT_NEAR(*answers.Force("Ay"), 300, 1e-9);
  EXPECT_NEAR(*answers.Force("B"), 300, 1e-9);
  EXPECT_NEAR(*answers.Force("AC"), 500, 5e-5);
  EXPECT_NEAR(*answers.Force("BC"), 500, 5e-5);
  EXPECT_NEAR(*answers.Force("AB"), -400, 5e-5);
}

TEST(SolveTruss, ARightTriangleWithAxisParallelMembersIsSolvedExactly) {
  // The load of 12 to the right at the top of a post 4 high on a base 3 wide: the diagonal takes it all.
  const Answers answers(TrussBuilder()
                            .Member(0, 0, 3, 0, "base")
                            .Member(0, 0, 0, 4, "post")
                            .Member(3, 0, 0, 4, "diagonal")
                            .Clamp(0, 0, "x", "y")
                            .Roller(3, 0, "r")
                            .Force(0, 4, 12, 0));
  const double cosine = double{0.6F};
  const double sine = double{0.8F};
  EXPECT_DOUBLE_EQ(*answers.Force("diagonal"), 12 / cosine);
  EXPECT_DOUBLE_EQ(*answers.Force("post"), -12 / cosine * sine);
  EXPECT_DOUBLE_EQ(*answers.Force("base"), -12);
  EXPECT_DOUBLE_EQ(*answers.Force("x"), -12);
  EXPECT_DOUBLE_EQ(*answers.Force("r"), 12 / cosine * sine);
  EXPECT_DOUBLE_EQ(*answers.Force("y"), -12 / cosine * sine);
}

TEST(SolveTruss, WithAsManyEquationsAsUnknownsTheReducedMatrixIsTheIdentity) {
  const Answers answers(SmallTriangle().Force(4, 3, 70, -600));
  const SparseMatrix<double>& matrix = answers.System.EquationMatrix;
  ASSERT_EQ(matrix.NumRows(), 6);
  ASSERT_EQ(matrix.NumColumns(), 7);
  for (int row = 1; row <= 6; ++row) {
    for (int column = 1; column <= 6; ++column) EXPECT_EQ(matrix(row, column), row == column ? 1 : 0);
    EXPECT_EQ(answers.System.ColumnOrder[row], row);
    EXPECT_EQ(answers.Reading.Values[row], matrix(row, 7));
  }
}

TEST(SolveTruss, TheEquationsStayAsAssembledForTheirReport) {
  const Answers answers(SmallTriangle().Force(4, 3, 0, -600));
  const SparseMatrix<float>& equations = answers.System.DisplayEquations;
  std::vector<float> lastRow;
  for (int column = 1; column <= 7; ++column) lastRow.push_back(equations(6, column));
  EXPECT_THAT(lastRow, ElementsAre(0, 0, 0, 0, 0.6F, 0.6F, 600));
}

TEST(SolveTruss, JointsAreSortedByNameBeforeTheEquationsAreWritten) {
  const Answers answers(
      TrussBuilder().Member(5, 5, 1, 5, "m").Joint(5, 5, "b").Joint(1, 5, "B").Force(5, 5, 9, 0));
  EXPECT_EQ(answers.Drawn.Joints[1].X, 1);
  EXPECT_EQ(answers.System.DisplayEquations(1, 1), -1);
  EXPECT_EQ(answers.System.DisplayEquations(3, 2), -9);
}

TEST(SolveTruss, JointsAreSortedEvenWhenNothingIsUnknown) {
  const Answers answers(TrussBuilder().Force(5, 5, 1, 0).Force(1, 5, 1, 0).Joint(5, 5, "b").Joint(1, 5, "a"));
  EXPECT_EQ(answers.Drawn.Joints[1].X, 1);
  EXPECT_EQ(answers.System.NumUnknowns(), 0);
  EXPECT_EQ(answers.System.EquationMatrix.NumRows(), 0);
  EXPECT_EQ(answers.System.DisplayEquations.NumRows(), 0);
  EXPECT_EQ(answers.System.ColumnOrder.Size(), 0);
  EXPECT_EQ(answers.Reading.Code, Outcome::Neither);
}

TEST(SolveTruss, MoreEquationsThanUnknownsThatAgreeAreRedundant) {
  const Answers answers(Square().Force(2, 2, 0, -10).Force(0, 2, 0, -30));
  EXPECT_EQ(answers.Reading.Code, Outcome::Redundant);
  EXPECT_DOUBLE_EQ(*answers.Force("BC"), 10);
  EXPECT_DOUBLE_EQ(*answers.Force("DA"), 30);
  EXPECT_DOUBLE_EQ(*answers.Force("CD"), 0);
  const SparseMatrix<double>& matrix = answers.System.EquationMatrix;
  ASSERT_EQ(matrix.NumRows(), 8);
  for (int column = 1; column <= 8; ++column) EXPECT_EQ(matrix(8, column), 0);
  for (int row = 1; row <= 7; ++row) EXPECT_EQ(matrix(row, row), 1);
}

TEST(SolveTruss, MoreEquationsThanUnknownsThatContradictHaveNoSolution) {
  const Answers answers(Square().Force(2, 2, 5, -10));
  EXPECT_EQ(answers.Reading.Code, Outcome::Inconsistent);
  const SparseMatrix<double>& matrix = answers.System.EquationMatrix;
  for (int column = 1; column <= 7; ++column) EXPECT_EQ(matrix(8, column), 0);
  EXPECT_NE(matrix(8, 8), 0);
}

TEST(SolveTruss, FewerEquationsThanUnknownsLeaveSomeUndetermined) {
  // A bar between two clamps: nobody knows how hard they squeeze it, but nothing pushes it up or down.
  const Answers answers(TrussBuilder()
                            .Member(0, 0, 4, 0, "bar")
                            .Clamp(0, 0, "Ax", "Ay")
                            .Clamp(4, 0, "Bx", "By")
                            .Force(4, 0, 0, -8)
                            .Joint(0, 0, "A")
                            .Joint(4, 0, "B"));
  EXPECT_EQ(answers.Reading.Code, Outcome::Neither);
  EXPECT_EQ(answers.Force("Ay"), 0);
  EXPECT_EQ(answers.Force("By"), 8);
  EXPECT_EQ(answers.Force("Ax"), std::nullopt);
  EXPECT_EQ(answers.Force("Bx"), std::nullopt);
  EXPECT_EQ(answers.Force("bar"), std::nullopt);
}

TEST(SolveTruss, AnUnknownThatWasMovedIsFoundThroughTheColumnOrder) {
  // Two hangers on clamps with a strut between their lower ends, which a wall and a third clamp squeeze: the
  // strut stays undetermined, the hangers do not, and pivoting moves their columns.
  const Answers answers(TrussBuilder()
                            .Member(0, 0, 4, 0, "bar")
                            .Roller(0, 0, "z", 8)
                            .Clamp(4, 0, "Bx", "By")
                            .Member(0, 0, 0, 3, "a")
                            .Member(4, 0, 4, 3, "b")
                            .Clamp(0, 3, "p", "q")
                            .Clamp(4, 3, "r", "s")
                            .Joint(0, 0, "1")
                            .Joint(4, 0, "2")
                            .Force(0, 0, 0, -8));
  ASSERT_GT(answers.System.NumUnknowns(), 2 * answers.Drawn.NumJoints);
  bool moved = false;
  for (int k = 1; k <= answers.System.NumUnknowns(); ++k) moved = moved || answers.System.ColumnOrder[k] != k;
  EXPECT_TRUE(moved);
  EXPECT_EQ(answers.Force("a"), -8);
  EXPECT_EQ(answers.Force("q"), 8);
  EXPECT_EQ(answers.Force("p"), 0);
  EXPECT_EQ(answers.Force("bar"), std::nullopt);
}

TEST(SolveTruss, TheForceInAMemberWithoutLengthIsUndetermined) {
  const Answers answers(SmallTriangle().Member(4, 3, 4, 3, "dot").Force(4, 3, 0, -600));
  EXPECT_EQ(answers.Force("dot"), std::nullopt);
  EXPECT_NEAR(*answers.Force("B"), 300, 1e-9);
}

TEST(SolveTruss, AForceApartFromTheTrussHasNothingToBalanceIt) {
  EXPECT_EQ(Answers(SmallTriangle().Force(20, 20, 0, -1)).Reading.Code, Outcome::Inconsistent);
  EXPECT_EQ(Answers(SmallTriangle().Force(20, 20, 0, 0)).Reading.Code, Outcome::Redundant);
}
