// The lexical rules of truss files, field by field.
#include "document/FieldReader.h"

#include <functional>

namespace {

std::string ErrorOf(const std::function<void()>& read) {
  try {
    read();
  } catch (const ReadError& error) {
    return error.Text();
  }
  return "no error";
}

float Single(const std::string& text) { return FieldReader(text).NextSingle(); }
std::int16_t Integer(const std::string& text) { return FieldReader(text).NextInteger(); }
TaggedNumber Tagged(const std::string& text) { return FieldReader(text).NextTaggedNumber(); }
bool Boolean(const std::string& text) { return FieldReader(text).NextBoolean(); }

// All fields up to the end of the file.
std::vector<std::string> Fields(const std::string& text) {
  FieldReader fields(text);
  std::vector<std::string> found;
  try {
    for (;;) found.push_back(fields.NextName());
  } catch (const ReadError&) {
    return found;
  }
}

using testing::ElementsAre;

}  // namespace

TEST(FieldReader, TakesTheFirstLineWhole) {
  const std::string text = "a, \"b\" ,c \r\nnext";
  FieldReader fields(text);
  EXPECT_EQ(fields.RestOfLine(), "a, \"b\" ,c ");
  EXPECT_EQ(fields.NextField(), "next");
}

TEST(FieldReader, AcceptsEveryLineEnd) {
  EXPECT_THAT(Fields("1,2\r\n3\n4\r5"), ElementsAre("1", "2", "3", "4", "5"));
  EXPECT_THAT(Fields("1\r\n2\r\n"), ElementsAre("1", "2"));
  EXPECT_THAT(Fields("1\n2\n"), ElementsAre("1", "2"));
  EXPECT_THAT(Fields("1\r2\r"), ElementsAre("1", "2"));
}

TEST(FieldReader, TakesCommasAndLineEndsForTheSameSeparator) {
  EXPECT_THAT(Fields("1,2,3"), ElementsAre("1", "2", "3"));
  EXPECT_THAT(Fields("1\r\n2\r\n3"), ElementsAre("1", "2", "3"));
}

TEST(FieldReader, StripsOuterBlanksOfUnquotedFields) {
  EXPECT_THAT(Fields("  1 ,\t two words \t,3  \r\n  4"), ElementsAre("1", "two words", "3", "4"));
}

TEST(FieldReader, KeepsWhatStandsInQuotes) {
  EXPECT_THAT(Fields("\" a,b \", \"\" ,\"c\"  \r\n\"d\""), ElementsAre(" a,b ", "", "c", "d"));
}

TEST(FieldReader, AQuotedFieldMaySpanLines) {
  const std::string text = "\"one\r\ntwo\nthree\rfour\",5\r\n6";
  EXPECT_THAT(Fields(text), ElementsAre("one\r\ntwo\nthree\rfour", "5", "6"));
  FieldReader fields(text);
  fields.NextField();
  EXPECT_EQ(fields.Line(), 1);
  fields.NextField();
  EXPECT_EQ(fields.Line(), 4);
  fields.NextField();
  EXPECT_EQ(fields.Line(), 5);
}

TEST(FieldReader, DropsWhatStandsBehindAClosingQuote) {
  EXPECT_THAT(Fields("\"a\"b\"c\",d\r\n\"e\"f\r\ng"), ElementsAre("a", "d", "e", "g"));
}

TEST(FieldReader, AQuoteWithinAnUnquotedFieldIsAnOrdinaryCharacter) {
  EXPECT_THAT(Fields("a\"b,c"), ElementsAre("a\"b", "c"));
}

TEST(FieldReader, EmptyFieldsAreEmptyNames) {
  EXPECT_THAT(Fields(",a,,\r\n\r\nb"), ElementsAre("", "a", "", "", "", "b"));
  EXPECT_THAT(Fields("a,"), ElementsAre("a", ""));
  EXPECT_THAT(Fields("a, "), ElementsAre("a", ""));
  EXPECT_THAT(Fields(""), ElementsAre());
}

TEST(FieldReader, AnEmptyFieldIsNoNumberAndNoBoolean) {
  for (const char* text : {",", "\r\n", "\"\"", "  ,", "\" \""}) {
    EXPECT_THROW(Single(text), ReadError) << text;
    EXPECT_THROW(Integer(text), ReadError) << text;
    EXPECT_THROW(Tagged(text), ReadError) << text;
    EXPECT_THROW(Boolean(text), ReadError) << text;
  }
}

TEST(FieldReader, BehindTheLastLineEndThereIsNoFieldMore) {
  const std::string text = "1\r\n";
  FieldReader fields(text);
  fields.NextField();
  EXPECT_EQ(ErrorOf([&] { fields.NextField(); }), "line 2: the file ends too early");
}

TEST(FieldReader, AQuotedFieldWithoutItsClosingQuoteIsAnError) {
  const std::string text = "1\r\n\"open\r\n2\r\n";
  FieldReader fields(text);
  fields.NextField();
  EXPECT_EQ(ErrorOf([&] { fields.NextField(); }), "line 2: a quoted text has no closing quote");
}

TEST(FieldReader, ReadsEveryFormOfANumber) {
  EXPECT_EQ(Single(".5"), 0.5F);
  EXPECT_EQ(Single("-.5"), -0.5F);
  EXPECT_EQ(Single("1.5E-7"), 1.5e-7F);
  EXPECT_EQ(Single("1e+7\r\n"), 1e7F);
  EXPECT_EQ(Single(" 20 \r\n"), 20.0F);
  EXPECT_EQ(Single("\"2.5\""), 2.5F);
  EXPECT_EQ(Single("\" 2.5 \""), 2.5F);
}

