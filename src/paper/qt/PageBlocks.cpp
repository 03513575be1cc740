#include "paper/qt/PageBlocks.h"

#include <QFontMetricsF>
#include <QGlyphRun>
#include <QImage>
#include <QPaintEngine>
#include <QTextOption>
#include <algorithm>
#include <cmath>
#include <utility>

#include "paper/qt/QtRichText.h"
#include "platform/qt/QtSurface.h"

namespace {

constexpr double TabInches = 0.5;

// Tab stops are told to a layout in dots of the toolkit's screen, whatever device its text is for; an image
// that was told nothing has that resolution.
double TabStopDistance() { return TabInches * QImage(1, 1, QImage::Format_RGB32).logicalDpiY(); }

std::unique_ptr<QTextLayout> LayOut(const TextParagraph& paragraph, PaperPages& pages) {
  const QFont font = ToQt(paragraph.Runs.front().Format).font();
  auto layout = std::make_unique<QTextLayout>(paragraph.Text, font, &pages.Device());
  QTextOption option;
  const bool wraps = !paragraph.IsMonospaced();
  option.setWrapMode(wraps ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
  option.setTabStopDistance(TabStopDistance());
  layout->setTextOption(option);

  QList<QTextLayout::FormatRange> ranges;
  int start = 0;
  for (const TextRun& run : paragraph.Runs) {
    const int length = static_cast<int>(run.Length);
    ranges.append({start, length, ToQt(run.Format)});
    start += length;
  }
  layout->setFormats(ranges);

  layout->beginLayout();
  double top = 0;
  for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
    line.setLeadingIncluded(true);
    line.setLineWidth(pages.TextWidth());
    line.setPosition(QPointF(0, top));
    top += line.height();
  }
  layout->endLayout();
  return layout;
}

class Wrapped final : public PageBlock {
 public:
  Wrapped(const TextParagraph& paragraph, PaperPages& pages) : layout_(LayOut(paragraph, pages)) {}

  int NumLines() const override { return layout_->lineCount(); }
  double Height(int line) const override { return layout_->lineAt(line).height(); }
  void Paint(QPainter& painter, int line, double top) override {
    const QTextLine shown = layout_->lineAt(line);
    painter.setPen(Qt::black);
    shown.draw(&painter, QPointF(0, top - shown.y()));
  }

 private:
  std::unique_ptr<QTextLayout> layout_;
};

// The letters, each in its column, without the toolkit's layout of texts, which takes a third of the time of
// a long document. False where that cannot be: a file of pages takes letters by themselves, but not all that
// is painted on does (the preview keeps texts), not every letter is one of the font's, and a line below them
// is not drawn.
bool DrawColumns(QPainter& painter, const PaperFont& font, QPointF start, const QString& text) {
  if (painter.paintEngine()->type() != QPaintEngine::Pdf || font.Font.underline()) return false;
  const QList<quint32> all = font.Glyphs.glyphIndexesForString(text);
  if (all.size() != text.size() || all.contains(0)) return false;
  QList<quint32> letters;
  QList<QPointF> places;
  for (qsizetype column = 0; column < all.size(); ++column) {
    // Of blanks between two columns of a table one is enough for readers that take the words out again.
    if (column > 0 && text[column] == u' ' && text[column - 1] == u' ') continue;
    letters.append(all[column]);
    places.append(QPointF(font.Advance * static_cast<double>(column), 0));
  }
  QGlyphRun run;
  run.setRawFont(font.Glyphs);
  run.setGlyphIndexes(letters);
  run.setPositions(places);
  painter.drawGlyphRun(start, run);
  return true;
}

// Characters of equal width need no layout: a run begins at its column. Whole characters beyond the paper's
// edge are left out.
class Row final : public PageBlock {
 public:
  Row(const TextParagraph& paragraph, PaperFonts& fonts, const PaperPages& pages) {
    double left = 0;
    qsizetype start = 0;
    for (const TextRun& run : paragraph.Runs) {
      const PaperFont& font = fonts.Of(run.Format);
      ascent_ = std::max(ascent_, font.Ascent);
      height_ = std::max(height_, font.Height);
      const auto room = static_cast<qsizetype>((pages.PaperWidth() - left) / font.Advance);
      const qsizetype length = std::clamp<qsizetype>(room, 0, run.Length);
      if (length > 0) pieces_.push_back({&font, left, paragraph.Text.mid(start, length)});
      left += font.Advance * static_cast<double>(run.Length);
      start += run.Length;
    }
  }

