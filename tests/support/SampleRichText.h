// A text document under construction, and a short one with everything that a report has.
#pragma once

#include <QImage>
#include <QTextCursor>
#include <QTextDocument>
#include <string>
#include <string_view>

#include "paper/qt/QtRichText.h"

/// 200 x 100 pixels on the screen at three dots to the pixel, with something on it.
inline QImage SampleImage(int width = 600, int height = 300) {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(Qt::white);
  for (int x = 0; x < width; ++x) image.setPixelColor(x, x * (height - 1) / width, Qt::red);
  constexpr int dotsPerMeter = 11339;  // 288 to the inch
  image.setDotsPerMeterX(dotsPerMeter);
  image.setDotsPerMeterY(dotsPerMeter);
  return image;
}

/// All that stands in the document, UTF-8: pictures are U+FFFC, paragraphs have LF between them.
inline std::string TextOf(const QTextDocument& document) {
  QString raw = document.toRawText();
  return raw.replace(QChar(QChar::ParagraphSeparator), QChar(u'\n')).toStdString();
}

struct RichTextUnderTest {
  void Append(std::string_view text, const CharacterFormat& format = {}, LineRole role = LineRole::Text) {
    Text.Append(text, format, role);
  }
  void Paste(std::string_view description = {}) { Text.Paste(description); }

  QTextCursor Select(int begin, int end) {
    QTextCursor cursor(&Document);
    cursor.setPosition(begin);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    return cursor;
  }

  QTextDocument Document;
  QImage Image;
  QtRichText Text{Document, [this] { return Image; }};
};

inline const CharacterFormat BoldLetters{.Bold = true};
inline const CharacterFormat DarkRedHeading{.Bold = true, .Colour = 4};
inline const CharacterFormat TableLetters{.Family = FontFamily::Monospaced, .Points = 7.5F};
inline const CharacterFormat TableHeader{.Colour = 9, .Family = FontFamily::Monospaced, .Points = 7.5F};

/// Appends a table of this many rows below its header.
inline void AppendTable(RichTextUnderTest& text, int rows) {
  text.Append("Eqn.  F1\r\n", TableHeader, LineRole::TableHeader);
  for (int row = 1; row <= rows; ++row) {
    text.Append(std::to_string(row), TableHeader, LineRole::TableRow);
    text.Append("     0.5\r\n", TableLetters, LineRole::TableRow);
  }
}

/// What has a meaning of its own in RTF, HTML or XML, and characters of all kinds.
inline constexpr std::string_view Awkward =
    "{a\\b} 'q' \"r\" <b>markup&amp;</b> \\par \xE2\x80\x93 \xC2\xB0 \xC3\xA9 \xE2\x82\xAC"
    " \xCE\xB1\xCE\xA9 \xE4\xB8\xAD \xF0\x9F\x98\x80.trs";

struct SampleRichText : RichTextUnderTest {
  SampleRichText() {
    Image = SampleImage();
    Document.setMetaInformation(QTextDocument::DocumentTitle, QString::fromUtf8(Awkward.data()));
    Append("Orvane\r\n", {.Bold = true, .Points = 16}, LineRole::Title);
    Append(Awkward);
    Append("\r\n\r\n");
    Append("Picture of the truss:", DarkRedHeading, LineRole::Heading);
    Append("\r\n\t");
    Paste(Awkward);
    Append("\r\n\tforces right = forces left :     F1 = 0\r\n\r\n");
    for (const char* row : {" F1", "R12"}) {
      const LineRole role = row[0] == ' ' ? LineRole::TableHeader : LineRole::TableRow;
      Append(row, TableHeader, role);
      Append(
          "   1.25  \xE2\x80\x93"
          "3.5 \r\n",
          TableLetters, role);
    }
    Append("The ", {});
    Append("end", {.Italic = true, .Underlined = true});
  }
};
