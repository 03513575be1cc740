// The elimination in words. Each sentence is carried out by a reader who has nothing but the sentence and a
// table of named rows and columns, and who must come to the same bits.
#include "explanation/steps/StepText.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstdlib>
#include <map>
#include <set>

#include "explanation/steps/StepMatrix.h"
#include "explanation/steps/StepsFixture.h"
#include "support/Pattern.h"

namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

// All figures, so that a number that is read is the number that was meant.
const ReportFormat Exact{.SigFigs = 17, .Numbers = {}};

// What stands beside and above a table: the name of each row and of each column, the right-hand side's last.
class PaperNames {
 public:
  PaperNames(const StepMatrix& matrix, const StepText& text) {
    for (int row = 1; row <= matrix.NumRows(); ++row) Rows.push_back(text.Row(row));
    for (int column = 1; column <= matrix.NumUnknowns() + 1; ++column) Columns.push_back(text.Column(column));
    for (std::size_t i = 0; i < Rows.size(); ++i) rows_[Rows[i]] = i;
    for (std::size_t i = 0; i < Columns.size(); ++i) columns_[Columns[i]] = i;
  }

  std::size_t Row(const std::string& name) const { return rows_.at(name); }
  std::size_t Column(const std::string& name) const { return columns_.at(name); }

  std::vector<std::string> Rows, Columns;

 private:
  std::map<std::string, std::size_t> rows_, columns_;
};

// A table on paper: rows and columns in an order, numbers by the names of both.
class PaperTable {
 public:
  PaperTable(const PaperNames& names, const StepMatrix& matrix) : names_(&names) {
    for (int place = 1; place <= matrix.NumRows(); ++place) {
      const auto row = static_cast<std::size_t>(matrix.RowAt(place));
      rows_.push_back(names.Rows[row - 1]);
    }
    for (int place = 1; place <= matrix.NumUnknowns(); ++place) {
      const auto column = static_cast<std::size_t>(matrix.ColumnAt(place));
      columns_.push_back(names.Columns[column - 1]);
    }
    unknowns_ = columns_;
    for (int row = 1; row <= matrix.NumRows(); ++row)
      numbers_.emplace_back(matrix.Row(row).begin(), matrix.Row(row).end());
  }

  // Throws nothing; a sentence that is not understood fails the test.
  void CarryOut(const std::string& sentence) {
    static const Pattern subtract("(.+) becomes (.+) (minus|plus) (?:([-0-9.E+]+) times )?(.+)\\.");
    static const Pattern divide("(.+) becomes (.+) divided by ([-0-9.E+]+)\\.");
    static const Pattern rows("The rows (.+) and (.+) change places\\.");
    static const Pattern columns("The columns of (.+) and (.+) change places\\.");
    static const Pattern clean("Every number smaller than ([0-9.E-]+) in magnitude becomes 0\\.");
    static const Pattern pivot("The pivot is the coefficient of (.+) in (.+), ([-0-9.E+]+)\\.");
    if (const auto quotient = divide.Whole(sentence)) {
      ASSERT_EQ(quotient->at(1), quotient->at(2));
      const double divisor = std::stod(quotient->at(3));
      for (double& number : RowOf(quotient->at(1))) number = number / divisor;
    } else if (const auto sum = subtract.Whole(sentence)) {
      Add(*sum);
    } else if (const auto places = rows.Whole(sentence)) {
      ChangePlaces(rows_, places->at(1), places->at(2));
    } else if (const auto swapped = columns.Whole(sentence)) {
      ChangePlaces(columns_, swapped->at(1), swapped->at(2));
    } else if (const auto small = clean.Whole(sentence)) {
      Clean(std::stod(small->at(1)));
    } else if (const auto chosen = pivot.Whole(sentence)) {
      ExpectLargest(chosen->at(1), chosen->at(2), std::stod(chosen->at(3)));
    } else if (sentence == "The columns go back to the order of the unknowns.") {
      columnsWere_ = std::exchange(columns_, unknowns_);
    } else if (sentence == "Each row goes to the place that its column has now.") {
      FollowColumns();
    } else {
      EXPECT_FALSE(Pattern("becomes|go|change").StandsIn(sentence)) << sentence;
    }
  }

  double At(const std::string& row, const std::string& column) const {
    return numbers_[names_->Row(row)][names_->Column(column)];
  }

  const std::vector<std::string>& Rows() const { return rows_; }
  const std::vector<std::string>& Columns() const { return columns_; }

