// Tables in a monospaced font: cells, columns that line up, colours, the limit of columns, and paper.
#include "reports/RTBTable.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>
#include <sstream>

#include "support/RecordingRichText.h"
#include "text/CodePage.h"

using ::testing::Each;
using ::testing::ElementsAre;

namespace {

using Rows = std::vector<std::vector<std::string>>;

// A table that is written down. Like those of matrices it does not visit its zeros.
class WrittenTable : public ReportTable {
 public:
  explicit WrittenTable(Rows rows) : rows_(std::move(rows)) {}

  const char* Caption() const override { return ""; }
  const char* Heading() const override { return ""; }
  int NumRows() const override { return static_cast<int>(rows_.size()); }
  int NumColumns() const override { return static_cast<int>(rows_.front().size()); }
  std::string Text(int row, int column) const override {
    return rows_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
  }
  void VisitRow(int row, int firstColumn, int lastColumn,
                const std::function<void(int)>& visit) const override {
    for (int column = firstColumn; column <= lastColumn; ++column) {
      if (Text(row, column) != "0") visit(column);
    }
  }

 private:
  Rows rows_;
};

std::string Stripped(std::string text) {
  StripBlanks(text);
  return text;
}

std::string Filled(std::string text, int width) {
  FillUp(text, width);
  return text;
}

std::string TextOf(const Rows& rows, TableKind kind = TableKind::HeaderRow, float roomPoints = 0) {
  RecordingRichText document;
  EXPECT_TRUE(RTBTable(WrittenTable(rows), ReportText{document}, kind, roomPoints));
  return document.Text();
}

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

// Of a line in UTF-8.
std::size_t NumCharacters(std::string_view line) { return FromUtf8(line).size(); }

constexpr CharacterFormat InColour(int colour, float points = 10) {
  return {.Colour = colour, .Family = FontFamily::Monospaced, .Points = points};
}

// The same table by its rule, cell by cell and without any short cut.
void PlainTable(const ReportTable& table, RichText& document, TableKind kind, float points) {
  const int numColumns = std::min(table.NumColumns(), 200);
  const auto cell = [&](int row, int column) {
    const bool isCorner = row == 0 && column == 0;
    return Stripped(isCorner && table.Text(0, 0) == "Equation" ? "Eqn." : table.Text(row, column));
  };
  std::vector<int> widths;
  for (int column = 0; column < numColumns; ++column) {
    std::size_t width = 0;
    for (int row = 0; row < table.NumRows(); ++row) width = std::max(width, cell(row, column).size());
    widths.push_back(static_cast<int>(width));
  }
  for (int row = 0; row < table.NumRows(); ++row) {
    for (int column = 0; column < numColumns; ++column) {
      if (column > 0) document.Append("  ", InColour(Black, points));
      const bool isHeader = row == 0 || (kind == TableKind::HeaderRowAndFirstColumn && column == 0);
      document.Append(ToUtf8(Filled(cell(row, column), widths[static_cast<std::size_t>(column)])),
                      InColour(isHeader ? 9 : 0, points));
    }
    document.Append("\r\n", InColour(Black, points));
  }
  if (table.NumColumns() == 201) document.Append("and 1 more column\r\n", CharacterFormat{.Points = points});
  if (table.NumColumns() > 201) {
    document.Append("and " + std::to_string(table.NumColumns() - 200) + " more columns\r\n",
                    CharacterFormat{.Points = points});
  }
}

// What can be seen: each character with its format; the format of a blank cannot.
std::vector<TextRun> Seen(const RecordingRichText& document) {
  std::vector<TextRun> characters;
  for (const TextRun& run : document.Runs) {
    for (const char c : run.Text) {
      const bool isBlank = c == ' ' || c == '\r' || c == '\n';
      characters.push_back({std::string(1, c), isBlank ? CharacterFormat{} : run.Format});
    }
  }
  return characters;
}

void ExpectAsByTheRule(const ReportTable& table, TableKind kind, float points) {
  RecordingRichText fast, plain;
  EXPECT_TRUE(RTBTable(table, {fast, points}, kind));
  PlainTable(table, plain, kind, points);
  EXPECT_EQ(fast.Text(), plain.Text());
  EXPECT_TRUE(Seen(fast) == Seen(plain)) << fast.Text();
}

class RandomTables {
 public:
  Rows Next() {
    const int numColumns = Below(8) == 0 ? 198 + Below(6) : 2 + Below(12);
    Rows rows(static_cast<std::size_t>(1 + Below(7)));
    for (auto& row : rows) {
      for (int column = 0; column < numColumns; ++column) row.push_back(Cell());
    }
    return rows;
  }

