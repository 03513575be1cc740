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

bool Overlap(const Box& a, const Box& b) {
  return a.Left < b.Right && b.Left < a.Right && a.Top < b.Bottom && b.Top < a.Bottom;
}

// A name and where its letters stand beside its joint.
struct NameBeside {
  const CarriedName& Name;
  Box Letters;

  // Of a joint that stands still there is one place only. What it is drawn like now is left out where it
  // moves, so that the choice is the same throughout.
  std::size_t NumPlaces() const { return std::max<std::size_t>(1, Name.Places.size() - 1); }
  Box Place(std::size_t index) const {
    return Letters.Moved(Name.Places.size() == 1 ? Name.Places.front() : Name.Places[index + 1]);
  }

  bool Covers(const NameBeside& other) const {
    const std::size_t count = std::max(NumPlaces(), other.NumPlaces());
    for (std::size_t i = 0; i < count; ++i) {
      if (Overlap(Place(std::min(i, NumPlaces() - 1)), other.Place(std::min(i, other.NumPlaces() - 1))))
        return true;
    }
    return false;
  }
};

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
  std::vector<NameBeside> placed;
  for (const CarriedName& name : names) {
    LabelPlace& place = drawing.lblRodJoint[name.Label];
    const auto numInTheWay = [&](const Side& side) {
      const Box letters = LettersOf(place, side.Above, side.Left);
      const NameBeside here{name, letters};
      std::ptrdiff_t count =
          std::ranges::count_if(placed, [&here](const NameBeside& other) { return here.Covers(other); });
      for (const PixelPoint& joint : name.Places) {
        const Box box = letters.Moved(joint);
        count += std::ranges::count_if(arrows, [&](const PixelLine& arrow) { return Meets(arrow, box); });
      }
      return count;
    };
    const auto* best = std::ranges::min_element(sides, {}, numInTheWay);
    const Box letters = LettersOf(place, best->Above, best->Left);
    if (best != sides.begin()) Put(place, name.Places.front(), letters);
    placed.push_back({name, letters});
  }
}
