// What is written as RTF, read back by a strict scan and by another program.
#include "paper/qt/RtfWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QUrl>
#include <utility>
#include <vector>

#include "support/RtfScan.h"
#include "support/SampleRichText.h"
#include "support/Unrtf.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::string RtfText(std::string_view text) {
  RichTextUnderTest document;
  document.Append(text);
  return ScanRtf(ToRtf(document.Document)).Text();
}

std::string Body(std::string_view text) {
  RichTextUnderTest document;
  document.Append(text);
  const std::string rtf = ToRtf(document.Document).toStdString();
  const std::size_t begin = rtf.find("\\pard");
  return rtf.substr(begin, rtf.rfind('}') - begin);
}

RtfRun RunOf(const char* text, RtfLook look = {}) {
  if (look.Font.isEmpty()) look.Font = QStringLiteral("Arial");
  if (look.HalfPoints == RtfLook().HalfPoints) look.HalfPoints = 20;
  return {look, QString::fromUtf8(text)};
}

std::vector<bool> StayingWithNext(const RtfDocument& rtf) {
  std::vector<bool> staying;
  for (const RtfParagraph& paragraph : rtf.Paragraphs) staying.push_back(paragraph.Layout.StaysWithNext);
  return staying;
}

TEST(RtfWriter, AnEmptyDocumentIsWellFormed) {
  const QTextDocument document;
  const RtfDocument rtf = ScanRtf(ToRtf(document));
  EXPECT_EQ(rtf.Paragraphs.size(), 1U);
  EXPECT_EQ(rtf.Text(), "");
}

TEST(RtfWriter, ThePaperIsA4WithRoomForTheWidestPicture) {
  const QTextDocument document;
  const RtfDocument rtf = ScanRtf(ToRtf(document));
  EXPECT_EQ(rtf.PaperWidth, 11906);
  EXPECT_EQ(rtf.PaperHeight, 16838);
  EXPECT_GE(rtf.TextWidth, 640 * 15);
  EXPECT_EQ(rtf.DefaultTab, 720);
}

TEST(RtfWriter, BracesAndBackslashesAreEscaped) {
  EXPECT_EQ(Body("{a\\b}"), "\\pard\\plain\\f0\\fs20\\cf1\\{a\\\\b\\}");
  EXPECT_EQ(RtfText("{a\\b}\\par {\\b"), "{a\\b}\\par {\\b");
}

TEST(RtfWriter, MarkupAndQuotesAreText) {
  EXPECT_EQ(RtfText("<b>markup&amp;</b> 'q' \"r\""), "<b>markup&amp;</b> 'q' \"r\"");
}

TEST(RtfWriter, CharactersOfTheCodePageHaveTheirByteAsFallback) {
  EXPECT_THAT(Body("\xE2\x80\x93\xC2\xB0\xC3\xA9\xE2\x82\xAC"),
              HasSubstr("\\cf1\\u8211\\'96\\u176\\'b0\\u233\\'e9\\u8364\\'80"));
}

TEST(RtfWriter, CharactersBeyondTheCodePageHaveAQuestionMark) {
  EXPECT_THAT(Body("\xCE\xB1"), HasSubstr("\\u945\\'3f"));
  EXPECT_THAT(Body("\xEF\xBD\x81"), HasSubstr("\\u-191\\'3f"));                     // U+FF41
  EXPECT_THAT(Body("\xF0\x9F\x98\x80"), HasSubstr("\\u-10179\\'3f\\u-8704\\'3f"));  // U+1F600
  EXPECT_EQ(RtfText("\xCE\xB1 \xF0\x9F\x98\x80"), "\u03B1 \U0001F600");
}

TEST(RtfWriter, TabsBlanksAndLineSeparatorsAreKept) {
  EXPECT_EQ(RtfText("\ta  b   c \t5"), "\ta  b   c \t5");
  EXPECT_EQ(RtfText("a\xE2\x80\xA8z\xC2\xA0y"), "a\u2028z\u00A0y");
}

