#include "paper/qt/DocumentWalk.h"

#include <QHash>
#include <QTextFragment>
#include <QTextImageFormat>
#include <algorithm>
#include <utility>

#include "paper/qt/DocumentImages.h"
#include "paper/qt/QtRichText.h"

namespace {

class Walker {
 public:
  Walker(const DocumentPart& part, DocumentVisitor& visitor)
      : part_(part), visitor_(visitor), standard_(part.Document.defaultFont()) {}

  void Walk() {
    QTextBlock block = part_.Document.findBlock(part_.Begin);
    do {
      EnterOrLeaveTable(block);
      VisitParagraph(block);
      block = block.next();
    } while (block.isValid() && block.position() < part_.End);
    LeaveTable();
  }

 private:
  // What belongs to the part of one fragment.
  struct Piece {
    QTextFragment Fragment;
    int From, To;
  };

  Piece PieceOf(const QTextFragment& fragment) const {
    return {fragment, std::max(part_.Begin, fragment.position()),
            std::min(part_.End, fragment.position() + fragment.length())};
  }

  void EnterOrLeaveTable(const QTextBlock& block) {
    const LineRole role = RoleOf(block);
    if (!IsBodyRow(role)) LeaveTable();
    if (role != LineRole::TableHeader || !HoldsTable(block)) return;
    inTable_ = true;
    visitor_.BeginTable();
  }

  void LeaveTable() {
    if (std::exchange(inTable_, false)) visitor_.EndTable();
  }

  // Whether the part has all of the table's rows, with their ends.
  bool HoldsTable(const QTextBlock& header) const {
    if (header.position() < part_.Begin) return false;
    QTextBlock below = header.next();
    while (below.isValid() && IsBodyRow(RoleOf(below))) below = below.next();
    return below.isValid() && below.position() <= part_.End;
  }

  void VisitParagraph(const QTextBlock& block) {
    const LineRole role = RoleOf(block);
    const bool isTextOfTable = IsRow(role) && !inTable_;
    const bool isBlank = block.text().trimmed().isEmpty();
    staysWithNext_ = isBlank ? staysWithNext_ : StaysWithNext(role) && !isTextOfTable;
    visitor_.BeginParagraph({.First = FirstLetters(block),
                             .Role = isTextOfTable ? LineRole::Text : role,
                             .Wraps = !block.blockFormat().nonBreakableLines(),
                             .StaysWithNext = staysWithNext_});
    for (auto at = block.begin(); !at.atEnd(); ++at) {
      const Piece piece = PieceOf(at.fragment());
      if (piece.From < piece.To) VisitPiece(piece);
    }
    FlushRun();
    const int paragraphEnd = block.position() + block.length() - 1;
    visitor_.EndParagraph(paragraphEnd >= part_.Begin && paragraphEnd < part_.End);
  }

  const Letters& FirstLetters(const QTextBlock& block) {
    for (auto at = block.begin(); !at.atEnd(); ++at) {
      const Piece piece = PieceOf(at.fragment());
      const QTextCharFormat format = piece.Fragment.charFormat();
      if (piece.From < piece.To && !format.isImageFormat()) {
        return LettersOf(piece.Fragment.charFormatIndex(), format);
      }
    }
    return LettersOf(block.charFormatIndex(), block.charFormat());
  }

  void VisitPiece(const Piece& piece) {
    const QTextFragment& fragment = piece.Fragment;
    const QString text = fragment.text().mid(piece.From - fragment.position(), piece.To - piece.From);
    const QTextCharFormat format = fragment.charFormat();
    if (format.isImageFormat()) {
      FlushRun();
      const auto pictures = text.count(QChar(QChar::ObjectReplacementCharacter));
      VisitPictures(format.toImageFormat(), pictures);
      return;
    }
    const Letters& letters = LettersOf(fragment.charFormatIndex(), format);
    if (letters != runLetters_) FlushRun();
    runLetters_ = letters;
    run_ += text;
  }

  void VisitPictures(const QTextImageFormat& format, qsizetype count) {
    const QImage image = ImageOf(part_.Document, format.name());
    if (image.isNull()) return;
    const QString description = format.stringProperty(QTextFormat::ImageAltText);
    for (qsizetype i = 0; i < count; ++i) visitor_.Picture(image, ShownSize(format, image), description);
  }

  void FlushRun() {
    if (!run_.isEmpty()) visitor_.Run(runLetters_, run_);
    run_.clear();
  }

  const Letters& LettersOf(int formatIndex, const QTextCharFormat& format) {
    const auto known = letters_.constFind(formatIndex);
    return known != letters_.constEnd() ? *known : *letters_.insert(formatIndex, Describe(format));
  }

  Letters Describe(const QTextCharFormat& format) const {
    const bool hasPoints = format.hasProperty(QTextFormat::FontPointSize) && format.fontPointSize() > 0;
    const bool hasColour = format.hasProperty(QTextFormat::ForegroundBrush);
    const double standardPoints = standard_.pointSizeF() > 0 ? standard_.pointSizeF() : Letters().Points;
    return {.Family = format.fontFamilies().toStringList().value(0, standard_.family()),
            .Monospaced = format.fontStyleHint() == QFont::Monospace,
            .Points = hasPoints ? format.fontPointSize() : standardPoints,
            .Colour = hasColour ? format.foreground().color().rgb() : qRgb(0, 0, 0),
            .Bold = format.fontWeight() >= QFont::DemiBold,
            .Italic = format.fontItalic(),
            .Underlined = format.fontUnderline()};
  }

  const DocumentPart& part_;
  DocumentVisitor& visitor_;
  const QFont standard_;
  QHash<int, Letters> letters_;
  bool inTable_ = false;
  bool staysWithNext_ = false;
  Letters runLetters_;
  QString run_;
};

}  // namespace

DocumentPart::DocumentPart(const QTextDocument& document)
    : Document(document), Begin(0), End(document.characterCount() - 1) {}

DocumentPart::DocumentPart(const QTextCursor& selection)
    : Document(*selection.document()), Begin(selection.selectionStart()), End(selection.selectionEnd()) {}

QString TitleOf(const DocumentPart& part) {
  return part.Document.metaInformation(QTextDocument::DocumentTitle);
}

void Walk(const DocumentPart& part, DocumentVisitor& visitor) { Walker(part, visitor).Walk(); }
