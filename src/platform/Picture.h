// A picture that is kept as the list of what was drawn on it, so that it can be drawn again on any surface: a
// bitmap for the clipboard, a page, a vector file. It tracks the extent of what was drawn. A coordinate names
// the middle of its pixel, as on every surface: what is drawn at 5, one pixel wide, reaches from 5 to 6.
#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/Surface.h"

/// Pixels of a screen of 96 to the inch, y downward.
struct PixelRect {
  float Left = 0, Top = 0, Right = 0, Bottom = 0;

  float Width() const { return Right - Left; }
  float Height() const { return Bottom - Top; }

  friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

class Picture final : public Surface {
 public:
  /// `measure` tells the size of the texts; it is asked while drawing only.
  explicit Picture(TextMeasure measure);

  void Clear() override;  ///< forgets what was drawn
  void SetPixel(float x, float y) override;
  void Line(float x1, float y1, float x2, float y2) override;
  void LineTo(float x, float y) override;
  void FillPolygon(std::span<const PixelPoint> corners, int paletteIndex) override;
  void SetLineWidth(int pixels) override;
  void SetForeground(int paletteIndex) override;
  void SetPen(::Pen pen) override;
  void SetFont(const TextFont& font) override;
  TextExtent Extent(std::string_view text) override;
  void PrintText(float left, float top, std::string_view text) override;
  void PrintTextWithRim(float left, float top, std::string_view text, int paletteIndex) override;

  /// What the picture shows, in the coordinates it was drawn in. At first everything that was drawn, line
  /// widths included; empty (all 0) when nothing was.
  PixelRect Frame() const;

  /// From now on the frame is what has been drawn so far with `margin` pixels around it, in whole pixels. It
  /// stays empty when nothing was.
  void Crop(float margin);

  /// Draws the picture again, in the order and the coordinates in which it was drawn, whatever pen and font
  /// the surface has. Does not clear it.
  void DrawOn(Surface& surface) const;

 private:
  struct PixelAt {
    PixelPoint At;
  };
  struct LineFromTo {
    PixelPoint From, To;
  };
  struct Polygon {
    std::vector<PixelPoint> Corners;
    int Fill;
  };
  struct LineWidth {
    int Pixels;
  };
  struct Foreground {
    int PaletteIndex;
  };
  struct Text {
    PixelPoint TopLeft;
    std::string Letters;  // as many as are shown
  };
  struct TextWithRim {
    PixelPoint TopLeft;
    std::string Letters;
    int PaletteIndex;
  };
  using Step =
      std::variant<PixelAt, LineFromTo, Polygon, LineWidth, Foreground, ::Pen, TextFont, Text, TextWithRim>;

  /// Makes the pen and the font as they are now the first steps.
  void BeginWithPenAndFont();
  /// Adds the area within `reach` of the rectangle's edges to what is drawn.
  void Cover(PixelRect area, float reach);

  TextMeasure measure_;
  std::vector<Step> steps_;
  PixelPoint current_;
  int lineWidth_ = 1;
  int foreground_ = 0;
  ::Pen pen_ = ::Pen::Copy;
  TextFont font_;
  // Every extent begins here, with its minimum beyond its maximum: nothing is drawn yet.
  static constexpr float StartingMinimum = 10000, StartingMaximum = -10000;
  static constexpr PixelRect NothingDrawn{StartingMinimum, StartingMinimum, StartingMaximum, StartingMaximum};
  PixelRect drawn_ = NothingDrawn;
  std::optional<PixelRect> cropped_;
};
