#include "explanation/forces/TextPlacer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "canvas/PixelBoxes.h"

namespace {

// How far away a text may stand with a leader, pixels.
constexpr std::array LeaderLengths = {12.0, 22.0, 34.0, 48.0, 64.0, 82.0, 102.0, 124.0, 150.0};
constexpr int NumDirections = 16;

// When that many places have been tried, texts without room beside what they are about are left out.
constexpr int MostPlacesTried = 40'000;

// A leader stops clear of a pin or the end of an arrow.
constexpr double ClearOfArrow = 7;

double DistanceOf(PixelPoint a, PixelPoint b) {
  return std::hypot(double{a.X} - double{b.X}, double{a.Y} - double{b.Y});
}

PixelLine ShorterBy(const PixelLine& leader, double clear) {
  if (clear == 0) return leader;
  const double dx = double{leader.X2} - double{leader.X1};
  const double dy = double{leader.Y2} - double{leader.Y1};
  const double length = std::hypot(dx, dy);
  const double share = length > clear ? 1 - clear / length : 0;
  return {leader.X1, leader.Y1, FiniteSingle(leader.X1 + share * dx), FiniteSingle(leader.Y1 + share * dy)};
}

}  // namespace

PixelRect BoxAround(const PixelVector& middle, const TextExtent& extent) {
  return {FiniteSingle(middle.X - extent.Width / 2.0), FiniteSingle(middle.Y - extent.Height / 2.0),
          FiniteSingle(middle.X + extent.Width / 2.0), FiniteSingle(middle.Y + extent.Height / 2.0)};
}

double ReachOf(const TextExtent& extent, const PixelVector& direction) {
  return (std::abs(direction.X) * extent.Width + std::abs(direction.Y) * extent.Height) / 2;
}

PixelVector Towards(double turn) { return {std::cos(turn), std::sin(turn)}; }

std::optional<TextPlace> TextPlacer::At(const PixelRect& box) {
  ++numTries_;
  if (!room_.IsFree(box)) return std::nullopt;
  room_.AddBox(Widened(box, Air));
  return TextPlace{.Box = box};
}

std::optional<TextPlace> TextPlacer::Beyond(const PixelVector& at, const PixelVector& direction,
                                            double distance, const TextExtent& extent) {
  // Far enough that the box clears the point on one axis at least.
  const double x = std::abs(direction.X);
  const double y = std::abs(direction.Y);
  const double halfWidth = extent.Width / 2.0;
  const double halfHeight = extent.Height / 2.0;
  const double clear = x * halfHeight > y * halfWidth ? halfWidth / x : halfHeight / y;
  return At(
      BoxAround({at.X + (distance + clear) * direction.X, at.Y + (distance + clear) * direction.Y}, extent));
}

std::optional<TextPlace> TextPlacer::ByArrow(const PixelLine& line, PixelPoint joint, float width,
                                             const TextExtent& extent) {
  const bool tipIsFar = DistanceOf(line.End2(), joint) > DistanceOf(line.End1(), joint);
  const PixelPoint far = tipIsFar ? line.End2() : line.End1();
  const PixelPoint near = tipIsFar ? line.End1() : line.End2();
  const double length = std::max(1.0, DistanceOf(far, near));
  const PixelVector out{(double{far.X} - double{near.X}) / length, (double{far.Y} - double{near.Y}) / length};
  const double clear = width / 2.0 + 1;
  if (auto place = Beyond({far.X, far.Y}, out, clear, extent)) return place;
  for (const double share : {0.75, 0.45}) {
    const PixelVector at{far.X + (share - 1) * length * out.X, far.Y + (share - 1) * length * out.Y};
    for (const PixelVector& side : {PixelVector{-out.Y, out.X}, PixelVector{out.Y, -out.X}}) {
      if (auto place = Beyond(at, side, clear, extent)) return place;
    }
  }
  return WithLeader({far.X, far.Y}, out, ClearOfArrow, extent);
}

std::optional<TextPlace> TextPlacer::WithLeader(const PixelVector& at, const PixelVector& first,
                                                double clearOfEnd, const TextExtent& extent) {
  const double firstTurn = std::atan2(first.Y, first.X);
  for (const double distance : LeaderLengths) {
    for (int i = 0; i < NumDirections; ++i) {
      if (numTries_ > MostPlacesTried) return std::nullopt;
      ++numTries_;
      // To both sides of the first direction in turn.
      const int step = (i + 1) / 2 * (i % 2 == 0 ? 1 : -1);
      const PixelVector direction = Towards(firstTurn + step * 2 * std::numbers::pi / NumDirections);
      const double away = distance + ReachOf(extent, direction);
      const PixelRect box = BoxAround({at.X + away * direction.X, at.Y + away * direction.Y}, extent);
      if (!room_.IsFree(box)) continue;
      const PixelLine leader = ShorterBy(
          {std::clamp(FiniteSingle(at.X), box.Left, box.Right),
           std::clamp(FiniteSingle(at.Y), box.Top, box.Bottom), FiniteSingle(at.X), FiniteSingle(at.Y)},
          clearOfEnd);
      if (!room_.IsClear(leader)) continue;
      room_.AddArrow(leader, 1 + 2 * Air);
      room_.AddBox(Widened(box, Air));
      return TextPlace{box, leader};
    }
  }
  return std::nullopt;
}
