#include "text/CsvField.h"

#include <gtest/gtest.h>

namespace {

TEST(CsvField, IsQuotedWhereItMustBe) {
  EXPECT_EQ(CsvField("Ann Lee"), "Ann Lee");
  EXPECT_EQ(CsvField("Lee, Ann"), "\"Lee, Ann\"");
  EXPECT_EQ(CsvField("a \"b\""), "\"a \"\"b\"\"\"");
  EXPECT_EQ(CsvField("a\nb"), "\"a\nb\"");
  EXPECT_EQ(CsvField("a\rb"), "\"a\rb\"");
  EXPECT_EQ(CsvField("a;b"), "a;b");
  EXPECT_EQ(CsvField(""), "");
}

}  // namespace
