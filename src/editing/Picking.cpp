// Plain scans: even the largest truss takes only some microseconds.
#include "editing/Picking.h"

#include <cmath>

#include "canvas/PickedLine.h"
#include "editing/GridLines.h"

namespace {

// A pin touches every pixel whose centre is nearer to the member's end than this, on both axes. Ends lie
// between pixels as a rule, so that the pixel in the middle of a pin is as often beyond the end as before it.
constexpr float PinReach = PinSize / 2 + 0.5F;

bool IsOnPin(PixelPoint end, float x, float y) {
  return std::abs(x - end.X) < PinReach && std::abs(y - end.Y) < PinReach;
}

// 0 or 1, as the fraction along the line: whose pin a pixel is on. Where both are the nearer end's.
std::optional<float> PinAt(const PixelLine& rod, float x, float y) {
  const auto distance = [x, y](PixelPoint end) { return std::hypot(x - end.X, y - end.Y); };
  const bool onPin1 = IsOnPin(rod.End1(), x, y);
  const bool onPin2 = IsOnPin(rod.End2(), x, y);
  if (onPin1 && (!onPin2 || distance(rod.End1()) <= distance(rod.End2()))) return 0;
  return onPin2 ? std::optional(1.0F) : std::nullopt;
}

PixelLine ArrowOf(const ForceRec& force) { return {force.PixX1, force.PixY1, force.PixX2, force.PixY2}; }

void PlaceHandle(MoveHandle& handle, PixelPoint point, float size) {
  handle = {.Left = point.X - size / 2, .Top = point.Y - size / 2, .Visible = true};
}

// The mouse in world coordinates, and how near counts as near there.
struct Target {
  Target(const Graph& graph, float x, float y)
      : X(graph.XWorld(x)),
        Y(graph.YWorld(y)),
        toleranceX_(std::abs(double{graph.XWorld(SnapTolerance)} - double{graph.XWorld(0)})),
        toleranceY_(std::abs(double{graph.YWorld(SnapTolerance)} - double{graph.YWorld(0)})) {}

  bool IsNear(float x, float y) const {
    return std::abs(double{X} - double{x}) < toleranceX_ && std::abs(double{Y} - double{y}) < toleranceY_;
  }

  float X, Y;

 private:
  double toleranceX_, toleranceY_;
};

// 9 steps of 0.1 are stored as 0.90000004, and nine tenths are meant.
ExactDecimal MeaningOf(float stored, const GridLines& grid) {
  const double line = grid.Nearest(stored);
  return grid.Stored(line) == stored ? grid.Exact(line) : ExactDecimal::Of(stored);
}

GridLines ColumnsOf(const DocumentSettings& settings) { return {settings.XMin, settings.GridX}; }
GridLines RowsOf(const DocumentSettings& settings) { return {settings.YMin, settings.GridY}; }

std::optional<SnappedPoint> NearMemberEnd(const Truss& truss, const Drawing& drawing, int selfObject,
                                          const Target& target) {
  for (int i = 1; i <= truss.NumMembers; ++i) {
    if (i == selfObject || !IsRodShown(drawing, truss, i)) continue;
    const MemberRec& member = truss.Members[i];
    const auto end = [&](float x, float y, PixelPoint drawn) {
      SnappedPoint place = PlaceOf(truss, drawing, x, y);
      place.Pixel = drawn;
      return place;
    };
    if (target.IsNear(member.X1, member.Y1)) return end(member.X1, member.Y1, drawing.Rod[i].End1());
    if (target.IsNear(member.X2, member.Y2)) return end(member.X2, member.Y2, drawing.Rod[i].End2());
  }
  return std::nullopt;
}

std::optional<SnappedPoint> NearObject(const Truss& truss, const Drawing& drawing, int selfObject,
                                       const Target& target) {
  if (auto end = NearMemberEnd(truss, drawing, selfObject, target)) return end;
  for (int i = 1; i <= truss.NumSupports; ++i) {
    const SupportRec& support = truss.Supports[i];
    if (!IsSupportShown(drawing, truss, i) || !target.IsNear(support.X, support.Y)) continue;
    return PlaceOf(truss, drawing, support.X, support.Y);
  }
  for (const ForceRec& force : truss.ForcesInUse()) {
    if (!force.Active || !target.IsNear(force.X, force.Y)) continue;
    return PlaceOf(truss, drawing, force.X, force.Y);
  }
  return std::nullopt;
}

// Nothing when no single can hold the nearest grid point.
std::optional<SnappedPoint> NearestGridPoint(const Truss& truss, const Graph& graph, const Target& target) {
  const GridLines columns = ColumnsOf(truss.Settings);
  const GridLines rows = RowsOf(truss.Settings);
  const double column = columns.Nearest(target.X);
  const double row = rows.Nearest(target.Y);
  const float x = columns.Stored(column);
  const float y = rows.Stored(row);
  if (!std::isfinite(x) || !std::isfinite(y)) return std::nullopt;
  return SnappedPoint{{graph.XPixel(x), graph.YPixel(y)}, x, y, columns.Exact(column), rows.Exact(row)};
}

}  // namespace

