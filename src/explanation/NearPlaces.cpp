#include "explanation/NearPlaces.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>
#include <vector>

#include "canvas/SnapTolerance.h"
#include "explanation/RigidityMatrix.h"

MemberLine::MemberLine(const PlacedJoint& from, const PlacedJoint& to)
    : fromX_(from.X),
      fromY_(from.Y),
      x_(double{to.X} - double{from.X}),
      y_(double{to.Y} - double{from.Y}),
      length_(std::sqrt(x_ * x_ + y_ * y_)) {}

MemberLine::Seen MemberLine::See(const PlacedJoint& place) const {
  const double x = place.X - fromX_;
  const double y = place.Y - fromY_;
  return {(x * x_ + y * y_) / length_, std::abs(x * y_ - y * x_) / length_};
}

DrawnWhere DrawnOn(const CanvasBounds& bounds, const Graph& mapping, float width, float height) {
  return {.Bounds = bounds,
          .CanvasWidth = width,
          .CanvasHeight = height,
          .SnapX = std::abs(mapping.XWorld(SnapTolerance) - mapping.XWorld(0)),
          .SnapY = std::abs(mapping.YWorld(SnapTolerance) - mapping.YWorld(0))};
}

DrawnWhere UsuallyDrawn(const Truss& truss) {
  const CanvasBounds bounds;
  const DocumentSettings& settings = truss.Settings;
  Graph graph;
  graph.SetMapping(bounds.PixL, bounds.PixR, bounds.PixB, bounds.PixT, settings.XMin, settings.XMax,
                   settings.YMin, truss.View.YMax);
  const DrawnWhere usual;
  return DrawnOn(bounds, graph, usual.CanvasWidth, usual.CanvasHeight);
}

NearPlaces::NearPlaces(const DocumentSettings& settings, const DrawnWhere& where, double size)
    : snapX_(where.SnapX),
      snapY_(where.SnapY),
      thousandth_(std::min(std::abs(double{settings.XMax} - double{settings.XMin}) / 1000, size / 10)),
      farthest_(size / 10) {}

bool NearPlaces::Meet(const PlacedJoint& a, const PlacedJoint& b) const {
  const double dx = std::abs(WrittenDifference(a.X, b.X));
  const double dy = std::abs(WrittenDifference(a.Y, b.Y));
  // A thousandth that is written in decimals counts as one: 0.02 of 20.
  const double distance = std::sqrt(dx * dx + dy * dy);
  return (dx < snapX_ && dy < snapY_ && distance <= farthest_) || distance <= thousandth_ * (1 + 1e-6);
}

// Joints in cells as large as the distance looked for: what is near stands in the same or a neighbouring
// cell.
void NearPlaces::ForEachPair(const Table<PlacedJoint>& joints,
                             const std::function<bool(int, int)>& take) const {
  const double reachX = std::max(snapX_, thousandth_);
  const double reachY = std::max(snapY_, thousandth_);
  if (!(reachX > 0 && reachY > 0)) return;
  const auto cell = [](double at, double reach) { return std::floor(at / reach); };
  std::map<std::pair<double, double>, std::vector<int>> cells;
  for (int j = 1; j <= joints.Size(); ++j) {
    const double column = cell(joints[j].X, reachX);
    const double row = cell(joints[j].Y, reachY);
    std::vector<int> near;
    for (int dx = -1; dx <= 1; ++dx) {
      for (int dy = -1; dy <= 1; ++dy) {
        const auto found = cells.find({column + dx, row + dy});
        if (found == cells.end()) continue;
        std::ranges::copy_if(found->second, std::back_inserter(near),
                             [&](int other) { return Meet(joints[other], joints[j]); });
      }
    }
    std::ranges::sort(near);
    for (const int other : near) {
      if (!take(other, j)) return;
    }
    cells[{column, row}].push_back(j);
  }
}

bool NearPlaces::PassesThrough(const MemberLine& member, const PlacedJoint& joint) const {
  if (member.Length() == 0) return false;
  const MemberLine::Seen seen = member.See(joint);
  // In a drawing without extent nothing is near, and where the member's own end is seen is rounded.
  const double margin = std::max(thousandth_, 1e-9 * member.Length());
  return seen.Aside <= thousandth_ && seen.Along > margin && seen.Along < member.Length() - margin;
}

bool NearPlaces::LieOnOneAnother(const PlacedJoint& a, const PlacedJoint& b, const PlacedJoint& c,
                                 const PlacedJoint& d) const {
  const MemberLine first(a, b);
  const MemberLine second(c, d);
  // Seen from the longer one, so that what is beside the other's ends is beside all of it.
  if (first.Length() < second.Length()) return LieOnOneAnother(c, d, a, b);
  if (second.Length() == 0) return false;
  const MemberLine::Seen from = first.See(c);
  const MemberLine::Seen to = first.See(d);
  if (from.Aside > thousandth_ || to.Aside > thousandth_) return false;
  const double overlap = std::min(first.Length(), std::max(from.Along, to.Along)) -
                         std::max(0.0, std::min(from.Along, to.Along));
  return overlap > thousandth_;
}
