// Rich text that becomes a file as it arrives: a report of millions of cells never stands in memory as a
// document.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "paper/FileFormats.h"
#include "paper/RichText.h"
#include "paper/qt/DocumentWalk.h"

/// Gives byte for byte what QtRichText and the writer of the format give of the same text, where every table
/// ends with a line break.
class FileText final : public RichText {
 public:
  /// `format` is none with pages (Pdf). `clipboard` gives the bitmap that Paste puts in.
  FileText(DocumentFileFormat format, const QString& title, std::function<QImage()> clipboard);

  /// To be asked for once, after the last text. Empty when they could not be made.
  ManyBytes Take();
  QByteArray TakeBytes();

 private:
  // Letters that look the same, or a picture.
  struct Piece {
    Letters Look;
    QString Text;
    QImage Image;
    QSizeF Size;
    QString Description;
  };

  void AppendText(std::string_view text, const CharacterFormat& format, LineRole role) override;
  bool PastePicture(std::string_view description) override;

  void AppendLetters(QStringView letters, const CharacterFormat& format, LineRole role);
  void EndParagraph(bool ended);
  bool IsBlank() const;
  QString LineBefore() const;
  const Letters& FirstLetters() const;
  const Letters& Remembered(const CharacterFormat& format);

  std::unique_ptr<DocumentWriter> writer_;
  std::function<QImage()> clipboard_;
  std::vector<std::pair<CharacterFormat, Letters>> looks_;  // the few that were used so far

  // Of the paragraph that is being written.
  std::vector<Piece> pieces_;
  Letters lookIfEmpty_;
  LineRole role_ = LineRole::Text;
  bool wraps_ = true;

  bool inTable_ = false;
  bool staysWithNext_ = false;
  bool isFirst_ = true;
};
