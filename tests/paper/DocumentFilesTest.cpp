// Rich text as HTML, as OpenDocument, and in the forms of the clipboard.
#include "paper/qt/DocumentFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QTextBlock>
#include <QTextFragment>
#include <QXmlStreamReader>

#include "support/OdtReading.h"
#include "support/RtfScan.h"
#include "support/SampleRichText.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

std::string HtmlOf(const RichTextUnderTest& text) { return ToHtml(text.Document).toStdString(); }

// The characters between tags, as a browser has them before it lays them out.
std::string TextOfHtml(const std::string& html) {
  static const QRegularExpression head(QStringLiteral("^.*<body>\n"),
                                       QRegularExpression::DotMatchesEverythingOption),
      picture(QStringLiteral("<img[^>]*>")), tag(QStringLiteral("<[^>]*>"));
  QString text = QString::fromStdString(html);
  text.remove(head).replace(picture, QStringLiteral("\uFFFC")).remove(tag);
  text.replace(QStringLiteral("&lt;"), QStringLiteral("<"))
      .replace(QStringLiteral("&gt;"), QStringLiteral(">"));
  text.replace(QStringLiteral("&quot;"), QStringLiteral("\""))
      .replace(QStringLiteral("&amp;"), QStringLiteral("&"));
  return text.chopped(3).toStdString();  // line ends around the ends of body and page
}

TEST(Html, IsAPageInUtf8) {
  const std::string html = HtmlOf(RichTextUnderTest());
  EXPECT_TRUE(html.starts_with("<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"));
  EXPECT_THAT(html, HasSubstr("<title>Orvane</title>"));
  EXPECT_TRUE(html.ends_with("</body>\n</html>\n"));
}

TEST(Html, MarkupInANameIsText) {
  RichTextUnderTest text;
  text.Append("<b>a&amp;\"'</b>");
  EXPECT_THAT(HtmlOf(text), HasSubstr("&lt;b&gt;a&amp;amp;&quot;'&lt;/b&gt;"));
}

TEST(Html, HasEveryCharacterOfTheDocument) {
  const SampleRichText sample;
  EXPECT_EQ(TextOfHtml(HtmlOf(sample)), TextOf(sample.Document));
}

// How each letter of a document looks.
std::vector<std::string> LooksOf(const QTextDocument& document) {
  std::vector<std::string> looks;
  for (QTextBlock block = document.begin(); block != document.end(); block = block.next()) {
    for (auto at = block.begin(); !at.atEnd(); ++at) {
      const QTextCharFormat format = at.fragment().charFormat();
      if (format.isImageFormat()) continue;
      const QString look = format.fontFamilies().toStringList().value(0) +
                           QString::number(format.fontPointSize()) + format.foreground().color().name() +
                           QString::number(format.fontWeight()) +
                           QString::number(int{format.fontItalic()} + 2 * int{format.fontUnderline()});
      for (const QChar letter : at.fragment().text()) {
        if (letter != QChar(QChar::LineSeparator)) looks.push_back((letter + look).toStdString());
      }
    }
  }
  return looks;
}

TEST(Html, AReaderSeesTheSameLetters) {
  const SampleRichText sample;
  QTextDocument read;
  read.setHtml(QString::fromStdString(HtmlOf(sample)));
  EXPECT_EQ(LooksOf(read), LooksOf(sample.Document));
}

TEST(Html, ThePicturesStandInIt) {
  RichTextUnderTest text;
  text.Image = SampleImage();
  text.Paste();
  const QString html = QString::fromStdString(HtmlOf(text));
  static const QRegularExpression tag(
      QStringLiteral("<img alt=\"\" width=\"200\" height=\"100\" src=\"data:image/png;base64,([^\"]*)\">"));
  const QRegularExpressionMatch match = tag.match(html);
  ASSERT_TRUE(match.hasMatch());
  const QImage image = QImage::fromData(QByteArray::fromBase64(match.captured(1).toLatin1()), "PNG");
  EXPECT_EQ(image.convertToFormat(QImage::Format_RGB32), text.Image);
}

TEST(Html, TheLinesOfATableArePreformattedTogether) {
  RichTextUnderTest text;
  text.Append("Table:\r\n");
  text.Append("a  b", TableHeader);
  text.Append("  c\r\n   d\r\n", TableLetters);
  text.Append("end");
  EXPECT_THAT(HtmlOf(text),
              HasSubstr("Table:</p>\n<pre style=\"margin:0;tab-size:48px;font-family:'Courier New',monospace;"
                        "font-size:7.5pt\"><span style=\"color:#0000ff\">a  b</span>  c\n   d</pre>\n<p "));
}