TEST(RtfWriter, ADigitOrABlankBehindAControlWordIsText) {
  EXPECT_THAT(Body("\t5"), HasSubstr("\\tab 5"));
  EXPECT_EQ(RtfText("\t 5\r\n-1\r\n 2"), "\t 5\n-1\n 2");
}

TEST(RtfWriter, ControlCharactersAreBlanks) {
  QTextDocument document;
  QTextCursor(&document).insertText(QStringLiteral("a\u0001\u0085z"));
  EXPECT_EQ(ScanRtf(ToRtf(document)).Text(), "a  z");
}

TEST(RtfWriter, FormatsAreWrittenWhereTheyChangeAndEndThere) {
  RichTextUnderTest text;
  text.Append("a ");
  text.Append("b ", {.Bold = true, .Colour = 4});
  text.Append("c ", {.Italic = true, .Underlined = true});
  text.Append("d ", {.Underlined = true, .Colour = 9, .Points = 7.5F});
  text.Append("e ", TableLetters);
  text.Append("f");
  const QString courier = QStringLiteral("Courier New");
  EXPECT_THAT(ScanRtf(ToRtf(text.Document)).Runs(),
              ElementsAre(RunOf("a "), RunOf("b ", {.Colour = qRgb(128, 0, 0), .Bold = true}),
                          RunOf("c ", {.Italic = true, .Underlined = true}),
                          RunOf("d ", {.HalfPoints = 15, .Colour = qRgb(0, 0, 255), .Underlined = true}),
                          RunOf("e ", {.Font = courier, .HalfPoints = 15}), RunOf("f")));
}

TEST(RtfWriter, WhatLooksTheSameIsOneRun) {
  RichTextUnderTest text;
  text.Append("a", TableLetters);
  text.Append("b", TableLetters);
  text.Append("\r\n", TableLetters);
  text.Append("c", TableLetters);
  EXPECT_THAT(ToRtf(text.Document).toStdString(), HasSubstr("\\pard\\plain\\f1\\fs15\\cf1 ab\\par\r\nc}"));
}

TEST(RtfWriter, AnEmptyLineIsAsHighAsItsLetters) {
  RichTextUnderTest text;
  text.Append("a\r\n\r\n", {.Points = 7.5F});
  text.Append("b");
  const RtfDocument rtf = ScanRtf(ToRtf(text.Document));
  EXPECT_EQ(rtf.Paragraphs[0].EndLook.HalfPoints, 15);
  EXPECT_EQ(rtf.Paragraphs[1].EndLook.HalfPoints, 15);
  EXPECT_EQ(rtf.Paragraphs[2].EndLook.HalfPoints, 20);
}

TEST(RtfWriter, AHeadingAndTheBlankLineBelowItStayWithWhatFollows) {
  RichTextUnderTest text;
  text.Append("before\r\n");
  text.Append("Heading", DarkRedHeading, LineRole::Heading);
  text.Append("\r\n\r\nbelow\r\n\r\nafter");
  const RtfDocument rtf = ScanRtf(ToRtf(text.Document));
  EXPECT_EQ(rtf.Text(), "before\nHeading\n\nbelow\n\nafter");
  EXPECT_THAT(StayingWithNext(rtf), ElementsAre(false, true, true, false, false, false));
}

TEST(RtfWriter, HeadingsAreAnOutline) {
  RichTextUnderTest text;
  text.Append("Orvane\r\n", BoldLetters, LineRole::Title);
  text.Append("only bold\r\n", BoldLetters);
  text.Append("Section\r\n", DarkRedHeading, LineRole::Heading);
  text.Append("text");
  const RtfDocument rtf = ScanRtf(ToRtf(text.Document));
  EXPECT_TRUE(rtf.HasHeadingStyles);
  std::vector<std::pair<int, int>> levels;
  for (const RtfParagraph& paragraph : rtf.Paragraphs) {
    levels.emplace_back(paragraph.Layout.Style, paragraph.Layout.OutlineLevel);
  }
  EXPECT_THAT(levels, ElementsAre(std::pair(1, 0), std::pair(0, -1), std::pair(2, 1), std::pair(0, -1)));
}

