// The contents of the three tables: shapes, headers, and the text of each cell.
#include "reports/ReportTables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "analysis/Analysis.h"
#include "analysis/ReducedSystem.h"
#include "document/JointList.h"
#include "support/TrussBuilder.h"

using ::testing::ElementsAre;

namespace {

using Contents = std::vector<std::vector<std::string>>;

Contents ContentsOf(const ReportTable& table) {
  Contents contents;
  for (int row = 0; row < table.NumRows(); ++row) {
    contents.emplace_back();
    for (int column = 0; column < table.NumColumns(); ++column) {
      contents.back().push_back(table.Text(row, column));
    }
  }
  return contents;
}

std::vector<std::string> ValuesIn(const ReportTable& solutions) {
  std::vector<std::string> values;
  for (int row = 1; row < solutions.NumRows(); ++row) values.push_back(solutions.Text(row, 1));
  return values;
}

ReportFormat Figures(int figures) { return ReportFormat{figures, NumberFormat{}}; }

// A 3-4-5 triangle, 8 wide and 3 high, with 600 down at its top.
TrussBuilder LoadedTriangle() {
  return TrussBuilder()
      .Member(0, 0, 8, 0, "AB")
      .Member(0, 0, 4, 3, "AC")
      .Member(8, 0, 4, 3, "BC")
      .Clamp(0, 0, "Ax", "Ay")
      .Roller(8, 0, "B")
      .Force(4, 3, 0, -600)
      .Joint(0, 0, "A")
      .Joint(8, 0, "B")
      .Joint(4, 3, "C");
}

// Every cell that is not visited shows "0", none is visited twice, and rows come in order.
void ExpectVisitsAllButZeros(const ReportTable& table) {
  std::set<std::pair<int, int>> visited;
  int lastRow = 0;
  table.VisitCells([&](int row, int column, std::optional<int> shape) {
    if (shape) {
      EXPECT_LE(table.Text(row, column).size(), table.LongestText(*shape).size());
    }
    EXPECT_TRUE(visited.emplace(row, column).second) << row << ", " << column;
    EXPECT_GE(row, lastRow);
    lastRow = row;
  });
  for (int row = 0; row < table.NumRows(); ++row) {
    for (int column = 0; column < table.NumColumns(); ++column) {
      if (visited.contains({row, column})) continue;
      EXPECT_EQ(table.Text(row, column), "0") << row << ", " << column;
    }
  }
  for (const auto& [row, column] : visited) {
    EXPECT_LT(row, table.NumRows());
    EXPECT_LT(column, table.NumColumns());
  }
  // A part of a row visits what the whole row visits there.
  for (int row = 0; row < table.NumRows(); ++row) {
    const int end = table.NumColumns() - 1;
    for (const auto& [first, last] : {std::pair(0, 0), std::pair(1, std::min(3, end)), std::pair(end, end)}) {
      std::set<std::pair<int, int>> part;
      table.VisitRow(row, first, last, [&part, row](int column) { part.emplace(row, column); });
      EXPECT_EQ(part, (std::set<std::pair<int, int>>(visited.lower_bound({row, first}),
                                                     visited.upper_bound({row, last}))))
          << row << ", " << first << " to " << last;
    }
  }
}

}  // namespace

TEST(EquationsTable, OfATriangle) {
  Truss truss = LoadedTriangle();
  const TrussAnalysis analysis = SolveTruss(truss);
  const auto table = LoadGridWithEquations(analysis, Figures(4));
  EXPECT_EQ(ContentsOf(*table), (Contents{{"Equation", "Ax", "Ay", "B", "AB", "AC", "BC", "RHS"},
                                          {"A - x", "1", "0", "0",
                                           "\x96"
                                           "1",
                                           "\x96"
                                           "0.8",
                                           "0", "0"},
                                          {"A - y", "0", "1", "0", "0",
                                           "\x96"
                                           "0.6",
                                           "0", "0"},
                                          {"B - x", "0", "0", "0", "1", "0", "0.8", "0"},
                                          {"B - y", "0", "0", "1", "0", "0",
                                           "\x96"
                                           "0.6",
                                           "0"},
                                          {"C - x", "0", "0", "0", "0", "0.8",
                                           "\x96"
                                           "0.8",
                                           "0"},
                                          {"C - y", "0", "0", "0", "0", "0.6", "0.6", "600"}}));
}