bool SamePlace(const SnappedPoint& a, const SnappedPoint& b) {
  return a.Pixel == b.Pixel || (a.X == b.X && a.Y == b.Y);
}

Selection ObjectAt(const Truss& truss, const Drawing& drawing, float x, float y) {
  if (drawing.Mapping.IsEmpty()) return {};
  for (int i = 1; i <= truss.NumMembers; ++i) {
    if (!IsRodShown(drawing, truss, i)) continue;
    if (const auto t = FractionAt(drawing.Rod[i], x, y)) return {ObjectType::Member, i, *t};
  }
  for (int i = 1; i <= truss.NumMembers; ++i) {
    if (!IsRodShown(drawing, truss, i) || !HasPins(drawing, i)) continue;
    if (const auto t = PinAt(drawing.Rod[i], x, y)) return {ObjectType::Member, i, *t};
  }
  for (int i = 1; i <= truss.NumForces; ++i) {
    if (!truss.Forces[i].Active) continue;
    if (FractionAt(ArrowOf(truss.Forces[i]), x, y)) return {ObjectType::Force, i, 0};
  }
  return {};
}

Selection IdentifyObject(const Truss& truss, Drawing& drawing, float x, float y) {
  const Selection hit = ObjectAt(truss, drawing, x, y);
  if (hit.Type == ObjectType::None) return hit;
  ShowMoveHandles(truss, drawing, hit);
  drawing.SupportsEnabled = false;
  return hit;
}

void ShowMoveHandles(const Truss& truss, Drawing& drawing, const Selection& selection) {
  if (selection.Type == ObjectType::Force) {
    const PixelLine arrow = ArrowOf(truss.Forces[selection.Index]);
    PlaceHandles(drawing, arrow.End2(), arrow.End1());
    return;
  }
  const PixelLine& rod = drawing.Rod[selection.Index];
  if (selection.IsEnd2Big()) {
    PlaceHandles(drawing, rod.End2(), rod.End1());
  } else {
    PlaceHandles(drawing, rod.End1(), rod.End2());
  }
}

void PlaceHandles(Drawing& drawing, PixelPoint big, PixelPoint small) {
  PlaceHandle(drawing.MoveHandleB, big, MoveHandleBSize);
  PlaceHandle(drawing.MoveHandleS, small, MoveHandleSSize);
}

bool IsSelectionShown(const Drawing& drawing) { return drawing.MoveHandleS.Visible; }

bool IsLive(const Truss& truss, const Selection& selection) {
  switch (selection.Type) {
    case ObjectType::Member:
      return selection.Index <= truss.NumMembers && truss.Members[selection.Index].Live;
    case ObjectType::Force:
      return selection.Index <= truss.NumForces && truss.Forces[selection.Index].Active;
    case ObjectType::None:
      break;
  }
  return false;
}

SnappedPoint PlaceOf(const Truss& truss, const Drawing& drawing, float x, float y) {
  const Graph& graph = drawing.Mapping;
  return {{graph.XPixel(x), graph.YPixel(y)},
          x,
          y,
          MeaningOf(x, ColumnsOf(truss.Settings)),
          MeaningOf(y, RowsOf(truss.Settings))};
}

std::optional<SnappedPoint> OKLocation(const Truss& truss, const Drawing& drawing, int selfObject, float x,
                                       float y) {
  const Graph& graph = drawing.Mapping;
  if (graph.IsEmpty() || !std::isfinite(x) || !std::isfinite(y)) return std::nullopt;
  const Target target(graph, x, y);
  if (truss.Settings.SnapObject) {
    if (auto near = NearObject(truss, drawing, selfObject, target)) return near;
  }
  if (truss.Settings.SnapGrid) return NearestGridPoint(truss, graph, target);
  return SnappedPoint{{x, y},
                      target.X,
                      target.Y,
                      ExactDecimal::Of(graph.XWorldUnrounded(x)),
                      ExactDecimal::Of(graph.YWorldUnrounded(y))};
}
