#include "app/ReportPlace.h"

#include <algorithm>
#include <cmath>

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

// Less than this share of what a window asks for is no use where it may cover others instead.
constexpr double UsefulShare = 0.6;

int UsefulHeight(const ReportSizes& sizes, int most) {
  return std::min(most,
                  std::max(sizes.SmallestHeight, static_cast<int>(std::lround(UsefulShare * sizes.Height))));
}

int UsefulWidth(const ReportSizes& sizes, int most) {
  return std::min(most,
                  std::max(sizes.SmallestWidth, static_cast<int>(std::lround(UsefulShare * sizes.Width))));
}

double SharedArea(const ScreenBox& a, const ScreenBox& b) {
  if (!Meet(a, b)) return 0;
  const int width = std::min(a.Right(), b.Right()) - std::max(a.Left, b.Left);
  const int height = std::min(a.Bottom(), b.Bottom()) - std::max(a.Top, b.Top);
  return double{1} * width * height;
}

// What is lost when a window stands there.
class Losses {
 public:
  Losses(const ScreenBox& mainWindow, const std::vector<ScreenBox>& others, int panelBottom,
         const ReportSizes& sizes)
      : mainWindow_(mainWindow),
        buttons_{mainWindow.Left, mainWindow.Top, mainWindow.Width, panelBottom - mainWindow.Top},
        others_(others),
        sizes_(sizes) {}

  double At(const ScreenBox& place) const {
    double loss = 3 * (1 - SizeShare(place)) + 6 * Covered(place, buttons_) + Covered(place, mainWindow_);
    for (const ScreenBox& other : others_) {
      loss += Covered(place, other);
      if (Meet(place, BeginningOf(other))) loss += 10;
      if (Meet(BeginningOf(place), other)) loss += 0.01;  // looks better without
    }
    return loss;
  }

 private:
  // Of a window under another one its title's beginning must be in sight, so that it can be got at.
  static ScreenBox BeginningOf(const ScreenBox& window) {
    constexpr int width = 40;
    constexpr int height = 40;
    return {window.Left, window.Top, std::min(width, window.Width), std::min(height, window.Height)};
  }

  static double Covered(const ScreenBox& by, const ScreenBox& window) {
    return SharedArea(by, window) / std::max(1.0, double{1} * window.Width * window.Height);
  }

  double SizeShare(const ScreenBox& place) const {
    return double{1} * place.Width * place.Height / (double{1} * sizes_.Width * sizes_.Height);
  }

  ScreenBox mainWindow_;
  ScreenBox buttons_;
  const std::vector<ScreenBox>& others_;
  const ReportSizes& sizes_;
};

// Over other windows, of a useful size, where least is lost.
ScreenBox Cascaded(const ScreenBox& screen, const Losses& losses, const ReportSizes& sizes) {
  constexpr int step = 20;
  constexpr int numSizes = 4;
  const int widest = std::min(sizes.Width, screen.Width);
  const int highest = std::min(sizes.Height, screen.Height);
  const int narrowest = UsefulWidth(sizes, widest);
  const int lowest = UsefulHeight(sizes, highest);
  ScreenBox best{screen.Left, screen.Top, widest, highest};
  double least = losses.At(best);
  for (int size = 0; size < numSizes * numSizes; ++size) {
    const int width = widest - size % numSizes * (widest - narrowest) / (numSizes - 1);
    const int height = highest - size / numSizes * (highest - lowest) / (numSizes - 1);
    for (int top = screen.Top; top <= screen.Bottom() - height; top += step) {
      for (int left = screen.Left; left <= screen.Right() - width; left += step) {
        const ScreenBox place{left, top, width, height};
        const double loss = losses.At(place);
        if (loss >= least) continue;
        least = loss;
        best = place;
      }
    }
  }
  return best;
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
    return place.Width >= UsefulWidth(sizes, std::min(sizes.Width, screen.Width)) &&
           place.Height >= UsefulHeight(sizes, std::min(sizes.Height, screen.Height)) &&
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
      if (place.Top >= screen.Top && isFree(place)) return place;
    }
  }
  const ScreenBox place = PlaceOfReport(screen, mainWindow, panelBottom, sizes);
  if (isFree(place)) return place;
  return Cascaded(screen, Losses(mainWindow, others, panelBottom, sizes), sizes);
}
