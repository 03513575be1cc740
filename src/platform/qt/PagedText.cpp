// See the header.
#include "platform/qt/PagedText.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/qt/PageBlocks.h"
#include "platform/qt/PaperPages.h"
#include "platform/qt/QtText.h"

namespace {

// So many lines stay with the heading above them.
constexpr int LinesBelowHeading = 2;

bool IsBlank(const QString& text) {
  return std::ranges::all_of(text, [](QChar letter) { return letter.isSpace(); });
}

qsizetype FirstBreak(QStringView text) {
  const auto isBreak = [](QChar letter) {
    return letter == QChar::CarriageReturn || letter == QChar::LineFeed;
  };
  return std::ranges::find_if(text, isBreak) - text.begin();
}

}  // namespace

float TextWidth(const QPagedPaintDevice& device) {
  return static_cast<float>(device.pageLayout().paintRect(QPageLayout::Point).width());
}

class PagedText::Pages {
 public:
  Pages(QPagedPaintDevice& device, QPainter& painter, const PictureShelf& shelf, QString footer)
      : shelf_(shelf), paper_(device, painter, std::move(footer)), fonts_(device) {}

  void Append(QStringView text, const CharacterFormat& format);
  void Paste();
  int Finish();
  bool Refused() const { return paper_.Refused(); }

 private:
  struct Held {
    std::unique_ptr<PageBlock> Block;
    bool IsHeading = false, IsBlank = false;
  };

  void AppendLetters(QStringView letters, const CharacterFormat& format);
  void EndParagraph(const CharacterFormat& format);
  void PlaceParagraph();
  void Add(Held next);
  double HeldHeight() const;
  void KeepHeldTogether();
  void PlaceHeld();
  void Place(const Held& next);

  const PictureShelf& shelf_;
  PaperPages paper_;
  PaperFonts fonts_;
  TextParagraph paragraph_;
  std::vector<Held> held_;  // headings, and what is to stand on the same page
  int linesHeld_ = 0;       // below the headings, without blank ones
  bool afterReturn_ = false;
  bool afterPicture_ = false;
};

void PagedText::Pages::Append(QStringView text, const CharacterFormat& format) {
  while (!text.isEmpty()) {
    if (afterReturn_ && text.front() == QChar::LineFeed) {
      afterReturn_ = false;
      text = text.sliced(1);
      continue;
    }
    const qsizetype length = FirstBreak(text);
    AppendLetters(text.first(length), format);
    afterReturn_ = false;
    if (length == text.size()) return;
    afterReturn_ = text[length] == QChar::CarriageReturn;
    EndParagraph(format);
    text = text.sliced(length + 1);
  }
}

void PagedText::Pages::AppendLetters(QStringView letters, const CharacterFormat& format) {
  if (letters.isEmpty()) return;
  paragraph_.Text += letters;
  if (paragraph_.Runs.empty() || paragraph_.Runs.back().Format != format) {
    paragraph_.Runs.push_back({format, 0});
  }
  paragraph_.Runs.back().Length += letters.size();
}

void PagedText::Pages::EndParagraph(const CharacterFormat& format) {
  const bool endsPicture = std::exchange(afterPicture_, false);
  if (endsPicture && paragraph_.Text.isEmpty()) return;
  if (paragraph_.Runs.empty()) paragraph_.Runs.push_back({format, 0});
  PlaceParagraph();
}

void PagedText::Pages::PlaceParagraph() {
  const TextParagraph paragraph = std::exchange(paragraph_, {});
  Add({TextBlock(paragraph, fonts_, paper_), paragraph.IsHeading(), IsBlank(paragraph.Text)});
}

void PagedText::Pages::Paste() {
  if (shelf_.Held() == nullptr) return;
  // Text in the picture's own line stands above it; blanks indent it.
  if (!IsBlank(paragraph_.Text)) PlaceParagraph();
  const TextParagraph indent = std::exchange(paragraph_, {});
  auto block = PictureBlock(*shelf_.Held(), indent, paper_);
  if (block == nullptr) return;
  afterPicture_ = true;
  Add({std::move(block)});
}

void PagedText::Pages::Add(Held next) {
  if (next.IsHeading && linesHeld_ > 0) {
    KeepHeldTogether();
    PlaceHeld();
  }
  if (!next.IsHeading && held_.empty()) return Place(next);
  if (!next.IsHeading && !next.IsBlank) {
    linesHeld_ += next.Block->IsWhole() ? LinesBelowHeading : next.Block->NumLines();
  }
  held_.push_back(std::move(next));
  if (linesHeld_ >= LinesBelowHeading) {
    KeepHeldTogether();
    PlaceHeld();
  } else if (HeldHeight() > paper_.TextHeight() / 2) {
    PlaceHeld();  // headings that go on and on are text
  }
}

double PagedText::Pages::HeldHeight() const {
  double height = 0;
  int body = 0;
  for (const Held& held : held_) {
    const bool isBody = !held.IsHeading && !held.IsBlank;
    height += held.Block->HeightOfFirst(isBody ? LinesBelowHeading - body : held.Block->NumLines());
    if (isBody) body += held.Block->NumLines();
  }
  return height;
}

void PagedText::Pages::KeepHeldTogether() {
  if (held_.empty()) return;
  // A picture leaves room for its heading, but not less than half a page for itself.
  if (held_.back().Block->IsWhole()) {
    PageBlock& picture = *held_.back().Block;
    const double above = HeldHeight() - picture.HeightOfFirst(1);
    picture.LimitHeight(std::max(paper_.TextHeight() - above, paper_.TextHeight() / 2));
  }
  if (!paper_.Fits(HeldHeight()) && !paper_.AtTop()) paper_.Break();
}

void PagedText::Pages::PlaceHeld() {
  for (const Held& held : held_) Place(held);
  held_.clear();
  linesHeld_ = 0;
}

void PagedText::Pages::Place(const Held& next) {
  if (paper_.Refused()) return;
  PageBlock& block = *next.Block;
  if (next.IsBlank) return paper_.Skip(block.HeightOfFirst(block.NumLines()));
  block.LimitHeight(paper_.TextHeight());
  for (int line = 0; line < block.NumLines(); ++line) {
    const double top = paper_.Take(block.Height(line));
    if (paper_.Refused()) return;
    block.Paint(paper_.Painter(), line, top);
  }
}

int PagedText::Pages::Finish() {
  if (!paragraph_.Text.isEmpty()) PlaceParagraph();
  KeepHeldTogether();
  PlaceHeld();
  return paper_.Number();
}

PagedText::PagedText(QPagedPaintDevice& device, QPainter& painter, const PictureShelf& shelf, QString footer)
    : pages_(std::make_unique<Pages>(device, painter, shelf, std::move(footer))) {}

PagedText::~PagedText() = default;

void PagedText::Append(std::string_view text, const CharacterFormat& format) {
  QString letters = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  MakePrintable(letters);
  pages_->Append(letters, format);
}

void PagedText::Paste() { pages_->Paste(); }

int PagedText::Finish() { return pages_->Finish(); }

bool PagedText::Refused() const { return pages_->Refused(); }
