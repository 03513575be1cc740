#include "paper/qt/PagedText.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "paper/qt/PageBlocks.h"
#include "paper/qt/PaperPages.h"
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
  Pages(QPagedPaintDevice& device, QPainter& painter, const PictureShelf& shelf, QString footer,
        PaperPages::NextPage nextPage)
      : shelf_(shelf), paper_(device, painter, std::move(footer), std::move(nextPage)), fonts_(device) {}

  void Append(QStringView text, const CharacterFormat& format, LineRole role);
  bool Paste();
  int Finish();
  bool Refused() const { return paper_.Refused(); }

 private:
  struct Held {
    std::unique_ptr<PageBlock> Block;
    LineRole Role = LineRole::Text;
    bool IsBlank = false;

    bool IsBody() const { return !IsBlank && !IsHeading(Role); }

    // As much of it as stays with what is held before it, of which so many lines are no headings.
    double KeptHeight(int linesBefore) const {
      const bool isText = IsBody() && Role == LineRole::Text;
      return Block->HeightOfFirst(isText ? LinesBelowHeading - linesBefore : Block->NumLines());
    }
  };

  void AppendLetters(QStringView letters, const CharacterFormat& format, LineRole role);
  void EndParagraph(const CharacterFormat& format);
  void PlaceParagraph();
  void Add(Held next);
  double HeldHeight() const;
  void BeginPage(const QString& title);
  void KeepHeldTogether();
  void PlaceHeld();
  void Place(Held next);
  void PaintLines(PageBlock& block);
  void AddRow(Held row);
  void PlaceLastRows();
  void ContinueTable(double height);

  const PictureShelf& shelf_;
  PaperPages paper_;
  PaperFonts fonts_;
  TextParagraph paragraph_;
  std::vector<Held> held_;                  // what is to stand on the same page
  int linesHeld_ = 0;                       // without headings and blank ones
  std::unique_ptr<PageBlock> tableHeader_;  // of the table that is being placed
  std::vector<Held> lastRows_;              // of it, up to two that may be its last
  bool afterReturn_ = false;
  bool afterPicture_ = false;
};

void PagedText::Pages::Append(QStringView text, const CharacterFormat& format, LineRole role) {
  while (!text.isEmpty()) {
    if (afterReturn_ && text.front() == QChar::LineFeed) {
      afterReturn_ = false;
      text = text.sliced(1);
      continue;
    }
    const qsizetype length = FirstBreak(text);
    AppendLetters(text.first(length), format, role);
    afterReturn_ = false;
    if (length == text.size()) return;
    afterReturn_ = text[length] == QChar::CarriageReturn;
    EndParagraph(format);
    text = text.sliced(length + 1);
  }
}

void PagedText::Pages::AppendLetters(QStringView letters, const CharacterFormat& format, LineRole role) {
  if (letters.isEmpty()) return;
  if (paragraph_.Text.isEmpty()) paragraph_.Role = role;
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
  if (paragraph.Role == LineRole::PageTitle) BeginPage(paragraph.Text);
  Add({TextBlock(paragraph, fonts_, paper_), paragraph.Role, IsBlank(paragraph.Text)});
}

bool PagedText::Pages::Paste() {
  if (shelf_.Held() == nullptr) return false;
  // Text in the picture's own line stands above it; blanks indent it.
  if (!IsBlank(paragraph_.Text)) PlaceParagraph();
  const TextParagraph indent = std::exchange(paragraph_, {});
  auto block = PictureBlock(*shelf_.Held(), indent, paper_);
  if (block == nullptr) return true;
  afterPicture_ = true;
  Add({std::move(block)});
  return true;
}

