// The toolkit's own writer of this form puts line ends into paragraphs, which readers show as
// blanks, names no fonts, gives no paper size, and lists styles in an order that changes from run to run.
#include "paper/qt/OdtWriter.h"

#include <QImage>
#include <algorithm>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

#include "paper/Page.h"
#include "paper/qt/DocumentImages.h"
#include "paper/qt/DocumentWalk.h"
#include "paper/qt/OdtText.h"
#include "paper/qt/SpooledBytes.h"
#include "paper/qt/ZipFile.h"

namespace {

constexpr const char* MediaType = "application/vnd.oasis.opendocument.text";
constexpr const char* XmlHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
constexpr const char* NameSpaces =
    " xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\""
    " xmlns:style=\"urn:oasis:names:tc:opendocument:xmlns:style:1.0\""
    " xmlns:table=\"urn:oasis:names:tc:opendocument:xmlns:table:1.0\""
    " xmlns:meta=\"urn:oasis:names:tc:opendocument:xmlns:meta:1.0\""
    " xmlns:dc=\"http://purl.org/dc/elements/1.1/\""
    " xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\""
    " xmlns:draw=\"urn:oasis:names:tc:opendocument:xmlns:drawing:1.0\""
    " xmlns:fo=\"urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0\""
    " xmlns:svg=\"urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0\""
    " xmlns:xlink=\"http://www.w3.org/1999/xlink\" office:version=\"1.2\">\n";

// The standard paragraph, and headings that have nothing beside their place in the outline.
constexpr const char* CommonStyles =
    "<office:styles>\n"
    "<style:default-style style:family=\"paragraph\"><style:paragraph-properties"
    " style:tab-stop-distance=\"36pt\"/><style:text-properties fo:language=\"en\" fo:country=\"US\"/>"
    "</style:default-style>\n"
    "<style:style style:name=\"Standard\" style:family=\"paragraph\" style:class=\"text\"/>\n"
    "<style:style style:name=\"Heading_20_1\" style:display-name=\"Heading 1\" style:family=\"paragraph\""
    " style:parent-style-name=\"Standard\" style:default-outline-level=\"1\" style:class=\"text\"/>\n"
    "<style:style style:name=\"Heading_20_2\" style:display-name=\"Heading 2\" style:family=\"paragraph\""
    " style:parent-style-name=\"Standard\" style:default-outline-level=\"2\" style:class=\"text\"/>\n"
    "</office:styles>\n";

QByteArray Millimetres(double length) { return QByteArray::number(length) + "mm"; }

QByteArray Styles() {
  const QByteArray margin = Millimetres(PageMargin);
  QByteArray page = "<style:page-layout style:name=\"A4\"><style:page-layout-properties fo:page-width=\"" +
                    Millimetres(A4.Width) + "\" fo:page-height=\"" + Millimetres(A4.Height) +
                    "\" style:print-orientation=\"portrait\" fo:margin=\"" + margin + '"';
  for (const char* side : {"top", "bottom", "left", "right"}) {
    page += QByteArray(" fo:margin-") + side + "=\"" + margin + '"';
  }
  return CommonStyles + ("<office:automatic-styles>\n" + page) +
         "/></style:page-layout>\n"
         "</office:automatic-styles>\n"
         "<office:master-styles>\n"
         "<style:master-page style:name=\"Standard\" style:page-layout-name=\"A4\"/>\n"
         "</office:master-styles>\n";
}

// A table is one column as wide as the text: what stands in its rows has its columns already.
QByteArray TableStyles() {
  const QByteArray width = Millimetres(PageTextWidth);
  return "<style:style style:name=\"Table\" style:family=\"table\"><style:table-properties style:width=\"" +
         width +
         "\" table:align=\"left\"/></style:style>\n"
         "<style:style style:name=\"Column\" style:family=\"table-column\"><style:table-column-properties"
         " style:column-width=\"" +
         width +
         "\"/></style:style>\n"
         "<style:style style:name=\"Row\" style:family=\"table-row\"><style:table-row-properties"
         " fo:keep-together=\"always\"/></style:style>\n"
         "<style:style style:name=\"Cell\" style:family=\"table-cell\"><style:table-cell-properties"
         " fo:padding=\"0mm\" fo:border=\"none\"/></style:style>\n";
}

constexpr const char* PictureStyle =
    "<style:style style:name=\"Picture\" style:family=\"graphic\"><style:graphic-properties"
    " style:vertical-pos=\"top\" style:vertical-rel=\"baseline\"/></style:style>\n";

constexpr const char* RowBegin =
    "<table:table-row table:style-name=\"Row\"><table:table-cell table:style-name=\"Cell\""
    " office:value-type=\"string\">";

class OdtWriter final : public DocumentWriter {
 public:
  explicit OdtWriter(QString title) : title_(std::move(title)) {}

