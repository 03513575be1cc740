// The elimination in steps: where it ends, which operations it consists of, and what they leave behind.
#include "explanation/steps/PlainElimination.h"

#include <gmock/gmock.h>

#include <map>

#include "explanation/steps/StepsFixture.h"
#include "support/PlainElimination.h"
#include "support/TrussShapes.h"

namespace {

SparseMatrix<double> StepMatrixOf(const std::vector<std::vector<double>>& rows) {
  SparseMatrix<double> matrix(static_cast<int>(rows.size()), static_cast<int>(rows.front().size()));
  for (int row = 1; row <= matrix.NumRows(); ++row) {
    for (int column = 1; column <= matrix.NumColumns(); ++column) {
      const double value = rows[static_cast<std::size_t>(row - 1)][static_cast<std::size_t>(column - 1)];
      if (value != 0) matrix.Set(row, column, value);
    }
  }
  return matrix;
}

StepMatrix AllCarriedOut(const EliminationInSteps& story) {
  StepMatrix matrix(story.Equations);
  for (const EliminationStep& step : story.Steps) matrix.CarryOut(step);
  return matrix;
}

void ExpectEndsAt(const EliminationInSteps& story, const SparseMatrix<double>& reduced,
                  const Table<std::int16_t>& columnOrder) {
  const ReducedMatrix last = AtItsPlaces(AllCarriedOut(story));
  EXPECT_EQ(last.ColumnOrder, columnOrder);
  ASSERT_EQ(last.Equations.NumRows(), reduced.NumRows());
  for (int row = 1; row <= reduced.NumRows(); ++row) {
    EXPECT_TRUE(std::ranges::equal(last.Equations.Row(row), reduced.Row(row))) << "row " << row;
  }
}

std::vector<StepKind> KindsOf(const EliminationInSteps& story) {
  std::vector<StepKind> kinds;
  for (const EliminationStep& step : story.Steps) kinds.push_back(step.Kind);
  return kinds;
}

TEST(EliminationInSteps, EndsAtTheReducedMatrixToTheBit) {
  std::map<Outcome, int> outcomes;
  int fewerEquations = 0;
  WithTrussesOfAllKinds([&](const Truss& given) {
    const SteppedTruss truss(given);
    if (truss.Graph.NumUnknowns() == 0) return;
    ExpectEndsAt(truss.Story, truss.Analysis.System.EquationMatrix, truss.Analysis.System.ColumnOrder);
    ++outcomes[truss.Analysis.Reading.Code];
    fewerEquations += truss.Graph.NumEquations() < truss.Graph.NumUnknowns() ? 1 : 0;
  });
  for (const Outcome outcome : {Outcome::Neither, Outcome::Redundant, Outcome::Inconsistent})
    EXPECT_GT(outcomes[outcome], 20) << static_cast<int>(outcome);
  EXPECT_GT(fewerEquations, 10);
}

TEST(EliminationInSteps, EndsThereForLargeTrussesToo) {
  for (const TrussShape& shape :
       {WarrenStrip(200), RandomSimpleTruss(200, 7), TriangulatedGrid(198), BracedGrid(190)}) {
    const SparseMatrix<double> equations = EquationsOf(shape);
    const EliminationInSteps story = EliminateInSteps(equations);
    ASSERT_TRUE(story.IsToldInSteps());
    SparseMatrix<double> reduced = equations;
    Table<std::int16_t> order;
    SolveToRREF(reduced.NumRows(), reduced.NumColumns() - 1, reduced, order);
    ExpectEndsAt(story, reduced, order);
    EXPECT_EQ(story.Pivots, PivotsOf(equations));
  }
}

TEST(EliminationInSteps, TellsOnlyThePivotsOfMoreThan200EquationsOrUnknowns) {
  for (const int numUnknowns : {200, 202, 400}) {
    const SparseMatrix<double> equations = EquationsOf(WarrenStrip(numUnknowns));
    const EliminationInSteps story = EliminateInSteps(equations);
    EXPECT_EQ(story.IsToldInSteps(), numUnknowns == 200);
    EXPECT_EQ(story.Pivots, PivotsOf(equations));
  }
  EXPECT_TRUE(EliminateInSteps(SparseMatrix<double>(200, 201)).IsToldInSteps());
  EXPECT_FALSE(EliminateInSteps(SparseMatrix<double>(201, 10)).IsToldInSteps());
  EXPECT_FALSE(EliminateInSteps(SparseMatrix<double>(10, 202)).IsToldInSteps());
}

TEST(EliminationInSteps, TakesOneOperationAfterTheOther) {
  const EliminationInSteps story = EliminateInSteps(StepMatrixOf({{0, 2, 4}, {4, 2, 8}}));
  using enum StepKind;
  EXPECT_THAT(KindsOf(story), testing::ElementsAre(Begin, Pivot, ExchangeRows, Divide, Pivot, Divide, Clear,
                                                   PivotsEnd, Clean, Read));
  EXPECT_EQ(story.Steps[1], (EliminationStep{.Kind = Pivot, .Row = 2, .Column = 1, .Number = 4}));
  EXPECT_EQ(story.Steps[2], (EliminationStep{.Kind = ExchangeRows, .Row = 2, .OtherRow = 1}));
  EXPECT_EQ(story.Steps[3], (EliminationStep{.Kind = Divide, .Row = 2, .Column = 1, .Number = 4}));
  EXPECT_EQ(story.Steps[6],
            (EliminationStep{.Kind = Clear, .Row = 2, .OtherRow = 1, .Column = 2, .Number = 0.5}));
}

TEST(EliminationInSteps, ExchangesColumnsAndTakesThatBack) {
  const EliminationInSteps story = EliminateInSteps(StepMatrixOf({{1, 4, 4}, {1, 0, 8}}));
  using enum StepKind;
  EXPECT_THAT(KindsOf(story), testing::ElementsAre(Begin, Pivot, ExchangeColumns, Divide, Pivot, Clear,
                                                   PivotsEnd, Clean, RestoreColumns, RestoreRows, Read));
  const EliminationInSteps wide = EliminateInSteps(StepMatrixOf({{1, 4, 4}}));
  EXPECT_THAT(KindsOf(wide),
              testing::ElementsAre(Begin, Pivot, ExchangeColumns, Divide, PivotsEnd, Clean, Read))
      << "with fewer equations than unknowns the columns stay as they are";
}

TEST(EliminationInSteps, SaysWhenAnotherNumberIsAsLarge) {
  const EliminationInSteps story = EliminateInSteps(StepMatrixOf({{3, 0, 0}, {0, -3, 0}}));
  EXPECT_EQ(story.Steps[1],
            (EliminationStep{.Kind = StepKind::Pivot, .Row = 1, .Column = 1, .Number = 3, .IsTied = true}));
  EXPECT_FALSE(story.Steps[3].IsTied);
}

TEST(EliminationInSteps, EndsAtANumberBelowTheToleranceAndNamesIt) {
  const EliminationInSteps story = EliminateInSteps(StepMatrixOf({{1, 0, 1}, {0, -9.99e-11, 3}}));
  const EliminationStep& end = story.Steps[2];
  EXPECT_EQ(end, (EliminationStep{.Kind = StepKind::PivotsEnd, .Row = 2, .Column = 2, .Number = -9.99e-11}));
  EXPECT_EQ(story.Steps[3].Kind, StepKind::Clean);
  EXPECT_EQ(story.Steps[3].Number, 1) << "one number becomes 0";
  const EliminationInSteps just = EliminateInSteps(StepMatrixOf({{1, 0, 1}, {0, 1e-10, 3}}));
  EXPECT_EQ(just.Steps[2].Kind, StepKind::Pivot);
}

TEST(EliminationInSteps, NotesEachRowWhereItLosesItsLastCoefficient) {
  const EliminationInSteps story =
      EliminateInSteps(StepMatrixOf({{0, 0, 7}, {2, 0, 4}, {2, 0, 5}, {0, 1e-11, 6}}));
  ASSERT_EQ(story.Emptied.size(), 3U);
  EXPECT_EQ(story.Emptied[0], (EmptiedRow{0, 1, 7})) << "from the beginning";
  EXPECT_EQ(story.Steps[story.Emptied[1].Step].Kind, StepKind::Clear);
  EXPECT_EQ(story.Emptied[1].Row, 3);
  EXPECT_EQ(story.Emptied[1].RightHandSide, 1);
  EXPECT_EQ(story.Steps[story.Emptied[2].Step].Kind, StepKind::Clean);
  EXPECT_EQ(story.Emptied[2].Row, 4);
  EXPECT_EQ(story.Emptied[2].RightHandSide, 6);
}

}  // namespace
