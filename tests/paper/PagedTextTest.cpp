// Rich text on pages, as an independent reader of PDF finds it: on small paper, 100 mm wide and high with
// margins of 10 mm, so the text is 226.8 points wide and, without the footer, 206.8 points high.
#include "paper/qt/PagedText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QBuffer>
#include <QPdfWriter>
#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <set>

#include "support/PdfTools.h"
#include "support/RecordingSurface.h"

namespace {

using testing::HasSubstr;
using testing::Not;

constexpr double Margin = 10 / 25.4 * 72;
constexpr double Paper = 100 / 25.4 * 72;
constexpr double TextEdge = Paper - Margin;

const CharacterFormat Plain{};
const CharacterFormat Heading{.Bold = true, .Colour = 4};
const CharacterFormat TableLetters{.Family = FontFamily::Monospaced};
const CharacterFormat TableHeader{.Colour = 9, .Family = FontFamily::Monospaced};

Picture Rectangle(float width, float height) {
  Picture picture(RecordingSurface::Measure);
  const std::vector<PixelPoint> corners{{0, 0}, {width, 0}, {width, height}, {0, height}};
  picture.FillPolygon(corners, LightRed);
  return picture;
}

Picture SquarePicture(float side) { return Rectangle(side, side); }

std::string Numbered(std::string word, int number) { return word.append(std::to_string(number)); }

class PagedTextTest : public testing::Test {
 protected:
  using Write = std::function<void(PagedText&)>;

  PdfUnderTest Paint(const Write& write) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    EXPECT_TRUE(buffer.open(QIODevice::WriteOnly));
    {
      QPdfWriter writer(&buffer);
      writer.setResolution(resolution_);
      writer.setPageSize(QPageSize(QSizeF(100, 100), QPageSize::Millimeter));
      writer.setPageMargins(QMarginsF(10, 10, 10, 10), QPageLayout::Millimeter);
      QPainter painter(&writer);
      PagedText text(writer, painter, shelf_, footer_);
      write(text);
      numPages_ = text.Finish();
      EXPECT_FALSE(text.Refused());
      textWidth_ = TextWidth(writer);
    }
    return PdfUnderTest(bytes);
  }

  static void Lines(PagedText& text, int count, const CharacterFormat& format = Plain,
                    LineRole role = LineRole::Text) {
    for (int line = 1; line <= count; ++line) {
      text.Append(Numbered("line", line).append("\r\n"), format, role);
    }
  }

  // Where the page's only red shape lies, in points from the left top of the paper.
  static std::optional<QRectF> RedOn(const PdfUnderTest& pdf, int page) {
    constexpr int dotsPerInch = 144;
    const QImage image = pdf.Page(page, dotsPerInch);
    QRect red;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (image.pixel(x, y) == qRgb(255, 0, 0)) red |= QRect(x, y, 1, 1);
      }
    }
    if (red.isNull()) return std::nullopt;
    constexpr double points = 72.0 / dotsPerInch;
    return QRectF(red.x() * points, red.y() * points, red.width() * points, red.height() * points);
  }

  PictureShelf shelf_;
  QString footer_ = QStringLiteral("bridge.trs");
  int resolution_ = 1200;
  int numPages_ = 0;
  float textWidth_ = 0;
};

TEST_F(PagedTextTest, TheTextIsAsWideAsThePaperWithoutItsMargins) {
  Paint([](PagedText&) {});
  EXPECT_NEAR(textWidth_, TextEdge - Margin, 0.5);
}

TEST_F(PagedTextTest, NothingIsOnePageWithItsFooter) {
  const auto pdf = Paint([](PagedText&) {});
  EXPECT_EQ(numPages_, 1);
  EXPECT_EQ(pdf.NumPages(), 1);
  EXPECT_EQ(pdf.Words().size(), 3U);
}