TEST(FieldReader, NamesTheLineOfWhatIsNoNumber) {
  const std::string text = "1\n2\n3,4x\n";
  FieldReader fields(text);
  for (int i = 1; i <= 3; ++i) fields.NextSingle();
  EXPECT_EQ(ErrorOf([&] { fields.NextSingle(); }), "line 3: a number should stand here, not \"4x\"");
}

TEST(FieldReader, ShowsAWrongFieldShortAndOnOneLine) {
  EXPECT_EQ(ErrorOf([] { Single("\"a\r\nb\""); }), "line 1: a number should stand here, not \"a??b\"");
  EXPECT_EQ(ErrorOf([] { Single("a\x7F\x1F~"); }), "line 1: a number should stand here, not \"a??~\"");
  const std::string shown(40, 'x');
  EXPECT_EQ(ErrorOf([&] { Single(shown + 'x'); }),
            "line 1: a number should stand here, not \"" + shown + "...\"");
}

TEST(FieldReader, RefusesWhatIsNoDecimalNumber) {
  for (const char* text : {"nan", "inf", "-Infinity", "0x10", "&H10", "1.5f", "12abc", "1 2", "#TRUE#"}) {
    EXPECT_THROW(Single(text), ReadError) << text;
    EXPECT_THROW(Integer(text), ReadError) << text;
    EXPECT_THROW(Tagged(text), ReadError) << text;
  }
  EXPECT_THROW(Single("3.5E38"), ReadError);
  EXPECT_THROW(Tagged("1E39"), ReadError);
  EXPECT_THROW(Integer("1E39"), ReadError);
  EXPECT_EQ(Single("1E-60"), 0.0F);
}

TEST(FieldReader, RoundsIntegersHalfToEven) {
  EXPECT_EQ(Integer("0.5"), 0);
  EXPECT_EQ(Integer("1.5"), 2);
  EXPECT_EQ(Integer("2.5"), 2);
  EXPECT_EQ(Integer("3.5"), 4);
  EXPECT_EQ(Integer("-0.5"), 0);
  EXPECT_EQ(Integer("-1.5"), -2);
  EXPECT_EQ(Integer("-2.5"), -2);
  EXPECT_EQ(Integer("2.51"), 3);
  EXPECT_EQ(Integer("1.2E1"), 12);
  EXPECT_EQ(Integer("\"7\""), 7);
}

TEST(FieldReader, RefusesIntegersBeyond16Bits) {
  EXPECT_EQ(Integer("32767"), 32767);
  EXPECT_EQ(Integer("32767.4"), 32767);
  EXPECT_EQ(Integer("-32768"), -32768);
  EXPECT_EQ(Integer("-32768.5"), -32768);
  EXPECT_EQ(ErrorOf([] { Integer("32768"); }), "line 1: the number \"32768\" does not fit into 16 bits");
  EXPECT_THROW(Integer("32767.5"), ReadError);
  EXPECT_THROW(Integer("-32769"), ReadError);
  EXPECT_THROW(Integer("1E30"), ReadError);
}

TEST(FieldReader, TagsANumberByItsForm) {
  EXPECT_EQ(Tagged("2"), TaggedNumber(std::int16_t{2}));
  EXPECT_EQ(Tagged("+2"), TaggedNumber(std::int16_t{2}));
  EXPECT_EQ(Tagged("-32768"), TaggedNumber(std::int16_t{-32768}));
  EXPECT_EQ(Tagged("\"2\""), TaggedNumber(std::int16_t{2}));
  EXPECT_EQ(Tagged("32768"), TaggedNumber(32768.0));
  EXPECT_EQ(Tagged("2.0"), TaggedNumber(2.0));
  EXPECT_EQ(Tagged("2E0"), TaggedNumber(2.0));
  EXPECT_EQ(Tagged("0.1"), TaggedNumber(0.1));
}

TEST(FieldReader, ReadsBooleansInAnyLetterCase) {
  for (const char* text : {"#TRUE#", "#true#", "#True#", " #tRuE# ", "\"#TRUE#\""})
    EXPECT_TRUE(Boolean(text));
  for (const char* text : {"#FALSE#", "#false#", "#False#\r\n"}) EXPECT_FALSE(Boolean(text));
}

TEST(FieldReader, RefusesEverythingElseAsABoolean) {
  for (const char* text : {"TRUE", "True", "#TRUE", "TRUE#", "1", "-1", "0", "# TRUE #", "#YES#", "#~RUE#",
                           "#TRU{#", "#@RUE#"}) {
    EXPECT_THROW(Boolean(text), ReadError) << text;
  }
  EXPECT_EQ(ErrorOf([] { Boolean("yes"); }), "line 1: #TRUE# or #FALSE# should stand here, not \"yes\"");
}

TEST(FieldReader, KnowsTheFirstLineThatIsInNoField) {
  const auto unreadLine = [](const std::string& text, int fields) {
    FieldReader reader(text);
    for (int i = 0; i < fields; ++i) reader.NextField();
    return reader.UnreadLine();
  };
  EXPECT_EQ(unreadLine("1,2\r\n", 2), 0);
  EXPECT_EQ(unreadLine("1,2\r\n3", 2), 2);
  EXPECT_EQ(unreadLine("1,2", 1), 1);
  EXPECT_EQ(unreadLine("1\r\n \t\r\r\n\n", 1), 0);
  EXPECT_EQ(unreadLine("1\n\r\n\rx", 1), 4);
  EXPECT_EQ(unreadLine("\"a\"  ,\"b\"\t\n", 2), 0) << "blanks behind a closing quote";
  EXPECT_EQ(unreadLine("1\n\"a\"b\n\"c\"d\n", 3), 2) << "the first counts";
  EXPECT_EQ(unreadLine("\"two\nlines\"x\n", 1), 2);
}
