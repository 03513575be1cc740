// The date is as long as the name of its time zone, so taking it out moves what stands behind it; the table
// at the end of the file, which says where each object begins, is put right.
#include "platform/qt/SteadyPdf.h"

#include <algorithm>
#include <optional>

namespace {

// A piece of the file.
struct Piece {
  qsizetype Begin = 0, Length = 0;
};

std::optional<Piece> FindDate(const QByteArray& pdf) {
  const qsizetype begin = pdf.indexOf("/CreationDate (D:");
  const qsizetype end = pdf.indexOf(')', std::max(begin, qsizetype{0}));
  if (begin < 0 || end < 0) return std::nullopt;
  return Piece{begin, end + 1 - begin};
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

// Offsets of what stands behind the removed piece.
bool MoveOffsets(QByteArray& pdf, const Piece& lines, const Piece& removed) {
  for (qsizetype line = lines.Begin; line < lines.Begin + lines.Length; line += 20) {
    const qlonglong offset = NumberAt(pdf, {line, 10});
    if (offset < 0) return false;
    if (offset <= removed.Begin) continue;
    pdf.replace(line, 10, QByteArray::number(offset - removed.Length).rightJustified(10, '0'));
  }
  return true;
}

}  // namespace

QByteArray WithoutDates(QByteArray pdf) {
  const std::optional<Piece> date = FindDate(pdf);
  const std::optional<Piece> tableOffset = FindTableOffset(pdf);
  if (!date || !tableOffset) return pdf;
  const qlonglong table = NumberAt(pdf, *tableOffset);
  const std::optional<Piece> lines = FindTableLines(pdf, table);
  if (!lines || lines->Begin < date->Begin) return pdf;

  // From the end to the beginning, so that no piece moves before it is changed.
  QByteArray steady = pdf;
  steady.replace(tableOffset->Begin, tableOffset->Length, QByteArray::number(table - date->Length));
  if (!MoveOffsets(steady, *lines, *date)) return pdf;
  steady.remove(date->Begin, date->Length);
  return steady;
}