TEST_F(PagedTextTest, EveryPageHasTheTitleOnTheLeftAndItsNumberOnTheRightOfItsFoot) {
  const auto pdf = Paint([](PagedText& text) { Lines(text, 50); });
  EXPECT_EQ(pdf.NumPages(), numPages_);
  ASSERT_GE(numPages_, 3);
  int titles = 0, numbers = 0;
  for (const PdfWord& word : pdf.Words()) {
    if (word.Text == "bridge.trs") {
      ++titles;
      EXPECT_NEAR(word.Left, Margin, 1);
      EXPECT_NEAR(word.Bottom, TextEdge, 1.5);
    }
    if (word.Text == std::to_string(word.Page)) {
      ++numbers;
      EXPECT_NEAR(word.Right, TextEdge, 1);
    }
  }
  EXPECT_EQ(titles, numPages_);
  EXPECT_EQ(numbers, numPages_);
  EXPECT_THAT(pdf.Text(2), HasSubstr("Page 2"));
}

TEST_F(PagedTextTest, ALongTitleIsElidedInItsMiddle) {
  footer_ = QStringLiteral("a-") + QString(80, QLatin1Char('x')) + QStringLiteral("-z.trs");
  const auto pdf = Paint([](PagedText&) {});
  const std::string text = pdf.Text();
  EXPECT_THAT(text, HasSubstr("a-xxx"));
  EXPECT_THAT(text, HasSubstr("xxx-z.trs"));
  EXPECT_THAT(text, HasSubstr("Page 1"));
  EXPECT_THAT(text, Not(HasSubstr(footer_.toStdString())));
  for (const PdfWord& word : pdf.Words()) EXPECT_LE(word.Right, TextEdge + 1);
}

TEST_F(PagedTextTest, LinesFollowEachOtherAndNoneIsLost) {
  const auto pdf = Paint([](PagedText& text) { Lines(text, 50); });
  int next = 1;
  for (const PdfWord& word : pdf.Words()) {
    if (!word.Text.starts_with("line")) continue;
    EXPECT_EQ(word.Text, Numbered("line", next++));
    EXPECT_LT(word.Bottom, TextEdge - 15) << "in the footer";
  }
  EXPECT_EQ(next, 51);
}

TEST_F(PagedTextTest, APartWithATitleOfItsOwnBeginsAPage) {
  const auto pdf = Paint([](PagedText& text) {
    for (const char* part : {"first\r\n", "second\r\n", "third\r\n"}) {
      text.Append(part, Plain, LineRole::PageTitle);
      Lines(text, 2);
    }
  });
  EXPECT_EQ(numPages_, 3) << "and none before the first";
  EXPECT_EQ(pdf.NumPages(), 3);
  int numInFooters = 0;
  for (const PdfWord& word : pdf.Words()) numInFooters += word.Text == "bridge.trs:" ? 1 : 0;
  EXPECT_EQ(numInFooters, 3) << "each footer names its part";
}

TEST_F(PagedTextTest, TheSizeOfLettersDoesNotDependOnTheDevice) {
  const auto paint = [this](int resolution) {
    resolution_ = resolution;
    return Paint([](PagedText& text) {
      text.Append("first and ", Plain);
      text.Append("measured\r\n\r\n", Heading);
      text.Append("below", TableLetters);
    });
  };
  const auto fine = paint(1200), coarse = paint(300);
  for (const char* word : {"measured", "below"}) {
    EXPECT_NEAR(fine.Word(word).Left, coarse.Word(word).Left, 0.5) << word;
    EXPECT_NEAR(fine.Word(word).Right, coarse.Word(word).Right, 0.7) << word;
    EXPECT_NEAR(fine.Word(word).Top, coarse.Word(word).Top, 0.5) << word;
  }
}

TEST_F(PagedTextTest, AnyKindOfLineBreakIsOne) {
  const auto pdf = Paint([](PagedText& text) {
    text.Append("one\r", Plain);
    text.Append("\ntwo\nthree\rfour", Plain);
  });
  const double step = pdf.Word("two").Top - pdf.Word("one").Top;
  EXPECT_GT(step, 8);
  EXPECT_NEAR(pdf.Word("three").Top - pdf.Word("two").Top, step, 0.1);
  EXPECT_NEAR(pdf.Word("four").Top - pdf.Word("three").Top, step, 0.1);
}

