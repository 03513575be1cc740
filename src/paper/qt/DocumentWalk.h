// Going through a text document in the order in which it is read: what all forms of rich text are written
// from.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QString>
#include <QTextBlock>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>

#include "paper/RichText.h"
#include "platform/ManyBytes.h"

/// A whole document, or what a cursor has selected of one.
struct DocumentPart {
  DocumentPart(const QTextDocument& document);  // NOLINT(google-explicit-constructor)
  DocumentPart(const QTextCursor& selection);   // NOLINT(google-explicit-constructor)

  const QTextDocument& Document;
  int Begin, End;  ///< positions; what stands at `End` is not part of it
};

/// How letters look, with what the document says where their own format says nothing.
struct Letters {
  QString Family;
  bool Monospaced = false;
  double Points = 10;
  QRgb Colour = qRgb(0, 0, 0);
  bool Bold = false, Italic = false, Underlined = false;

  friend bool operator==(const Letters&, const Letters&) = default;
};

struct Paragraph {
  Letters First;                   ///< of its first run; of an empty paragraph, those that it would have
  LineRole Role = LineRole::Text;  ///< rows have theirs between BeginTable and EndTable only
  bool Wraps = true;
  bool StaysWithNext = false;  ///< not to end a page; so are the blank lines below such a one

  int HeadingLevel() const { return ::HeadingLevel(Role); }

  /// Not to be broken by a page's end.
  bool StaysWhole() const { return Role == LineRole::Joined || Role == LineRole::JoinedLast; }
};

class DocumentVisitor {
 public:
  DocumentVisitor() = default;
  DocumentVisitor(const DocumentVisitor&) = delete;
  DocumentVisitor& operator=(const DocumentVisitor&) = delete;
  virtual ~DocumentVisitor() = default;

  /// Around the rows of a table, each of which is a paragraph. A table of which the part has not every row is
  /// none: its rows are text then.
  virtual void BeginTable() {}
  virtual void EndTable() {}

  virtual void BeginParagraph(const Paragraph& paragraph) = 0;

  /// Runs that follow one another look different. The text has no line ends but U+2028.
  virtual void Run(const Letters& letters, const QString& text) = 0;
  /// `size` is that at which it is shown, in pixels of 96 to the inch.
  virtual void Picture(const QImage& image, const QSizeF& size, const QString& description) = 0;

  /// `ended`: its end belongs to the part, too, so that another paragraph begins.
  virtual void EndParagraph(bool ended) = 0;
};

/// A visitor that makes a file of what it sees.
class DocumentWriter : public DocumentVisitor {
 public:
  /// The file's bytes; none when they could not be made. To be asked for once, when everything was visited.
  virtual ManyBytes Take() = 0;
};

/// What the document's own information calls it; empty when it says nothing.
QString TitleOf(const DocumentPart& part);

/// A part that holds nothing has one empty paragraph. What comes after the last end of a paragraph is a
/// paragraph only if it holds something.
void Walk(const DocumentPart& part, DocumentVisitor& visitor);