  int Below(int count) { return static_cast<int>(engine_() % static_cast<std::uint32_t>(count)); }

 private:
  std::string Cell() {
    static const std::vector<std::string> cells = {"Equation",
                                                   "",
                                                   "   ",
                                                   "A - x",
                                                   " a b  c ",
                                                   "\x96"
                                                   "0.6",
                                                   "undetermined",
                                                   "12",
                                                   "1",
                                                   "\x96"
                                                   "1.234E-6",
                                                   "-5",
                                                   "x\ty\r\nz",
                                                   "overflow",
                                                   "E2",
                                                   "1E",
                                                   "\xC4\xD6\xDC",
                                                   "[ ]",
                                                   "1234567890.5"};
    // Mostly zeros, as in a matrix.
    if (Below(2) == 0) return "0";
    return cells[static_cast<std::size_t>(Below(static_cast<int>(cells.size())))];
  }

  std::mt19937 engine_{20240611};
};

// A header and a row of `count` columns: 0c, 1c ... over 0, 1 ...
Rows Numbered(int count) {
  Rows rows(2);
  for (int column = 0; column < count; ++column) {
    const std::string number = std::to_string(column);
    rows[0].push_back(number + 'c');
    rows[1].push_back(number);
  }
  return rows;
}

// The width on paper of so many characters.
float Room(double characters, float points) {
  return static_cast<float>(characters * 1229 / 2048 * double{points});
}

// The points of the table's letters.
float PointsOf(const Rows& rows, float reportPoints, float roomPoints) {
  RecordingRichText document;
  EXPECT_TRUE(RTBTable(WrittenTable(rows), {document, reportPoints}, TableKind::HeaderRow, roomPoints));
  return document.Runs.front().Format.Points;
}

}  // namespace

TEST(StripBlanks, RemovesBlanksAtTheEndsAndWithin) {
  EXPECT_EQ(Stripped("  A - x "), "A-x");
  EXPECT_EQ(Stripped("Eqn."), "Eqn.");
  EXPECT_EQ(Stripped("   "), "");
  EXPECT_EQ(Stripped(""), "");
}

TEST(StripBlanks, ControlCharactersAreBlanks) { EXPECT_EQ(Stripped("a\tb\r\nc\x7F\x81\x9D"), "abc"); }

TEST(StripBlanks, KeepsCharactersAbove127) {
  EXPECT_EQ(Stripped("\x96 5\xA0"),
            "\x96"
            "5\xA0");
}

TEST(FillUp, PadsNumbersOnTheirLeft) {
  for (const char* number : {"0", "12", "0.5",
                             "\x96"
                             "2.5",
                             "-2.5", "1.23E+6", "1.E-7",
                             "\x96"
                             "1.2E-6",
                             "0,5"}) {
    const std::string text = Filled(number, 9);
    EXPECT_EQ(text, std::string(9 - std::string(number).size(), ' ') + number);
  }
}

TEST(FillUp, PadsNamesOnTheirRight) {
  for (const char* name :
       {"AB", "undetermined", "12a", "1E", "E5", "-", "\x96", ".", "1.2.3", "A-x", "1E+", "--1"}) {
    const std::string text = Filled(name, 14);
    EXPECT_EQ(text, name + std::string(14 - std::string(name).size(), ' '));
  }
}

TEST(FillUp, CutsWhatIsLonger) {
  EXPECT_EQ(Filled("abcdef", 4), "abcd");
  EXPECT_EQ(Filled("123456", 4), "1234");
  EXPECT_EQ(Filled("abc", 0), "");
}

TEST(FillUp, LeavesWhatFits) {
  EXPECT_EQ(Filled("abcd", 4), "abcd");
  EXPECT_EQ(Filled("1234", 4), "1234");
  EXPECT_EQ(Filled("", 3), "   ");
}

TEST(RTBTable, ColumnsLineUp) {
  EXPECT_EQ(TextOf({{"Force", "Value"},
                    {"AB",
                     "\x96"
                     "12.5"},
                    {"Ax", "0"},
                    {"C", "undetermined"}}),
            "Force  Value       \n"
            "AB            \xE2\x80\x93"
            "12.5\n"
            "Ax                0\n"
            "C      undetermined\n");
}