TEST_F(PagedTextTest, TabsStopEveryHalfInch) {
  const auto pdf = Paint([](PagedText& text) { text.Append("\tA1\tB1\r\nlonger-text\tC1", Plain); });
  EXPECT_NEAR(pdf.Word("A1").Left, Margin + 36, 1);
  EXPECT_NEAR(pdf.Word("B1").Left, Margin + 72, 1);
  EXPECT_NEAR(pdf.Word("C1").Left, Margin + 72, 1);
}

TEST_F(PagedTextTest, ProportionalLinesWrapAtTheTextsEdge) {
  const auto pdf = Paint([](PagedText& text) {
    for (int word = 0; word < 40; ++word) text.Append("word ", word % 2 == 0 ? Plain : Heading);
  });
  int words = 0;
  for (const PdfWord& word : pdf.Words()) {
    words += word.Text == "word";
    EXPECT_LE(word.Right, TextEdge + 0.5);
  }
  EXPECT_EQ(words, 40);
}

TEST_F(PagedTextTest, AWordLongerThanTheLineIsBroken) {
  const auto pdf = Paint([](PagedText& text) { text.Append(std::string(120, 'w'), Plain); });
  std::size_t letters = 0;
  for (const PdfWord& word : pdf.Words()) {
    EXPECT_LE(word.Right, TextEdge + 0.5);
    if (word.Text.starts_with("www")) letters += word.Text.size();
  }
  EXPECT_EQ(letters, 120U);
}

TEST_F(PagedTextTest, MonospacedLinesAreNotWrappedButCutAtThePapersEdge) {
  const auto pdf = Paint([](PagedText& text) {
    text.Append("begin ", TableHeader);
    text.Append(std::string(100, '7') + "\r\nnext", TableLetters);
  });
  const PdfWord next = pdf.Word("next");
  for (const PdfWord& word : pdf.Words()) {
    EXPECT_LE(word.Right, Paper + 0.5);
    if (word.Text.starts_with("77")) {
      EXPECT_LT(word.Top, next.Top - 5);
      EXPECT_GT(word.Right, Paper - 6.5) << "cut before the edge";
    }
  }
  EXPECT_NEAR(next.Left, Margin, 1);
}

TEST_F(PagedTextTest, ColumnsOfATableLineUpWhateverTheirFormats) {
  const auto pdf = Paint([](PagedText& text) {
    text.Append("Eqn.  F1 F2\r\n", TableHeader);
    text.Append("A.x   ", TableHeader);
    text.Append(
        "\xE2\x80\x93"
        "1 22\r\n",
        TableLetters);
    text.Append("\xC3\x84\xE2\x82\xAC.y  33 44", TableLetters);
  });
  constexpr double character = 10 * 0.6;
  EXPECT_NEAR(pdf.Word("F1").Left, Margin + 6 * character, 0.3);
  EXPECT_NEAR(pdf.Word("\xE2\x80\x93"
                       "1")
                  .Left,
              Margin + 6 * character, 0.3);
  EXPECT_NEAR(pdf.Word("33").Left, Margin + 6 * character, 0.3);
  EXPECT_NEAR(pdf.Word("F2").Left, Margin + 9 * character, 0.3);
  EXPECT_NEAR(pdf.Word("22").Left, Margin + 9 * character, 0.3);
  EXPECT_NEAR(pdf.Word("44").Left, Margin + 9 * character, 0.3);
}

TEST_F(PagedTextTest, AHeadingStaysWithItsFirstTwoLines) {
  // Wherever on the page the heading comes to stand.
  for (int before = 10; before <= 20; ++before) {
    const auto pdf = Paint([before](PagedText& text) {
      Lines(text, before);
      text.Append("\r\n", Plain);
      text.Append("Heading", Heading, LineRole::Heading);
      text.Append("\r\n\r\nbody1\r\nbody2\r\nbody3", Plain);
    });
    EXPECT_EQ(pdf.Word("Heading").Page, pdf.Word("body1").Page) << before;
    EXPECT_EQ(pdf.Word("Heading").Page, pdf.Word("body2").Page) << before;
  }
  EXPECT_EQ(numPages_, 2);
}