  ManyBytes Take() override { return ManyBytesOf(WholeFile(), {}, {}); }

  // A paragraph has the look of its first letters, so that a run that looks the same needs no style.
  void BeginParagraph(const Paragraph& paragraph) override {
    paragraph_ = paragraph.First;
    role_ = paragraph.Role;
    if (role_ == LineRole::TableHeader) text_.Markup("<table:table-header-rows>");
    if (IsRow(role_)) text_.Markup(RowBegin);
    const int level = paragraph.HeadingLevel();
    element_ = level > 0 ? "text:h" : "text:p";
    text_.Markup("<");
    text_.Markup(element_);
    text_.Markup(" text:style-name=\"");
    text_.Markup(paragraphs_.NameOf(paragraph));
    text_.Markup("\"");
    if (level > 0) text_.Markup(" text:outline-level=\"" + QByteArray::number(level) + '"');
    text_.Markup(">");
  }

  void BeginTable() override {
    text_.Markup("<table:table table:name=\"Table " + QByteArray::number(++numTables_) +
                 "\" table:style-name=\"Table\"><table:table-column table:style-name=\"Column\"/>\n");
  }

  void EndTable() override { text_.Markup("</table:table>\n"); }

  void Run(const Letters& letters, const QString& text) override {
    const bool differs = letters != paragraph_;
    if (differs) {
      text_.Markup("<text:span text:style-name=\"");
      text_.Markup(runs_.NameOf(letters));
      text_.Markup("\">");
    }
    text_.Write(text);
    if (differs) text_.Markup("</text:span>");
  }

  void Picture(const QImage& image, const QSizeF& pixels, const QString& description) override {
    const QSizeF size = pixels * 0.75;  // pixels of 96 to the inch in points
    const QByteArray number = QByteArray::number(static_cast<int>(pictures_.size()) + 1);
    text_.Markup("<draw:frame draw:name=\"Picture " + number +
                 "\" draw:style-name=\"Picture\" text:anchor-type=\"as-char\" svg:width=\"" +
                 OdtPoints(size.width()) + "\" svg:height=\"" + OdtPoints(size.height()) +
                 "\"><draw:image xlink:href=\"" + PictureName(pictures_.size()) +
                 "\" xlink:type=\"simple\" xlink:show=\"embed\" xlink:actuate=\"onLoad\"/>" +
                 Description(description) + "</draw:frame>");
    pictures_.push_back(PngBytes(image));
  }

  void EndParagraph(bool) override {
    text_.Markup("</");
    text_.Markup(element_);
    text_.Markup(">");
    if (IsRow(role_)) text_.Markup("</table:table-cell></table:table-row>");
    if (role_ == LineRole::TableHeader) text_.Markup("</table:table-header-rows>");
    text_.Markup("\n");
  }

 private:
  QByteArray WholeFile() {
    text_.Markup(ContentEnd);
    DeflateStream begin;  // it tells what was met in the text
    begin.Write(ContentBegin());
    const Deflated content = DeflateStream::Joined(begin.Take(DeflateStream::End::OfPart), text_.Take());
    // Readers count the bytes of such a file with 32 bits.
    if (!content.IsWhole || content.Size > std::numeric_limits<int>::max() / 2) return {};
    ZipFile file;
    file.Add("mimetype", MediaType, ZipFile::Method::Stored);  // first, and as it is, so that it can be seen
    file.AddDeflated("content.xml", content);
    file.Add("styles.xml",
             QByteArray(XmlHead) + "<office:document-styles" + NameSpaces + Styles() +
                 "</office:document-styles>\n",
             ZipFile::Method::Deflated);
    file.Add("meta.xml", Information(), ZipFile::Method::Deflated);
    for (std::size_t i = 0; i < pictures_.size(); ++i) {
      file.Add(PictureName(i), pictures_[i], ZipFile::Method::Stored);
    }
    file.Add("META-INF/manifest.xml", Manifest(), ZipFile::Method::Deflated);
    return file.Bytes();
  }

