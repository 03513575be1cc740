// A paragraph has family and size of its first letters; what differs from that stands around
// the runs. Preformatted lines of one kind that follow one another are one element.
#include "paper/qt/HtmlWriter.h"

#include <QImage>
#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

#include "paper/qt/AsciiText.h"
#include "paper/qt/DocumentImages.h"
#include "paper/qt/SpooledBytes.h"

namespace {

QByteArray FontFamilies(const Letters& letters) {
  QString name = letters.Family;
  name.remove(u'\'').remove(u'\\');
  return "font-family:'" + name.toHtmlEscaped().toUtf8() +
         (letters.Monospaced ? "',monospace" : "',sans-serif");
}

QByteArray FontSize(const Letters& letters) {
  return "font-size:" + QByteArray::number(letters.Points, 'g', 4) + "pt";
}

class HtmlWriter final : public DocumentWriter {
 public:
  explicit HtmlWriter(const QString& title) {
    html_ += "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>" +
             (title.isEmpty() ? QStringLiteral("Orvane") : title).toHtmlEscaped().toUtf8() +
             "</title>\n</head>\n<body>\n<!--StartFragment-->";
  }

  ManyBytes Take() override {
    ClosePreformatted();
    return ManyBytesOf({}, std::move(html_), "<!--EndFragment-->\n</body>\n</html>\n");
  }

  void BeginParagraph(const Paragraph& paragraph) override {
    const Letters& letters = paragraph.First;
    const bool wraps = paragraph.Wraps || paragraph.HeadingLevel() > 0;
    const bool another = !paragraph_.Family.isEmpty();
    const Letters standard{
        .Family = letters.Family, .Monospaced = letters.Monospaced, .Points = letters.Points};
    if (isPreformatted_ && !wraps && standard == paragraph_) {
      html_ += '\n';
      return;
    }
    ClosePreformatted();
    if (another) html_ += '\n';
    paragraph_ = standard;
    isPreformatted_ = !wraps;
    isEmpty_ = true;
    element_ = ElementOf(paragraph);
    html_ += '<' + element_ + " style=\"margin:0;";
    if (wraps) html_ += "white-space:pre-wrap;";
    html_ += "tab-size:48px;" + FontFamilies(letters) + ';' + FontSize(letters) + "\">";
  }

  void Run(const Letters& letters, const QString& text) override {
    isEmpty_ = false;
    const QByteArray style = Style(letters);
    if (!style.isEmpty()) html_ += "<span style=\"" + style + "\">";
    if (letters.Bold) html_ += "<b>";
    if (letters.Italic) html_ += "<i>";
    if (letters.Underlined) html_ += "<u>";
    Write(text);
    if (letters.Underlined) html_ += "</u>";
    if (letters.Italic) html_ += "</i>";
    if (letters.Bold) html_ += "</b>";
    if (!style.isEmpty()) html_ += "</span>";
  }

  void Picture(const QImage& image, const QSizeF& size, const QString& description) override {
    isEmpty_ = false;
    html_ += "<img alt=\"" + description.toHtmlEscaped().toUtf8() + "\" width=\"" +
             QByteArray::number(std::lround(size.width())) + "\" height=\"" +
             QByteArray::number(std::lround(size.height())) + "\" src=\"data:image/png;base64,";
    html_ += PngBytes(image).toBase64();
    html_ += "\">";
  }

  void EndParagraph(bool) override {
    if (isPreformatted_) return;
    if (isEmpty_) html_ += "<br>";
    html_ += "</" + element_ + '>';
  }

 private:
  static QByteArray ElementOf(const Paragraph& paragraph) {
    const int level = paragraph.HeadingLevel();
    if (level > 0) return 'h' + QByteArray::number(level);
    return paragraph.Wraps ? "p" : "pre";
  }

  void ClosePreformatted() {
    if (isPreformatted_) html_ += "</pre>";
    isPreformatted_ = false;
  }

  void Write(const QString& text) {
    const auto isItself = [](QChar letter) {
      const char16_t code = letter.unicode();
      return code < 0x80 && code != u'<' && code != u'>' && code != u'&' && code != u'"';
    };
    if (std::all_of(text.cbegin(), text.cend(), isItself)) return AppendAscii(html_, text);
    html_ += text.toHtmlEscaped().replace(QChar(QChar::LineSeparator), QStringLiteral("<br>")).toUtf8();
  }

  // What a run has that its paragraph has not.
  QByteArray Style(const Letters& letters) const {
    QByteArray style;
    const auto add = [&style](const QByteArray& declaration) {
      if (!style.isEmpty()) style += ';';
      style += declaration;
    };
    if (letters.Family != paragraph_.Family) add(FontFamilies(letters));
    if (letters.Points != paragraph_.Points) add(FontSize(letters));
    if (letters.Colour != paragraph_.Colour) add("color:" + QColor(letters.Colour).name().toLatin1());
    return style;
  }

  SpooledBytes html_;
  Letters paragraph_;  // family and size of the paragraph's first letters
  QByteArray element_;
  bool isPreformatted_ = false;
  bool isEmpty_ = true;
};

}  // namespace

std::unique_ptr<DocumentWriter> NewHtmlWriter(const QString& title) {
  return std::make_unique<HtmlWriter>(title);
}

QByteArray ToHtml(const DocumentPart& part) {
  HtmlWriter writer(TitleOf(part));
  Walk(part, writer);
  return Joined(writer.Take());
}
