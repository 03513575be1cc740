#include "app/ReportPlace.h"

#include <algorithm>

namespace {

// Left or right of the main window, as wide as there is room.
ScreenBox OnSide(const ScreenBox& screen, const ScreenBox& mainWindow, bool right, const ReportSizes& sizes) {
  const int room = right ? screen.Right() - mainWindow.Right() : mainWindow.Left - screen.Left;
  const int width = std::min(room, sizes.Width);
  const int height = std::min(sizes.Height, screen.Height);
  return {.Left = right ? mainWindow.Right() : mainWindow.Left - width,
          .Top = std::clamp(mainWindow.Top, screen.Top, screen.Bottom() - height),
          .Width = width,
          .Height = height};
}

ScreenBox Beside(const ScreenBox& screen, const ScreenBox& mainWindow, const ReportSizes& sizes) {
  const int rightRoom = screen.Right() - mainWindow.Right();
  const int leftRoom = mainWindow.Left - screen.Left;
  return OnSide(screen, mainWindow, rightRoom >= std::min(leftRoom, sizes.Width), sizes);
}

// At the right edge of the screen, between two heights.
ScreenBox Between(const ScreenBox& screen, int top, int bottom, const ReportSizes& sizes) {
  const int width = std::min(sizes.Width, screen.Width);
  return {.Left = screen.Right() - width,
          .Top = top,
          .Width = width,
          .Height = std::min(sizes.Height, bottom - top)};
}

bool Meet(const ScreenBox& a, const ScreenBox& b) {
  return a.Left < b.Right() && b.Left < a.Right() && a.Top < b.Bottom() && b.Top < a.Bottom();
}

// Pixels of a window that stay free above and to the left of one that covers it.
constexpr int FreeOfCovered = 40;

// Over another window, with its title bar and its left edge free as far as the screen has room.
ScreenBox OffsetFrom(const ScreenBox& other, const ScreenBox& screen, const ReportSizes& sizes) {
  const int left = std::min(other.Left + FreeOfCovered, screen.Right() - sizes.SmallestWidth);
  const int top = std::min(other.Top + FreeOfCovered, screen.Bottom() - sizes.SmallestHeight);
  ScreenBox place;
  place.Left = std::clamp(left, screen.Left, std::max(screen.Left, screen.Right() - 1));
  place.Top = std::clamp(top, screen.Top, std::max(screen.Top, screen.Bottom() - 1));
  place.Width = std::min(sizes.Width, screen.Right() - place.Left);
  place.Height = std::min(sizes.Height, screen.Bottom() - place.Top);
  return place;
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

ScreenBox PlaceOfExplanation(const ScreenBox& screen, const ScreenBox& mainWindow,
                             const std::vector<ScreenBox>& others, int panelBottom,
                             const ReportSizes& sizes) {
  const auto isFree = [&](const ScreenBox& place) {
    return place.Width >= sizes.SmallestWidth &&
           std::ranges::none_of(others, [&](const ScreenBox& other) { return Meet(place, other); });
  };
  for (const bool right : {true, false}) {
    const ScreenBox place = OnSide(screen, mainWindow, right, sizes);
    if (isFree(place)) return place;
  }
  for (const bool right : {true, false}) {
    for (const ScreenBox& other : others) {
      ScreenBox place = OnSide(screen, mainWindow, right, sizes);
      place.Top = other.Bottom();
      place.Height = std::min(sizes.Height, screen.Bottom() - place.Top);
      if (place.Height >= sizes.SmallestHeight && place.Top >= screen.Top && isFree(place)) return place;
    }
  }
  ScreenBox place = PlaceOfReport(screen, mainWindow, panelBottom, sizes);
  for (std::size_t i = 0; i < others.size(); ++i) {
    for (const ScreenBox& other : others) {
      if (Meet(place, other) && place.Left < other.Left + FreeOfCovered &&
          place.Top < other.Top + FreeOfCovered)
        place = OffsetFrom(other, screen, sizes);
    }
  }
  return place;
}