TEST_F(PagedTextTest, AHeadingStaysWithTwoLinesOfOneLongParagraph) {
  for (int before = 10; before <= 20; ++before) {
    const auto pdf = Paint([before](PagedText& text) {
      Lines(text, before);
      text.Append("Heading\r\n", Heading, LineRole::Heading);
      for (int word = 1; word <= 30; ++word) text.Append(Numbered("w", word).append(" "), Plain);
    });
    EXPECT_EQ(pdf.Word("Heading").Page, pdf.Word("w1").Page) << before;
    EXPECT_EQ(pdf.Word("Heading").Page, pdf.Word("w15").Page) << before;
  }
}

TEST_F(PagedTextTest, AHeadingStaysWithItsPicture) {
  ASSERT_TRUE(shelf_.PutPicture(SquarePicture(100)));
  for (int before = 5; before <= 12; ++before) {
    const auto pdf = Paint([before](PagedText& text) {
      Lines(text, before);
      text.Append("Heading", Heading, LineRole::Heading);
      text.Append("\r\n\r\n\t", Plain);
      text.Paste();
    });
    const auto red = RedOn(pdf, pdf.Word("Heading").Page);
    ASSERT_TRUE(red.has_value()) << before;
    EXPECT_NEAR(red->height(), 75, 1) << "the picture is cut";
  }
}

TEST_F(PagedTextTest, HeadingsWithoutEndAreTextLikeAnyOther) {
  const auto pdf = Paint([](PagedText& text) { Lines(text, 60, Heading, LineRole::Heading); });
  EXPECT_EQ(pdf.Word("line1").Page, 1);
  EXPECT_EQ(pdf.Word("line60").Page, numPages_);
  EXPECT_LE(numPages_, 5);
}

TEST_F(PagedTextTest, AHeadingAtTheEndIsPainted) {
  const auto pdf = Paint([](PagedText& text) { text.Append("Heading", Heading, LineRole::Heading); });
  EXPECT_EQ(pdf.Word("Heading").Page, 1);
}

TEST_F(PagedTextTest, BoldLinesAreNoHeadings) {
  const auto pdf = Paint([](PagedText& text) {
    Lines(text, 16);
    text.Append("bold\r\n", Heading);
    Lines(text, 3);
  });
  EXPECT_EQ(pdf.Word("bold").Page, 1);
}

TEST_F(PagedTextTest, JoinedLinesStandOnOnePage) {
  for (int before = 8; before <= 20; ++before) {
    const auto pdf = Paint([before](PagedText& text) {
      Lines(text, before);
      text.Append("Heading\r\n\r\n", Heading, LineRole::Heading);
      for (const char* joint : {"A", "B"}) {
        text.Append(std::string("joint") + joint + "\r\n", Plain, LineRole::Joined);
        text.Append(std::string("\tx") + joint + " = 0\r\n", Plain, LineRole::Joined);
        text.Append(std::string("\ty") + joint + " = 0\r\n\r\n", Plain, LineRole::JoinedLast);
      }
    });
    EXPECT_EQ(pdf.Word("Heading").Page, pdf.Word("yA").Page) << before;
    for (const std::string joint : {"A", "B"}) {
      EXPECT_EQ(pdf.Word("joint" + joint).Page, pdf.Word("x" + joint).Page) << before;
      EXPECT_EQ(pdf.Word("joint" + joint).Page, pdf.Word("y" + joint).Page) << before;
    }
  }
}

TEST_F(PagedTextTest, AJoinedLineThatWrapsIsNotBroken) {
  for (int before = 10; before <= 18; ++before) {
    const auto pdf = Paint([before](PagedText& text) {
      Lines(text, before);
      text.Append("joint\r\n", Plain, LineRole::Joined);
      for (int word = 1; word <= 40; ++word) {
        text.Append(Numbered("w", word).append(" "), Plain, LineRole::JoinedLast);
      }
    });
    EXPECT_EQ(pdf.Word("joint").Page, pdf.Word("w40").Page) << before;
  }
}