TEST(RTBTable, AColumnWhoseLongestTextHasSevenCharactersPadsEveryCellToSeven) {
  EXPECT_EQ(TextOf({{"a", "b"}, {"1.23E+6", "1"}, {"0", "2"}}),
            "a        b\n"
            "1.23E+6  1\n"
            "      0  2\n");
}

TEST(RTBTable, TheHeaderEquationIsShortened) {
  EXPECT_EQ(TextOf({{"Equation", "RHS"}, {"A - x", "0"}}),
            "Eqn.  RHS\n"
            "A-x     0\n");
}

TEST(RTBTable, AForceThatIsNamedEquationKeepsItsName) {
  EXPECT_EQ(TextOf({{"Force", "Equation"}, {"Equation", "0"}}),
            "Force     Equation\n"
            "Equation         0\n");
}

TEST(RTBTable, AColumnWithoutAnyTextHasNoWidth) {
  EXPECT_EQ(TextOf({{"", "", "B"}, {"", " ", "0"}}), "    B\n    0\n");
}

TEST(RTBTable, AColumnOfZerosUnderAnEmptyNameIsOneWide) {
  EXPECT_EQ(TextOf({{"A", "", "B"}, {"0", "0", "0"}}), "A     B\n0  0  0\n");
}

TEST(RTBTable, OfKindOneHasALightBlueHeaderRow) {
  RecordingRichText document;
  EXPECT_TRUE(
      RTBTable(WrittenTable({{"Eqn", "A"}, {"x", "1"}, {"y", "2"}}), {document, 12}, TableKind::HeaderRow));
  EXPECT_THAT(document.Runs, ElementsAre(TextRun{"Eqn  A", InColour(9, 12)},
                                         TextRun{"\r\nx    1\r\ny    2\r\n", InColour(0, 12)}));
}

TEST(RTBTable, OfKindTwoHasALightBlueFirstColumnToo) {
  RecordingRichText document;
  EXPECT_TRUE(RTBTable(WrittenTable({{"Eqn", "A"}, {"x", "1"}, {"y", "2"}}), {document, 12},
                       TableKind::HeaderRowAndFirstColumn));
  EXPECT_THAT(document.Runs,
              ElementsAre(TextRun{"Eqn  A", InColour(9, 12)}, TextRun{"\r\n", InColour(0, 12)},
                          TextRun{"x  ", InColour(9, 12)}, TextRun{"  1\r\n", InColour(0, 12)},
                          TextRun{"y  ", InColour(9, 12)}, TextRun{"  2\r\n", InColour(0, 12)}));
}

TEST(RTBTable, OfTheHeaderRowAlone) { EXPECT_EQ(TextOf({{"Equation", "RHS"}}), "Eqn.  RHS\n"); }

TEST(RTBTable, OfOneColumn) {
  EXPECT_EQ(TextOf({{"Force"}, {"AB"}}, TableKind::HeaderRow, 100), "Force\nAB   \n");
}

TEST(RTBTable, NamesAreWrittenInUtf8ButMeasuredInCharacters) {
  EXPECT_EQ(TextOf({{"\xC4\xD6", "\x80"}, {"1", "123"}}), "\xC3\x84\xC3\x96  \xE2\x82\xAC  \n 1  123\n");
}

TEST(RTBTable, TwoHundredColumnsAreWrittenWithoutAWord) {
  const std::vector<std::string> lines = LinesOf(TextOf(Numbered(200)));
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_TRUE(lines[0].ends_with("  199c"));
}

TEST(RTBTable, OfTwoHundredAndOneColumnsOneIsLeftOut) {
  const std::vector<std::string> lines = LinesOf(TextOf(Numbered(201)));
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_TRUE(lines[0].ends_with("  199c"));
  EXPECT_EQ(lines[2], "and 1 more column");
}

TEST(RTBTable, OfTwoHundredAndTwoColumnsTwoAreLeftOut) {
  EXPECT_EQ(LinesOf(TextOf(Numbered(202))).back(), "and 2 more columns");
}

