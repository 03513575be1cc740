// See the header. The body is written first, because the tables of fonts and colours that stand before it
// hold what was met in it.
#include "platform/qt/RtfWriter.h"

#include <QHash>
#include <QImage>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/qt/DocumentImages.h"
#include "text/CodePage.h"

namespace {

constexpr int TwipsPerPixel = 15;  // of 96 to the inch
constexpr qsizetype HexPerLine = 128;

// A4 with margins of 20 mm, in twips.
constexpr const char* Page = "\\paperw11906\\paperh16838\\margl1134\\margr1134\\margt1134\\margb1134\r\n";

// The bytes of a body: control words, symbols and characters. A control word ends at the first character that
// cannot belong to it; where a character follows that could, a blank ends it.
class RtfText {
 public:
  void Word(const char* word) {
    bytes_ += '\\';
    bytes_ += word;
    wordIsOpen_ = true;
  }
  void Word(const char* word, long number) {
    Word(word);
    bytes_ += QByteArray::number(static_cast<qlonglong>(number));
  }
  void Symbol(char symbol) {
    bytes_ += '\\';
    bytes_ += symbol;
    wordIsOpen_ = false;
  }
  void Character(char character) {
    if (wordIsOpen_) bytes_ += ' ';
    bytes_ += character;
    wordIsOpen_ = false;
  }
  void BeginGroup() {
    bytes_ += '{';
    wordIsOpen_ = false;
  }
  void EndGroup() {
    bytes_ += '}';
    wordIsOpen_ = false;
  }
  void EndLine() {
    bytes_ += "\r\n";
    wordIsOpen_ = false;
  }

  // One UTF-16 unit, with what a reader shows that knows only the code page. The fallback is always a byte in
  // hexadecimal: of a character that stands as itself some readers do not know where it ends.
  void Unicode(char16_t code) {
    QByteArray& escape = escapes_[code];
    if (escape.isEmpty()) {
      const std::string byte = QChar::isSurrogate(code) ? "?" : FromUtf8(QString(QChar(code)).toStdString());
      escape = "\\u" + QByteArray::number(static_cast<std::int16_t>(code)) + "\\'" +
               QByteArray(1, byte.front()).toHex();
    }
    bytes_ += escape;
    wordIsOpen_ = false;
  }

  void Hexadecimal(const QByteArray& data) {
    const QByteArray hex = data.toHex();
    for (qsizetype at = 0; at < hex.size(); at += HexPerLine) {
      EndLine();
      bytes_ += QByteArrayView(hex).sliced(at, std::min(HexPerLine, hex.size() - at));
    }
  }

  const QByteArray& Bytes() const { return bytes_; }

 private:
  QByteArray bytes_;
  bool wordIsOpen_ = true;  // whether the last thing written is a control word; what stands before ends so
  QHash<char16_t, QByteArray> escapes_;
};

// What is met in a body, in the order of its first appearance.
class RtfTables {
 public:
  int FontIndex(const QString& family, bool monospaced) {
    const auto found =
        std::find_if(fonts_.begin(), fonts_.end(), [&](const Font& font) { return font.Family == family; });
    const auto index = static_cast<int>(found - fonts_.begin());
    if (found == fonts_.end()) fonts_.push_back({family, monospaced});
    return index;
  }

  // From 1: colour 0 is the reader's own.
  int ColourIndex(QRgb colour) {
    const auto found = std::find(colours_.begin(), colours_.end(), colour);
    const auto index = static_cast<int>(found - colours_.begin()) + 1;
    if (found == colours_.end()) colours_.push_back(colour);
    return index;
  }

  QByteArray Bytes() const {
    QByteArray bytes = "{\\fonttbl";
    for (std::size_t i = 0; i < fonts_.size(); ++i) {
      bytes += "{\\f" + QByteArray::number(static_cast<int>(i));
      bytes += fonts_[i].Monospaced ? "\\fmodern\\fcharset0\\fprq1 " : "\\fswiss\\fcharset0\\fprq2 ";
      bytes += SafeName(fonts_[i].Family) + ";}";
    }
    bytes += "}\r\n{\\colortbl;";
    for (const QRgb colour : colours_) {
      bytes += "\\red" + QByteArray::number(qRed(colour)) + "\\green" + QByteArray::number(qGreen(colour)) +
               "\\blue" + QByteArray::number(qBlue(colour)) + ';';
    }
    return bytes + "}\r\n";
  }