  int NumLines() const override { return 1; }
  double Height(int) const override { return height_; }
  void Paint(QPainter& painter, int, double top) override {
    for (const Piece& piece : pieces_) {
      painter.setFont(piece.Font->Font);
      painter.setPen(piece.Font->Colour);
      const QPointF start(piece.Left, top + ascent_);
      if (!DrawColumns(painter, *piece.Font, start, piece.Text)) painter.drawText(start, piece.Text);
    }
  }

 private:
  struct Piece {
    const PaperFont* Font;
    double Left;
    QString Text;
  };
  std::vector<Piece> pieces_;
  double ascent_ = 0, height_ = 0;
};

class Shown final : public PageBlock {
 public:
  Shown(const Picture& picture, double left, double room, QSizeF pixel)
      : picture_(picture),
        frame_(picture.Frame()),
        left_(left),
        pixel_(pixel * std::min(1.0, room / (double{frame_.Width()} * pixel.width()))) {}

  int NumLines() const override { return 1; }
  double Height(int) const override { return double{frame_.Height()} * pixel_.height(); }
  bool IsWhole() const override { return true; }
  void LimitHeight(double limit) override {
    if (Height(0) > limit) pixel_ *= limit / Height(0);
  }

  void Paint(QPainter& painter, int, double top) override {
    painter.save();
    painter.translate(left_, top);
    painter.scale(pixel_.width(), pixel_.height());
    painter.translate(-double{frame_.Left}, -double{frame_.Top});
    const QRectF area(QPointF(double{frame_.Left}, double{frame_.Top}),
                      QPointF(double{frame_.Right}, double{frame_.Bottom}));
    QtSurface surface(painter, area);
    picture_.DrawOn(surface);
    painter.restore();
  }

 private:
  Picture picture_;
  PixelRect frame_;
  double left_;
  QSizeF pixel_;
};

// Letters that a monospaced font has in one width. Anything beyond, and a tab, is laid out in full.
bool HasColumns(const QString& text) {
  return std::ranges::none_of(text, [](QChar c) { return c == QChar::Tabulation || c >= QChar(0x2200); });
}

}  // namespace

const PaperFont& PaperFonts::Of(const CharacterFormat& format) {
  const auto found = std::ranges::find(fonts_, format, [](const auto& font) { return font->Format; });
  if (found != fonts_.end()) return **found;
  const QTextCharFormat qtFormat = ToQt(format);
  const QFont font(qtFormat.font(), &device_);
  const QFontMetricsF metrics(font, &device_);
  fonts_.push_back(std::make_unique<PaperFont>(
      PaperFont{format, font, QRawFont::fromFont(font), qtFormat.foreground().color(),
                metrics.horizontalAdvance(QLatin1Char('0')), metrics.ascent(),
                metrics.height() + std::max(0.0, metrics.leading())}));
  return *fonts_.back();
}

bool TextParagraph::IsMonospaced() const {
  return std::ranges::all_of(Runs,
                             [](const TextRun& run) { return run.Format.Family == FontFamily::Monospaced; });
}

double PageBlock::HeightOfFirst(int lines) const {
  double height = 0;
  for (int line = 0; line < std::min(lines, NumLines()); ++line) height += Height(line);
  return height;
}

std::unique_ptr<PageBlock> TextBlock(const TextParagraph& paragraph, PaperFonts& fonts, PaperPages& pages) {
  if (paragraph.IsMonospaced() && HasColumns(paragraph.Text)) {
    return std::make_unique<Row>(paragraph, fonts, pages);
  }
  return std::make_unique<Wrapped>(paragraph, pages);
}

std::unique_ptr<PageBlock> PictureBlock(const Picture& picture, const TextParagraph& indent,
                                        PaperPages& pages) {
  const PixelRect frame = picture.Frame();
  if (!(frame.Width() > 0 && frame.Height() > 0)) return nullptr;
  double left = 0;
  if (!indent.Text.isEmpty()) {
    const auto layout = LayOut(indent, pages);
    left = layout->lineAt(0).cursorToX(static_cast<int>(indent.Text.size()));
  }
  // Something is left for the picture on the narrowest paper too.
  left = std::clamp(left, 0.0, pages.TextWidth() / 2);
  return std::make_unique<Shown>(picture, left, pages.TextWidth() - left, pages.PixelOfScreen());
}
