#include "explanation/forces/TextPlacer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

#include "canvas/Drawing.h"
#include "canvas/PixelBoxes.h"

namespace {

// Pixels between a text and the pin that it is beside, from the outline, the nearest first.
constexpr std::array GapsToPin = {3.0, 7.0, 12.0, 18.0};

// Where beside a joint its name may stand, in half turns from the right, clockwise.
constexpr std::array SidesOfJoint = {0.25, -0.25, 0.75, -0.75, 0.0, 1.0, 0.5, -0.5};

// Where along a member its text may stand without a leader, the middle first.
constexpr std::array ShareOfMember = {0.5, 0.42, 0.58, 0.34, 0.66, 0.26, 0.74};

// How far away a text may stand with a leader, pixels.
constexpr std::array LeaderLengths = {12.0, 22.0, 34.0, 48.0, 64.0, 82.0, 102.0, 124.0, 150.0};
constexpr int NumDirections = 16;

// When that many places have been tried, texts without room beside what they are about are left out.
constexpr int MostPlacesTried = 40'000;

// A leader stops clear of a pin or the end of an arrow.
constexpr double LeaderClearOfPin = 7, ClearOfArrow = 7;

PixelRect Shifted(const PixelRect& box, const PixelVector& by) {
  return {FiniteSingle(box.Left + by.X), FiniteSingle(box.Top + by.Y), FiniteSingle(box.Right + by.X),
          FiniteSingle(box.Bottom + by.Y)};
}

PixelLine Shifted(const PixelLine& line, const PixelVector& by) {
  return {FiniteSingle(line.X1 + by.X), FiniteSingle(line.Y1 + by.Y), FiniteSingle(line.X2 + by.X),
          FiniteSingle(line.Y2 + by.Y)};
}

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

void TextPlacer::GoAlong(std::vector<PixelVector> shifts) {
  shifts_ = std::move(shifts);
  shifts_.resize(rooms_.size());
}

bool TextPlacer::IsFree(const PixelRect& box) const {
  for (std::size_t i = 0; i < rooms_.size(); ++i) {
    if (!rooms_[i].IsFree(Shifted(box, shifts_[i]))) return false;
  }
  return true;
}

bool TextPlacer::IsClear(const PixelLine& leader) const {
  for (std::size_t i = 0; i < rooms_.size(); ++i) {
    if (!rooms_[i].IsClear(Shifted(leader, shifts_[i]))) return false;
  }
  return true;
}

std::optional<TextPlace> TextPlacer::At(const PixelRect& box) {
  ++numTries_;
  if (!IsFree(box)) return std::nullopt;
  for (std::size_t i = 0; i < rooms_.size(); ++i) rooms_[i].AddBox(Widened(Shifted(box, shifts_[i]), Air));
  return TextPlace{.Box = box};
}

std::optional<TextPlace> TextPlacer::ByJoint(PixelPoint joint, const TextExtent& extent) {
  const PixelVector at{joint.X, joint.Y};
  for (const double gap : GapsToPin) {
    for (const double side : SidesOfJoint) {
      if (auto place = Beyond(at, Towards(side * std::numbers::pi), PinSize / 2 + gap, extent)) return place;
    }
  }
  return WithLeader(at, {1, 1}, LeaderClearOfPin, extent);
}

std::optional<TextPlace> TextPlacer::ByMember(const PixelLine& line, int width, const TextExtent& extent) {
  const PixelVector along{double{line.X2} - double{line.X1}, double{line.Y2} - double{line.Y1}};
  const PixelVector normal = Outwards(line, std::hypot(along.X, along.Y));
  for (const double share : ShareOfMember) {
    const PixelVector at{line.X1 + share * along.X, line.Y1 + share * along.Y};
    for (const PixelVector& side : {normal, PixelVector{-normal.X, -normal.Y}}) {
      const double clear = width / 2.0 + 2 * Air;
      const double distance = ReachOf(extent, side) + clear * (std::abs(side.X) + std::abs(side.Y));
      if (auto place = At(BoxAround({at.X + distance * side.X, at.Y + distance * side.Y}, extent)))
        return place;
    }
  }
  return WithLeader({line.X1 + along.X / 2, line.Y1 + along.Y / 2}, normal, 0, extent);
}

// Across a member, away from the middle, where fewer members are.
PixelVector TextPlacer::Outwards(const PixelLine& line, double length) const {
  if (!(length > 0)) return {0, -1};
  const PixelVector across{(double{line.Y2} - double{line.Y1}) / length,
                           (double{line.X1} - double{line.X2}) / length};
  const double x = double{line.X1} + double{line.X2} - 2 * middle_.X;
  const double y = double{line.Y1} + double{line.Y2} - 2 * middle_.Y;
  return across.X * x + across.Y * y < 0 ? PixelVector{-across.X, -across.Y} : across;
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
      if (!IsFree(box)) continue;
      const PixelLine leader = ShorterBy(
          {std::clamp(FiniteSingle(at.X), box.Left, box.Right),
           std::clamp(FiniteSingle(at.Y), box.Top, box.Bottom), FiniteSingle(at.X), FiniteSingle(at.Y)},
          clearOfEnd);
      if (!IsClear(leader)) continue;
      for (std::size_t k = 0; k < rooms_.size(); ++k) {
        rooms_[k].AddArrow(Shifted(leader, shifts_[k]), 1 + 2 * Air);
        rooms_[k].AddBox(Widened(Shifted(box, shifts_[k]), Air));
      }
      return TextPlace{box, leader};
    }
  }
  return std::nullopt;
}
