// Pieces of text in the formats that their codes tell.
#include "reports/RTBText.h"

#include <gmock/gmock.h>

#include "support/RecordingRichText.h"

using ::testing::ElementsAre;

namespace {

constexpr CharacterFormat PlainLetters{};  // black, 10 points
constexpr CharacterFormat Bold{.Bold = true};

}  // namespace

TEST(FormatOf, TheThreeCodesOfTheReport) {
  EXPECT_EQ(FormatOf("TFF0", 10), Bold);
  EXPECT_EQ(FormatOf("FFF0", 10), PlainLetters);
  EXPECT_EQ(FormatOf("TFF4", 12), (CharacterFormat{.Bold = true, .Colour = 4, .Points = 12}));
}

TEST(FormatOf, EachCharacterHasItsMeaning) {
  EXPECT_EQ(FormatOf("FTF0", 10), CharacterFormat{.Italic = true});
  EXPECT_EQ(FormatOf("FFT0", 10), CharacterFormat{.Underlined = true});
  EXPECT_EQ(FormatOf("TTT9", 10),
            (CharacterFormat{.Bold = true, .Italic = true, .Underlined = true, .Colour = LightBlue}));
}

TEST(FormatOf, AnythingButACapitalTIsOff) { EXPECT_EQ(FormatOf("tx10", 10), PlainLetters); }

TEST(FormatOf, AShortCodeOrAColourThatIsNoDigitIsPlainAndBlack) {
  EXPECT_EQ(FormatOf("", 10), PlainLetters);
  EXPECT_EQ(FormatOf("T", 10), Bold);
  EXPECT_EQ(FormatOf("TFFA", 10), Bold);
}

TEST(RTBText, StandsBetweenPlainBlackLineBreaks) {
  RecordingRichText document;
  RTBText({document, 10}, "Heading", 2, 1, SectionHeading);
  EXPECT_THAT(document.Runs, ElementsAre(TextRun{"\r\n\r\n", PlainLetters},
                                         TextRun{"Heading", CharacterFormat{.Bold = true, .Colour = 4}},
                                         TextRun{"\r\n", PlainLetters}));
}

TEST(RTBText, IsAsLargeAsTheReportsFont) {
  RecordingRichText document;
  RTBText({document, 16}, "text", 1, 0, PlainBlack);
  EXPECT_THAT(document.Runs, ElementsAre(TextRun{"\r\ntext", CharacterFormat{.Points = 16}}));
}

TEST(RTBText, WithoutTextIsItsLineBreaks) {
  RecordingRichText document;
  RTBText({document}, "", 1, 2, BoldBlack);
  EXPECT_THAT(document.Runs, ElementsAre(TextRun{"\r\n\r\n\r\n", PlainLetters}));
  RecordingRichText empty;
  RTBText({empty}, "", 0, 0, BoldBlack);
  EXPECT_TRUE(empty.Runs.empty());
}

TEST(RTBText, KeepsItsOwnLineBreaksAndTabs) {
  RecordingRichText document;
  RTBText({document}, "a\r\n\tb", 0, 0, BoldBlack);
  EXPECT_THAT(document.Runs, ElementsAre(TextRun{"a\r\n\tb", Bold}));
}

TEST(RTBTitle, IsBoldAndEightPointsLargerOnALineOfItsOwn) {
  RecordingRichText document;
  RTBTitle({document, 12}, "Orvane", 1, 0);
  EXPECT_THAT(document.Runs, ElementsAre(TextRun{"\r\n", CharacterFormat{.Points = 12}},
                                         TextRun{"Orvane", CharacterFormat{.Bold = true, .Points = 20}},
                                         TextRun{"\r\n", CharacterFormat{.Points = 12}}));
}

TEST(RTBTitle, LineBreaksAfterComeAfterTheEndOfItsLine) {
  RecordingRichText document;
  RTBTitle({document}, "Orvane", 0, 2);
  EXPECT_EQ(document.Text(), "Orvane\n\n\n");
}
