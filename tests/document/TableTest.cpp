// A table counts from 1, and says so where an index is not in it.
#include "document/Table.h"

#include <gtest/gtest.h>

#include <string>

TEST(Table, CountsFromOne) {
  Table<std::string> table(2);
  table[1] = "first";
  table[2] = "second";
  EXPECT_EQ(table.First(1).front(), "first");
  EXPECT_EQ(table.First(2).back(), "second");
}

TEST(TableDeathTest, AnIndexOutsideEndsTheProgramWithAMessage) {
  Table<int> table(3);
  EXPECT_DEATH(table[0] = 1, "index >= 1");
  EXPECT_DEATH(table[4] = 1, "index <= Size");
  const Table<int>& read = table;
  EXPECT_DEATH(static_cast<void>(read[-1]), "index >= 1");
}

TEST(TableDeathTest, NoMoreThanAllRecordsAreTheFirst) {
  Table<int> table(3);
  EXPECT_DEATH(static_cast<void>(table.First(4)), "count <= Size");
  EXPECT_DEATH(static_cast<void>(table.First(-1)), "count >= 0");
}
