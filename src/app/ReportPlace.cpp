#include "app/ReportPlace.h"

#include <algorithm>

namespace {

ScreenBox Beside(const ScreenBox& screen, const ScreenBox& mainWindow, const ReportSizes& sizes) {
  const int rightRoom = screen.Right() - mainWindow.Right();
  const int leftRoom = mainWindow.Left - screen.Left;
  const bool onTheRight = rightRoom >= std::min(leftRoom, sizes.Width);
  const int width = std::min(onTheRight ? rightRoom : leftRoom, sizes.Width);
  const int height = std::min(sizes.Height, screen.Height);
  return {.Left = onTheRight ? mainWindow.Right() : mainWindow.Left - width,
          .Top = std::clamp(mainWindow.Top, screen.Top, screen.Bottom() - height),
          .Width = width,
          .Height = height};
}

// At the right edge of the screen, between two heights.
ScreenBox Between(const ScreenBox& screen, int top, int bottom, const ReportSizes& sizes) {
  const int width = std::min(sizes.Width, screen.Width);
  return {.Left = screen.Right() - width,
          .Top = top,
          .Width = width,
          .Height = std::min(sizes.Height, bottom - top)};
}

}  // namespace

ScreenBox PlaceOfReport(const ScreenBox& screen, const ScreenBox& mainWindow, int panelBottom,
                        const ReportSizes& sizes) {
  const ScreenBox beside = Beside(screen, mainWindow, sizes);
  if (beside.Width >= sizes.SmallestWidth) return beside;
  const int below = std::max(panelBottom, screen.Top);
  if (screen.Bottom() - below >= sizes.SmallestHeight) return Between(screen, below, screen.Bottom(), sizes);
  const int above = std::min(mainWindow.Top, screen.Bottom());
  if (above - screen.Top >= sizes.SmallestHeight) return Between(screen, screen.Top, above, sizes);
  const int height = std::min(sizes.Height, screen.Height);
  return Between(screen, screen.Bottom() - height, screen.Bottom(), sizes);
}
