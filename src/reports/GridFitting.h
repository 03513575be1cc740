// Fitting a table into the report window: how large it is shown, and with which scroll bars.
#pragma once

/// Thickness of a scroll bar, pixels.
inline constexpr float ScrollBarThickness = 14;

struct GridFit {
  float Width = 0;   ///< pixels, the scroll bar's thickness included
  float Height = 0;  ///< pixels
  bool HorizontalBar = false;
  bool VerticalBar = false;

  friend bool operator==(const GridFit&, const GridFit&) = default;
};

/// All sizes in pixels. The natural size is what the grid needs without scroll bars. A bar is added alone
/// when the other direction has room for its thickness; otherwise both are.
GridFit LimitGridSize(float naturalWidth, float naturalHeight, float availableWidth, float availableHeight);