// Held lines are placed with the first line that does not stay with the next, once there are enough of them.
void PagedText::Pages::Add(Held next) {
  if (next.Role != LineRole::TableRow) PlaceLastRows();
  if (IsHeading(next.Role) && linesHeld_ > 0) {
    KeepHeldTogether();
    PlaceHeld();
  }
  if (held_.empty() && next.Role == LineRole::TableRow) return AddRow(std::move(next));
  if (held_.empty() && next.Role == LineRole::Text) return Place(std::move(next));
  if (next.IsBody()) linesHeld_ += next.Block->IsWhole() ? LinesBelowHeading : next.Block->NumLines();
  const bool ends = !next.IsBlank && !StaysWithNext(next.Role);
  const bool isEnough = next.Role != LineRole::Text || linesHeld_ >= LinesBelowHeading;
  held_.push_back(std::move(next));
  if (ends && isEnough) {
    KeepHeldTogether();
    PlaceHeld();
  } else if (HeldHeight() > (linesHeld_ > 0 ? paper_.TextHeight() : paper_.TextHeight() / 2)) {
    PlaceHeld();  // what goes on and on is text
  }
}

// The last row of a table takes the one above it to the next page, so that none stands there alone.
void PagedText::Pages::AddRow(Held row) {
  lastRows_.push_back(std::move(row));
  if (lastRows_.size() <= 2) return;
  Place(std::move(lastRows_.front()));
  lastRows_.erase(lastRows_.begin());
}

void PagedText::Pages::PlaceLastRows() {
  double height = 0;
  for (const Held& row : lastRows_) height += row.Block->HeightOfFirst(row.Block->NumLines());
  if (height > 0) ContinueTable(height);
  for (Held& row : lastRows_) Place(std::move(row));
  lastRows_.clear();
}

void PagedText::Pages::BeginPage(const QString& title) {
  PlaceLastRows();
  KeepHeldTogether();
  PlaceHeld();
  if (!paper_.AtTop()) paper_.Break();
  paper_.SetPart(title);
}

double PagedText::Pages::HeldHeight() const {
  double height = 0;
  int lines = 0;
  for (const Held& held : held_) {
    height += held.KeptHeight(lines);
    if (held.IsBody()) lines += held.Block->NumLines();
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
  for (Held& held : held_) Place(std::move(held));
  held_.clear();
  linesHeld_ = 0;
}

void PagedText::Pages::Place(Held next) {
  if (paper_.Refused()) return;
  if (!IsRow(next.Role)) tableHeader_.reset();
  PageBlock& block = *next.Block;
  if (next.IsBlank) return paper_.Skip(block.HeightOfFirst(block.NumLines()));
  block.LimitHeight(paper_.TextHeight());
  if (IsBodyRow(next.Role)) ContinueTable(block.HeightOfFirst(block.NumLines()));
  PaintLines(block);
  if (next.Role == LineRole::TableHeader) tableHeader_ = std::move(next.Block);
}

void PagedText::Pages::PaintLines(PageBlock& block) {
  for (int line = 0; line < block.NumLines(); ++line) {
    const double top = paper_.Take(block.Height(line));
    if (paper_.Refused()) return;
    block.Paint(paper_.Painter(), line, top);
  }
}

// Begins the next page with the table's header when rows of this height do not fit on this one.
void PagedText::Pages::ContinueTable(double height) {
  if (tableHeader_ == nullptr || paper_.AtTop() || paper_.Fits(height)) return;
  paper_.Break();
  const double headerHeight = tableHeader_->HeightOfFirst(tableHeader_->NumLines());
  if (!paper_.Refused() && headerHeight + height <= paper_.TextHeight()) PaintLines(*tableHeader_);
}

int PagedText::Pages::Finish() {
  if (!paragraph_.Text.isEmpty()) PlaceParagraph();
  PlaceLastRows();
  KeepHeldTogether();
  PlaceHeld();
  paper_.Finish();
  return paper_.Number();
}

PagedText::PagedText(QPagedPaintDevice& device, QPainter& painter, const PictureShelf& shelf, QString footer,
                     std::function<bool()> nextPage)
    : pages_(std::make_unique<Pages>(device, painter, shelf, std::move(footer), std::move(nextPage))) {}

PagedText::~PagedText() = default;

void PagedText::AppendText(std::string_view text, const CharacterFormat& format, LineRole role) {
  QString letters = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  MakePrintable(letters);
  pages_->Append(letters, format, role);
}

// Pages say nothing of what they show.
bool PagedText::PastePicture(std::string_view) { return pages_->Paste(); }

int PagedText::Finish() { return pages_->Finish(); }

bool PagedText::Refused() const { return pages_->Refused(); }