  void ExpectSameAs(const PaperTable& other) const {
    EXPECT_EQ(rows_, other.rows_);
    EXPECT_EQ(columns_, other.columns_);
    EXPECT_EQ(numbers_, other.numbers_);
  }

 private:
  std::vector<double>& RowOf(const std::string& name) { return numbers_[names_->Row(name)]; }

  // The row, itself once more, the sign, the factor or nothing, and the other row.
  void Add(const Pattern::Parts& sum) {
    ASSERT_EQ(sum.at(1), sum.at(2));
    const double factor = (sum.at(3) == "minus" ? 1 : -1) * (sum.at(4).empty() ? 1 : std::stod(sum.at(4)));
    std::vector<double>& numbers = RowOf(sum.at(1));
    const std::vector<double>& others = RowOf(sum.at(5));
    for (std::size_t column = 0; column < numbers.size(); ++column)
      numbers[column] = numbers[column] - factor * others[column];
  }

  static void ChangePlaces(std::vector<std::string>& names, const std::string& one, const std::string& two) {
    ASSERT_EQ(std::ranges::count(names, one), 1) << one;
    ASSERT_EQ(std::ranges::count(names, two), 1) << two;
    std::iter_swap(std::ranges::find(names, one), std::ranges::find(names, two));
  }

  void Clean(double limit) {
    for (std::vector<double>& numbers : numbers_) {
      for (double& number : numbers) {
        if (std::abs(number) < limit) number = 0;
      }
    }
  }

