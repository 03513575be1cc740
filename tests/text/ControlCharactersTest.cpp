// Nothing that is shown on a terminal commands it, and nothing else is changed.
#include "text/ControlCharacters.h"

#include <algorithm>
#include <functional>

#include "text/CodePage.h"

TEST(VisibleText, ShowsC0AndDelAsTheirPictures) {
  EXPECT_EQ(VisibleText(std::string("\0", 1)), "\u2400");
  EXPECT_EQ(VisibleText("a\x1b[2Jb"), "a\u241B[2Jb");
  EXPECT_EQ(VisibleText("\t\r\n\x1f\x7f "), "\u2409\u240D\u240A\u241F\u2421 ");
}

TEST(VisibleText, ShowsC1AsReplacementCharacters) {
  EXPECT_EQ(VisibleText("a\xC2\x80\xC2\x9B\xC2\x9F\xC2\xA0"), "a\uFFFD\uFFFD\uFFFD\u00A0");
}

// A terminal that is not in UTF-8 takes such bytes for C1, and a careless one the long forms.
TEST(VisibleText, ShowsWhatIsNotUtf8AsReplacementCharacters) {
  EXPECT_EQ(VisibleText("a\x9B"
                        "2J"),
            "a\uFFFD"
            "2J");
  EXPECT_EQ(VisibleText("\xC2"), "\uFFFD");
  EXPECT_EQ(VisibleText("\xC1\x9B"), "\uFFFD\uFFFD");
  EXPECT_EQ(VisibleText("\xE0\x82\x9B"), "\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(VisibleText("\xE2\x82z"), "\uFFFD\uFFFDz");
  EXPECT_EQ(VisibleText("\xF0\x9F\x9A"), "\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(VisibleText("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(VisibleText("\xF4\x90\x80\x80\xFF"), "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD");
}

// "a<U+202E>srt.exe" would read "aexe.trs".
TEST(VisibleText, ShowsMarksOfDirectionAsReplacementCharacters) {
  for (const char* mark : {"\u061C", "\u200E", "\u200F", "\u202A", "\u202B", "\u202C", "\u202D", "\u202E",
                           "\u2066", "\u2067", "\u2068", "\u2069"}) {
    EXPECT_EQ(VisibleText(std::string("a") + mark + "b"), "a\uFFFDb");
    EXPECT_TRUE(IsDirectionMark(mark));
  }
  for (const char* neighbour : {"\u061B", "\u200D", "\u2010", "\u2029", "\u202F", "\u2065", "\u206A"}) {
    EXPECT_EQ(VisibleText(neighbour), neighbour);
  }
}

TEST(IsUtf8, SaysWhetherEveryByteBelongsToACharacter) {
  for (const char* text : {"", "a.trs", "\u00C4 \u65E5 \U0001F6A7"}) EXPECT_TRUE(IsUtf8(text)) << text;
  for (const char* text : {"\xE4.trs", "a\xC3", "\xC1\x9B", "\xED\xA0\x80"})
    EXPECT_FALSE(IsUtf8(text)) << text;
}

TEST(VisibleText, LeavesWhatIsSeenAlone) {
  const std::string seen = "AB [ ] \u00C4rmel \u2013 \u20AC \u65E5\u672C \U0001F6A7 \u241B";
  EXPECT_EQ(VisibleText(seen), seen);
  EXPECT_EQ(VisibleText(VisibleText("\x1b\x7f\x80")), VisibleText("\x1b\x7f\x80"));
}

TEST(VisibleText, IsAsWideAsTheNameWhateverItHolds) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string visible = VisibleText(ToUtf8(std::string(1, static_cast<char>(byte))));
    const auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; };
    EXPECT_EQ(std::ranges::count_if(visible, std::not_fn(continues)), 1) << byte;
    EXPECT_EQ(visible, VisibleText(visible)) << byte;
  }
}

TEST(WithoutControls, DropsThemAndNothingElse) {
  EXPECT_EQ(WithoutControls("a\x1b\r\n\x7f\xC2\x9B\u00C4\xC2\xA0\x9B"), "a\u00C4\xC2\xA0\x9B");
}

TEST(IsControl, IsWhatBecomesAControlCharacterInUnicode) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string name(1, static_cast<char>(byte));
    EXPECT_EQ(IsControl(name[0]), WithoutControls(ToUtf8(name)).empty()) << byte;
  }
}

TEST(JsonEscaped, EscapesWhatEndsATextAndWhatATerminalObeys) {
  EXPECT_EQ(JsonEscaped("a\"b\\c/d"), R"(a\"b\\c/d)");
  EXPECT_EQ(JsonEscaped("\b\f\n\r\t"), R"(\b\f\n\r\t)");
  EXPECT_EQ(JsonEscaped(std::string("\0\x01\x0b\x1b\x1f\x7f", 6)), R"(\u0000\u0001\u000b\u001b\u001f\u007f)");
  EXPECT_EQ(JsonEscaped("\u0080\u009B\u009F\u00A0"), "\\u0080\\u009b\\u009f\u00A0");
  EXPECT_EQ(JsonEscaped("\u061C\u200E\u202E\u2069"), R"(\u061c\u200e\u202e\u2069)");
}

TEST(JsonEscaped, LeavesEveryOtherCharacterAndIsUtf8Always) {
  const std::string seen = "AB [ ] \u00C4rmel \u2013 \u20AC \u65E5\u672C \U0001F6A7 \u2028";
  EXPECT_EQ(JsonEscaped(seen), seen);
  EXPECT_EQ(JsonEscaped("\xE4.trs\xC3"), "\uFFFD.trs\uFFFD");
  EXPECT_EQ(JsonEscaped("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD");
}