TEST_F(PagedTextTest, JoinedLinesThatNoPageHoldsAreAllThere) {
  const auto pdf = Paint([](PagedText& text) {
    Lines(text, 60, Plain, LineRole::Joined);
    text.Append("last", Plain, LineRole::JoinedLast);
  });
  EXPECT_EQ(pdf.Word("line1").Page, 1);
  EXPECT_GE(numPages_, 3);
  EXPECT_LE(numPages_, 5);
  EXPECT_EQ(pdf.Word("last").Page, numPages_);
}

void AppendRows(PagedText& text, const char* header, int rows) {
  text.Append(std::string(header) + "  F1\r\n", TableHeader, LineRole::TableHeader);
  for (int row = 1; row <= rows; ++row) {
    text.Append(Numbered("row", row), TableHeader, LineRole::TableRow);
    text.Append("   0\r\n", TableLetters, LineRole::TableRow);
  }
}

TEST_F(PagedTextTest, JoinedRowsStandOnOnePage) {
  // Two pages and whatever part of a third: a page has some 16 lines.
  for (int above = 30; above < 50; ++above) {
    const auto pdf = Paint([above](PagedText& text) {
      Lines(text, above);
      text.Append("Kinds  F1\r\n", TableHeader, LineRole::TableHeader);
      for (const char* row : {"rowa\r\n", "rowb\r\n", "rowc\r\n"})
        text.Append(row, TableLetters, LineRole::JoinedRow);
      text.Append("rowd\r\n", TableLetters, LineRole::TableRow);
      text.Append("after\r\n", Plain);
    });
    const int page = pdf.Word("Kinds").Page;
    for (const char* row : {"rowa", "rowb", "rowc", "rowd"}) EXPECT_EQ(pdf.Word(row).Page, page) << above;
  }
}

TEST_F(PagedTextTest, EveryPageOfATableBeginsWithItsHeader) {
  const auto pdf = Paint([](PagedText& text) {
    Lines(text, 3);
    AppendRows(text, "First", 45);
    text.Append("\r\n", TableLetters);
    AppendRows(text, "Second", 40);
    text.Append("\r\nafter\r\n", Plain);
    Lines(text, 30);
  });
  std::map<int, std::vector<std::string>> beginnings;  // of the lines of each page
  double line = 0;
  for (const PdfWord& word : pdf.Words()) {
    if (word.Top > line + 3 || word.Top < line - 3) beginnings[word.Page].push_back(word.Text);
    line = word.Top;
  }
  ASSERT_GE(beginnings.size(), 6U);
  std::string goesOn = "line";  // what is on its way where a page ends
  std::set<std::string> rows;
  for (const auto& [page, words] : beginnings) {
    EXPECT_TRUE(words.front().starts_with(goesOn)) << "page " << page << " begins with " << words.front();
    for (const std::string& word : words) {
      if (word == "First" || word == "Second") goesOn = word;
      if (word == "after") goesOn = "line";
      const bool isNew = !word.starts_with("row") || rows.insert(goesOn + word).second;
      EXPECT_TRUE(isNew) << "twice: " << word;
    }
  }
  EXPECT_EQ(rows.size(), 85U);
}

TEST_F(PagedTextTest, AHeadingStaysWithTheFirstRowOfItsTable) {
  for (int before = 8; before <= 20; ++before) {
    const auto pdf = Paint([before](PagedText& text) {
      Lines(text, before);
      text.Append("Heading\r\n\r\n", Heading, LineRole::Heading);
      AppendRows(text, "Eqn.", 5);
    });
    EXPECT_EQ(pdf.Word("Heading").Page, pdf.Word("Eqn.").Page) << before;
    EXPECT_EQ(pdf.Word("Heading").Page, pdf.Word("row1").Page) << before;
  }
}

