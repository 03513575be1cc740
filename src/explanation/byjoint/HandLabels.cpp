#include "explanation/byjoint/HandLabels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "canvas/Arrow.h"
#include "canvas/PixelBoxes.h"

namespace {

constexpr float PinRadius = 5;

// An arrow is kept clear of as wide as its head is.
constexpr float HeadWidth = 0.4F * (LabelArrowSize + 2) + 2 * TextPlacer::Air;

constexpr float ClearOfLines = 2 + 2 * TextPlacer::Air;

// A shorter one looks like a mark on the text, pixels.
constexpr double ShortestLeader = 8;

double LengthOf(const PixelLine& line) {
  return std::hypot(double{line.X2} - double{line.X1}, double{line.Y2} - double{line.Y1});
}

// The middle of the widest gap between directions, as an angle on the paper, clockwise.
double WidestGap(const std::vector<PixelVector>& taken) {
  std::vector<double> angles;
  for (const PixelVector& side : taken) angles.push_back(std::atan2(-side.Y, side.X));
  std::ranges::sort(angles);
  double best = std::numbers::pi / 4;
  double widest = 0;
  for (std::size_t i = 0; i < angles.size(); ++i) {
    const double next = i + 1 < angles.size() ? angles[i + 1] : angles.front() + 2 * std::numbers::pi;
    if (next - angles[i] <= widest) continue;
    widest = next - angles[i];
    best = (angles[i] + next) / 2;
  }
  return best;
}

}  // namespace

void HandLabels::KeepClear() {
  LabelRoom& room = placer_.Room();
  for (const std::vector<PixelLine>* lines : {&picture_.Others, &picture_.Part, &picture_.Cut}) {
    for (const PixelLine& line : *lines) room.AddLine(line, ClearOfLines);
  }
  for (const std::vector<PixelPoint>* points : {&picture_.Pins, &picture_.Points}) {
    for (const PixelPoint& at : *points)
      room.AddBox(Widened({at.X, at.Y, at.X, at.Y}, PinRadius + TextPlacer::Air));
  }
  for (const HandArrow& arrow : picture_.Arrows) room.AddArrow(arrow.Line, HeadWidth);
}

void HandLabels::Put(HandArrow& arrow, const std::string& text, const TextPlace& place) {
  arrow.Text = text;
  arrow.TextBox = place.Box;
  if (place.Leader && LengthOf(*place.Leader) >= ShortestLeader) arrow.Leader = place.Leader;
}

void HandLabels::Arrow(HandArrow& arrow, const std::string& text, PixelPoint joint) {
  const auto place = placer_.ByArrow(arrow.Line, joint, HeadWidth, measure_(TextFont{}, text));
  if (place) Put(arrow, text, *place);
}

// Beyond its tail other members may meet it.
void HandLabels::CutArrow(HandArrow& arrow, const std::string& text) {
  const TextExtent extent = measure_(TextFont{}, text);
  const PixelLine& line = arrow.Line;
  const double length = std::max(1.0, LengthOf(line));
  const PixelVector back{(double{line.X1} - double{line.X2}) / length,
                         (double{line.Y1} - double{line.Y2}) / length};
  for (const double share : {0.6, 0.35, 0.85}) {
    const PixelVector at{line.X2 + share * length * back.X, line.Y2 + share * length * back.Y};
    for (const double lean : {0.0, 0.5, 1.0, 2.0}) {
      for (const double side : {1.0, -1.0}) {
        const double size = std::hypot(1, lean);
        const PixelVector direction{(lean * back.X - side * back.Y) / size,
                                    (lean * back.Y + side * back.X) / size};
        if (const auto place = placer_.Beyond(at, direction, HeadWidth / 2.0 + 1, extent))
          return Put(arrow, text, *place);
      }
    }
  }
  Arrow(arrow, text, line.End2());
}

void HandLabels::Name(const std::string& name, PixelPoint joint, const std::vector<PixelVector>& taken) {
  const TextExtent extent = measure_(HandNameFont, name);
  const double first = WidestGap(taken);
  constexpr int numDirections = 16;
  for (const double distance : {PinRadius + 2.0, PinRadius + 6.0, PinRadius + 11.0, PinRadius + 17.0}) {
    for (int i = 0; i < numDirections; ++i) {
      // To both sides of the first direction in turn.
      const int step = (i + 1) / 2 * (i % 2 == 0 ? 1 : -1);
      const PixelVector direction = Towards(first + step * 2 * std::numbers::pi / numDirections);
      const auto place = placer_.Beyond({joint.X, joint.Y}, direction, distance, extent);
      if (!place) continue;
      picture_.Names.push_back({name, place->Box});
      return;
    }
  }
}
