// A date is as long as the name of its time zone, so taking it out moves what stands behind it; the table at
// the end of the file, which says where each object begins, is put right.
#include "paper/qt/SteadyPdf.h"

#include <QPdfWriter>
#include <QVector>
#include <algorithm>
#include <optional>

namespace {

// A piece of the file.
struct Piece {
  qsizetype Begin = 0, Length = 0;
};

// From where `opening` begins up to and with the first `closing` behind it, between two places of the file.
std::optional<Piece> FindPiece(const QByteArray& pdf, const Piece& within, const char* opening,
                               const char* closing) {
  const qsizetype begin = pdf.indexOf(opening, within.Begin);
  if (begin < 0) return std::nullopt;
  const qsizetype found = pdf.indexOf(closing, begin);
  const qsizetype end = found + static_cast<qsizetype>(qstrlen(closing));
  if (found < 0 || end > within.Begin + within.Length) return std::nullopt;
  return Piece{begin, end - begin};
}

// The dates of creation and of the last change, in the order in which they stand. They belong to the first
// object, which says what the file is.
QVector<Piece> FindDates(const QByteArray& pdf) {
  QVector<Piece> dates;
  const std::optional<Piece> description = FindPiece(pdf, {0, pdf.size()}, "1 0 obj", "endobj");
  if (!description) return dates;
  for (const char* date : {"/CreationDate (D:", "/ModDate (D:"}) {
    if (const auto found = FindPiece(pdf, *description, date, ")")) dates.append(*found);
  }
  std::sort(dates.begin(), dates.end(), [](const Piece& a, const Piece& b) { return a.Begin < b.Begin; });
  return dates;
}

// The number that is written at a place; -1 when there is none.
qlonglong NumberAt(const QByteArray& pdf, const Piece& place) {
  bool isNumber = false;
  const qlonglong number = pdf.mid(place.Begin, place.Length).trimmed().toLongLong(&isNumber);
  return isNumber ? number : -1;
}

// Where the offset of the table stands, as text between "startxref" and the end of its line.
std::optional<Piece> FindTableOffset(const QByteArray& pdf) {
  static constexpr char word[] = "startxref\n";
  const qsizetype found = pdf.lastIndexOf(word);
  if (found < 0) return std::nullopt;
  const qsizetype begin = found + static_cast<qsizetype>(sizeof word) - 1;
  const qsizetype end = pdf.indexOf('\n', begin);
  if (end < 0) return std::nullopt;
  return Piece{begin, end - begin};
}

// The first of the table's lines, each of which has 20 bytes, the first 10 of them an offset, and how many
// bytes they have together. The table begins with "xref" and a line with its first and its number of objects.
std::optional<Piece> FindTableLines(const QByteArray& pdf, qlonglong table) {
  static constexpr char beginning[] = "xref\n0 ";
  if (table < 0 || table >= pdf.size() || !pdf.mid(table).startsWith(beginning)) return std::nullopt;
  const qsizetype count = static_cast<qsizetype>(table) + static_cast<qsizetype>(sizeof beginning) - 1;
  const qsizetype lineEnd = pdf.indexOf('\n', count);
  if (lineEnd < 0) return std::nullopt;
  const qlonglong numLines = NumberAt(pdf, {count, lineEnd - count});
  if (numLines < 0 || numLines > (pdf.size() - lineEnd - 1) / 20) return std::nullopt;
  return Piece{lineEnd + 1, static_cast<qsizetype>(numLines) * 20};
}

// How many bytes of the removed pieces stand before an offset.
qlonglong RemovedBefore(qlonglong offset, const QVector<Piece>& removed) {
  qlonglong length = 0;
  for (const Piece& piece : removed) {
    if (piece.Begin < offset) length += piece.Length;
  }
  return length;
}

// Offsets of what stands behind the removed pieces.
bool MoveOffsets(QByteArray& pdf, const Piece& lines, const QVector<Piece>& removed) {
  for (qsizetype line = lines.Begin; line < lines.Begin + lines.Length; line += 20) {
    const qlonglong offset = NumberAt(pdf, {line, 10});
    if (offset < 0) return false;
    const QByteArray moved = QByteArray::number(offset - RemovedBefore(offset, removed));
    pdf.replace(line, 10, moved.rightJustified(10, '0'));
  }
  return true;
}

// Text as it may stand in XML, which knows no control characters.
QString XmlText(const QString& text) {
  QString printable;
  for (const QChar character : text) {
    if (character.isPrint() || character.isSurrogate()) printable.append(character);
  }
  return printable.toHtmlEscaped();
}

}  // namespace

void DescribePdf(QPdfWriter& writer, const QString& title) {
  const QString maker = QStringLiteral("Orvane");
  writer.setTitle(title);
  writer.setCreator(maker);
  const QString description = QStringLiteral(
      "<?xpacket begin='' id='W5M0MpCehiHzreSzNTczkc9d'?>\n"
      "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\">\n"
      "<rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">\n"
      "<rdf:Description rdf:about=\"\" xmlns:dc=\"http://purl.org/dc/elements/1.1/\""
      " xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\">\n"
      "<dc:title><rdf:Alt><rdf:li xml:lang=\"x-default\">%1</rdf:li></rdf:Alt></dc:title>\n"
      "<xmp:CreatorTool>%2</xmp:CreatorTool>\n"
      "</rdf:Description>\n</rdf:RDF>\n</x:xmpmeta>\n<?xpacket end='w'?>\n");
  writer.setDocumentXmpMetadata(description.arg(XmlText(title), maker).toUtf8());
}

QByteArray SteadyPdf(QByteArray pdf) {
  const QVector<Piece> dates = FindDates(pdf);
  const std::optional<Piece> tableOffset = FindTableOffset(pdf);
  if (dates.isEmpty() || !tableOffset) return pdf;
  const qlonglong table = NumberAt(pdf, *tableOffset);
  const std::optional<Piece> lines = FindTableLines(pdf, table);
  if (!lines || lines->Begin < dates.last().Begin) return pdf;

  // From the end to the beginning, so that no piece moves before it is changed.
  QByteArray steady = pdf;
  steady.replace(tableOffset->Begin, tableOffset->Length,
                 QByteArray::number(table - RemovedBefore(table, dates)));
  const qsizetype tableEnd = lines->Begin + lines->Length;
  const auto number = FindPiece(steady, {tableEnd, tableOffset->Begin - tableEnd}, "/ID [", "]\n");
  if (number) steady.remove(number->Begin, number->Length);
  if (!MoveOffsets(steady, *lines, dates)) return pdf;
  for (auto date = dates.rbegin(); date != dates.rend(); ++date) steady.remove(date->Begin, date->Length);
  return steady;
}
