// What the program draws on: white paper and one pen. A window's backing image, a printed page and a test's
// list of calls are all surfaces.
#pragma once

#include <span>
#include <string_view>

#include "platform/TextMeasure.h"

/// Pixels, y downward.
struct PixelPoint {
  float X = 0, Y = 0;

  friend bool operator==(const PixelPoint&, const PixelPoint&) = default;
};

/// Drawing a thing twice with the exclusive-or pen leaves the paper as it was.
enum class Pen { Copy, ExclusiveOr };

/// How far the rim around letters reaches beyond them, pixels.
inline constexpr float RimWidth = 2;

/// All coordinates are finite pixels. At the start the pen is a copy pen, black and one pixel wide, the
/// current point is (0, 0) and the font is TextFont{}.
class Surface {
 public:
  virtual ~Surface() = default;

  /// White paper. Pen and font stay as they are.
  virtual void Clear() = 0;

  /// Sets the nearest pixel in the foreground colour.
  virtual void SetPixel(float x, float y) = 0;

  /// Draws a line and makes its second end the current point.
  virtual void Line(float x1, float y1, float x2, float y2) = 0;

  /// Draws a line from the current point, and makes its end the current point.
  virtual void LineTo(float x, float y) = 0;

  /// Fills a polygon, without an outline, in a palette colour; the foreground stays as it is.
  virtual void FillPolygon(std::span<const PixelPoint> corners, int paletteIndex) = 0;

  virtual void SetLineWidth(int pixels) = 0;

  /// `paletteIndex` is an index into Palette.
  virtual void SetForeground(int paletteIndex) = 0;

  virtual void SetPen(Pen pen) = 0;

  virtual void SetFont(const TextFont& font) = 0;

  /// The extent of a single-byte text in the current font.
  virtual TextExtent Extent(std::string_view text) = 0;

  /// Prints a single-byte text in the current font and the foreground colour.
  virtual void PrintText(float left, float top, std::string_view text) = 0;

  /// The same in a palette colour, which becomes the foreground, with a rim of white around the letters, so
  /// that they can be read over lines. Surfaces that can only print do it by printing in white around them.
  virtual void PrintTextWithRim(float left, float top, std::string_view text, int paletteIndex);
};