TEST(RtfWriter, WithoutHeadingsThereAreNoStyles) {
  RichTextUnderTest text;
  text.Append("text", BoldLetters);
  EXPECT_FALSE(ScanRtf(ToRtf(text.Document)).HasHeadingStyles);
}

TEST(RtfWriter, TheDocumentsTitleIsToldWhateverItsCharacters) {
  EXPECT_EQ(ScanRtf(ToRtf(SampleRichText().Document)).Title.toStdString(), Awkward);
  EXPECT_EQ(ScanRtf(ToRtf(QTextDocument())).Title, QString());
}

TEST(RtfWriter, ThePictureSaysWhatItShows) {
  const RtfDocument rtf = ScanRtf(ToRtf(SampleRichText().Document));
  ASSERT_EQ(rtf.Pictures.size(), 1U);
  EXPECT_EQ(rtf.Pictures[0].Description.toStdString(), Awkward);
}

TEST(RtfWriter, JoinedLinesStandWholeOnOnePage) {
  RichTextUnderTest text;
  text.Append("before\r\n");
  text.Append("joint\r\n\tx\r\n", {}, LineRole::Joined);
  text.Append("\ty\r\n\r\n", {}, LineRole::JoinedLast);
  text.Append("after");
  const RtfDocument rtf = ScanRtf(ToRtf(text.Document));
  EXPECT_THAT(StayingWithNext(rtf), ElementsAre(false, true, true, false, false, false));
  std::vector<bool> whole;
  for (const RtfParagraph& paragraph : rtf.Paragraphs) whole.push_back(paragraph.Layout.StaysWhole);
  EXPECT_THAT(whole, ElementsAre(false, true, true, true, false, false));
}

// 'h' for a row that is shown again on each page, 'r' for any other row, '.' for what is no row.
std::string RowsOf(const RtfDocument& rtf) {
  std::string rows;
  for (const RtfParagraph& paragraph : rtf.Paragraphs) {
    const RtfLayout& layout = paragraph.Layout;
    rows += layout.IsHeaderRow ? 'h' : layout.IsRow ? 'r' : '.';
  }
  return rows;
}

TEST(RtfWriter, EachTableHasItsHeaderOnEveryPage) {
  RichTextUnderTest text;
  text.Append("before\r\n");
  AppendTable(text, 3);
  text.Append("\r\n", TableLetters);
  AppendTable(text, 2);
  text.Append("after");
  const RtfDocument rtf = ScanRtf(ToRtf(text.Document));
  EXPECT_EQ(RowsOf(rtf), ".hrrr.hrr.");
  EXPECT_EQ(rtf.Text(), TextOf(text.Document));
  EXPECT_TRUE(rtf.Paragraphs[1].Layout.StaysWithNext) << "the header alone at the foot of a page";
  EXPECT_FALSE(rtf.Paragraphs[2].Layout.StaysWithNext);
}

TEST(RtfWriter, JoinedRowsAreRowsThatStayWithTheNext) {
  RichTextUnderTest text;
  text.Append("before\r\n");
  text.Append("head\r\n", TableLetters, LineRole::TableHeader);
  text.Append("a\r\n", TableLetters, LineRole::JoinedRow);
  text.Append("b\r\n", TableLetters, LineRole::TableRow);
  text.Append("after");
  const RtfDocument rtf = ScanRtf(ToRtf(text.Document));
  EXPECT_EQ(RowsOf(rtf), ".hrr.");
  EXPECT_TRUE(rtf.Paragraphs[2].Layout.StaysWithNext);
  EXPECT_FALSE(rtf.Paragraphs[3].Layout.StaysWithNext);
}

