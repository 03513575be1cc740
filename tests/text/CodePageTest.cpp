// The code page's two doors.
#include "text/CodePage.h"

TEST(CodePage, EveryByteGoesOutAndComesBack) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(static_cast<unsigned char>(byte));
  EXPECT_EQ(FromUtf8(ToUtf8(all)), all);
}

TEST(CodePage, SpecialCharactersAreThoseOfWindows1252) {
  EXPECT_EQ(ToUtf8("\x80"), "€");
  EXPECT_EQ(ToUtf8("\x96"), "–");
  EXPECT_EQ(ToUtf8("\xE4\xDF"), "äß");
  EXPECT_EQ(FromUtf8("Größe – 5 €"),
            "Gr\xF6\xDF"
            "e \x96 5 \x80");
}

TEST(CodePage, CharactersOutsideThePageBecomeQuestionMarks) { EXPECT_EQ(FromUtf8("α+日本+😀"), "?+??+?"); }

TEST(CodePage, BytesThatAreNotUtf8BecomeQuestionMarks) {
  EXPECT_EQ(FromUtf8("a\xFF"
                     "b"),
            "a?b");
  EXPECT_EQ(FromUtf8("\xE2\x82"), "??");
  EXPECT_EQ(FromUtf8("\xC0\x80"), "??");
}