 private:
  struct Font {
    QString Family;
    bool Monospaced;
  };

  static QByteArray SafeName(const QString& family) {
    QByteArray name = family.toLatin1();
    for (char& character : name) {
      const bool printable = character >= 0x20 && character < 0x7F;
      if (!printable || QByteArrayView("\\{};").contains(character)) character = '_';
    }
    return name;
  }

  std::vector<Font> fonts_;
  std::vector<QRgb> colours_;
};

class RtfWriter final : public DocumentVisitor {
 public:
  explicit RtfWriter(const DocumentPart& part) : part_(part) {
    tables_.FontIndex(part.Document.defaultFont().family(), false);
    text_.Word("plain");
    Walk(part_, *this);
  }

  QByteArray Bytes() const {
    return "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deftab720\r\n" + tables_.Bytes() + Page +
           "\\viewkind1\\uc1\\pard" + text_.Bytes() + "}\r\n";
  }

  // The end of a paragraph is as high as the letters before it, and that of an empty one as high as its
  // letters would be.
  void BeginParagraph(const Paragraph& paragraph) override {
    if (paragraph.StaysWithNext != staysWithNext_) text_.Word(paragraph.StaysWithNext ? "keepn" : "pard");
    staysWithNext_ = paragraph.StaysWithNext;
    SwitchTo(paragraph.First);
  }

  void Run(const Letters& letters, const QString& text) override {
    SwitchTo(letters);
    for (const QChar character : text) Write(character.unicode());
  }

  void Picture(const QTextImageFormat& format) override {
    const QImage image = ImageOf(part_.Document, format.name());
    if (image.isNull()) return;
    const QSizeF size = ShownSize(format, image);
    text_.BeginGroup();
    text_.Word("pict");
    text_.Word("pngblip");
    text_.Word("picw", image.width());
    text_.Word("pich", image.height());
    text_.Word("picwgoal", std::lround(size.width() * TwipsPerPixel));
    text_.Word("pichgoal", std::lround(size.height() * TwipsPerPixel));
    text_.Hexadecimal(PngBytes(image));
    text_.EndGroup();
  }

  void EndParagraph(bool ended) override {
    if (!ended) return;
    text_.Word("par");
    text_.EndLine();
  }

 private:
  void Write(char16_t code) {
    if (code == u'\\' || code == u'{' || code == u'}') {
      text_.Symbol(static_cast<char>(code));
    } else if (code >= 0x20 && code < 0x7F) {
      text_.Character(static_cast<char>(code));
    } else if (code == u'\t') {
      text_.Word("tab");
    } else if (code == QChar::LineSeparator) {
      text_.Word("line");
    } else if (code == QChar::Nbsp) {
      text_.Symbol('~');
    } else if (code < QChar::Nbsp) {
      text_.Character(' ');  // a control character
    } else {
      text_.Unicode(code);
    }
  }

  // Writes what is different from the letters before.
  void SwitchTo(const Letters& next) {
    if (current_ == next) return;
    const bool first = !current_;
    const Letters before = current_.value_or(Letters());
    if (first || next.Family != before.Family)
      text_.Word("f", tables_.FontIndex(next.Family, next.Monospaced));
    if (first || next.Points != before.Points) text_.Word("fs", std::lround(next.Points * 2));
    if (first || next.Colour != before.Colour) text_.Word("cf", tables_.ColourIndex(next.Colour));
    if (next.Bold != before.Bold) text_.Word(next.Bold ? "b" : "b0");
    if (next.Italic != before.Italic) text_.Word(next.Italic ? "i" : "i0");
    if (next.Underlined != before.Underlined) text_.Word(next.Underlined ? "ul" : "ulnone");
    current_ = next;
  }

  const DocumentPart& part_;
  RtfTables tables_;
  RtfText text_;
  std::optional<Letters> current_;
  bool staysWithNext_ = false;
};

}  // namespace

QByteArray ToRtf(const DocumentPart& part) { return RtfWriter(part).Bytes(); }