TEST(RtfWriter, APartOfATableIsText) {
  RichTextUnderTest text;
  text.Append("before\r\n");
  const int begin = text.Document.characterCount() - 1;
  AppendTable(text, 3);
  const int end = text.Document.characterCount() - 1;
  text.Append("after");
  EXPECT_EQ(RowsOf(ScanRtf(ToRtf(text.Select(0, end + 2)))), ".hrrr.");
  EXPECT_EQ(RowsOf(ScanRtf(ToRtf(text.Select(begin, end)))), "hrrr.");
  EXPECT_EQ(RowsOf(ScanRtf(ToRtf(text.Select(begin, end - 1)))), "....");
  EXPECT_EQ(RowsOf(ScanRtf(ToRtf(text.Select(begin + 1, end)))), ".....");
}

// A word processor takes them for a typist's layout otherwise, and changes how wide they are.
TEST(RtfWriter, BlanksThatFollowOneAnotherHaveAnEmptyGroupBetweenThem) {
  EXPECT_THAT(Body("a b  c   d "), testing::EndsWith(" a b {} c {} {} d "));
  EXPECT_EQ(RtfText("  a b  c   d  "), "  a b  c   d  ");
}

TEST(RtfWriter, BlanksOfOneWidthFollowOneAnotherAsTheyAre) {
  RichTextUnderTest text;
  text.Append("a   b", TableLetters);
  EXPECT_THAT(ToRtf(text.Document).toStdString(), HasSubstr(" a   b}"));
}

TEST(RtfWriter, APictureIsAPngOfTheSizeThatItIsShownIn) {
  RichTextUnderTest text;
  text.Image = SampleImage();
  text.Append("\t");
  text.Paste();
  text.Append("9");
  const RtfDocument rtf = ScanRtf(ToRtf(text.Document));
  EXPECT_EQ(rtf.Text(), "\t\uFFFC9");
  ASSERT_EQ(rtf.Pictures.size(), 1U);
  EXPECT_EQ(rtf.Pictures[0].Image.convertToFormat(QImage::Format_RGB32), text.Image);
  EXPECT_EQ(rtf.Pictures[0].WidthInTwips, 3000);
  EXPECT_EQ(rtf.Pictures[0].HeightInTwips, 1500);
}

TEST(RtfWriter, TheWholeDocumentIsThere) {
  const SampleRichText sample;
  EXPECT_EQ(ScanRtf(ToRtf(sample.Document)).Text(), TextOf(sample.Document));
}

TEST(RtfWriter, ASelectionBeginsAndEndsInTheMiddleOfARun) {
  RichTextUnderTest text;
  text.Append("before ");
  text.Append("bold", BoldLetters);
  text.Append("\r\nbetween ");
  text.Append("bold again", BoldLetters);
  const QTextCursor selection = text.Select(9, 9 + 2 + 1 + 8 + 4);
  EXPECT_THAT(ScanRtf(ToRtf(selection)).Runs(),
              ElementsAre(RunOf("ld", {.Bold = true}), RunOf("between "), RunOf("bold", {.Bold = true})));
  EXPECT_EQ(ScanRtf(ToRtf(selection)).Text(), "ld\nbetween bold");
}

TEST(RtfWriter, ASelectionOfALineWithAPictureHasThePictureOnlyIfItIsSelected) {
  RichTextUnderTest text;
  text.Image = SampleImage();
  text.Append("ab\t");
  text.Paste();
  text.Append("cd");
  EXPECT_EQ(ScanRtf(ToRtf(text.Select(1, 3))).Text(), "b\t");
  EXPECT_TRUE(ScanRtf(ToRtf(text.Select(1, 3))).Pictures.empty());
  EXPECT_EQ(ScanRtf(ToRtf(text.Select(2, 5))).Text(), "\t\uFFFCc");
  EXPECT_EQ(ScanRtf(ToRtf(text.Select(3, 4))).Pictures.size(), 1U);
  EXPECT_EQ(ScanRtf(ToRtf(text.Select(4, 6))).Text(), "cd");
}

