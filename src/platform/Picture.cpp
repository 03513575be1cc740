// Steps hold what was asked for, not what it came to: lines keep both ends, texts their font by the step
// before them, so that any surface can draw them in its own resolution.
#include "platform/Picture.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

// Several lambdas as one function object, for std::visit.
template <class... Functions>
struct Overloaded : Functions... {
  using Functions::operator()...;
};
template <class... Functions>
Overloaded(Functions...) -> Overloaded<Functions...>;

// How far a stroke with square ends reaches beyond its ends, along each axis.
float ReachOfStroke(PixelPoint from, PixelPoint to, int width) {
  const float dx = std::abs(to.X - from.X);
  const float dy = std::abs(to.Y - from.Y);
  const float length = std::hypot(dx, dy);
  const float half = static_cast<float>(width) / 2;
  return length > 0 ? half * (dx / length + dy / length) : half;
}

PixelPoint MiddleOfPixel(PixelPoint point) { return {point.X + 0.5F, point.Y + 0.5F}; }

PixelRect RectOf(PixelPoint a, PixelPoint b) {
  return {std::min(a.X, b.X), std::min(a.Y, b.Y), std::max(a.X, b.X), std::max(a.Y, b.Y)};
}

}  // namespace

Picture::Picture(TextMeasure measure) : measure_(std::move(measure)) { BeginWithPenAndFont(); }

void Picture::BeginWithPenAndFont() {
  steps_.emplace_back(LineWidth{lineWidth_});
  steps_.emplace_back(Foreground{foreground_});
  steps_.emplace_back(pen_);
  steps_.emplace_back(font_);
}

void Picture::Clear() {
  steps_.clear();
  BeginWithPenAndFont();
  drawn_ = NothingDrawn;
  cropped_.reset();
}

void Picture::SetPixel(float x, float y) {
  const PixelPoint corner{std::round(x), std::round(y)};
  Cover(RectOf(corner, {corner.X + 1, corner.Y + 1}), 0);
  steps_.emplace_back(PixelAt{{x, y}});
}

void Picture::Line(float x1, float y1, float x2, float y2) {
  current_ = {x1, y1};
  LineTo(x2, y2);
}

void Picture::LineTo(float x, float y) {
  const PixelPoint end{x, y};
  Cover(RectOf(MiddleOfPixel(current_), MiddleOfPixel(end)), ReachOfStroke(current_, end, lineWidth_));
  steps_.emplace_back(LineFromTo{current_, end});
  current_ = end;
}

void Picture::FillPolygon(std::span<const PixelPoint> corners, int paletteIndex) {
  for (const PixelPoint& corner : corners) Cover(RectOf(MiddleOfPixel(corner), MiddleOfPixel(corner)), 0);
  steps_.emplace_back(Polygon{{corners.begin(), corners.end()}, paletteIndex});
}

void Picture::SetLineWidth(int pixels) {
  lineWidth_ = pixels;
  steps_.emplace_back(LineWidth{pixels});
}

void Picture::SetForeground(int paletteIndex) {
  foreground_ = paletteIndex;
  steps_.emplace_back(Foreground{paletteIndex});
}

void Picture::SetPen(::Pen pen) {
  pen_ = pen;
  steps_.emplace_back(pen);
}

void Picture::SetFont(const TextFont& font) {
  font_ = font;
  steps_.emplace_back(font);
}

TextExtent Picture::Extent(std::string_view text) { return measure_(font_, text); }

void Picture::PrintText(float left, float top, std::string_view text) {
  if (text.empty()) return;
  const TextExtent extent = Extent(text);
  Cover({left, top, left + extent.Width, top + extent.Height}, 0);
  steps_.emplace_back(Text{{left, top}, std::string(ShownBeginning(text))});
}

void Picture::PrintTextWithRim(float left, float top, std::string_view text, int paletteIndex) {
  foreground_ = paletteIndex;
  const TextExtent extent = Extent(text);
  if (!text.empty()) Cover({left, top, left + extent.Width, top + extent.Height}, RimWidth);
  steps_.emplace_back(TextWithRim{{left, top}, std::string(ShownBeginning(text)), paletteIndex});
}

PixelRect Picture::Frame() const {
  if (cropped_) return *cropped_;
  return drawn_ == NothingDrawn ? PixelRect{} : drawn_;
}

void Picture::Crop(float margin) {
  if (drawn_ == NothingDrawn) {
    cropped_ = PixelRect{};
  } else {
    cropped_ = PixelRect{std::floor(drawn_.Left - margin), std::floor(drawn_.Top - margin),
                         std::ceil(drawn_.Right + margin), std::ceil(drawn_.Bottom + margin)};
  }
}

void Picture::DrawOn(Surface& surface) const {
  const Overloaded draw{
      [&](const PixelAt& step) { surface.SetPixel(step.At.X, step.At.Y); },
      [&](const LineFromTo& step) { surface.Line(step.From.X, step.From.Y, step.To.X, step.To.Y); },
      [&](const Polygon& step) { surface.FillPolygon(step.Corners, step.Fill); },
      [&](const LineWidth& step) { surface.SetLineWidth(step.Pixels); },
      [&](const Foreground& step) { surface.SetForeground(step.PaletteIndex); },
      [&](::Pen step) { surface.SetPen(step); },
      [&](const TextFont& step) { surface.SetFont(step); },
      [&](const Text& step) { surface.PrintText(step.TopLeft.X, step.TopLeft.Y, step.Letters); },
      [&](const TextWithRim& step) {
        surface.PrintTextWithRim(step.TopLeft.X, step.TopLeft.Y, step.Letters, step.PaletteIndex);
      }};
  for (const Step& step : steps_) std::visit(draw, step);
}

void Picture::Cover(PixelRect area, float reach) {
  drawn_.Left = std::min(drawn_.Left, area.Left - reach);
  drawn_.Top = std::min(drawn_.Top, area.Top - reach);
  drawn_.Right = std::max(drawn_.Right, area.Right + reach);
  drawn_.Bottom = std::max(drawn_.Bottom, area.Bottom + reach);
}
