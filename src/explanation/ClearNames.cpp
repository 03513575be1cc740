#include "explanation/ClearNames.h"

#include <algorithm>
#include <array>

namespace {

// Pixels between a name and an arrow, whose head is wider than its line, and between a name and its joint.
constexpr double Clearance = 4;
constexpr float NameGap = 5;

struct Box {
  double Left, Top, Right, Bottom;

  Box Moved(PixelPoint by) const { return {Left + by.X, Top + by.Y, Right + by.X, Bottom + by.Y}; }
};

// Whether any of the line lies in the box: what is left of it between each pair of the box's sides.
bool Meets(const PixelLine& line, const Box& box) {
  double from = 0;
  double to = 1;
  const auto cut = [&](double start, double along, double low, double high) {
    if (along == 0) {
      if (start < low || start > high) to = -1;
      return;
    }
    const double a = (low - start) / along;
    const double b = (high - start) / along;
    from = std::max(from, std::min(a, b));
    to = std::min(to, std::max(a, b));
  };
  cut(line.X1, double{line.X2} - double{line.X1}, box.Left - Clearance, box.Right + Clearance);
  cut(line.Y1, double{line.Y2} - double{line.Y1}, box.Top - Clearance, box.Bottom + Clearance);
  return from <= to;
}

// Of the letters, beside a joint at (0, 0).
Box LettersOf(const LabelPlace& place, bool above, bool left) {
  const double width = double{place.Width} - double{place.TextLeft};
  const double height = double{place.Height} - double{place.TextTop};
  const double x = left ? -double{place.TextLeft} - width : double{place.TextLeft};
  const double y = above ? -double{NameGap} - height : double{place.TextTop};
  return {x, y, x + width, y + height};
}

void Put(LabelPlace& place, PixelPoint joint, const Box& letters) {
  place.Width = static_cast<float>(letters.Right - letters.Left) + RimWidth;
  place.Height = static_cast<float>(letters.Bottom - letters.Top);
  place.Left = static_cast<float>(joint.X + letters.Left) - RimWidth;
  place.Top = static_cast<float>(joint.Y + letters.Top);
  place.TextLeft = RimWidth;
  place.TextTop = 0;
}

}  // namespace

void KeepNamesClear(Drawing& drawing, const std::vector<CarriedName>& names,
                    const std::vector<PixelLine>& arrows) {
  struct Side {
    bool Above, Left;
  };
  constexpr std::array<Side, 4> sides = {{{false, false}, {true, false}, {false, true}, {true, true}}};
  for (const CarriedName& name : names) {
    LabelPlace& place = drawing.lblRodJoint[name.Label];
    const auto numArrows = [&](const Side& side) {
      const Box letters = LettersOf(place, side.Above, side.Left);
      std::ptrdiff_t count = 0;
      for (const PixelPoint& joint : name.Places) {
        const Box box = letters.Moved(joint);
        count += std::ranges::count_if(arrows, [&](const PixelLine& arrow) { return Meets(arrow, box); });
      }
      return count;
    };
    const auto* best = std::ranges::min_element(sides, {}, numArrows);
    if (best != sides.begin()) Put(place, name.Places.front(), LettersOf(place, best->Above, best->Left));
  }
}