  static QByteArray PictureName(std::size_t index) {
    return "Pictures/picture" + QByteArray::number(static_cast<int>(index) + 1) + ".png";
  }

  static QByteArray Description(const QString& description) {
    if (description.isEmpty()) return {};
    return "<svg:desc>" + description.toHtmlEscaped().toUtf8() + "</svg:desc>";
  }

  // Without a date, so that the same document gives the same bytes.
  QByteArray Information() const {
    QByteArray bytes = QByteArray(XmlHead) + "<office:document-meta" + NameSpaces +
                       "<office:meta>\n<meta:generator>Orvane</meta:generator>\n";
    if (!title_.isEmpty()) bytes += "<dc:title>" + title_.toHtmlEscaped().toUtf8() + "</dc:title>\n";
    return bytes + "</office:meta>\n</office:document-meta>\n";
  }

  QByteArray ContentBegin() const {
    return QByteArray(XmlHead) + "<office:document-content" + NameSpaces + FontFaces() +
           "<office:automatic-styles>\n" + paragraphs_.Bytes() + runs_.Bytes() + PictureStyle +
           TableStyles() + "</office:automatic-styles>\n<office:body>\n<office:text>\n";
  }

  static constexpr const char* ContentEnd = "</office:text>\n</office:body>\n</office:document-content>\n";

  QByteArray FontFaces() const {
    std::vector<Letters> faces;
    for (const OdtStyles* styles : {&paragraphs_, &runs_}) {
      for (const OdtStyles::Style& style : styles->Met()) {
        const auto same = [&](const Letters& face) { return face.Family == style.Look.Family; };
        if (std::none_of(faces.begin(), faces.end(), same)) faces.push_back(style.Look);
      }
    }
    QByteArray bytes = "<office:font-face-decls>\n";
    for (const Letters& face : faces) {
      const QByteArray name = face.Family.toHtmlEscaped().toUtf8();
      bytes += "<style:font-face style:name=\"" + name + "\" svg:font-family=\"&apos;" + name + "&apos;\"";
      bytes += face.Monospaced ? " style:font-family-generic=\"modern\" style:font-pitch=\"fixed\"/>\n"
                               : " style:font-family-generic=\"swiss\" style:font-pitch=\"variable\"/>\n";
    }
    return bytes + "</office:font-face-decls>\n";
  }

  QByteArray Manifest() const {
    QByteArray bytes =
        QByteArray(XmlHead) +
        "<manifest:manifest xmlns:manifest=\"urn:oasis:names:tc:opendocument:xmlns:manifest:1.0\""
        " manifest:version=\"1.2\">\n";
    const auto add = [&bytes](const QByteArray& path, const QByteArray& mediaType) {
      bytes += "<manifest:file-entry manifest:full-path=\"" + path + "\" manifest:media-type=\"" + mediaType +
               "\"/>\n";
    };
    add("/", MediaType);
    add("content.xml", "text/xml");
    add("styles.xml", "text/xml");
    add("meta.xml", "text/xml");
    for (std::size_t i = 0; i < pictures_.size(); ++i) add(PictureName(i), "image/png");
    return bytes + "</manifest:manifest>\n";
  }

  QString title_;
  Letters paragraph_;
  LineRole role_ = LineRole::Text;
  const char* element_ = "";
  int numTables_ = 0;
  OdtText text_;
  OdtStyles paragraphs_{'P', "paragraph"};
  OdtStyles runs_{'T', "text"};
  std::vector<QByteArray> pictures_;
};

}  // namespace

std::unique_ptr<DocumentWriter> NewOdtWriter(const QString& title) {
  return std::make_unique<OdtWriter>(title);
}

QByteArray ToOdt(const QTextDocument& document) {
  OdtWriter writer(TitleOf(document));
  Walk(document, writer);
  return Joined(writer.Take());
}