TEST(RTBTable, TheLineAboutOtherColumnsIsPlainText) {
  RecordingRichText document;
  EXPECT_TRUE(RTBTable(WrittenTable(Numbered(257)), {document, 12}, TableKind::HeaderRow));
  EXPECT_EQ(document.Runs.back(), (TextRun{"and 57 more columns\r\n", CharacterFormat{.Points = 12}}));
}

TEST(RTBTable, ARowIsAppendedInFewPieces) {
  RecordingRichText document;
  EXPECT_TRUE(
      RTBTable(WrittenTable(Numbered(200)), ReportText{document}, TableKind::HeaderRowAndFirstColumn));
  EXPECT_EQ(document.NumAppends, 4);
}

TEST(RTBTable, ExamplesAreAsWrittenCellByCell) {
  for (const TableKind kind : {TableKind::HeaderRow, TableKind::HeaderRowAndFirstColumn}) {
    for (const int columns : {2, 3, 199, 200, 201, 202, 400}) {
      ExpectAsByTheRule(WrittenTable(Numbered(columns)), kind, 10);
    }
    ExpectAsByTheRule(WrittenTable({{"Equation", "Ax", "RHS"}, {"A - x", "0", "0"}, {"A - y", "1", "0"}}),
                      kind, 16);
  }
}

TEST(RTBTable, RandomTablesAreAsWrittenCellByCell) {
  RandomTables random;
  for (int i = 0; i < 400; ++i) {
    const WrittenTable table(random.Next());
    ExpectAsByTheRule(table, i % 2 == 0 ? TableKind::HeaderRow : TableKind::HeaderRowAndFirstColumn, 10);
  }
}

// A row of the table below is 28 characters wide.
constexpr int WidthOfExample = 28;
const Rows Example = {{"Eqn.", "name0001", "name0002", "RHS"}, {"A-x", "1", "0", "5"}};

TEST(RTBTableOnPaper, ATableThatFitsKeepsItsSize) {
  ASSERT_EQ(LinesOf(TextOf(Example)).front().size(), std::size_t{WidthOfExample} + 1);
  EXPECT_EQ(PointsOf(Example, 12, Room(WidthOfExample + 1, 12)), 12);
  EXPECT_EQ(PointsOf(Example, 12, 5000), 12);
}

TEST(RTBTableOnPaper, AWiderTableIsSetSmallerInStepsOfHalfAPoint) {
  EXPECT_EQ(PointsOf(Example, 12, Room(WidthOfExample + 1, 12) - 0.1F), 11.5F);
  EXPECT_EQ(PointsOf(Example, 12, Room(WidthOfExample + 1, 9.7F)), 9.5F);
  EXPECT_EQ(PointsOf(Example, 16, Room(WidthOfExample + 1, 6.5F)), 6.5F);
}

TEST(RTBTableOnPaper, AtSixPointsATableCanStillBeWhole) {
  const float room = Room(WidthOfExample + 1, 6);
  EXPECT_EQ(PointsOf(Example, 10, room), 6);
  EXPECT_EQ(TextOf(Example, TableKind::HeaderRow, room), TextOf(Example));
}

TEST(RTBTableOnPaper, AWiderTableIsBrokenIntoBlocksWithTheFirstColumnAgain) {
  RecordingRichText document;
  EXPECT_TRUE(RTBTable(WrittenTable(Example), {document, 10}, TableKind::HeaderRow, Room(WidthOfExample, 6)));
  EXPECT_EQ(document.Text(),
            "Eqn.  name0001  name0002\n"
            "A-x          1         0\n"
            "\n"
            "Eqn.  RHS\n"
            "A-x     5\n");
  for (const TextRun& run : document.Runs) EXPECT_EQ(run.Format.Points, 6);
}

TEST(RTBTableOnPaper, EveryBlockHasItsColours) {
  RecordingRichText document;
  EXPECT_TRUE(
      RTBTable(WrittenTable(Example), {document, 10}, TableKind::HeaderRowAndFirstColumn, Room(10, 6)));
  EXPECT_THAT(document.VisibleRuns(),
              ElementsAre(TextRun{"Eqn.  name0001", InColour(9, 6)}, TextRun{"A-x ", InColour(9, 6)},
                          TextRun{"         1", InColour(0, 6)}, TextRun{"Eqn.  name0002", InColour(9, 6)},
                          TextRun{"A-x ", InColour(9, 6)}, TextRun{"         0", InColour(0, 6)},
                          TextRun{"Eqn.  RHS", InColour(9, 6)}, TextRun{"A-x ", InColour(9, 6)},
                          TextRun{"    5", InColour(0, 6)}));
}