TEST(Html, BlanksAndTabsOfOtherLinesAreKept) {
  RichTextUnderTest text;
  text.Append("\ta  b");
  EXPECT_THAT(HtmlOf(text), HasSubstr("<p style=\"margin:0;white-space:pre-wrap;tab-size:48px;"
                                      "font-family:'Arial',sans-serif;font-size:10pt\">\ta  b</p>"));
}

TEST(Html, AnEmptyLineHasItsHeight) {
  RichTextUnderTest text;
  text.Append("a\r\n\r\nb");
  EXPECT_THAT(HtmlOf(text), HasSubstr("\"><br></p>"));
}

TEST(Html, HeadingsAreHeadingsAndWhatIsOnlyBoldIsNone) {
  RichTextUnderTest text;
  text.Append("Orvane\r\n", BoldLetters, LineRole::Title);
  text.Append("only bold\r\n", BoldLetters);
  text.Append("Section <1>", DarkRedHeading, LineRole::Heading);
  static const QRegularExpression heading(QStringLiteral("<(h[1-6]) [^>]*>(.*?)</\\1>")),
      tag(QStringLiteral("<[^>]*>"));
  std::vector<std::string> headings;
  for (auto found = heading.globalMatch(QString::fromStdString(HtmlOf(text))); found.hasNext();) {
    const auto match = found.next();
    headings.push_back((match.captured(1) + u' ' + match.captured(2).remove(tag)).toStdString());
  }
  EXPECT_THAT(headings, ElementsAre("h1 Orvane", "h2 Section &lt;1&gt;"));
}

TEST(Html, TheDocumentsTitleIsThePages) {
  EXPECT_THAT(
      HtmlOf(SampleRichText()),
      HasSubstr("<title>" + QString::fromUtf8(Awkward.data()).toHtmlEscaped().toStdString() + "</title>"));
}

TEST(Html, ThePictureSaysWhatItShows) {
  EXPECT_THAT(
      HtmlOf(SampleRichText()),
      HasSubstr("<img alt=\"" + QString::fromUtf8(Awkward.data()).toHtmlEscaped().toStdString() + '"'));
}

TEST(Html, SaysNothingThatOnlyOneReaderUnderstands) {
  EXPECT_THAT(HtmlOf(SampleRichText()), Not(testing::AnyOf(HasSubstr("qrichtext"), HasSubstr("-qt-"))));
}

TEST(Html, TheSameDocumentGivesTheSameBytes) {
  EXPECT_EQ(HtmlOf(SampleRichText()), HtmlOf(SampleRichText()));
}

OdtReading Read(const QTextDocument& document) { return OdtReading(ToOdt(document)); }

TEST(OpenDocument, IsAPackageThatSaysFirstWhatItIs) {
  const OdtReading odt(ToOdt(SampleRichText().Document));
  EXPECT_EQ(odt.Bytes.mid(30, 8), "mimetype");
  EXPECT_EQ(odt.Bytes.mid(38, 39), "application/vnd.oasis.opendocument.text");
  const std::string manifest = odt.File("META-INF/manifest.xml");
  for (const char* path : {"\"/\"", "\"content.xml\"", "\"styles.xml\"", "\"Pictures/picture1.png\""}) {
    EXPECT_THAT(manifest, HasSubstr(std::string("manifest:full-path=") + path));
  }
}

TEST(OpenDocument, HasEveryCharacterOfTheDocument) {
  const SampleRichText sample;
  EXPECT_EQ(Read(sample.Document).Text(), TextOf(sample.Document));
}

TEST(OpenDocument, BlanksAndTabsAreKept) {
  RichTextUnderTest text;
  text.Append("  a  b \tc ");
  text.Append(" d ", TableLetters);
  text.Append("\r\n \r\n\xE2\x80\xA8 e");
  EXPECT_EQ(Read(text.Document).Text(), TextOf(text.Document));
}

TEST(OpenDocument, LettersLookAsInTheDocument) {
  RichTextUnderTest text;
  text.Append("a");
  text.Append("b", {.Bold = true, .Italic = true, .Underlined = true, .Colour = 4});
  text.Append("c", TableHeader);
  const OdtReading odt(ToOdt(text.Document));
  const auto& runs = odt.Paragraphs.at(0);
  ASSERT_EQ(runs.size(), 3U);
  const auto property = [&](std::size_t run, const char* name) {
    const auto found = runs[run].Properties.find(QString::fromLatin1(name));
    return found != runs[run].Properties.end() ? found->second.toStdString() : std::string();
  };
  EXPECT_EQ(property(0, "font-name"), "Arial");
  EXPECT_EQ(property(0, "font-size"), "10pt");
  EXPECT_EQ(property(0, "color"), "#000000");
  EXPECT_EQ(property(0, "font-weight") + property(0, "font-style") + property(0, "text-underline-style"), "");
  EXPECT_EQ(property(1, "font-weight"), "bold");
  EXPECT_EQ(property(1, "font-style"), "italic");
  EXPECT_EQ(property(1, "text-underline-style"), "solid");
  EXPECT_EQ(property(1, "color"), "#800000");
  EXPECT_EQ(property(2, "font-name"), "Courier New");
  EXPECT_EQ(property(2, "font-size"), "7.5pt");
  EXPECT_EQ(property(2, "color"), "#0000ff");
}

