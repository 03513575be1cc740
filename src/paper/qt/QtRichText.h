// Rich text in a QTextDocument.
#pragma once

#include <QImage>
#include <QTextBlock>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <functional>
#include <utility>
#include <vector>

#include "paper/RichText.h"

/// The format as a QTextDocument has it; family names are "Arial" and "Courier New".
QTextCharFormat ToQt(const CharacterFormat& format);

/// What a line of a document is. Text, unless QtRichText has written it as something else.
LineRole RoleOf(const QTextBlock& line);

/// Appends to a document. Lines that are monospaced throughout, and those with a picture, do not wrap.
/// Pictures become images of the document named "picture1.png", "picture2.png" ..., shown at their own size
/// but not larger than a page has room for, where tabs before a picture take 48 pixels each; their
/// descriptions are their alternative texts. Control characters become blanks, and characters that no file
/// can hold U+FFFD.
class QtRichText final : public RichText {
 public:
  /// `clipboard` gives the bitmap that Paste puts in. The document must outlive this object; its undo history
  /// is switched off, its letters are Arial of 10 points where nothing else is said, and its tab stops stand
  /// half an inch apart. A document that no widget shows is not laid out while it grows.
  QtRichText(QTextDocument& document, std::function<QImage()> clipboard);

 private:
  void AppendText(std::string_view text, const CharacterFormat& format, LineRole role) override;
  bool PastePicture(std::string_view description) override;

  const QTextCharFormat& Remembered(const CharacterFormat& format);
  void FormatLine(LineRole role, bool wraps);
  void SetWrapping(bool wraps);

  QTextDocument& document_;
  QTextCursor end_;
  std::function<QImage()> clipboard_;
  std::vector<std::pair<CharacterFormat, QTextCharFormat>> formats_;  // the few that were used so far
  int numPictures_ = 0;
};