TEST_F(PagedTextTest, TheLastRowOfATableStandsAloneOnNoPage) {
  std::set<int> pagesOfLast;
  for (int rows = 12; rows <= 32; ++rows) {
    for (const bool textFollows : {true, false}) {
      const auto pdf = Paint([rows, textFollows](PagedText& text) {
        Lines(text, 5);
        AppendRows(text, "Eqn.", rows);
        if (textFollows) text.Append("after\r\n", Plain);
      });
      const int last = pdf.Word(Numbered("row", rows)).Page;
      EXPECT_EQ(last, pdf.Word(Numbered("row", rows - 1)).Page) << rows;
      EXPECT_LT(pdf.Word(Numbered("row", rows - 1)).Top, pdf.Word(Numbered("row", rows)).Top) << rows;
      pagesOfLast.insert(last);
    }
  }
  EXPECT_GE(pagesOfLast.size(), 2U) << "some of the tables end just behind a page";
}

TEST_F(PagedTextTest, AHeaderStaysWithItsFirstRow) {
  for (int before = 12; before <= 20; ++before) {
    const auto pdf = Paint([before](PagedText& text) {
      Lines(text, before);
      AppendRows(text, "Eqn.", 3);
    });
    EXPECT_EQ(pdf.Word("Eqn.").Page, pdf.Word("row1").Page) << before;
  }
}

TEST_F(PagedTextTest, BlankLinesAreNotContinuedOnTheNextPage) {
  const auto pdf = Paint([](PagedText& text) {
    Lines(text, 16);
    text.Append("\r\n\r\n\r\n\r\n\r\nfirst", Plain);
  });
  EXPECT_EQ(pdf.Word("first").Page, 2);
  EXPECT_NEAR(pdf.Word("first").Top, pdf.Word("line1").Top, 0.1);
}

TEST_F(PagedTextTest, BlankLinesAtTheEndMakeNoPage) {
  Paint([](PagedText& text) {
    Lines(text, 10);
    text.Append("\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n", Plain);
  });
  EXPECT_EQ(numPages_, 1);
}

TEST_F(PagedTextTest, ALineHigherThanAPageTakesOne) {
  Paint([](PagedText& text) { text.Append("A\r\nB\r\n", CharacterFormat{.Points = 200}); });
  EXPECT_EQ(numPages_, 2);
}

TEST_F(PagedTextTest, APictureIsShownAtItsSizeIndentedByATab) {
  ASSERT_TRUE(shelf_.PutPicture(SquarePicture(96)));
  const auto pdf = Paint([](PagedText& text) {
    text.Append("above\r\n\t", Plain);
    text.Paste();
    text.Append("\r\nbelow", Plain);
  });
  const auto red = RedOn(pdf, 1);
  ASSERT_TRUE(red.has_value());
  EXPECT_NEAR(red->left(), Margin + 36, 1);
  EXPECT_NEAR(red->width(), 72, 1);
  EXPECT_NEAR(red->height(), 72, 1);
  EXPECT_GE(red->top(), pdf.Word("above").Bottom - 3);
  EXPECT_NEAR(pdf.Word("below").Top, red->bottom(), 4) << "no blank line between";
}

TEST_F(PagedTextTest, APictureThatDoesNotFitOnTheRestOfThePageGoesToTheNext) {
  ASSERT_TRUE(shelf_.PutPicture(SquarePicture(150)));
  const auto pdf = Paint([](PagedText& text) {
    Lines(text, 12);
    text.Paste();
  });
  EXPECT_EQ(numPages_, 2);
  EXPECT_FALSE(RedOn(pdf, 1).has_value());
  const auto red = RedOn(pdf, 2);
  ASSERT_TRUE(red.has_value());
  EXPECT_NEAR(red->height(), 112.5, 1);
  EXPECT_NEAR(red->top(), Margin, 1);
}

TEST_F(PagedTextTest, APictureLargerThanThePageIsShownSmaller) {
  ASSERT_TRUE(shelf_.PutPicture(SquarePicture(900)));
  const auto pdf = Paint([](PagedText& text) {
    text.Append("Heading\r\n\r\n\t", Heading, LineRole::Heading);
    text.Paste();
  });
  EXPECT_EQ(numPages_, 1);
  const auto red = RedOn(pdf, 1);
  ASSERT_TRUE(red.has_value());
  EXPECT_NEAR(red->width(), red->height(), 1);
  EXPECT_LE(red->right(), TextEdge + 1);
  EXPECT_LE(red->bottom(), TextEdge - 15);
  EXPECT_GT(red->height(), 150);
}

