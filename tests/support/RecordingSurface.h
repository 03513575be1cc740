// A surface that writes down what is drawn on it. Every letter must be readable on light and on dark paper.
// Every character is 6 pixels wide and 10 high (7 and 12 in bold), so that positions of texts can be computed
// by hand.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "platform/Surface.h"
#include "support/Contrast.h"

struct DrawnLine {
  float X1, Y1, X2, Y2;
  int Width = 1;
  int Colour = 0;

  friend bool operator==(const DrawnLine&, const DrawnLine&) = default;
  friend void PrintTo(const DrawnLine& line, std::ostream* out) {
    *out << "(" << line.X1 << ", " << line.Y1 << ") - (" << line.X2 << ", " << line.Y2 << ") width "
         << line.Width << " colour " << line.Colour;
  }
};

struct DrawnText {
  float Left, Top;
  std::string Text;
  TextFont Font;

  friend bool operator==(const DrawnText&, const DrawnText&) = default;
  friend void PrintTo(const DrawnText& text, std::ostream* out) {
    *out << "\"" << text.Text << "\" at (" << text.Left << ", " << text.Top << ")";
  }
};

class RecordingSurface : public Surface {
 public:
  static TextExtent Measure(const TextFont& font, std::string_view text) {
    const auto length = static_cast<float>(text.size());
    return font.Bold ? TextExtent{7 * length, 12} : TextExtent{6 * length, 10};
  }

  void Clear() override { Order.emplace_back("clear"); }

  void SetPixel(float x, float y) override {
    Check(x, y);
    Dots.push_back({x, y});
    DotColours.push_back(Colour);
    Note("dot");
  }

  void Line(float x1, float y1, float x2, float y2) override {
    Check(x1, y1);
    current_ = {x1, y1};
    LineTo(x2, y2);
  }

  void LineTo(float x, float y) override {
    Check(x, y);
    Lines.push_back({current_.X, current_.Y, x, y, Width, Colour});
    current_ = {x, y};
    Note("line");
  }

  void FillPolygon(std::span<const PixelPoint> corners, int paletteIndex) override {
    for (const PixelPoint& corner : corners) Check(corner.X, corner.Y);
    Fills.emplace_back(corners.begin(), corners.end());
    FillColours.push_back(paletteIndex);
    Note("fill");
  }

  void SetLineWidth(int pixels) override { Width = pixels; }
  void SetForeground(int paletteIndex) override { Colour = paletteIndex; }
  void SetPen(Pen pen) override { CurrentPen = pen; }
  void SetFont(const TextFont& font) override { Font = font; }
  TextExtent Extent(std::string_view text) override { return Measure(Font, text); }

  void PrintText(float left, float top, std::string_view text) override {
    Check(left, top);
    if (!isRim_) CheckInk();
    Texts.push_back({left, top, std::string(text), Font});
    Note("text");
  }

  // The letters behind the letters are a rim of paper.
  void PrintTextWithRim(float left, float top, std::string_view text, int paletteIndex) override {
    isRim_ = true;
    Surface::PrintTextWithRim(left, top, text, paletteIndex);
    isRim_ = false;
    CheckInk();
  }

  int Width = 1;
  int Colour = 0;
  Pen CurrentPen = Pen::Copy;
  TextFont Font;

  std::vector<DrawnLine> Lines;
  std::vector<DrawnText> Texts;
  std::vector<PixelPoint> Dots;
  std::vector<int> DotColours;
  std::vector<std::vector<PixelPoint>> Fills;
  std::vector<int> FillColours;

  /// The kinds of what was drawn, in order; a run of one kind is written once.
  std::vector<std::string> Order;

 private:
  static void Check(float x, float y) {
    EXPECT_TRUE(std::abs(x) <= 1.01e6F && std::abs(y) <= 1.01e6F) << "(" << x << ", " << y << ") was drawn";
  }

  void CheckInk() const {
    const auto ink = static_cast<std::size_t>(Colour);
    for (const PaletteColours& colours : {Palette, DarkPalette})
      EXPECT_GE(ContrastOf(colours.at(ink), colours.at(White)), ReadableContrast)
          << "letters of colour " << Colour;
  }

  void Note(const char* kind) {
    if (Order.empty() || Order.back() != kind) Order.emplace_back(kind);
  }

  PixelPoint current_;
  bool isRim_ = false;
};
