// Rich text in a QTextDocument.
#pragma once

#include <QImage>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <functional>

#include "platform/RichText.h"

/// The format as a QTextDocument has it; family names are "Arial" and "Courier New".
QTextCharFormat ToQt(const CharacterFormat& format);

/// Appends to a document. Lines that are monospaced throughout do not wrap. Pictures become images of the
/// document named "picture1.png", "picture2.png" ..., shown at their own size but not larger than a page's
/// text.
class QtRichText final : public RichText {
 public:
  /// `clipboard` gives the bitmap that Paste puts in. The document must outlive this object; its undo history
  /// is switched off.
  QtRichText(QTextDocument& document, std::function<QImage()> clipboard);

  void Append(std::string_view text, const CharacterFormat& format) override;
  void Paste() override;

 private:
  QTextDocument& document_;
  QTextCursor end_;
  std::function<QImage()> clipboard_;
  int numPictures_ = 0;
};
