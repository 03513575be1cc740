// Text that is written as it arrives gives the bytes that the document of the same text gives.
#include "paper/qt/FileText.h"

#include <gtest/gtest.h>

#include <QTextDocument>
#include <functional>
#include <random>
#include <utility>

#include "paper/qt/DocumentFiles.h"
#include "paper/qt/SpooledBytes.h"
#include "support/SampleRichText.h"

namespace {

using Appending = std::function<void(RichText&)>;

unsigned AnyBelow(std::mt19937& random, std::size_t count) { return static_cast<unsigned>(random() % count); }

constexpr std::string_view FileTitle = "a <title> & more";

// The same text by both ways, in every form that has no pages.
void ExpectSameBytes(const Appending& append, const QImage& image, const std::string& what) {
  const QString title = QString::fromUtf8(FileTitle.data());
  RichTextUnderTest whole;
  whole.Image = image;
  whole.Document.setMetaInformation(QTextDocument::DocumentTitle, title);
  append(whole.Text);
  const auto written = [&](DocumentFileFormat format) {
    FileText text(format, title, [&image] { return image; });
    append(text);
    return text.TakeBytes();
  };
  EXPECT_EQ(written(DocumentFileFormat::Rtf), ToRtf(whole.Document)) << what;
  EXPECT_EQ(written(DocumentFileFormat::Html), ToHtml(whole.Document)) << what;
  EXPECT_EQ(written(DocumentFileFormat::Odt), ToOdt(whole.Document)) << what;
}

TEST(FileText, OfNothingIsAnEmptyDocument) {
  ExpectSameBytes([](RichText&) {}, QImage(), "nothing");
  ExpectSameBytes([](RichText& text) { text.Append("\r\n", BoldLetters); }, QImage(), "a line break");
  ExpectSameBytes([](RichText& text) { text.Append("", {}); }, QImage(), "no letters");
  ExpectSameBytes([](RichText& text) { EXPECT_FALSE(text.Paste("none")); }, QImage(), "no picture");
  ExpectSameBytes([](RichText& text) { EXPECT_TRUE(text.Paste()); }, SampleImage(), "a picture");
}

TEST(FileText, TakesALineBreakForOneWhateverItIsMadeOf) {
  for (const char* text : {"a\r\nb", "a\rb", "a\nb", "a\n\rb", "a\r\r\nb", "\n", "a\r\n"}) {
    ExpectSameBytes([text](RichText& rich) { rich.Append(text, {}); }, QImage(), text);
  }
  const auto apart = [](RichText& text) {
    text.Append("a\r", {});
    text.Append("\nb", {});
  };
  ExpectSameBytes(apart, QImage(), "two breaks");
}

void AppendSomeTable(RichText& text, std::mt19937& random) {
  text.Append("\r\n", {});
  text.Append("Eqn.  F1  F2\r\n", TableHeader, LineRole::TableHeader);
  for (unsigned row = AnyBelow(random, 5); row > 0; --row) {
    text.Append("A - x ", TableHeader, LineRole::TableRow);
    text.Append(
        "   0.5     \xE2\x80\x93"
        "1\r\n",
        TableLetters, LineRole::TableRow);
  }
}

TEST(FileText, EqualsTheDocumentWhateverIsAppended) {
  const std::string_view texts[] = {Awkward,
                                    "word",
                                    "  two  blanks ",
                                    "\t",
                                    "\r\n",
                                    "\r\n\r\n",
                                    "a\tb",
                                    "",
                                    "\x01 control \x7F",
                                    "line\r\nand line",
                                    "\xEF\xBF\xBC",
                                    "\xE2\x80\xA9",
                                    "\xE2\x80\xA8"};
  const CharacterFormat formats[] = {{},           BoldLetters, DarkRedHeading,
                                     TableLetters, TableHeader, {.Italic = true, .Underlined = true}};
  const LineRole roles[] = {LineRole::Text,    LineRole::Title,  LineRole::PageTitle,
                            LineRole::Heading, LineRole::Joined, LineRole::JoinedLast};
  for (unsigned seed = 1; seed <= 25; ++seed) {
    const QImage image = SampleImage(static_cast<int>(60 * (1 + seed)), 50);
    const auto append = [&](RichText& text) {
      std::mt19937 random(seed);
      for (int i = 0; i < 25; ++i) {
        const unsigned kind = AnyBelow(random, 12);
        if (kind == 0) {
          AppendSomeTable(text, random);
        } else if (kind == 1) {
          text.Paste(AnyBelow(random, 2) == 0 ? Awkward : std::string_view());
        } else {
          const std::string_view words = texts[AnyBelow(random, std::size(texts))];
          const CharacterFormat& format = formats[AnyBelow(random, std::size(formats))];
          text.Append(words, format, roles[AnyBelow(random, std::size(roles))]);
        }
      }
    };
    ExpectSameBytes(append, image, "seed " + std::to_string(seed));
  }
}

// More than is kept in memory.
TEST(SpooledBytes, AreTheSameFromTheirFile) {
  QByteArray whole = "head ";
  SpooledBytes body;
  for (int i = 0; i < 3'000'000; ++i) {
    const QByteArray number = QByteArray::number(i);
    body += number;
    body += ' ';
    whole += number + ' ';
  }
  whole += "tail";
  const ManyBytes bytes = ManyBytesOf("head ", std::move(body), "tail");
  EXPECT_EQ(bytes.Size, static_cast<std::uint64_t>(whole.size()));
  EXPECT_TRUE(Joined(bytes) == whole);
  EXPECT_TRUE(Joined(bytes) == whole) << "they can be told again";
}

TEST(SpooledBytes, EndWithTheErrorOfWhoTakesThem) {
  int told = 0;
  const ManyBytes bytes = ManyBytesOf("head ", SpooledBytes(), "tail");
  EXPECT_EQ(bytes.Tell([&told](std::string_view) { return ++told; }), 1);
  EXPECT_EQ(told, 1);
}

}  // namespace
