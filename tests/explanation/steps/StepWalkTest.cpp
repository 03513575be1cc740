// Going through the steps: forwards, backwards and anywhere, and which numbers each of them is about.
#include "explanation/steps/StepWalk.h"

#include <gmock/gmock.h>

#include "explanation/steps/PivotWaits.h"
#include "explanation/steps/StepLines.h"
#include "explanation/steps/StepsFixture.h"

namespace {

StepWalk WalkThrough(const SteppedTruss& truss) {
  return StepWalk(std::make_shared<const EliminationInSteps>(truss.Story));
}

TEST(StepWalk, ShowsAnOperationAsItIsChosenAndThenAsItIsCarriedOut) {
  const SteppedTruss truss(HandTriangle());
  StepWalk walk = WalkThrough(truss);
  StepMatrix matrix(truss.Story.Equations);
  int place = 0;
  for (std::size_t i = 0; i < truss.Story.Steps.size(); ++i) {
    const EliminationStep& step = truss.Story.Steps[i];
    EXPECT_EQ(walk.PlaceOf(i), place);
    walk.GoTo(place++);
    EXPECT_EQ(walk.View(), (StepView{i, false}));
    EXPECT_EQ(walk.Matrix(), matrix);
    matrix.CarryOut(step);
    if (!Changes(step.Kind)) continue;
    walk.GoTo(place++);
    EXPECT_EQ(walk.View(), (StepView{i, true}));
    EXPECT_EQ(walk.Matrix(), matrix);
  }
  EXPECT_EQ(place, walk.NumViews());
}

TEST(StepWalk, ShowsTheSameWhereverItComesFrom) {
  std::mt19937 random(5);
  const SteppedTruss truss(RandomSimpleTrussOn(random, 9));
  std::vector<StepMatrix> matrices;
  StepWalk forward = WalkThrough(truss);
  for (int place = 0; place < forward.NumViews(); ++place) {
    forward.GoTo(place);
    matrices.push_back(forward.Matrix());
  }
  StepWalk walk = WalkThrough(truss);
  for (int i = 0; i < 200; ++i) {
    const int place = Below(random, walk.NumViews());
    walk.GoTo(place);
    EXPECT_EQ(walk.Matrix(), matrices[static_cast<std::size_t>(place)]) << place;
  }
}

// Columns of the marked numbers of a row.
std::vector<int> Marked(const StepWalk& walk, int row, CellMark mark) {
  std::vector<int> columns;
  for (int column = 1; column <= walk.Matrix().NumUnknowns() + 1; ++column) {
    if (walk.Mark(row, column) == mark) columns.push_back(column);
  }
  return columns;
}

TEST(StepWalk, MarksTheNumbersThatAreSubtractedAndThoseThatChange) {
  const SteppedTruss truss(HandTriangle());
  StepWalk walk = WalkThrough(truss);
  const std::size_t index = truss.StepOf(StepKind::Clear);
  const EliminationStep& step = truss.Story.Steps[index];
  for (const int view : {0, 1}) {
    walk.GoTo(walk.PlaceOf(index) + view);
    std::vector<int> concerned = Marked(walk, step.OtherRow, CellMark::Source);
    EXPECT_EQ(Marked(walk, step.OtherRow, CellMark::Pivot), std::vector<int>{step.Column});
    concerned.push_back(step.Column);
    std::ranges::sort(concerned);
    EXPECT_EQ(Marked(walk, step.Row, CellMark::Target), concerned);
    for (const int column : concerned) {
      EXPECT_NE(walk.Matrix()(step.OtherRow, column), 0);
    }
    int numMarked = 0;
    for (int row = 1; row <= walk.Matrix().NumRows(); ++row)
      numMarked +=
          walk.Matrix().NumUnknowns() + 1 - static_cast<int>(Marked(walk, row, CellMark::None).size());
    EXPECT_EQ(numMarked, 2 * static_cast<int>(concerned.size())) << "no other number is marked";
  }
}

TEST(StepWalk, MarksThePivotAloneWhereItIsChosen) {
  const SteppedTruss truss(HandTriangle());
  StepWalk walk = WalkThrough(truss);
  for (std::size_t i = 0; i < truss.Story.Steps.size(); ++i) {
    const EliminationStep& step = truss.Story.Steps[i];
    if (step.Kind != StepKind::Pivot) continue;
    walk.GoTo(walk.PlaceOf(i));
    for (int row = 1; row <= walk.Matrix().NumRows(); ++row) {
      EXPECT_EQ(Marked(walk, row, CellMark::Pivot),
                row == step.Row ? std::vector<int>{step.Column} : std::vector<int>{});
      EXPECT_THAT(Marked(walk, row, CellMark::Target), testing::IsEmpty());
    }
  }
}

TEST(StepWalk, MarksWhatIsCleanedAndTheRowsThatDecide) {
  SteppedTruss truss(LooseSquare());
  truss.Story.Equations.Set(1, 8, 5e-11);
  truss.Story = EliminateInSteps(truss.Story.Equations);
  StepWalk walk = WalkThrough(truss);
  const std::size_t clean = truss.StepOf(StepKind::Clean);
  for (const int view : {0, 1}) {
    walk.GoTo(walk.PlaceOf(clean) + view);
    EXPECT_EQ(Marked(walk, 1, CellMark::Target), std::vector<int>{8}) << view;
    EXPECT_EQ(walk.Matrix()(1, 8) == 0, view == 1);
    EXPECT_THAT(Marked(walk, 2, CellMark::Target), testing::IsEmpty());
  }
  walk.GoTo(walk.NumViews() - 1);
  EXPECT_EQ(Marked(walk, truss.Story.Emptied.at(0).Row, CellMark::Pivot), std::vector<int>{8});
}

// A triangle without supports under a load has rows of both kinds: 0 = 500 and 0 = 0.
TEST(StepWalk, MarksOfRowsWithoutCoefficientsOnlyThoseThatDecide) {
  const SteppedTruss truss(TrussBuilder()
                               .Member(0, 0, 8, 0, "AB")
                               .Member(0, 0, 4, 3, "AC")
                               .Member(8, 0, 4, 3, "BC")
                               .Joint(0, 0, "A")
                               .Joint(8, 0, "B")
                               .Joint(4, 3, "C")
                               .Force(4, 3, 0, -1000));
  StepWalk walk = WalkThrough(truss);
  walk.GoTo(walk.NumViews() - 1);
  const StepText text = truss.Text();
  const std::string said = text.Remarks(truss.Story.Steps.size() - 1).front();
  ASSERT_EQ(truss.Story.Emptied.size(), 3U);
  for (const EmptiedRow& emptied : truss.Story.Emptied) {
    const bool isMarked = walk.Mark(emptied.Row, 4) == CellMark::Pivot;
    EXPECT_EQ(isMarked, emptied.RightHandSide != 0) << text.Row(emptied.Row);
    EXPECT_EQ(isMarked, said.find(text.Row(emptied.Row)) != std::string::npos) << said;
  }
  for (std::size_t i = 0; i < truss.Story.Steps.size(); ++i) {
    for (const std::string& remark : text.Remarks(i))
      EXPECT_EQ(remark.find("makes the system redundant"), std::string::npos) << remark;
  }
}

TEST(StepWalk, MarksWhatChangesItsPlace) {
  const SteppedTruss truss(LooseSquare());
  StepWalk walk = WalkThrough(truss);
  for (const StepKind kind :
       {StepKind::ExchangeRows, StepKind::ExchangeColumns, StepKind::RestoreColumns, StepKind::RestoreRows}) {
    const int place = walk.PlaceOf(truss.StepOf(kind));
    walk.GoTo(place + 1);
    const StepMatrix after = walk.Matrix();
    walk.GoTo(place);
    const StepMatrix& before = walk.Matrix();
    for (int i = 1; i <= before.NumRows(); ++i) {
      for (int k = 1; k <= before.NumUnknowns(); ++k) {
        const int row = before.RowAt(i);
        const int column = before.ColumnAt(k);
        const bool moves = after.RowAt(i) != row || after.ColumnAt(k) != column;
        EXPECT_EQ(walk.Mark(row, column) == CellMark::Target, moves && before(row, column) != 0)
            << static_cast<int>(kind) << ", " << row << ", " << column;
      }
    }
  }
}

TEST(PivotWaits, ListsTheUnknownsThatTheRowStillWaitsFor) {
  const SteppedTruss truss(HandTriangle());
  const StepText text = truss.Text();
  const int Ay = 2;
  const std::optional<std::size_t> step = StepOfPivot(truss.Story, Ay);
  ASSERT_TRUE(step);
  EXPECT_EQ(truss.Story.Steps[*step].Column, Ay);
  const std::vector<AwaitedPivot> awaited = AwaitedBy(truss.Story, *step, 0);
  ASSERT_EQ(awaited.size(), 2U);
  EXPECT_EQ(text.Column(awaited[0].Unknown), "AC");
  EXPECT_EQ(text.Column(awaited[1].Unknown), "BC");
  const auto whole = [&](std::size_t at) { return PivotOfUnknownText(text, Ay, at); };
  const auto numbered = [](std::size_t number) { return " (step " + std::to_string(number) + ")"; };
  const std::string both =
      "AC" + numbered(awaited[0].Step) + " and BC" + numbered(awaited[1].Step) + " to go out of it.";
  EXPECT_EQ(whole(0), "Ay gets its pivot in A - y (step 2).  That row then waits for " + both);
  EXPECT_EQ(whole(*step + 1), "Ay has its pivot in A - y (step 2).  That row still waits for " + both);
  EXPECT_EQ(whole(awaited[0].Step + 1), "Ay has its pivot in A - y (step 2).  That row still waits for BC" +
                                            numbered(awaited[1].Step) + " to go out of it.");
  EXPECT_EQ(whole(awaited[1].Step + 1),
            "Ay has its pivot in A - y (step 2).  That row waits for nothing more.");
}

TEST(PivotWaits, SaysThatAnUnknownGetsNoPivot) {
  const SteppedTruss truss(LooseSquare().Member(0, 0, 4, 4, "AC").Member(4, 0, 0, 4, "BD"));
  int without = 0;
  for (int k = 1; k <= truss.Graph.NumUnknowns(); ++k) {
    if (StepOfPivot(truss.Story, k)) continue;
    ++without;
    EXPECT_EQ(PivotOfUnknownText(truss.Text(), k, 0), truss.Text().Column(k) + " gets no pivot.");
  }
  EXPECT_EQ(without, truss.Graph.NumUnknowns() - static_cast<int>(truss.Story.Pivots.size()));
}

std::vector<std::string> TextsOf(const std::vector<StepLine>& lines, StepLineKind kind) {
  std::vector<std::string> texts;
  for (const StepLine& line : lines) {
    if (line.Kind == kind) texts.push_back(line.Text);
  }
  return texts;
}

TEST(StepLines, NumbersEveryStep) {
  const SteppedTruss truss(HandTriangle());
  const std::vector<StepLine> lines = StepLines(truss.Text(), StepsWithoutEnd);
  EXPECT_EQ(TextsOf(lines, StepLineKind::Pivot).size(), 6U);
  EXPECT_EQ(TextsOf(lines, StepLineKind::Pivot).size() + TextsOf(lines, StepLineKind::Operation).size(),
            truss.Story.Steps.size() - 1);
  EXPECT_EQ(TextsOf(lines, StepLineKind::Pivot)[0], "1.  The pivot is the coefficient of Ax in A - x, 1.");
  EXPECT_THAT(TextsOf(lines, StepLineKind::Operation),
              testing::Contains("8.  C - x becomes C - x divided by 0.7071.   [C - x] := [C - x] / 0.7071"));
}

TEST(StepLines, LeaveALineBeforeAPivotAndMoveRemarksInUnderTheirStep) {
  const SteppedTruss truss(HandTriangle());
  const StepText text = truss.Text();
  const std::vector<std::string> plain = PlainStepLines(text);
  const auto pivot = std::ranges::find(plain, "1.  The pivot is the coefficient of Ax in A - x, 1.");
  ASSERT_TRUE(pivot != plain.begin() && pivot != plain.end());
  EXPECT_EQ(*(pivot - 1), "");
  EXPECT_EQ(std::ranges::count(plain, ""), 6) << "one for each pivot";
  const std::vector<std::string> remarks = TextsOf(StepLines(text, StepsWithoutEnd), StepLineKind::Remark);
  EXPECT_FALSE(remarks.empty());
  for (const std::string& remark : remarks) EXPECT_THAT(plain, testing::Contains("    " + remark));
}

TEST(StepLines, TellsOnPaperWhatItLeavesOut) {
  const SteppedTruss truss(HandTriangle());
  const StepText text = truss.Text();
  const std::size_t numSteps = truss.Story.Steps.size();
  EXPECT_EQ(StepLines(text, {.Steps = numSteps, .Pivots = 0}).size(),
            StepLines(text, StepsWithoutEnd).size());
  const std::vector<StepLine> lines = StepLines(text, {.Steps = numSteps - 1, .Pivots = 4});
  EXPECT_THAT(
      TextsOf(lines, StepLineKind::Text),
      testing::IsSupersetOf({testing::HasSubstr("The elimination has " + std::to_string(numSteps - 1) +
                                                " steps, which would fill too many pages"),
                             testing::HasSubstr("And 2 more pivots")}));
  EXPECT_THAT(TextsOf(lines, StepLineKind::Operation),
              testing::ElementsAre("1.  A - x, Ax:  1", "2.  A - y, Ay:  1", "3.  B - x, AB:  1",
                                   "4.  B - y, B:  1"));
}

}  // namespace