TEST(OpenDocument, AHeadingAndTheBlankLineBelowItStayWithWhatFollows) {
  RichTextUnderTest text;
  text.Append("before\r\n");
  text.Append("Heading", DarkRedHeading, LineRole::Heading);
  text.Append("\r\n\r\nbelow\r\n\r\nafter");
  EXPECT_THAT(Read(text.Document).StaysWithNext, ElementsAre(false, true, true, false, false, false));
}

TEST(OpenDocument, HeadingsAreAnOutlineAndWhatIsOnlyBoldIsNone) {
  RichTextUnderTest text;
  text.Append("Orvane\r\n", BoldLetters, LineRole::Title);
  text.Append("only bold\r\n", BoldLetters);
  text.Append("Section", DarkRedHeading, LineRole::Heading);
  EXPECT_THAT(Read(text.Document).Headings, ElementsAre(std::pair(1, 0U), std::pair(2, 2U)));
}

TEST(OpenDocument, TheDocumentsTitleIsToldWithoutADate) {
  const std::string information = OdtReading(ToOdt(SampleRichText().Document)).File("meta.xml");
  QXmlStreamReader xml(QByteArray::fromStdString(information));
  std::string title;
  while (!xml.atEnd()) {
    xml.readNext();
    if (xml.isStartElement() && xml.name() == QLatin1String("title"))
      title = xml.readElementText().toStdString();
  }
  EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
  EXPECT_EQ(title, Awkward);
  EXPECT_THAT(information, Not(HasSubstr("date")));
}

TEST(OpenDocument, ThePictureSaysWhatItShows) {
  EXPECT_THAT(Read(SampleRichText().Document).Descriptions, ElementsAre(Awkward));
}

TEST(OpenDocument, JoinedLinesStandWholeOnOnePage) {
  RichTextUnderTest text;
  text.Append("before\r\n");
  text.Append("joint\r\n\tx\r\n", {}, LineRole::Joined);
  text.Append("\ty\r\n", {}, LineRole::JoinedLast);
  text.Append("after");
  const OdtReading odt = Read(text.Document);
  EXPECT_THAT(odt.StaysWithNext, ElementsAre(false, true, true, false, false));
  EXPECT_THAT(odt.StaysWhole, ElementsAre(false, true, true, true, false));
}

TEST(OpenDocument, EachTableHasItsHeaderOnEveryPage) {
  RichTextUnderTest text;
  text.Append("before\r\n");
  AppendTable(text, 3);
  text.Append("\r\n", TableLetters);
  AppendTable(text, 2);
  text.Append("after");
  const OdtReading odt = Read(text.Document);
  EXPECT_THAT(odt.HeaderRows, ElementsAre(1, 6));
  EXPECT_THAT(odt.Rows, ElementsAre(2, 3, 4, 7, 8));
  EXPECT_EQ(odt.Text(), TextOf(text.Document));
}

TEST(OpenDocument, ItsFontsAreDeclared) {
  const std::string content = Read(SampleRichText().Document).File("content.xml");
  EXPECT_THAT(content,
              HasSubstr("<style:font-face style:name=\"Arial\" svg:font-family=\"&apos;Arial&apos;\""));
  EXPECT_THAT(content, HasSubstr("<style:font-face style:name=\"Courier New\""));
}

TEST(OpenDocument, ThePictureIsInIt) {
  RichTextUnderTest text;
  text.Image = SampleImage();
  text.Paste();
  const OdtReading odt(ToOdt(text.Document));
  EXPECT_THAT(odt.File("content.xml"), HasSubstr("svg:width=\"150pt\" svg:height=\"75pt\">"
                                                 "<draw:image xlink:href=\"Pictures/picture1.png\""));
  const QImage image = QImage::fromData(QByteArray::fromStdString(odt.File("Pictures/picture1.png")), "PNG");
  EXPECT_EQ(image.convertToFormat(QImage::Format_RGB32), text.Image);
}