TEST(EquationsTable, HasItsCaptionAndHeading) {
  Truss truss = LoadedTriangle();
  const TrussAnalysis analysis = SolveTruss(truss);
  const auto table = LoadGridWithEquations(analysis, Figures(4));
  EXPECT_STREQ(table->Caption(), "Report - The system of equations for the unknown forces");
  EXPECT_STREQ(table->Heading(), "The augmented matrix for the system of equations:");
}

TEST(EquationsTable, AnEnDashStandsInNumbersOnly) {
  Truss truss = TrussBuilder().Roller(0, 0, "-r", 7).Joint(0, 0, "-j");
  const TrussAnalysis analysis = SolveTruss(truss);
  EXPECT_EQ(ContentsOf(*LoadGridWithEquations(analysis, Figures(4))), (Contents{{"Equation", "-r", "RHS"},
                                                                                {"-j - x",
                                                                                 "\x96"
                                                                                 "1",
                                                                                 "0"},
                                                                                {"-j - y", "0", "0"}}));
}

TEST(EquationsTable, ShowsTheEquationsInSinglePrecision) {
  Truss truss = TrussBuilder().Member(0, 0, 3, 4, "m").Joint(0, 0, "a").Joint(3, 4, "b");
  const TrussAnalysis analysis = SolveTruss(truss);
  EXPECT_EQ(LoadGridWithEquations(analysis, Figures(12))->Text(3, 1), "0.6");
}

TEST(RREFTable, OfATriangle) {
  Truss truss = LoadedTriangle();
  const TrussAnalysis analysis = SolveTruss(truss);
  const auto table = LoadGridWithRREF(analysis, Figures(4));
  EXPECT_EQ(ContentsOf(*table), (Contents{{"Equation", "Ax", "Ay", "B", "AB", "AC", "BC", "RHS"},
                                          {"", "1", "0", "0", "0", "0", "0", "0"},
                                          {"", "0", "1", "0", "0", "0", "0", "300"},
                                          {"", "0", "0", "1", "0", "0", "0", "300"},
                                          {"", "0", "0", "0", "1", "0", "0",
                                           "\x96"
                                           "400"},
                                          {"", "0", "0", "0", "0", "1", "0", "500"},
                                          {"", "0", "0", "0", "0", "0", "1", "500"}}));
}

TEST(RREFTable, HasItsCaptionAndHeading) {
  const TrussAnalysis analysis = ReducedAnalysis({{1, 0}});
  const auto table = LoadGridWithRREF(analysis, Figures(4));
  EXPECT_STREQ(table->Caption(), "Report - the system of equations in RREF form");
  EXPECT_STREQ(table->Heading(), "The augmented matrix in RREF form:");
}

TEST(RREFTable, ItsHeaderFollowsTheColumnOrder) {
  const TrussAnalysis analysis = ReducedAnalysis({{1, 0, -2.5, 30}, {0, 1, 0, -0.0000012345}}, {3, 1, 2});
  EXPECT_EQ(ContentsOf(*LoadGridWithRREF(analysis, Figures(3))),
            (Contents{{"Equation", "U3", "U1", "U2", "RHS"},
                      {"", "1", "0",
                       "\x96"
                       "2.5",
                       "30"},
                      {"", "0", "1", "0",
                       "\x96"
                       "1.23E-6"}}));
}

TEST(RREFTable, ShowsItsCellsInDoublePrecision) {
  const TrussAnalysis analysis = ReducedAnalysis({{1, double{0.1F}}});
  EXPECT_EQ(LoadGridWithRREF(analysis, Figures(10))->Text(1, 2), "0.1000000015");
}

