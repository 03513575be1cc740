// The elimination in words. Each sentence is carried out by a reader who has nothing but the sentence and a
// table of named rows and columns, and who must come to the same bits.
#include "explanation/steps/StepText.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstdlib>
#include <map>
#include <regex>
#include <set>

#include "explanation/steps/StepMatrix.h"
#include "explanation/steps/StepsFixture.h"

namespace {

using testing::HasSubstr;
using testing::StartsWith;

// All figures, so that a number that is read is the number that was meant.
const ReportFormat Exact{.SigFigs = 17, .Numbers = {}};

// A table on paper: rows and columns in an order, numbers by the names of both.
class PaperTable {
 public:
  PaperTable(const StepMatrix& matrix, const StepText& text) {
    for (int place = 1; place <= matrix.NumRows(); ++place) rows_.push_back(text.Row(matrix.RowAt(place)));
    for (int k = 1; k <= matrix.NumUnknowns(); ++k) columns_.push_back(text.Column(matrix.ColumnAt(k)));
    unknowns_ = columns_;
    for (int row = 1; row <= matrix.NumRows(); ++row) {
      for (int column = 1; column <= matrix.NumUnknowns() + 1; ++column)
        numbers_[text.Row(row)][text.Column(column)] = matrix(row, column);
    }
  }

  // Throws nothing; a sentence that is not understood fails the test.
  void CarryOut(const std::string& sentence) {
    static const std::regex subtract("(.+) becomes (.+) (minus|plus) (?:([-0-9.E+]+) times )?(.+)\\.");
    static const std::regex divide("(.+) becomes (.+) divided by ([-0-9.E+]+)\\.");
    static const std::regex rows("The rows (.+) and (.+) change places\\.");
    static const std::regex columns("The columns of (.+) and (.+) change places\\.");
    static const std::regex clean("Every number smaller than ([0-9.E-]+) in magnitude becomes 0\\.");
    static const std::regex pivot("The pivot is the coefficient of (.+) in (.+), ([-0-9.E+]+)\\.");
    std::smatch part;
    if (std::regex_match(sentence, part, divide)) {
      ASSERT_EQ(part[1], part[2]);
      for (auto& [column, number] : numbers_[part[1]]) number = number / std::stod(part[3]);
    } else if (std::regex_match(sentence, part, subtract)) {
      ASSERT_EQ(part[1], part[2]);
      const double factor = (part[3] == "minus" ? 1 : -1) * (part[4].matched ? std::stod(part[4]) : 1);
      for (auto& [column, number] : numbers_[part[1]])
        number = number - factor * numbers_.at(part[5]).at(column);
    } else if (std::regex_match(sentence, part, rows)) {
      ChangePlaces(rows_, part[1], part[2]);
    } else if (std::regex_match(sentence, part, columns)) {
      ChangePlaces(columns_, part[1], part[2]);
    } else if (std::regex_match(sentence, part, clean)) {
      Clean(std::stod(part[1]));
    } else if (std::regex_match(sentence, part, pivot)) {
      ExpectLargest(part[1], part[2], std::stod(part[3]));
    } else if (sentence == "The columns go back to the order of the unknowns.") {
      columnsWere_ = std::exchange(columns_, unknowns_);
    } else if (sentence == "Each row goes to the place that its column has now.") {
      FollowColumns();
    } else {
      EXPECT_FALSE(std::regex_search(sentence, std::regex("becomes|go|change"))) << sentence;
    }
  }

  void ExpectSameAs(const PaperTable& other) const {
    EXPECT_EQ(rows_, other.rows_);
    EXPECT_EQ(columns_, other.columns_);
    EXPECT_EQ(numbers_, other.numbers_);
  }

 private:
  static void ChangePlaces(std::vector<std::string>& names, const std::string& one, const std::string& two) {
    ASSERT_EQ(std::ranges::count(names, one), 1) << one;
    ASSERT_EQ(std::ranges::count(names, two), 1) << two;
    std::iter_swap(std::ranges::find(names, one), std::ranges::find(names, two));
  }

  void Clean(double limit) {
    for (auto& [row, numbers] : numbers_) {
      for (auto& [column, number] : numbers) {
        if (std::abs(number) < limit) number = 0;
      }
    }
  }

