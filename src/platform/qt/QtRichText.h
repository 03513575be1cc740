// Rich text in a QTextDocument.
#pragma once

#include <QImage>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <functional>
#include <utility>
#include <vector>

#include "platform/RichText.h"

/// The text of an A4 page with margins of 20 mm, in pixels of 96 to the inch: 480 points wide and 660 points
/// high. Pictures are not shown larger; tabs before a picture take 48 pixels each of the width.
inline constexpr double PageTextWidth = 640, PageTextHeight = 880;

/// The format as a QTextDocument has it; family names are "Arial" and "Courier New".
QTextCharFormat ToQt(const CharacterFormat& format);

/// Appends to a document. Lines that are monospaced throughout, and those with a picture, do not wrap.
/// Pictures become images of the document named "picture1.png", "picture2.png" ..., shown at their own size
/// but not larger than a page's text. Control characters become blanks, and characters that no file can hold
/// U+FFFD.
class QtRichText final : public RichText {
 public:
  /// `clipboard` gives the bitmap that Paste puts in. The document must outlive this object; its undo history
  /// is switched off, its letters are Arial of 10 points where nothing else is said, and its tab stops stand
  /// half an inch apart. A document that no widget shows is not laid out while it grows.
  QtRichText(QTextDocument& document, std::function<QImage()> clipboard);

  void Append(std::string_view text, const CharacterFormat& format) override;
  void Paste() override;

 private:
  const QTextCharFormat& Remembered(const CharacterFormat& format);
  void InsertIntoLine(const QString& text, const QTextCharFormat& format, bool monospaced);
  void SetWrapping(bool wraps);

  QTextDocument& document_;
  QTextCursor end_;
  std::function<QImage()> clipboard_;
  std::vector<std::pair<CharacterFormat, QTextCharFormat>> formats_;  // the few that were used so far
  int numPictures_ = 0;
};
