// The body is written first, because the tables of fonts and colours that stand before it
// hold what was met in it.
#include "paper/qt/RtfWriter.h"

#include <QImage>
#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "paper/Page.h"
#include "paper/qt/DocumentImages.h"
#include "paper/qt/RtfText.h"

namespace {

constexpr int TwipsPerPixel = 15;  // of 96 to the inch

// Headings of these styles are what word processors list as the document's outline. Their own white above and
// below, which some have, is none here.
constexpr const char* HeadingStyles =
    "{\\stylesheet{\\s0 Normal;}{\\s1\\sb0\\sa0\\outlinelevel0 heading 1;}"
    "{\\s2\\sb0\\sa0\\outlinelevel1 heading 2;}}\r\n";

QByteArray Number(const char* word, int number) { return word + QByteArray::number(number); }

QByteArray Paper() {
  const int margin = TwipsOf(PageMargin);
  return Number("\\paperw", TwipsOf(A4.Width)) + Number("\\paperh", TwipsOf(A4.Height)) +
         Number("\\margl", margin) + Number("\\margr", margin) + Number("\\margt", margin) +
         Number("\\margb", margin) + "\r\n";
}

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

class RtfWriter final : public DocumentWriter {
 public:
  RtfWriter(QString title, const QString& standardFamily) : title_(std::move(title)) {
    tables_.FontIndex(standardFamily, false);
    text_.Word("plain");
  }

  ManyBytes Take() override {
    QByteArray head = "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deftab720\r\n" + tables_.Bytes() +
                      (hasHeadings_ ? HeadingStyles : "") + Information() + Paper() +
                      "\\viewkind1\\uc1\\pard";
    return ManyBytesOf(std::move(head), text_.TakeBytes(), "}\r\n");
  }

  void BeginTable() override { isInTable_ = true; }

  // Even where nothing follows: readers give a table at the end an empty paragraph, which is none of its
  // rows.
  void EndTable() override {
    isInTable_ = false;
    SwitchTo(Layout{});
  }

  // The end of a paragraph is as high as the letters before it, and that of an empty one as high as its
  // letters would be.
  void BeginParagraph(const Paragraph& paragraph) override {
    if (isInTable_) BeginRow(paragraph.Role == LineRole::TableHeader);
    SwitchTo(Layout{.HeadingLevel = paragraph.HeadingLevel(),
                    .IsRow = isInTable_,
                    .StaysWithNext = paragraph.StaysWithNext,
                    .StaysWhole = paragraph.StaysWhole()});
    SwitchTo(paragraph.First);
  }

  // Letters of one width stand below each other whatever a reader does with blanks, and tables have many.
  void Run(const Letters& letters, const QString& text) override {
    SwitchTo(letters);
    text_.Text(text, !letters.Monospaced);
  }

  void Picture(const QImage& image, const QSizeF& size, const QString& description) override {
    text_.BeginGroup();
    text_.Word("pict");
    if (!description.isEmpty()) Describe(description);
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
    if (isInTable_) {
      text_.Word("cell");
      text_.Word("row");
    } else {
      text_.Word("par");
    }
    text_.EndLine();
  }

 private:
  // What belongs to a paragraph as a whole.
  struct Layout {
    int HeadingLevel = 0;
    bool IsRow = false, StaysWithNext = false, StaysWhole = false;

    friend bool operator==(const Layout&, const Layout&) = default;
  };

  QByteArray Information() const {
    if (title_.isEmpty()) return {};
    RtfText text;
    text.Text(title_);
    return Joined(ManyBytesOf("{\\info{\\title", text.TakeBytes(), "}}\r\n"));
  }

  // A row is one cell as wide as the paper's text: its columns stand below each other as they are.
  void BeginRow(bool isHeader) {
    text_.Word("trowd");
    if (isHeader) text_.Word("trhdr");
    text_.Word("trkeep");
    text_.Word("trgaph", 0);
    text_.Word("trleft", 0);
    text_.Word("cellx", TwipsOf(PageTextWidth));
  }

  void SwitchTo(const Layout& next) {
    if (layout_ == next) return;
    text_.Word("pard");
    if (next.IsRow) text_.Word("intbl");
    if (next.StaysWhole) text_.Word("keep");
    if (next.StaysWithNext) text_.Word("keepn");
    if (next.HeadingLevel > 0) {
      text_.Word("s", next.HeadingLevel);
      text_.Word("outlinelevel", next.HeadingLevel - 1);
      hasHeadings_ = true;
    }
    layout_ = next;
  }

  void Describe(const QString& description) {
    text_.BeginGroup();
    text_.Symbol('*');
    text_.Word("picprop");
    text_.BeginGroup();
    text_.Word("sp");
    text_.BeginGroup();
    text_.Word("sn");
    text_.Text(QStringLiteral("wzDescription"));
    text_.EndGroup();
    text_.BeginGroup();
    text_.Word("sv");
    text_.Text(description);
    text_.EndGroup();
    text_.EndGroup();
    text_.EndGroup();
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

  QString title_;
  RtfTables tables_;
  RtfText text_;
  std::optional<Letters> current_;
  Layout layout_;
  bool isInTable_ = false;
  bool hasHeadings_ = false;
};

}  // namespace

std::unique_ptr<DocumentWriter> NewRtfWriter(const QString& title, const QString& standardFamily) {
  return std::make_unique<RtfWriter>(title, standardFamily);
}

QByteArray ToRtf(const DocumentPart& part) {
  RtfWriter writer(TitleOf(part), part.Document.defaultFont().family());
  Walk(part, writer);
  return Joined(writer.Take());
}
