// Appending to a QTextDocument.
#include "paper/qt/QtRichText.h"

#include <gtest/gtest.h>

#include <QTextBlock>
#include <QTextFragment>
#include <QTextImageFormat>
#include <QTextLayout>
#include <QUrl>

#include "platform/qt/QtPicture.h"
#include "support/SampleRichText.h"

namespace {

QTextCharFormat FormatAt(RichTextUnderTest& text, int position) {
  return text.Select(position, position + 1).charFormat();
}

QTextImageFormat PictureOf(RichTextUnderTest& text) {
  const auto at = text.Document.toRawText().indexOf(QChar(QChar::ObjectReplacementCharacter));
  return FormatAt(text, static_cast<int>(at)).toImageFormat();
}

bool Wraps(const RichTextUnderTest& text, int line) {
  return !text.Document.findBlockByNumber(line).blockFormat().nonBreakableLines();
}

TEST(QtRichText, TextIsAppendedAtTheEndWhereverOtherCursorsStand) {
  RichTextUnderTest text;
  text.Append("one");
  QTextCursor(&text.Document).insertText(QStringLiteral("zero "));
  QTextCursor other(&text.Document);
  other.movePosition(QTextCursor::End);
  other.insertText(QStringLiteral(" two"));
  text.Append(" three");
  EXPECT_EQ(TextOf(text.Document), "zero one two three");
}

TEST(QtRichText, EveryKindOfLineBreakBeginsAParagraph) {
  RichTextUnderTest text;
  text.Append("a\r\nb\rc\nd\n\re\r\n\r\n");
  EXPECT_EQ(TextOf(text.Document), "a\nb\nc\nd\n\ne\n\n");
  EXPECT_EQ(text.Document.blockCount(), 8);
}

TEST(QtRichText, TabsAndBlanksStayWhatTheyAre) {
  RichTextUnderTest text;
  text.Append("\ta  b   \t");
  EXPECT_EQ(TextOf(text.Document), "\ta  b   \t");
  EXPECT_EQ(text.Document.defaultTextOption().tabStopDistance(), 48);
}

TEST(QtRichText, ControlCharactersAreDropped) {
  RichTextUnderTest text;
  text.Append("a\x01\x1B\x7F\xC2\x81z");
  EXPECT_EQ(TextOf(text.Document), "az");
}

TEST(QtRichText, WhatNoFileCanHoldIsReplaced) {
  RichTextUnderTest text;
  text.Append("<\xEF\xBF\xBC\xEF\xBF\xBE\xEF\xB7\x90>");  // U+FFFC, U+FFFE, U+FDD0
  EXPECT_EQ(TextOf(text.Document), "<\uFFFD\uFFFD\uFFFD>");
}

TEST(QtRichText, AParagraphSeparatorInANameBreaksTheLineButNotTheParagraph) {
  RichTextUnderTest text;
  text.Append("a\xE2\x80\xA9z");
  EXPECT_EQ(TextOf(text.Document), "a\u2028z");
}

TEST(QtRichText, NothingAppendsNothing) {
  RichTextUnderTest text;
  text.Append("");
  EXPECT_TRUE(text.Document.isEmpty());
}

TEST(QtRichText, LettersLookAsTheirFormatSays) {
  RichTextUnderTest text;
  text.Append("a");
  text.Append("b", {.Bold = true, .Colour = 4, .Points = 12});
  text.Append(
      "c",
      {.Italic = true, .Underlined = true, .Colour = 9, .Family = FontFamily::Monospaced, .Points = 7.5F});

  const QTextCharFormat plain = FormatAt(text, 0);
  EXPECT_EQ(plain.fontFamilies().toStringList(), QStringList{QStringLiteral("Arial")});
  EXPECT_EQ(plain.fontPointSize(), 10);
  EXPECT_EQ(plain.foreground().color(), QColor(0, 0, 0));
  EXPECT_FALSE(plain.fontWeight() >= QFont::Bold || plain.fontItalic() || plain.fontUnderline());

  const QTextCharFormat heading = FormatAt(text, 1);
  EXPECT_EQ(heading.fontWeight(), QFont::Bold);
  EXPECT_EQ(heading.fontPointSize(), 12);
  EXPECT_EQ(heading.foreground().color(), QColor(128, 0, 0));

  const QTextCharFormat cell = FormatAt(text, 2);
  EXPECT_EQ(cell.fontFamilies().toStringList(), QStringList{QStringLiteral("Courier New")});
  EXPECT_EQ(cell.fontPointSize(), 7.5);
  EXPECT_EQ(cell.foreground().color(), QColor(0, 0, 255));
  EXPECT_TRUE(cell.fontItalic() && cell.fontUnderline());
}

TEST(QtRichText, AnEmptyLineIsAsHighAsItsLineBreak) {
  RichTextUnderTest text;
  text.Append("\r\n\r\n", {.Points = 14});
  EXPECT_EQ(text.Document.findBlockByNumber(1).charFormat().fontPointSize(), 14);
}

TEST(QtRichText, OnlyLinesThatAreMonospacedThroughoutDoNotWrap) {
  RichTextUnderTest text;
  text.Append("a  b", TableHeader);
  text.Append("  c\r\n", TableLetters);
  text.Append("\r\n", TableLetters);
  text.Append("d", TableLetters);
  text.Append("proportional\r\n");
  text.Append("proportional");
  text.Append("e\r\n", TableLetters);
  text.Append("f", TableLetters);
  EXPECT_FALSE(Wraps(text, 0));
  EXPECT_TRUE(Wraps(text, 1));  // empty
  EXPECT_TRUE(Wraps(text, 2));
  EXPECT_TRUE(Wraps(text, 3));
  EXPECT_FALSE(Wraps(text, 4));
}

TEST(QtRichText, ALineHasTheRoleOfItsFirstLettersAndBlankLinesHaveNone) {
  RichTextUnderTest text;
  text.Append("title\r\n\r\n", BoldLetters, LineRole::Title);
  text.Append("heading", BoldLetters, LineRole::Heading);
  text.Append(" goes on\r\n", BoldLetters);
  text.Append("a\r\nb\r\n", {}, LineRole::Joined);
  text.Append("text");
  std::vector<LineRole> roles;
  std::vector<int> levels;
  for (QTextBlock line = text.Document.begin(); line.isValid(); line = line.next()) {
    roles.push_back(RoleOf(line));
    levels.push_back(line.blockFormat().headingLevel());
  }
  EXPECT_EQ(roles, (std::vector{LineRole::Title, LineRole::Text, LineRole::Heading, LineRole::Joined,
                                LineRole::Joined, LineRole::Text}));
  EXPECT_EQ(levels, (std::vector{1, 0, 2, 0, 0, 0}));
}

TEST(QtRichText, NothingIsLaidOutAndNothingCanBeUndone) {
  RichTextUnderTest text;
  text.Append("a  b\r\n", TableLetters);
  text.Append("c");
  EXPECT_EQ(text.Document.firstBlock().layout()->lineCount(), 0);
  EXPECT_FALSE(text.Document.isUndoRedoEnabled());
}

TEST(QtRichText, APictureIsAnImageOfItsOwnSizeAtTheEnd) {
  RichTextUnderTest text;
  text.Image = SampleImage();
  text.Append("a\r\n\t");
  text.Paste();
  text.Append("\r\nb");
  EXPECT_EQ(TextOf(text.Document), "a\n\t\uFFFC\nb");
  const QTextImageFormat picture = PictureOf(text);
  EXPECT_EQ(picture.name(), QStringLiteral("picture1.png"));
  EXPECT_EQ(QSizeF(picture.width(), picture.height()), QSizeF(200, 100));
  const QVariant held =
      text.Document.resource(QTextDocument::ImageResource, QUrl(QStringLiteral("picture1.png")));
  EXPECT_EQ(held.value<QImage>(), text.Image);
}

TEST(QtRichText, PicturesAreNumbered) {
  RichTextUnderTest text;
  text.Image = SampleImage();
  text.Paste();
  text.Append("\r\n");
  text.Paste();
  EXPECT_EQ(FormatAt(text, 0).toImageFormat().name(), QStringLiteral("picture1.png"));
  EXPECT_EQ(FormatAt(text, 2).toImageFormat().name(), QStringLiteral("picture2.png"));
}

TEST(QtRichText, WithoutAPictureNothingIsPasted) {
  RichTextUnderTest text;
  text.Append("\t");
  EXPECT_FALSE(text.Text.Paste());
  EXPECT_EQ(TextOf(text.Document), "\t");
}

TEST(QtRichText, APictureHasItsDescription) {
  RichTextUnderTest text;
  text.Image = SampleImage();
  EXPECT_TRUE(text.Text.Paste("a slope \xE2\x80\x93 red"));
  EXPECT_EQ(PictureOf(text).stringProperty(QTextFormat::ImageAltText), QStringLiteral("a slope \u2013 red"));
}

TEST(QtRichText, AWidePictureIsReducedToTheTextOfAPage) {
  RichTextUnderTest text;
  text.Image = SampleImage(3840, 1920);  // 1280 x 640
  text.Paste();
  EXPECT_EQ(QSizeF(PictureOf(text).width(), PictureOf(text).height()), QSizeF(640, 320));
}

TEST(QtRichText, AWidePictureBehindATabIsReducedToWhatIsLeft) {
  RichTextUnderTest text;
  text.Image = SampleImage(3840, 1920);
  text.Append("\t");
  text.Paste();
  EXPECT_EQ(QSizeF(PictureOf(text).width(), PictureOf(text).height()), QSizeF(592, 296));
}

TEST(QtRichText, AHighPictureIsReducedToAPage) {
  RichTextUnderTest text;
  text.Image = SampleImage(300, 5280);  // 100 x 1760
  text.Paste();
  EXPECT_EQ(QSizeF(PictureOf(text).width(), PictureOf(text).height()), QSizeF(50, 880));
}

TEST(QtRichText, APictureStaysBehindItsTabInANarrowWindow) {
  RichTextUnderTest text;
  text.Image = SampleImage(3840, 1920);
  text.Append("\t");
  text.Paste();
  EXPECT_FALSE(Wraps(text, 0));
  text.Document.setTextWidth(400);
  EXPECT_LT(text.Document.size().height(), 2 * 296);
  EXPECT_EQ(text.Document.firstBlock().layout()->lineCount(), 1);
}

TEST(QtRichText, TextBesideAPictureWraps) {
  RichTextUnderTest text;
  text.Image = SampleImage();
  text.Paste();
  text.Append(" a word");
  EXPECT_TRUE(Wraps(text, 0));
}

}  // namespace
