// The paper that documents are written for: its size and its margins, in the units that writers ask for.
#pragma once

/// Millimetres.
struct PaperSize {
  double Width, Height;
};

inline constexpr PaperSize A4{.Width = 210, .Height = 297};
inline constexpr double PageMargin = 20;  ///< on every side, millimetres
inline constexpr double PageTextWidth = A4.Width - 2 * PageMargin;
inline constexpr double PageTextHeight = A4.Height - 2 * PageMargin;

/// 72 to the inch.
constexpr double PointsOf(double millimetres) { return millimetres / 25.4 * 72; }

/// 1440 to the inch, rounded.
// NOLINTNEXTLINE(bugprone-incorrect-roundings): of lengths, which are positive
constexpr int TwipsOf(double millimetres) { return static_cast<int>(millimetres / 25.4 * 1440 + 0.5); }

/// 96 to the inch.
constexpr double PixelsOf(double millimetres) { return millimetres / 25.4 * 96; }

/// Pictures are not shown larger than this on a page, pixels of 96 to the inch: its text, with room for a
/// heading above.
inline constexpr double PagePictureWidth = 640, PagePictureHeight = 880;
static_assert(PagePictureWidth <= PixelsOf(PageTextWidth) && PagePictureHeight <= PixelsOf(PageTextHeight));