TEST_F(PagedTextTest, APictureHigherThanAPageFillsOne) {
  ASSERT_TRUE(shelf_.PutPicture(Rectangle(100, 900)));
  const auto pdf = Paint([](PagedText& text) {
    text.Append("above\r\n", Plain);
    text.Paste();
    text.Append("\r\nbelow", Plain);
  });
  EXPECT_EQ(numPages_, 3);
  const auto red = RedOn(pdf, 2);
  ASSERT_TRUE(red.has_value());
  EXPECT_NEAR(red->top(), Margin, 1);
  EXPECT_NEAR(red->bottom(), TextEdge - 20, 1);
  EXPECT_NEAR(red->width(), red->height() / 9, 1);
}

TEST_F(PagedTextTest, AnEmptyShelfOrPictureIsNothing) {
  const auto pdf = Paint([this](PagedText& text) {
    text.Paste();
    EXPECT_TRUE(shelf_.PutPicture(Picture(RecordingSurface::Measure)));
    text.Paste();
    text.Append("text", Plain);
  });
  EXPECT_NEAR(pdf.Word("text").Top, Margin, 4);
}

TEST_F(PagedTextTest, ColoursArePainted) {
  const auto pdf = Paint([](PagedText& text) {
    text.Append("red\r\n", CharacterFormat{.Bold = true, .Colour = LightRed, .Points = 40});
    text.Append("blue", CharacterFormat{.Colour = 9, .Family = FontFamily::Monospaced, .Points = 40});
  });
  const QImage page = pdf.Page(1, 72);
  bool hasRed = false, hasBlue = false;
  for (int y = 0; y < page.height(); ++y) {
    for (int x = 0; x < page.width(); ++x) {
      hasRed |= page.pixelColor(x, y) == QColor(255, 0, 0);
      hasBlue |= page.pixelColor(x, y) == QColor(0, 0, 255);
    }
  }
  EXPECT_TRUE(hasRed);
  EXPECT_TRUE(hasBlue);
}

// Letters of equal width are placed one by one; a line below them is more than letters.
TEST_F(PagedTextTest, UnderlinedLettersHaveTheirLine) {
  const auto longestRunOfInk = [this](bool underline) {
    CharacterFormat letters = TableLetters;
    letters.Underlined = underline;
    letters.Points = 20;
    const QImage page = Paint([&letters](PagedText& text) { text.Append("i i i", letters); }).Page(1, 72);
    int longest = 0;
    for (int y = 0; y < page.height() / 2; ++y) {  // without the footer
      for (int x = 0, run = 0; x < page.width(); ++x) {
        run = page.pixelColor(x, y).lightness() < 128 ? run + 1 : 0;
        longest = std::max(longest, run);
      }
    }
    return longest;
  };
  EXPECT_LT(longestRunOfInk(false), 20);
  EXPECT_GT(longestRunOfInk(true), 50);  // five letters of 12 points
}

TEST_F(PagedTextTest, ControlCharactersAreDropped) {
  const auto pdf = Paint([](PagedText& text) {
    text.Append(
        "aa\x01"
        "bb\x0C"
        "cc",
        Plain);
  });
  EXPECT_THAT(pdf.Text(), HasSubstr("aabbcc"));
}

// A device that is out of paper after its first page.
class OutOfPaper final : public QPdfWriter {
 public:
  using QPdfWriter::QPdfWriter;
  bool newPage() override { return false; }
};

TEST_F(PagedTextTest, ADeviceThatRefusesAPageEndsThePainting) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  ASSERT_TRUE(buffer.open(QIODevice::WriteOnly));
  {
    OutOfPaper writer(&buffer);
    QPainter painter(&writer);
    PagedText text(writer, painter, shelf_, footer_);
    Lines(text, 30);
    EXPECT_FALSE(text.Refused());
    Lines(text, 300);
    EXPECT_TRUE(text.Refused());
    EXPECT_EQ(text.Finish(), 1);
  }
  EXPECT_EQ(PdfUnderTest(bytes).NumPages(), 1);
}

}  // namespace