TEST(OpenDocument, ThePaperIsA4WithMarginsOf20Millimetres) {
  const std::string styles = Read(QTextDocument()).File("styles.xml");
  EXPECT_THAT(styles, HasSubstr("fo:page-width=\"210mm\" fo:page-height=\"297mm\""));
  EXPECT_THAT(styles, HasSubstr("fo:margin-left=\"20mm\" fo:margin-right=\"20mm\""));
  QXmlStreamReader xml(QByteArray::fromStdString(styles));
  while (!xml.atEnd()) xml.readNext();
  EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
}

TEST(OpenDocument, AnEmptyDocumentHasOneEmptyParagraph) {
  EXPECT_THAT(Read(QTextDocument()).Paragraphs, ElementsAre(testing::IsEmpty()));
}

TEST(OpenDocument, ALargeTableIsPackedWhole) {
  RichTextUnderTest text;
  for (int row = 0; row < 500; ++row) {
    text.Append("row " + std::to_string(row), TableHeader);
    text.Append("   -1.25   " + std::to_string(row * 7919) + "\r\n", TableLetters);
  }
  text.Append("end");
  EXPECT_EQ(Read(text.Document).Text(), TextOf(text.Document));
}

// It is packed piece by piece.
TEST(OpenDocument, ALongTextIsWhole) {
  RichTextUnderTest text;
  text.Append("Rows\r\n", DarkRedHeading, LineRole::Heading);
  for (int row = 0; row < 9000; ++row)
    text.Append(std::to_string(row * 7919LL) +
                    "   \xE2\x80\x93"
                    "1   " +
                    std::to_string(row) + "\r\n",
                TableLetters);
  const OdtReading odt(ToOdt(text.Document));
  EXPECT_GT(odt.File("content.xml").size(), 1U << 19);
  EXPECT_LT(odt.Bytes.size(), 1 << 18);
  EXPECT_EQ(odt.Text() + '\n', TextOf(text.Document));
}

TEST(OpenDocument, TheSameDocumentGivesTheSameBytesOnAnyDay) {
  const QByteArray odt = ToOdt(SampleRichText().Document);
  EXPECT_EQ(odt, ToOdt(SampleRichText().Document));
  int files = 0;
  for (qsizetype at = odt.indexOf("PK\x03\x04"); at >= 0; at = odt.indexOf("PK\x03\x04", at + 1), ++files) {
    EXPECT_EQ(odt.mid(at + 10, 4).toHex(), "00002100");  // midnight, 1 January 1980
  }
  for (qsizetype at = odt.indexOf("PK\x01\x02"); at >= 0; at = odt.indexOf("PK\x01\x02", at + 1)) {
    EXPECT_EQ(odt.mid(at + 12, 4).toHex(), "00002100");
  }
  EXPECT_EQ(files, 6);
}

TEST(Forms, WithoutASelectionHaveTheWholeDocument) {
  const SampleRichText sample;
  QTextCursor cursor(&const_cast<QTextDocument&>(sample.Document));
  cursor.setPosition(5);
  const RichTextForms forms = ToForms(cursor);
  EXPECT_EQ(forms.Rtf, ToRtf(sample.Document).toStdString());
  EXPECT_EQ(forms.Html, HtmlOf(sample));
  QString text = QString::fromStdString(TextOf(sample.Document));
  EXPECT_EQ(forms.Plain, text.remove(QChar(QChar::ObjectReplacementCharacter)).toStdString());
}

TEST(Forms, OfASelectionHaveThatOnly) {
  RichTextUnderTest text;
  text.Image = SampleImage();
  text.Append("one ");
  text.Append("two", BoldLetters);
  text.Append("\r\n\t");
  text.Paste();
  text.Append("\r\nthree");
  const RichTextForms forms = ToForms(text.Select(5, 12));
  EXPECT_EQ(forms.Plain, "wo\n\t\nt");
  EXPECT_EQ(ScanRtf(QByteArray::fromStdString(forms.Rtf)).Text(), "wo\n\t\uFFFC\nt");
  EXPECT_EQ(TextOfHtml(forms.Html), "wo\n\t\uFFFC\nt");
  EXPECT_THAT(forms.Html, HasSubstr("<b>wo</b>"));
}

TEST(Forms, ThePlainTextKeepsNonBreakingBlanks) {
  RichTextUnderTest text;
  text.Append("a\xC2\xA0z\xE2\x80\xA8y");
  EXPECT_EQ(ToForms(QTextCursor(&text.Document)).Plain, "a\xC2\xA0z\ny");
}

TEST(Forms, OfAnEmptyDocumentHaveNoText) {
  RichTextUnderTest text;
  const RichTextForms forms = ToForms(QTextCursor(&text.Document));
  EXPECT_EQ(forms.Plain, "");
  EXPECT_EQ(ScanRtf(QByteArray::fromStdString(forms.Rtf)).Text(), "");
  EXPECT_EQ(TextOfHtml(forms.Html), "");
}

}  // namespace