  void ExpectLargest(const std::string& column, const std::string& row, double value) {
    EXPECT_EQ(numbers_.at(row).at(column), value);
    EXPECT_TRUE(used_.insert(row).second && used_.insert(column + " ").second);
    for (const std::string& otherRow : rows_) {
      for (const std::string& otherColumn : columns_) {
        if (used_.contains(otherRow) || used_.contains(otherColumn + " ")) continue;
        EXPECT_LE(std::abs(numbers_.at(otherRow).at(otherColumn)), std::abs(value));
      }
    }
  }

  void FollowColumns() {
    const std::vector<std::string> rowsWere = rows_;
    for (std::size_t place = 0; place < columnsWere_.size(); ++place) {
      const auto now = std::ranges::find(columns_, columnsWere_[place]) - columns_.begin();
      rows_[static_cast<std::size_t>(now)] = rowsWere[place];
    }
  }

  std::vector<std::string> rows_, columns_, unknowns_, columnsWere_;
  std::map<std::string, std::map<std::string, double>> numbers_;
  std::set<std::string> used_;  // by a pivot; columns with a blank behind their names
};

TEST(StepText, EverySentenceIsEnoughToCarryTheStepOut) {
  std::map<StepKind, int> kinds;
  WithTrussesOfAllKinds([&](const Truss& given) {
    const SteppedTruss truss(given);
    if (truss.Graph.NumUnknowns() == 0 || truss.Graph.NumUnknowns() > 40) return;
    const StepText text = truss.Text(Exact);
    StepMatrix matrix(truss.Story.Equations);
    PaperTable paper(matrix, text);
    for (const EliminationStep& step : truss.Story.Steps) {
      SCOPED_TRACE(text.Sentence(step, false));
      paper.CarryOut(text.Sentence(step, false));
      matrix.CarryOut(step);
      if (truss.Graph.NumUnknowns() <= 12) paper.ExpectSameAs(PaperTable(matrix, text));
      if (testing::Test::HasFailure()) return;
      ++kinds[step.Kind];
    }
    paper.ExpectSameAs(PaperTable(matrix, text));
  });
  EXPECT_EQ(kinds.size(), 11U) << "every kind has been told";
}

std::vector<std::string> AllRemarks(const SteppedTruss& truss, const StepText& text) {
  std::vector<std::string> remarks;
  for (std::size_t i = 0; i < truss.Story.Steps.size(); ++i) {
    for (const std::string& remark : text.Remarks(i)) remarks.push_back(remark);
  }
  return remarks;
}

TEST(StepText, CallsRowsByTheirEquations) {
  const SteppedTruss truss(HandTriangle());
  const StepText text = truss.Text();
  EXPECT_EQ(text.Row(1), "A - x");
  EXPECT_EQ(text.Row(6), "C - y");
  EXPECT_EQ(text.Column(4), "AB");
  EXPECT_EQ(text.Column(7), "RHS");
  const EliminationStep subtract{
      .Kind = StepKind::Clear, .Row = 6, .OtherRow = 1, .Column = 1, .Number = 0.6};
  EXPECT_EQ(text.Sentence(subtract, false), "C - y becomes C - y minus 0.6 times A - x.");
  EXPECT_EQ(text.Sentence(subtract, true), "C - y has become C - y minus 0.6 times A - x.");
  EXPECT_EQ(text.ShortForm(subtract), "[C - y] := [C - y] - 0.6 \xB7 [A - x]");
  const EliminationStep add{.Kind = StepKind::Clear, .Row = 6, .OtherRow = 1, .Column = 1, .Number = -1};
  EXPECT_EQ(text.Sentence(add, false), "C - y becomes C - y plus A - x.");
  EXPECT_EQ(text.ShortForm(add), "[C - y] := [C - y] + [A - x]");
  const EliminationStep divide{.Kind = StepKind::Divide, .Row = 1, .Column = 1, .Number = -0.8};
  EXPECT_EQ(text.ShortForm(divide), "[A - x] := [A - x] / (-0.8)");
}

TEST(StepText, WritesNoNumberAsZeroThatIsNot) {
  const SteppedTruss truss(HandTriangle());
  EXPECT_EQ(truss.Text().Number(0), "0");
  EXPECT_EQ(truss.Text().Number(0.6), "0.6");
  EXPECT_EQ(truss.Text().Number(-2.66453526e-15), "-2.665E-15");
  EXPECT_EQ(truss.Text(Exact).Number(2e-10), "2.0000000000000000E-10");
  const ReportFormat comma{.SigFigs = 3, .Numbers = {.DecimalSeparator = ","}};
  EXPECT_EQ(truss.Text(comma).Number(2.664e-15), "2,66E-15");
}

TEST(StepText, SaysWhyThereAreNoFractions) {
  EXPECT_THAT(StepText::Introduction(), testing::Contains(HasSubstr("decimals and not as fractions")));
}

TEST(StepText, ExplainsTheRowThatDecidesWhereItArises) {
  const SteppedTruss moves(LooseSquare());
  const StepText text = moves.Text();
  ASSERT_EQ(moves.Story.Emptied.size(), 1U);
  const std::size_t step = moves.Story.Emptied[0].Step;
  EXPECT_EQ(moves.Story.Steps[step].Kind, StepKind::Clear);
  EXPECT_THAT(text.Remarks(step),
              testing::ElementsAre("D - x has no coefficient left, and -1000 on its right: it says 0 = "
                                   "-1000.  No forces can make that true.  This row decides that there is "
                                   "no solution."));
  EXPECT_THAT(text.Remarks(moves.Story.Steps.size() - 1), testing::Contains(InconsistentText));
}

TEST(StepText, ExplainsTheRowThatSaysNothing) {
  const SteppedTruss rests(LooseSquare(0));
  const StepText text = rests.Text();
  EXPECT_THAT(text.Remarks(rests.Story.Emptied.at(0).Step),
              testing::ElementsAre(StartsWith("D - x has no coefficient left, and 0 on the right: 0 = 0.")));
  EXPECT_THAT(text.Remarks(rests.Story.Steps.size() - 1),
              testing::IsSupersetOf(
                  {std::string("D - x says 0 = 0 and decides the conclusion."), std::string(RedundantText)}));
}

TEST(StepText, ExplainsAJointWithoutMembersFromTheBeginning) {
  const SteppedTruss truss(HandTriangle().Force(20, 0, 0, -7).Joint(20, 0, "Z"));
  const std::vector<std::string> remarks = truss.Text().Remarks(0);
  EXPECT_THAT(remarks, testing::ElementsAre(StartsWith("Z - y has no coefficient, and 7 on its right"),
                                            StartsWith("Z - x has no coefficient, and 0 on the right")));
}

TEST(StepText, ExplainsAPivotBelowTheTolerance) {
  SteppedTruss truss(HandTriangle());
  SparseMatrix<double> nearly(6, 7);
  for (int k = 1; k <= 5; ++k) nearly.SetRow(k, {{k, 1}});
  nearly.SetRow(6, {{6, 3e-17}, {7, 5}});
  truss.Story = EliminateInSteps(nearly);
  const std::size_t end = truss.StepOf(StepKind::PivotsEnd);
  ASSERT_NE(truss.Story.Steps[end].Number, 0);
  const StepText text = truss.Text();
  EXPECT_EQ(text.Sentence(truss.Story.Steps[end], false),
            "The largest number left, the coefficient of BC in C - y, is 3.000E-17: no further pivot.");
  const std::vector<std::string> remarks = text.Remarks(end);
  ASSERT_EQ(remarks.size(), 2U);
  EXPECT_THAT(remarks[0], StartsWith("It is smaller than 1E-10 in magnitude"));
  EXPECT_EQ(remarks[1], "BC gets no pivot.");
}

TEST(StepText, NamesTheUnknownsThatStayUndetermined) {
  const SteppedTruss truss(LooseSquare().Member(0, 0, 4, 4, "AC").Member(4, 0, 0, 4, "BD"));
  ASSERT_LT(truss.Graph.NumEquations(), truss.Graph.NumUnknowns());
  EXPECT_THAT(AllRemarks(truss, truss.Text()),
              testing::IsSupersetOf({HasSubstr(" no pivot: there are more unknowns than equations."),
                                     HasSubstr("which stay undetermined.")}));
}

TEST(StepText, SaysTheValuesThatTheRowsGive) {
  const SteppedTruss truss(HandTriangle());
  EXPECT_THAT(truss.Text().Remarks(truss.Story.Steps.size() - 1),
              testing::ElementsAre(HasSubstr("Ax = 0, Ay = 500, B = 500, AB = -500, AC = 707.1 and BC = "
                                             "707.1.")));
}

}  // namespace
