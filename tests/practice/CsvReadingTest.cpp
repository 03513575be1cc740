// Tables as spreadsheets write them.
#include "practice/CsvReading.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

using Rows = std::vector<std::vector<std::string>>;

Rows ReadRows(const std::string& bytes) {
  const AnswerTable table = ReadCsv(bytes, "student");
  EXPECT_EQ(table.Why, "");
  Rows rows;
  for (const CsvLine& line : table.Lines) rows.push_back(line.Cells);
  return rows;
}

TEST(CsvReading, TakesCommasSemicolonsAndTabs) {
  const Rows expected = {{"student", "AB", "AC"}, {"Ann", "1", "2"}};
  EXPECT_EQ(ReadRows("student,AB,AC\r\nAnn,1,2\r\n"), expected);
  EXPECT_EQ(ReadRows("student;AB;AC\nAnn;1;2\n"), expected);
  EXPECT_EQ(ReadRows("student\tAB\tAC\rAnn\t1\t2"), expected);
  EXPECT_EQ(ReadRows("sep=;\r\nstudent;AB;AC\r\nAnn;1;2\r\n"), expected);
  EXPECT_EQ(ReadRows("sep=,\r\nstudent,AB,AC\r\nAnn,1,2\r\n"), expected);
}

TEST(CsvReading, TakesTheSeparatorWithWhichThereIsTheHeading) {
  EXPECT_EQ(ReadRows("\"AB;x\",student\n1,Ann\n"), (Rows{{"AB;x", "student"}, {"1", "Ann"}}));
  EXPECT_EQ(ReadRows("student;AB\nAnn;1,5\n"), (Rows{{"student", "AB"}, {"Ann", "1,5"}}));
}

TEST(CsvReading, PassesOverByteOrderMarkBlankLinesAndOuterBlanks) {
  EXPECT_EQ(ReadRows("\xEF\xBB\xBFstudent , AB\n\n  \n,\nAnn ,\t1 \n"),
            (Rows{{"student", "AB"}, {"Ann", "1"}}));
}

TEST(CsvReading, ReadsQuotedCells) {
  EXPECT_EQ(ReadRows("student,\"A,B\"\n\"Ann \"\"Q\"\" Lee\",\"1\n2\"\n"),
            (Rows{{"student", "A,B"}, {"Ann \"Q\" Lee", "1\n2"}}));
}

TEST(CsvReading, CountsTheLinesOfTheFile) {
  const AnswerTable table = ReadCsv("student\n\"a\nb\"\n\nc\r\nd\n", "student");
  ASSERT_EQ(table.Lines.size(), 4U);
  EXPECT_EQ(table.Lines[1].Number, 2);
  EXPECT_EQ(table.Lines[2].Number, 5);
  EXPECT_EQ(table.Lines[3].Number, 6);
}

TEST(CsvReading, ReadsTheOldCodePageWhereATextIsNoUtf8) {
  EXPECT_EQ(ReadRows("student,AB\nJ\xFCrgen,1\n")[1][0], "J\xC3\xBCrgen");
  EXPECT_EQ(ReadRows("student,AB\nJ\xC3\xBCrgen,1\n")[1][0], "J\xC3\xBCrgen");
}

TEST(CsvReading, SaysWhatIsNoTable) {
  EXPECT_THAT(ReadCsv("", "student").Why, HasSubstr("no column \"student\""));
  EXPECT_THAT(ReadCsv("name,AB\nAnn,1\n", "student").Why, HasSubstr("no column \"student\""));
  EXPECT_THAT(ReadCsv("student,AB\nAnn,\"1\nBob,2\n", "student").Why, HasSubstr("line 2: a quotation mark"));
  EXPECT_THAT(ReadCsv(std::string("\xFF\xFEs\0t\0", 6), "student").Why, HasSubstr("UTF-16"));
}

TEST(CsvReading, AnyBytesAreReadOrRefused) {
  unsigned state = 1;
  const std::string alphabet("student,;\t\"\r\n\0\xFF =x", 18);
  for (int i = 0; i < 3000; ++i) {
    std::string bytes = i % 2 == 0 ? "student," : "";
    for (int n = 0; n < i % 40; ++n) {
      state = state * 1664525U + 1013904223U;
      bytes += alphabet[(state >> 16) % alphabet.size()];
    }
    const AnswerTable table = ReadCsv(bytes, "student");
    EXPECT_TRUE(!table.Why.empty() || !table.Lines.empty()) << i;
  }
}

TEST(CsvTextField, IsNoFormulaAnywhere) {
  for (const char* text : {"=1+1", "+1", "-1", "@SUM(A1)", "  =1"})
    EXPECT_EQ(CsvTextField(text), "'" + std::string(text)) << text;
  EXPECT_EQ(CsvTextField("=A1,B1"), "\"'=A1,B1\"");
  EXPECT_EQ(CsvTextField("a=b"), "a=b");
}

TEST(CsvTextField, CommandsNoTerminal) {
  EXPECT_EQ(CsvTextField("Eve\x1B[2J"), "Eve␛[2J");
  EXPECT_EQ(CsvTextField("two\nlines"), "two␊lines");
  EXPECT_EQ(CsvTextField("\t=1"), "␉=1");
}

}  // namespace
