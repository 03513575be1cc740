// A value has a few places to choose from around its arrow's head and takes the one that covers least.
#include "reports/ForceValues.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "canvas/Arrow.h"
#include "canvas/ForceArrows.h"
#include "canvas/PaintDrawing.h"
#include "canvas/PixelBoxes.h"
#include "explanation/forces/TrussForces.h"
#include "platform/Palette.h"
#include "platform/Picture.h"

namespace {

// Pixels between an arrow and its value; the value's rim stays clear of the arrow.
constexpr double Gap = RimWidth + 2;

constexpr double HalfWidthOfHead = 0.2 * ForceHeadLength;

// Of a line that a value lies across, and of a name, a support's picture or another value that it covers.
constexpr int CostOfLine = 1;
constexpr int CostOfBox = 4;

// Beyond this many comparisons the drawing is so crowded that no place is better than another.
constexpr std::size_t MostComparisons = 300'000;

struct Vector {
  double X = 0, Y = 0;
};

// How far from a point, in the direction of a unit vector, the middle of a text's box is clear of the point.
double ClearOfPoint(const TextExtent& extent, const Vector& direction) {
  const double x = std::abs(direction.X);
  const double y = std::abs(direction.Y);
  const double halfWidth = extent.Width / 2.0 + Gap;
  const double halfHeight = extent.Height / 2.0 + Gap;
  return x * halfHeight > y * halfWidth ? halfWidth / x : halfHeight / y;
}

// How far from an arrow, at right angles to it, the middle of a text's box is clear of shaft and head.
double ClearOfArrow(const TextExtent& extent, const Vector& direction) {
  const double reach = (std::abs(direction.X) * extent.Width + std::abs(direction.Y) * extent.Height) / 2;
  return reach + Gap + HalfWidthOfHead;
}

constexpr std::size_t NumPlaces = 7;
using Places = std::array<PixelRect, NumPlaces>;

// Beyond the tip, beside the head, beyond the tip but off the arrow's line, beside the shaft. Of two sides
// the right or upper one comes first.
Places PlacesAround(const PixelLine& arrow, const TextExtent& extent) {
  const double dx = double{arrow.X2} - double{arrow.X1};
  const double dy = double{arrow.Y2} - double{arrow.Y1};
  const double length = std::hypot(dx, dy);
  const Vector along{dx / length, dy / length};
  const bool turned = along.Y < 0 || (along.Y == 0 && along.X < 0);
  const Vector aside = turned ? Vector{-along.Y, along.X} : Vector{along.Y, -along.X};

  const auto at = [&](double ahead, double sideways) {
    const double left = arrow.X2 + ahead * along.X + sideways * aside.X - extent.Width / 2.0;
    const double top = arrow.Y2 + ahead * along.Y + sideways * aside.Y - extent.Height / 2.0;
    return PixelRect{FiniteSingle(left), FiniteSingle(top), FiniteSingle(left + extent.Width),
                     FiniteSingle(top + extent.Height)};
  };
  const double beyond = ClearOfPoint(extent, along);
  const double beside = ClearOfArrow(extent, aside);
  const double head = -ForceHeadLength / 2.0;
  const double shaft = -length / 2;
  return {at(beyond, 0),       at(head, beside),  at(head, -beside), at(beyond, beside),
          at(beyond, -beside), at(shaft, beside), at(shaft, -beside)};
}

// What a value had better not cover.
struct Obstacles {
  std::vector<PixelRect> Boxes;
  std::vector<PixelLine> Lines;

  int CostOf(const PixelRect& place) const {
    const auto boxes =
        std::ranges::count_if(Boxes, [&](const PixelRect& box) { return Overlap(box, place); });
    const auto lines =
        std::ranges::count_if(Lines, [&](const PixelLine& line) { return Crosses(line, place); });
    return static_cast<int>(boxes) * CostOfBox + static_cast<int>(lines) * CostOfLine;
  }
};

bool HasValue(const Drawing& drawing, const Truss& truss, const ForceRec& force) {
  if (!force.Active || drawing.Mapping.IsEmpty()) return false;
  const PixelLine arrow = ForceArrow(drawing.Mapping, truss.Settings, force);
  const bool isDrawn = arrow.End1() != arrow.End2();
  return isDrawn && std::abs(arrow.X2) <= FarthestPixel && std::abs(arrow.Y2) <= FarthestPixel;
}

Obstacles FindObstacles(const Drawing& drawing, const Truss& truss) {
  Obstacles found;
  for (const LabelPlace& label : drawing.lblRodJoint.First(drawing.lblRodJoint.Size())) {
    if (!label.Visible) continue;
    found.Boxes.push_back({label.Left, label.Top, label.Left + label.Width, label.Top + label.Height});
  }
  for (int i = 1; i <= truss.NumSupports; ++i) {
    if (!IsSupportShown(drawing, truss, i)) continue;
    const auto [left, top] = drawing.Support[i];
    found.Boxes.push_back({left, top, left + SupportPictureSize, top + SupportPictureSize});
  }
  for (int i = 1; i <= truss.NumMembers; ++i) {
    if (IsRodShown(drawing, truss, i)) found.Lines.push_back(drawing.Rod[i]);
  }
  for (const ArrowSegment& segment : drawing.ArLin.First(drawing.ArLin.Size())) {
    if (segment.Visible) found.Lines.push_back(segment.Line);
  }
  for (const ForceRec& force : truss.ForcesInUse()) {
    if (HasValue(drawing, truss, force)) {
      found.Lines.push_back(ForceArrow(drawing.Mapping, truss.Settings, force));
    }
  }
  return found;
}

void PrintValue(Surface& surface, const PixelRect& place, const std::string& text, bool withRim) {
  const float left = OntoPaper(place.Left);
  const float top = OntoPaper(place.Top);
  if (withRim) {
    surface.PrintTextWithRim(left, top, text, ForceValueColour);
  } else {
    surface.SetForeground(ForceValueColour);
    surface.PrintText(left, top, text);
  }
}

}  // namespace

std::string ForceValueText(const ForceRec& force, const ReportFormat& format) {
  return LoadText(force.Fx, force.Fy, format);
}

void PrintForceValues(Surface& surface, const Drawing& drawing, const Truss& truss,
                      const ReportFormat& format) {
  surface.SetFont(TextFont{});
  Obstacles obstacles = FindObstacles(drawing, truss);
  const std::size_t numObstacles = obstacles.Boxes.size() + obstacles.Lines.size();
  const bool seekRoom = numObstacles * static_cast<std::size_t>(truss.NumForces) <= MostComparisons;
  for (const ForceRec& force : truss.ForcesInUse()) {
    if (!HasValue(drawing, truss, force)) continue;
    const std::string text = ForceValueText(force, format);
    const Places places =
        PlacesAround(ForceArrow(drawing.Mapping, truss.Settings, force), surface.Extent(text));
    const PixelRect place =
        seekRoom ? *std::ranges::min_element(
                       places, {}, [&](const PixelRect& candidate) { return obstacles.CostOf(candidate); })
                 : places.front();
    PrintValue(surface, place, text, truss.NumForces <= MostRims);
    obstacles.Boxes.push_back(place);
  }
  surface.SetForeground(Black);
}