TEST(RTBTableOnPaper, AColumnWiderThanThePaperHasABlockOfItsOwn) {
  EXPECT_EQ(TextOf({{"F", "a", "averyverylongname", "b", "c"}, {"1", "2", "3", "4", "5"}},
                   TableKind::HeaderRow, Room(7, 6)),
            "F  a\n1  2\n\n"
            "F  averyverylongname\n1                  3\n\n"
            "F  b  c\n1  4  5\n");
}

TEST(RTBTableOnPaper, AFirstColumnWiderThanThePaperIsWrittenWithOneOther) {
  EXPECT_EQ(TextOf({{"averyverylongname", "a", "b"}}, TableKind::HeaderRow, Room(5, 6)),
            "averyverylongname  a\n\naveryverylongname  b\n");
}

TEST(RTBTableOnPaper, OtherColumnsAreToldOfOnceAtTheEnd) {
  const std::vector<std::string> lines = LinesOf(TextOf(Numbered(205), TableKind::HeaderRow, Room(100, 6)));
  EXPECT_EQ(std::ranges::count(lines, "and 5 more columns"), 1);
  EXPECT_EQ(lines.back(), "and 5 more columns");
}

TEST(RTBTableOnPaper, AReportBelowSixPointsKeepsItsSize) { EXPECT_EQ(PointsOf(Example, 5, Room(10, 5)), 5); }

TEST(RTBTableOnPaper, EveryLineOfARandomTableFitsUnlessItHasTwoColumns) {
  RandomTables random;
  for (int i = 0; i < 200; ++i) {
    const Rows rows = random.Next();
    const int characters = 1 + random.Below(60);
    RecordingRichText document;
    EXPECT_TRUE(RTBTable(WrittenTable(rows), {document, 6}, TableKind::HeaderRow, Room(characters + 0.5, 6)));
    std::size_t widestPair = 0;
    for (std::size_t column = 1; column < std::min<std::size_t>(rows[0].size(), 200); ++column) {
      Rows pair;
      for (const auto& row : rows) pair.push_back({row[0], row[column]});
      RecordingRichText pairDocument;
      PlainTable(WrittenTable(pair), pairDocument, TableKind::HeaderRow, 6);
      widestPair = std::max(widestPair, NumCharacters(LinesOf(pairDocument.Text()).front()));
    }
    const std::size_t widest = std::max(widestPair, static_cast<std::size_t>(characters));
    for (const std::string& line : LinesOf(document.Text())) {
      if (line.starts_with("and ")) continue;
      EXPECT_LE(NumCharacters(line), widest) << line;
    }
  }
}

TEST(RTBTableProgress, GoesFromMeasuringToTheLastRow) {
  RecordingRichText document;
  std::vector<double> told;
  EXPECT_TRUE(RTBTable(WrittenTable(Numbered(205)), ReportText{document}, TableKind::HeaderRow, Room(100, 6),
                       [&](double done) {
                         told.push_back(done);
                         return true;
                       }));
  EXPECT_TRUE(std::ranges::is_sorted(told));
  EXPECT_GE(told.front(), 0);
  EXPECT_DOUBLE_EQ(told.back(), 1);
  const std::vector<std::string> lines = LinesOf(document.Text());
  const auto isRow = [](const std::string& line) { return !line.empty() && !line.starts_with("and"); };
  EXPECT_GE(static_cast<std::ptrdiff_t>(told.size()), std::ranges::count_if(lines, isRow));
}

TEST(RTBTableProgress, CanEndTheTableWhileItIsMeasured) {
  RecordingRichText document;
  int calls = 0;
  EXPECT_FALSE(RTBTable(WrittenTable(Example), ReportText{document}, TableKind::HeaderRow, 0, [&](double) {
    ++calls;
    return false;
  }));
  EXPECT_EQ(calls, 1);
  EXPECT_TRUE(document.Runs.empty());
}

TEST(RTBTableProgress, CanEndTheTableAfterARow) {
  RecordingRichText document;
  EXPECT_FALSE(RTBTable(WrittenTable(Example), ReportText{document}, TableKind::HeaderRow, 0,
                        [&](double) { return document.Runs.empty(); }));
  EXPECT_EQ(LinesOf(document.Text()).size(), 1U);
}
