// What stands on paper below each other: wrapped paragraphs, rows of monospaced tables, pictures. Each is
// laid out for a device and then painted line by line.
#pragma once

#include <QColor>
#include <QFont>
#include <QRawFont>
#include <QTextLayout>
#include <memory>
#include <vector>

#include "paper/RichText.h"
#include "paper/qt/PaperPages.h"
#include "platform/Picture.h"

/// A format as it is painted on a device; lengths in dots.
struct PaperFont {
  CharacterFormat Format;
  QFont Font;
  QRawFont Glyphs;  ///< of the same font
  QColor Colour;
  double Advance = 0;  ///< of one character of a monospaced font
  double Ascent = 0, Height = 0;
};

/// The formats met so far. References stay valid as long as this object lives.
class PaperFonts {
 public:
  explicit PaperFonts(const QPaintDevice& device) : device_(device) {}
  const PaperFont& Of(const CharacterFormat& format);

 private:
  const QPaintDevice& device_;
  std::vector<std::unique_ptr<PaperFont>> fonts_;
};

/// A piece of a paragraph in one format; `Length` in UTF-16 units.
struct TextRun {
  CharacterFormat Format;
  qsizetype Length = 0;
};

/// Text up to a line break, without it. Empty text has one run without letters that tells its height.
struct TextParagraph {
  QString Text;
  std::vector<TextRun> Runs;
  LineRole Role = LineRole::Text;

  bool IsMonospaced() const;
};

/// Lines count from 0.
class PageBlock {
 public:
  virtual ~PageBlock() = default;

  virtual int NumLines() const = 0;
  virtual double Height(int line) const = 0;
  virtual void Paint(QPainter& painter, int line, double top) = 0;

  /// Makes what can be smaller, a picture, no higher than this.
  virtual void LimitHeight(double) {}

  /// Whether the heading above ought to stay with the whole of it.
  virtual bool IsWhole() const { return false; }

  double HeightOfFirst(int lines) const;
};

/// A row of a table, or a paragraph that wraps at the text's width.
std::unique_ptr<PageBlock> TextBlock(const TextParagraph& paragraph, PaperFonts& fonts, PaperPages& pages);

/// A picture with what stands before it in its line as its indent: at its own size, or as large as the width
/// that is left allows. Null when the picture is empty.
std::unique_ptr<PageBlock> PictureBlock(const Picture& picture, const TextParagraph& indent,
                                        PaperPages& pages);