TEST(RtfWriter, EverySelectionOfADocumentHasItsText) {
  SampleRichText sample;
  sample.Document.addResource(QTextDocument::ImageResource, QUrl(QStringLiteral("picture1.png")),
                              SampleImage(6, 3));
  const QString all = QString::fromStdString(TextOf(sample.Document));
  for (int begin = 0; begin < all.size(); begin += 5) {
    for (int end = begin; end <= all.size(); end += 7) {
      const RtfDocument rtf = ScanRtf(ToRtf(sample.Select(begin, end)));
      EXPECT_EQ(rtf.Text(), all.mid(begin, end - begin).toStdString()) << begin << " .. " << end;
    }
  }
}

TEST(RtfWriter, AnImageThatTheDocumentDoesNotHoldIsLeftOut) {
  QTextDocument document;
  QTextCursor(&document).insertImage(QStringLiteral("gone.png"));
  EXPECT_EQ(ScanRtf(ToRtf(document)).Text(), "");
}

TEST(RtfWriter, AFamilyWithAnAwkwardNameDoesNotBreakTheTable) {
  QTextDocument document;
  QTextCharFormat format;
  format.setFontFamilies({QStringLiteral("A;{b}\\\u00E9")});
  QTextCursor(&document).insertText(QStringLiteral("x"), format);
  EXPECT_EQ(ScanRtf(ToRtf(document)).Runs().front().Look.Font, QStringLiteral("A__b___"));
}

TEST(RtfWriter, TheSameDocumentGivesTheSameBytes) {
  EXPECT_EQ(ToRtf(SampleRichText().Document), ToRtf(SampleRichText().Document));
}

TEST(RtfWriterReadByUnrtf, HasTheSameText) {
  const SampleRichText sample;
  EXPECT_EQ(ReadWithUnrtf(ToRtf(sample.Document)).Text,
            AsUnrtfTells(QString::fromStdString(TextOf(sample.Document))));
}

TEST(RtfWriterReadByUnrtf, HasTheSameBoldLettersAndColours) {
  const UnrtfReading reading = ReadWithUnrtf(ToRtf(SampleRichText().Document));
  EXPECT_EQ(reading.BoldText, "OrvanePictureofthetruss:");
  ASSERT_EQ(reading.TextByColour.size(), 3U);
  EXPECT_EQ(reading.TextByColour.at("#800000"), "Pictureofthetruss:");
  EXPECT_EQ(reading.TextByColour.at("#0000ff"), "F1R12");
}

TEST(RtfWriterReadByUnrtf, HasTheSamePicture) {
  const SampleRichText sample;
  const UnrtfReading reading = ReadWithUnrtf(ToRtf(sample.Document));
  ASSERT_EQ(reading.Pictures.size(), 1U);
  EXPECT_EQ(reading.Pictures[0].convertToFormat(QImage::Format_RGB32), sample.Image);
}

TEST(RtfWriterReadByUnrtf, ASelectionHasItsPart) {
  SampleRichText sample;
  const int heading = sample.Document.find(QStringLiteral("Picture")).selectionStart();
  const UnrtfReading reading = ReadWithUnrtf(ToRtf(sample.Select(heading + 8, heading + 10)));
  EXPECT_EQ(reading.Text, "of");
  EXPECT_EQ(reading.BoldText, "of");
}

// The scan itself: what it must not let pass.
TEST(RtfScan, FindsWhatIsNotWellFormed) {
  const QByteArray right = ToRtf(SampleRichText().Document);
  ASSERT_NO_THROW(ScanRtf(right));
  const auto with = [&right](const char* before, const char* after) {
    return QByteArray(right).replace(before, after);
  };
  for (const QByteArray& wrong :
       {right.chopped(3), right + "}", right + "x", with("\\{a", "{a"), with("\\par", "\\para"),
        with("\\tab", "\\tab1"), with("\\'96", ""), with("\\'96", "-"), with("\\f1", "\\f7"),
        with("\\cf2", "\\cf9"), with("89504e", "89504f"), with("89504e", "8950e"),
        with("\\picw600", "\\picw601"), with("Orvane", "Orv\xE4ne"), with(" <b>", "\t<b>")}) {
    EXPECT_THROW(ScanRtf(wrong), RtfError) << wrong.left(400).toStdString();
  }
}

}  // namespace