  void ExpectLargest(const std::string& column, const std::string& row, double value) {
    EXPECT_EQ(At(row, column), value);
    EXPECT_TRUE(used_.insert(row).second && used_.insert(column + " ").second);
    for (const std::string& otherRow : rows_) {
      if (used_.contains(otherRow)) continue;
      for (const std::string& otherColumn : columns_) {
        if (used_.contains(otherColumn + " ")) continue;
        EXPECT_LE(std::abs(At(otherRow, otherColumn)), std::abs(value));
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
  const PaperNames* names_;
  std::vector<std::vector<double>> numbers_;  // in the order of the names
  std::set<std::string> used_;                // by a pivot; columns with a blank behind their names
};

TEST(StepText, EverySentenceIsEnoughToCarryTheStepOut) {
  std::map<StepKind, int> kinds;
  WithTrussesOfAllKinds([&](const Truss& given) {
    const SteppedTruss truss(given);
    if (truss.Graph.NumUnknowns() == 0 || truss.Graph.NumUnknowns() > 40) return;
    const StepText text = truss.Text(Exact);
    StepMatrix matrix(truss.Story.Equations);
    const PaperNames names(matrix, text);
    PaperTable paper(names, matrix);
    for (const EliminationStep& step : truss.Story.Steps) {
      SCOPED_TRACE(text.Sentence(step, false));
      paper.CarryOut(text.Sentence(step, false));
      matrix.CarryOut(step);
      if (truss.Graph.NumUnknowns() <= 12) paper.ExpectSameAs(PaperTable(names, matrix));
      if (testing::Test::HasFailure()) return;
      ++kinds[step.Kind];
    }
    paper.ExpectSameAs(PaperTable(names, matrix));
  });
  EXPECT_EQ(kinds.size(), 11U) << "every kind has been told";
}

// What is said beside the sentences, held against the tables before and after the step.
class PurposeReader {
 public:
  void Read(const PaperTable& before, const std::string& chosen, const PaperTable& after,
            const std::string& carriedOut) {
    static const Pattern goesOut("So (.+) goes out of (.+), where its coefficient is ([-0-9.E+]+)\\.");
    static const Pattern small(
        "So small (?:is|are) ([0-9]+) numbers?, (?:a remnant|remnants) of rounding\\.");
    if (const auto gone = goesOut.Whole(chosen)) {
      const std::string &column = gone->at(1), &row = gone->at(2);
      EXPECT_EQ(before.At(row, column), std::stod(gone->at(3)));
      EXPECT_EQ(after.At(row, column), 0);
      EXPECT_EQ(carriedOut, column + " is gone from " + row + ".");
      ++NumGone;
    } else if (const auto cleaned = small.Whole(chosen)) {
      EXPECT_EQ(NumSmall(before), std::stoi(cleaned->at(1)));
      EXPECT_THAT(carriedOut, StartsWith("It was " + cleaned->at(1) + " number"));
      ++NumCleaned;
    } else if (chosen == "There is none: nothing changes.") {
      EXPECT_EQ(NumSmall(before), 0);
      after.ExpectSameAs(before);
    }
    EXPECT_EQ(NumSmall(after) > 0 && chosen.starts_with("So small"), false);
  }

  // The rows and columns that have had no pivot are what is left to choose from.
  void ReadPivot(const PaperTable& table, const std::string& row, const std::string& column,
                 const std::string& chosen) {
    const double size = std::abs(table.At(row, column));
    std::vector<std::pair<std::string, std::string>> asLarge;
    for (const std::string& otherRow : table.Rows()) {
      if (rowsUsed_.contains(otherRow)) continue;
      for (const std::string& other : table.Columns()) {
        if (columnsUsed_.contains(other)) continue;
        if (std::abs(table.At(otherRow, other)) == size) asLarge.emplace_back(otherRow, other);
      }
    }
    ASSERT_FALSE(asLarge.empty());
    EXPECT_EQ(asLarge.front(), std::pair(row, column)) << "the first row counts, and in it the first column";
    EXPECT_EQ(chosen.find("Others are as large") != std::string::npos, asLarge.size() > 1);
    NumTied += asLarge.size() > 1 ? 1 : 0;
    rowsUsed_.insert(row);
    columnsUsed_.insert(column);
  }

  int NumGone = 0, NumCleaned = 0, NumTied = 0;

 private:
  static int NumSmall(const PaperTable& table) {
    int count = 0;
    for (const std::string& row : table.Rows()) {
      std::vector<std::string> columns = table.Columns();
      columns.emplace_back("RHS");
      for (const std::string& column : columns) {
        const double number = table.At(row, column);
        count += number != 0 && std::abs(number) < 1e-10 ? 1 : 0;
      }
    }
    return count;
  }

  std::set<std::string> rowsUsed_, columnsUsed_;
};

TEST(StepText, WhatEachStepIsForIsSeenInTheTable) {
  int gone = 0, cleaned = 0, tied = 0;
  WithTrussesOfAllKinds([&](const Truss& given) {
    const SteppedTruss truss(given);
    if (truss.Graph.NumUnknowns() == 0 || truss.Graph.NumUnknowns() > 12) return;
    const StepText text = truss.Text(Exact);
    StepMatrix matrix(truss.Story.Equations);
    const PaperNames names(matrix, text);
    PurposeReader reader;
    for (const EliminationStep& step : truss.Story.Steps) {
      SCOPED_TRACE(text.Sentence(step, false));
      const PaperTable before(names, matrix);
      matrix.CarryOut(step);
      if (step.Kind == StepKind::Pivot) {
        reader.ReadPivot(before, text.Row(step.Row), text.Column(step.Column), text.Purpose(step, false));
      } else {
        reader.Read(before, text.Purpose(step, false), PaperTable(names, matrix), text.Purpose(step, true));
      }
      if (testing::Test::HasFailure()) return;
    }
    gone += reader.NumGone;
    cleaned += reader.NumCleaned;
    tied += reader.NumTied;
  });
  EXPECT_GT(gone, 100);
  EXPECT_GT(cleaned, 0);
  EXPECT_GT(tied, 100);
}

// The short form is enough by itself too.
TEST(StepText, TheShortFormSaysTheSameOperation) {
  const Pattern subtract(R"(\[(.+)\] := \[(.+)\] ([-+]) (?:([0-9.E+-]+) . )?\[(.+)\])");
  const Pattern divide(R"(\[(.+)\] := \[(.+)\] / \(?(-?[0-9.E+-]+)\)?)");
  int numRead = 0;
  WithTrussesOfAllKinds([&](const Truss& given) {
    const SteppedTruss truss(given);
    if (truss.Graph.NumUnknowns() == 0 || truss.Graph.NumUnknowns() > 12) return;
    const StepText text = truss.Text(Exact);
    for (const EliminationStep& step : truss.Story.Steps) {
      const std::string shortForm = text.ShortForm(step);
      if (step.Kind == StepKind::Clear) {
        const auto part = subtract.Whole(shortForm);
        ASSERT_TRUE(part) << shortForm;
        EXPECT_EQ(part->at(1), text.Row(step.Row));
        EXPECT_EQ(part->at(2), text.Row(step.Row));
        EXPECT_EQ(part->at(5), text.Row(step.OtherRow));
        const double factor = part->at(4).empty() ? 1 : std::stod(part->at(4));
        EXPECT_EQ(part->at(3) == "-" ? factor : -factor, step.Number);
        ++numRead;
      } else if (step.Kind == StepKind::Divide) {
        const auto part = divide.Whole(shortForm);
        ASSERT_TRUE(part) << shortForm;
        EXPECT_EQ(part->at(1), text.Row(step.Row));
        EXPECT_EQ(std::stod(part->at(3)), step.Number);
      }
    }
  });
  EXPECT_GT(numRead, 100);
}

// What the last step says is read from the rows as they stand then.
TEST(StepText, WhatTheRowsSayStandsInThem) {
  int numValues = 0, numOpen = 0;
  WithTrussesOfAllKinds([&](const Truss& given) {
    const SteppedTruss truss(given);
    if (truss.Graph.NumUnknowns() == 0 || truss.Graph.NumUnknowns() > 24) return;
    const StepText text = truss.Text(Exact);
    StepMatrix matrix(truss.Story.Equations);
    for (const EliminationStep& step : truss.Story.Steps) matrix.CarryOut(step);
    const std::vector<std::string> remarks = text.Remarks(truss.Story.Steps.size() - 1);
    if (std::ranges::count(remarks, InconsistentText) > 0) return;
    std::string all;
    for (const std::string& remark : remarks) {
      if (remark.starts_with("A row whose") || remark.starts_with("These values")) all += remark + '\n';
    }
    for (int k = 1; k <= truss.Graph.NumUnknowns(); ++k) {
      std::optional<double> value;
      for (int row = 1; row <= matrix.NumRows(); ++row) {
        const auto numbers = matrix.Row(row).first(static_cast<std::size_t>(matrix.NumUnknowns()));
        const bool isAlone = std::ranges::count_if(numbers, [](double number) { return number != 0; }) == 1;
        if (isAlone && matrix(row, k) == 1) value = matrix(row, matrix.NumUnknowns() + 1);
      }
      const std::string said = text.Column(k) + " = " + (value ? text.Number(*value) : "");
      EXPECT_EQ(all.find(said) != std::string::npos, value.has_value()) << said << " in " << all;
      (value ? numValues : numOpen) += 1;
    }
  });
  EXPECT_GT(numValues, 100);
  EXPECT_GT(numOpen, 20);
}

std::vector<std::string> AllRemarks(const SteppedTruss& truss, const StepText& text) {
  std::vector<std::string> remarks;
  for (std::size_t i = 0; i < truss.Story.Steps.size(); ++i) {
    for (const std::string& remark : text.Remarks(i)) remarks.push_back(remark);
  }
  return remarks;
}

// Names that read like other words of the sentences, or like numbers.
TEST(StepText, EverySentenceIsEnoughWhateverTheNames) {
  const SteppedTruss truss(HandTriangle({.AB = "12",
                                         .AC = "AC in A - x, 1",
                                         .BC = "b and c",
                                         .Ay = "R (x)",
                                         .AtB = "[B]",
                                         .A = "A - x",
                                         .B = "2 times B"}));
  const StepText text = truss.Text(Exact);
  EXPECT_EQ(text.Row(1), "[2 times B] - x");
  EXPECT_EQ(text.Row(3), "[A - x] - x");
  EXPECT_EQ(text.Row(5), "C - x");
  EXPECT_EQ(text.Column(1), "Ax");
  EXPECT_EQ(text.Column(2), "[R (x)]");
  EXPECT_EQ(text.Column(4), "[12]");
  StepMatrix matrix(truss.Story.Equations);
  const PaperNames names(matrix, text);
  PaperTable paper(names, matrix);
  for (const EliminationStep& step : truss.Story.Steps) {
    paper.CarryOut(text.Sentence(step, false));
    matrix.CarryOut(step);
    paper.ExpectSameAs(PaperTable(names, matrix));
  }
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
  truss.Rounded.Verdict.Rank = 5;
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

TEST(StepText, SaysWherePivotsEndBeforeThereAreAsManyAsThereAreExactly) {
  SteppedTruss truss(HandTriangle());
  for (const double left : {3e-17, 0.0}) {
    SparseMatrix<double> nearly(6, 7);
    for (int k = 1; k <= 5; ++k) nearly.SetRow(k, {{k, 1}});
    if (left != 0) nearly.SetRow(6, {{6, left}, {7, 5}});
    truss.Story = EliminateInSteps(nearly);
    EXPECT_THAT(
        truss.Text().Remarks(truss.StepOf(StepKind::PivotsEnd)),
        testing::Contains(left != 0 ? "Exactly there are 6 pivots: not all that is left is nothing, only "
                                      "too small to be told from a remnant."
                                    : "Exactly there are 6 pivots: what is left is 0 only because "
                                      "directions are rounded to single precision."));
  }
}

// Of the pivots of the critical hexagon the last one is nothing but a remnant.
TEST(StepText, SaysWhereARemnantBecomesAPivotAndWhatFollows) {
  const SteppedTruss truss(HandHexagon(5));
  const StepText text = truss.Text();
  std::vector<std::size_t> told;
  std::size_t last = 0;
  for (std::size_t i = 0; i < truss.Story.Steps.size(); ++i) {
    if (truss.Story.Steps[i].Kind != StepKind::Pivot) continue;
    last = i;
    if (!text.Remarks(i).empty()) told.push_back(i);
  }
  EXPECT_EQ(told, std::vector<std::size_t>{last});
  const std::string remark = text.Remarks(last).front();
  EXPECT_THAT(remark, StartsWith("Exactly there are only 11 pivots, and nothing is left here: " +
                                 text.Factor(truss.Story.Steps[last].Number) + " is a remnant of rounding"));
  EXPECT_THAT(remark, HasSubstr("about 1E7 times smaller than the numbers that it is left over from"));
  EXPECT_THAT(remark, HasSubstr("what follows from it does not hold"));
  EXPECT_THAT(text.View(last, false), testing::Contains(remark)) << "and it is shown with the step";
  EXPECT_THAT(text.RemarkOnPivot(12), remark);
  EXPECT_EQ(text.RemarkOnPivot(11), "");
}

// A reader who does as the remark says, going through the operations on the pivot's row, finds numbers so
// many times as large and no larger.
TEST(StepText, ARemnantIsSoManyTimesSmallerThanWhatItIsLeftOverFrom) {
  const SteppedTruss truss(HandHexagon(5));
  const StepText text = truss.Text(Exact);
  const EliminationPivot& pivot = truss.Story.Pivots.back();
  const StepMatrix matrix(truss.Story.Equations);
  const PaperNames names(matrix, text);
  PaperTable paper(names, matrix);
  double largest = 0;
  for (const EliminationStep& step : truss.Story.Steps) {
    if (step.Kind == StepKind::Pivot && step.Row == pivot.Row) break;
    paper.CarryOut(text.Sentence(step, false));
    largest = std::max(largest, std::abs(paper.At(text.Row(pivot.Row), text.Column(pivot.Column))));
  }
  const auto said = Pattern("about 1E([0-9]+) times smaller").All(text.RemarkOnPivot(12));
  ASSERT_EQ(said.size(), 1U);
  EXPECT_NEAR(std::log10(largest / std::abs(pivot.Value)), std::stod(said[0].at(1)), 0.5);
}

TEST(StepText, TheLastStepSaysThatValuesOutOfARemnantDoNotHold) {
  const SteppedTruss truss(HandHexagon(5));
  const std::vector<std::string> remarks = truss.Text().Remarks(truss.Story.Steps.size() - 1);
  ASSERT_EQ(remarks.size(), 2U);
  EXPECT_THAT(remarks[0], HasSubstr("But these values do not hold: Cx = "));
  EXPECT_THAT(remarks[1], HasSubstr("None of the numbers shown for the forces holds"));
  EXPECT_THAT(remarks[1], HasSubstr("\"Why this conclusion\""));
}

// Along their line the members carry the load, only not in one way: the numbers are those of one of them.
TEST(StepText, WhatFollowsFromARemnantInABalancedTrussIsNotDetermined) {
  for (const bool balanced : {true, false}) {
    const SteppedTruss truss(balanced ? SlopingArch(100, 300) : SlopingArch(300, -100));
    ASSERT_EQ(truss.Analysis.Reading.Code, Outcome::Neither);
    ASSERT_EQ(truss.Rounded.Verdict.Code(), balanced ? Outcome::Redundant : Outcome::Inconsistent);
    const StepText text = truss.Text();
    EXPECT_THAT(text.RemarkOnPivot(6), HasSubstr(balanced ? "what follows from it is not determined, and"
                                                          : "what follows from it does not hold, and"));
    EXPECT_THAT(text.Remarks(truss.Story.Steps.size() - 1).front(),
                HasSubstr(balanced ? "But these values are not determined: Ax = -50, Ay = -150, "
                                   : "But these values do not hold: Ax = "));
    std::string all;
    for (const std::string& remark : AllRemarks(truss, text)) all += remark;
    EXPECT_THAT(all, Not(HasSubstr(balanced ? " hold:" : "not determined")));
  }
}

// Where only some are left open, exactly, only these are not determined.
TEST(StepText, TheLastStepTellsValuesThatAreDeterminedFromThoseThatAreNot) {
  SteppedTruss truss(HandTriangle());
  truss.Rounded.ShownThoughOpen = {4, 6};
  const std::vector<std::string> remarks = truss.Text().Remarks(truss.Story.Steps.size() - 1);
  EXPECT_THAT(remarks, testing::IsSupersetOf(
                           {HasSubstr("is: Ax = 0, Ay = 500, B = 500 and AC = 707.1."),
                            HasSubstr("These values are not determined: AB = -500 and BC = 707.1.")}));
  truss.Rounded.ShownThoughOpen = {4};
  EXPECT_THAT(truss.Text().Remarks(truss.Story.Steps.size() - 1),
              testing::Contains(HasSubstr("This value is not determined: AB = -500.")));
}

TEST(StepText, SaysOfARowThatDecidesWronglyThatARemnantDecides) {
  // A rope with a load along it.
  const SteppedTruss truss(TrussBuilder()
                               .Member(0, 0, 1, 3, "AB")
                               .Clamp(0, 0, "Ax", "Ay")
                               .Joint(0, 0, "A")
                               .Joint(1, 3, "B")
                               .Force(1, 3, 100, 300));
  ASSERT_EQ(truss.Analysis.Reading.Code, Outcome::Inconsistent);
  ASSERT_EQ(truss.Rounded.Verdict.Code(), Outcome::Redundant);
  EXPECT_THAT(AllRemarks(truss, truss.Text()),
              testing::Contains(testing::AllOf(
                  HasSubstr("This row decides that there is no solution.  But exactly the equations do not "
                            "contradict each other: "),
                  HasSubstr(" is a remnant of rounding, because directions are rounded to single precision"),
                  HasSubstr(" of the largest load."))));
}

// Nothing is said of rounding where it changes nothing, whatever the truss.
TEST(StepText, SaysNothingOfRemnantsWhereThereAreNone) {
  int withRemnants = 0;
  WithTrussesOfAllKinds([&](const Truss& given) {
    const SteppedTruss truss(given);
    if (truss.Graph.NumUnknowns() == 0) return;
    const bool tooMany = static_cast<int>(truss.Story.Pivots.size()) > truss.Rounded.Verdict.Rank;
    withRemnants += tooMany ? 1 : 0;
    bool isTold = false;
    for (const std::string& remark : AllRemarks(truss, truss.Text()))
      isTold = isTold || remark.find("and nothing is left here") != std::string::npos;
    EXPECT_EQ(isTold, tooMany);
  });
  EXPECT_GT(withRemnants, 0);
}

TEST(StepText, NamesTheUnknownsThatStayUndetermined) {
  const SteppedTruss truss(LooseSquare().Member(0, 0, 4, 4, "AC").Member(4, 0, 0, 4, "BD"));
  ASSERT_LT(truss.Graph.NumEquations(), truss.Graph.NumUnknowns());
  EXPECT_THAT(AllRemarks(truss, truss.Text()),
              testing::IsSupersetOf({HasSubstr(" no pivot: there are more unknowns than equations."),
                                     HasSubstr("which stay undetermined.")}));
}

TEST(StepText, SaysAllValuesHoweverMany) {
  std::mt19937 random(11);
  const SteppedTruss truss(RandomSimpleTrussOn(random, 20));
  const std::string all = truss.Text().Remarks(truss.Story.Steps.size() - 1).front();
  for (int k = 1; k <= truss.Graph.NumUnknowns(); ++k)
    EXPECT_THAT(all, HasSubstr(truss.Text().Column(k) + " = "));
  EXPECT_THAT(all, Not(HasSubstr(" more")));
}

TEST(StepText, OnlyFactorsThatAre1AreWrittenAs1) {
  const SteppedTruss truss(HandTriangle());
  const StepText text = truss.Text();
  const EliminationStep divide{.Kind = StepKind::Divide, .Row = 6, .Column = 6, .Number = -0.99997778};
  EXPECT_EQ(text.Title(divide), "Divide C - y by -0.99998");
  EXPECT_EQ(text.Sentence(divide, false), "C - y becomes C - y divided by -0.99998.");
  EXPECT_EQ(text.ShortForm(divide), "[C - y] := [C - y] / (-0.99998)");
  const EliminationStep clear{
      .Kind = StepKind::Clear, .Row = 6, .OtherRow = 1, .Column = 1, .Number = 1.0000000001};
  EXPECT_EQ(text.Sentence(clear, false), "C - y becomes C - y minus 1.0000000001 times A - x.");
}

TEST(StepText, SaysTheValuesThatTheRowsGive) {
  const SteppedTruss truss(HandTriangle());
  EXPECT_THAT(truss.Text().Remarks(truss.Story.Steps.size() - 1),
              testing::ElementsAre(HasSubstr("Ax = 0, Ay = 500, B = 500, AB = -500, AC = 707.1 and BC = "
                                             "707.1.")));
}

// The list of all steps, beside the sentence of the one that is looked at.
TEST(StepText, HasATitleForEachKindOfStep) {
  const SteppedTruss triangle(HandTriangle());
  const StepText text = triangle.Text();
  const EliminationStep step{.Row = 1, .OtherRow = 3, .Column = 1, .OtherColumn = 4, .Number = -0.5};
  const auto title = [&](StepKind kind) {
    EliminationStep one = step;
    one.Kind = kind;
    return text.Title(one);
  };
  const std::string row = text.Row(1);
  const std::string other = text.Row(3);
  EXPECT_EQ(title(StepKind::Begin), "The equations");
  EXPECT_EQ(title(StepKind::Pivot), "Pivot: " + text.Column(1) + " in " + row);
  EXPECT_EQ(title(StepKind::ExchangeRows), "Exchange " + row + " and " + other);
  EXPECT_EQ(title(StepKind::ExchangeColumns), "Exchange " + text.Column(1) + " and " + text.Column(4));
  EXPECT_EQ(title(StepKind::Divide), "Divide " + row + " by -0.5");
  EXPECT_EQ(title(StepKind::Clear), row + " plus 0.5 times " + other);
  EXPECT_EQ(title(StepKind::PivotsEnd), "No further pivot");
  EXPECT_EQ(title(StepKind::Clean), "Clean");
  EXPECT_EQ(title(StepKind::RestoreColumns), "Restore the columns");
  EXPECT_EQ(title(StepKind::RestoreRows), "Restore the rows");
  EXPECT_EQ(title(StepKind::Read), "Read the rows");
}

TEST(StepText, SaysOfAStepThatIsCarriedOutWhatItHasDone) {
  const SteppedTruss triangle(HandTriangle());
  const StepText text = triangle.Text();
  for (const EliminationStep& step : triangle.Story.Steps) {
    const std::string coming = text.Sentence(step, false);
    const std::string done = text.Sentence(step, true);
    EXPECT_EQ(coming == done, !Changes(step.Kind)) << coming;
    if (Changes(step.Kind)) {
      EXPECT_THAT(done, testing::ContainsRegex(" have | has | stand ")) << coming;
    }
  }
}

// What came about is known only afterwards.
TEST(StepText, RemarksFollowTheStepThatIsCarriedOut) {
  const SteppedTruss moves(LooseSquare());
  const StepText text = moves.Text();
  for (std::size_t i = 0; i < moves.Story.Steps.size(); ++i) {
    const EliminationStep& step = moves.Story.Steps[i];
    const auto holdsRemarks = [&](const std::vector<std::string>& view) {
      return std::ranges::all_of(text.Remarks(i), [&](const std::string& remark) {
        return std::ranges::find(view, remark) != view.end();
      });
    };
    EXPECT_TRUE(holdsRemarks(text.View(i, true))) << i;
    EXPECT_EQ(holdsRemarks(text.View(i, false)), !Changes(step.Kind) || text.Remarks(i).empty()) << i;
    EXPECT_EQ(text.View(i, true).front(), text.Sentence(step, true));
    for (const std::string& line : StepText::Introduction()) {
      const std::vector<std::string> view = text.View(i, false);
      EXPECT_EQ(std::ranges::count(view, line), i == 0 ? 1 : 0) << "it is said once";
    }
  }
}

}  // namespace
