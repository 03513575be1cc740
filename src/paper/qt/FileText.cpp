#include "paper/qt/FileText.h"

#include <algorithm>

#include "paper/qt/AppendedText.h"
#include "paper/qt/DocumentImages.h"
#include "paper/qt/HtmlWriter.h"
#include "paper/qt/OdtWriter.h"
#include "paper/qt/RtfWriter.h"
#include "paper/qt/SpooledBytes.h"

namespace {

std::unique_ptr<DocumentWriter> NewWriter(DocumentFileFormat format, const QString& title) {
  switch (format) {
    case DocumentFileFormat::Rtf:
      return NewRtfWriter(title, FamilyName(FontFamily::Proportional));
    case DocumentFileFormat::Odt:
      return NewOdtWriter(title);
    default:
      return NewHtmlWriter(title);
  }
}

Letters LettersIn(const CharacterFormat& format) {
  return {.Family = FamilyName(format.Family),
          .Monospaced = format.Family == FontFamily::Monospaced,
          .Points = double{format.Points},
          .Colour = ColourOf(format).rgb(),
          .Bold = format.Bold,
          .Italic = format.Italic,
          .Underlined = format.Underlined};
}

}  // namespace

FileText::FileText(DocumentFileFormat format, const QString& title, std::function<QImage()> clipboard)
    : writer_(NewWriter(format, title)),
      clipboard_(std::move(clipboard)),
      lookIfEmpty_(LettersIn(CharacterFormat())) {}

void FileText::AppendText(std::string_view text, const CharacterFormat& format, LineRole role) {
  const auto endLine = [&] {
    EndParagraph(true);
    lookIfEmpty_ = Remembered(format);
  };
  ReadLines(
      text, [&](QStringView letters) { AppendLetters(letters, format, role); }, endLine);
}

void FileText::AppendLetters(QStringView letters, const CharacterFormat& format, LineRole role) {
  const bool monospaced = format.Family == FontFamily::Monospaced;
  if (pieces_.empty()) {
    role_ = role;
    wraps_ = !monospaced;
  } else if (!monospaced) {
    wraps_ = true;
  }
  const Letters& look = Remembered(format);
  if (pieces_.empty() || !pieces_.back().Image.isNull() || pieces_.back().Look != look)
    pieces_.push_back({.Look = look, .Text = {}, .Image = {}, .Size = {}, .Description = {}});
  pieces_.back().Text += letters;
}

bool FileText::PastePicture(std::string_view description) {
  const QImage image = clipboard_ ? clipboard_() : QImage();
  if (image.isNull()) return false;
  const QString line = LineBefore();
  pieces_.push_back(
      {.Look = {},
       .Text = {},
       .Image = image,
       .Size = SizeOnPage(image, line),
       .Description = QString::fromUtf8(description.data(), static_cast<qsizetype>(description.size()))});
  wraps_ = false;
  return true;
}

void FileText::EndParagraph(bool ended) {
  if (inTable_ && !IsBodyRow(role_)) {
    inTable_ = false;
    writer_->EndTable();
  }
  if (role_ == LineRole::TableHeader) {
    inTable_ = true;
    writer_->BeginTable();
  }
  const bool isTextOfTable = IsRow(role_) && !inTable_;
  if (!IsBlank()) staysWithNext_ = StaysWithNext(role_) && !isTextOfTable;
  writer_->BeginParagraph({.First = FirstLetters(),
                           .Role = isTextOfTable ? LineRole::Text : role_,
                           .Wraps = wraps_,
                           .StaysWithNext = staysWithNext_});
  for (const Piece& piece : pieces_) {
    if (piece.Image.isNull()) {
      writer_->Run(piece.Look, piece.Text);
    } else {
      writer_->Picture(piece.Image, piece.Size, piece.Description);
    }
  }
  writer_->EndParagraph(ended);
  pieces_.clear();
  role_ = LineRole::Text;
  wraps_ = true;
  isFirst_ = false;
}

ManyBytes FileText::Take() {
  if (isFirst_ || !pieces_.empty()) EndParagraph(IsRow(role_));
  if (inTable_) writer_->EndTable();
  return writer_->Take();
}

QByteArray FileText::TakeBytes() { return Joined(Take()); }

bool FileText::IsBlank() const {
  return std::ranges::all_of(pieces_, [](const Piece& piece) {
    return piece.Image.isNull() &&
           std::ranges::all_of(piece.Text, [](QChar letter) { return letter.isSpace(); });
  });
}

// A picture in it is a character like others.
QString FileText::LineBefore() const {
  QString line;
  for (const Piece& piece : pieces_)
    line += piece.Image.isNull() ? piece.Text : QString(QChar(QChar::ObjectReplacementCharacter));
  return line;
}

const Letters& FileText::FirstLetters() const {
  const auto first = std::ranges::find_if(pieces_, [](const Piece& piece) { return piece.Image.isNull(); });
  return first != pieces_.end() ? first->Look : lookIfEmpty_;
}

const Letters& FileText::Remembered(const CharacterFormat& format) {
  const auto found = std::ranges::find(
      looks_, format, [](const auto& known) -> const auto& { return known.first; });
  return found != looks_.end() ? found->second : looks_.emplace_back(format, LettersIn(format)).second;
}