TEST(SolutionsTable, OfATriangle) {
  Truss truss = LoadedTriangle();
  const TrussAnalysis analysis = SolveTruss(truss);
  const auto table = LoadGridWithSolutions(analysis, Figures(4));
  EXPECT_EQ(ContentsOf(*table), (Contents{{"Force", "Value"},
                                          {"Ax", "0"},
                                          {"Ay", "300"},
                                          {"B", "300"},
                                          {"AB",
                                           "\x96"
                                           "400"},
                                          {"AC", "500"},
                                          {"BC", "500"}}));
}

TEST(SolutionsTable, HasItsCaptionAndHeading) {
  const TrussAnalysis analysis = ReducedAnalysis({{1, 0}});
  const auto table = LoadGridWithSolutions(analysis, Figures(4));
  EXPECT_STREQ(table->Caption(), "Report - the forces");
  EXPECT_STREQ(table->Heading(), "The solutions:");
}

TEST(SolutionsTable, NamesStandInTheirOwnOrderAndValuesFollowTheColumnOrder) {
  const TrussAnalysis analysis = ReducedAnalysis({{1, 0, 0, 30}, {0, 1, 5, 7}}, {3, 1, 2});
  EXPECT_EQ(ContentsOf(*LoadGridWithSolutions(analysis, Figures(4))),
            (Contents{{"Force", "Value"}, {"U1", "undetermined"}, {"U2", "undetermined"}, {"U3", "30"}}));
}

TEST(SolutionsTable, RedundantRowsLeaveTheValues) {
  const TrussAnalysis analysis = ReducedAnalysis({{0, 0, 0}, {1, 0, -5}, {0, 1, 0}});
  EXPECT_EQ(analysis.Reading.Code, Outcome::Redundant);
  EXPECT_THAT(ValuesIn(*LoadGridWithSolutions(analysis, Figures(4))), ElementsAre("\x96"
                                                                                  "5",
                                                                                  "0"));
}

TEST(SolutionsTable, ValuesTakeTheFiguresAndTheSeparatorOfTheReport) {
  const TrussAnalysis analysis = ReducedAnalysis({{1, 0, 1234.5678}, {0, 1, -1234567.0}});
  EXPECT_THAT(ValuesIn(*LoadGridWithSolutions(analysis, ReportFormat{5, NumberFormat{","}})),
              ElementsAre("1234,6",
                          "\x96"
                          "1,2346E+6"));
}

TEST(SolutionsTable, BelowARedundantSystemStandThreeLines) {
  EXPECT_THAT(RedundantLines, ElementsAre(std::string("  The truss is in equilibrium (static) for these"),
                                          std::string("  particular applied forces but not for others."),
                                          std::string("  Thus the truss is unstable.")));
}

TEST(ReportTables, VisitAllCellsButZeros) {
  Truss truss = LoadedTriangle();
  const TrussAnalysis analysis = SolveTruss(truss);
  ExpectVisitsAllButZeros(*LoadGridWithEquations(analysis, Figures(4)));
  ExpectVisitsAllButZeros(*LoadGridWithRREF(analysis, Figures(4)));
  ExpectVisitsAllButZeros(*LoadGridWithSolutions(analysis, Figures(4)));
}

TEST(ReportTables, KeepTheirNamesWhenTheTrussIsRedrawnAndRenamed) {
  Truss truss = TrussBuilder().Member(0, 0, 8, 0, "m").Roller(8, 0, "r").Joint(0, 0, "b").Joint(8, 0, "a");
  const TrussAnalysis analysis = SolveTruss(truss);
  const auto table = LoadGridWithEquations(analysis, Figures(4));
  const Contents before = ContentsOf(*table);
  ASSERT_TRUE(CheckJoints(truss));
  truss.Labels[truss.Joints[2].NameLabel].Caption = "other";
  EXPECT_EQ(ContentsOf(*table), before);
  EXPECT_EQ(ContentsOf(*LoadGridWithEquations(analysis, Figures(4))), before);
  EXPECT_EQ(before[1][0] + ", " + before[4][0], "a - x, b - y");
  ResetAll(truss);
  EXPECT_EQ(ContentsOf(*table), before);
}
