// Whether an arrow runs along a member is asked of the pixels, not of the coordinates: what counts is what
// the eye can part.
#include "canvas/ForceArrows.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>

#include "canvas/Arrow.h"
#include "canvas/PaintDrawing.h"
#include "platform/Palette.h"

namespace {

// Lines of two pixels whose middles are closer than this run into each other.
constexpr double TooCloseToPart = 3;

// A tube begins and ends with the square ends of its stroke, and a pixel from a joint, so that its corners
// stay behind the pin.
constexpr double EndOfTube = MemberWidthUnderForce / 2.0 + 1;

// A shorter part has no room for a tube; what lies there is the crossing of two lines.
constexpr double ShortestPart = 3 * EndOfTube;

double Length(const PixelLine& line) {
  return std::hypot(double{line.X2} - double{line.X1}, double{line.Y2} - double{line.Y1});
}

// The arrow without its head.
std::optional<PixelLine> ShaftBehindHead(const PixelLine& arrow) {
  const double length = Length(arrow);
  if (!(length > ForceHeadLength) || !std::isfinite(length)) return std::nullopt;
  const double part = 1 - ForceHeadLength / length;
  return PixelLine{arrow.X1, arrow.Y1, FiniteSingle(arrow.X1 + part * (double{arrow.X2} - double{arrow.X1})),
                   FiniteSingle(arrow.Y1 + part * (double{arrow.Y2} - double{arrow.Y1}))};
}

// Points of a plane whose first axis runs along a rod.
struct AlongRod {
  explicit AlongRod(const PixelLine& rod)
      : Rod(rod),
        Length(::Length(rod)),
        X((double{rod.X2} - double{rod.X1}) / Length),
        Y((double{rod.Y2} - double{rod.Y1}) / Length) {}

  double Ahead(PixelPoint point) const {
    return (double{point.X} - double{Rod.X1}) * X + (double{point.Y} - double{Rod.Y1}) * Y;
  }
  double Aside(PixelPoint point) const {
    return (double{point.Y} - double{Rod.Y1}) * X - (double{point.X} - double{Rod.X1}) * Y;
  }
  PixelPoint At(double ahead) const {
    return {FiniteSingle(Rod.X1 + ahead * X), FiniteSingle(Rod.Y1 + ahead * Y)};
  }

  PixelLine Rod;
  double Length, X, Y;
};

std::optional<PixelLine> CommonPart(const AlongRod& rod, const PixelLine& shaft) {
  const double ahead1 = rod.Ahead(shaft.End1());
  const double ahead2 = rod.Ahead(shaft.End2());
  const double from = std::max(0.0, std::min(ahead1, ahead2));
  const double to = std::min(rod.Length, std::max(ahead1, ahead2));
  if (!(to - from >= ShortestPart)) return std::nullopt;
  const double aside1 = rod.Aside(shaft.End1());
  const double slope = (rod.Aside(shaft.End2()) - aside1) / (ahead2 - ahead1);
  const auto isClose = [&](double ahead) {
    return std::abs(aside1 + slope * (ahead - ahead1)) < TooCloseToPart;
  };
  if (!isClose(from) || !isClose(to)) return std::nullopt;
  const PixelPoint begin = rod.At(from + EndOfTube);
  const PixelPoint end = rod.At(to - EndOfTube);
  return PixelLine{begin.X, begin.Y, end.X, end.Y};
}

void DrawForce(Surface& surface, const PixelLine& arrow, std::int16_t width, std::int16_t colour) {
  DrawArrow(surface, arrow.X1, arrow.Y1, arrow.X2, arrow.Y2, width, ForceHeadLength, colour);
}

}  // namespace

PixelLine ForceArrow(const Graph& graph, const DocumentSettings& settings, const ForceRec& force) {
  const auto head = [&settings](float point, float component) {
    if (settings.ForceScale == 0) return point;
    return FiniteSingle(double{point} + double{component} / double{settings.ForceScale});
  };
  return {graph.XPixel(force.X), graph.YPixel(force.Y), graph.XPixel(head(force.X, force.Fx)),
          graph.YPixel(head(force.Y, force.Fy))};
}

void DrawForces(Surface& surface, const Drawing& drawing, const Truss& truss) {
  for (int i = 1; i <= truss.NumForces; ++i) {
    if (IsForceShown(drawing, truss, i)) {
      DrawForce(surface, drawing.Force[i], ForceLineWidth, ForceColour);
    }
  }
}

void DrawForcesOverMembers(Surface& surface, const Drawing& drawing, const Truss& truss) {
  const bool withRims = truss.NumForces <= MostRims;
  for (int i = 1; i <= truss.NumForces; ++i) {
    if (!IsForceShown(drawing, truss, i)) continue;
    if (withRims) DrawForce(surface, drawing.Force[i], ForceLineWidth + 2 * ForceRim, White);
    DrawForce(surface, drawing.Force[i], ForceLineWidth, ForceColour);
  }
}

std::vector<PixelLine> MemberPartsUnderForces(const Drawing& drawing, const Truss& truss) {
  std::vector<PixelLine> parts;
  if (int{truss.NumMembers} * int{truss.NumForces} > MostForceComparisons) return parts;
  std::vector<PixelLine> shafts;
  for (int i = 1; i <= truss.NumForces; ++i) {
    if (!IsForceShown(drawing, truss, i)) continue;
    if (const auto shaft = ShaftBehindHead(drawing.Force[i])) shafts.push_back(*shaft);
  }
  if (shafts.empty()) return parts;
  for (int i = 1; i <= truss.NumMembers; ++i) {
    if (!IsRodShown(drawing, truss, i)) continue;
    const AlongRod rod(drawing.Rod[i]);
    if (!(rod.Length > 0) || !std::isfinite(rod.Length)) continue;
    for (const PixelLine& shaft : shafts) {
      if (const auto part = CommonPart(rod, shaft)) parts.push_back(*part);
    }
  }
  return parts;
}
