#include "explanation/forces/ForcesDrawing.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "canvas/PixelBoxes.h"
#include "canvas/SupportPicture.h"
#include "document/JointList.h"
#include "explanation/TrussExtent.h"
#include "explanation/forces/ForceArrowPlaces.h"
#include "explanation/forces/ForceLabels.h"

namespace {

// Air around the truss for arrows and texts, pixels.
constexpr float ForcesBorder = 84;

// The widest stroke, pixels; where members are short it is that share of the usual member.
constexpr double WidestStroke = 8, NarrowestStroke = 2;
constexpr double StrokeShare = 1.0 / 8;

// Pins closer than this many pixels to each other would hide their members.
constexpr double ClosestPins = 14;

// Of a member that is seen well, pixels, and of any zoom.
constexpr double WellSeen = 240;
constexpr double LeastLargestZoom = 8;
constexpr double WidestArea = 400'000;

double LengthOf(const PixelLine& line) {
  return std::hypot(double{line.X2} - double{line.X1}, double{line.Y2} - double{line.Y1});
}

// The mapping into the room, `zoom` times larger around its middle.
Graph ZoomedMapping(const TrussForces& forces, const PixelRect& room, double zoom) {
  Graph mapping = MappingInto(ExtentOf(forces.Graph), room, ForcesBorder);
  const auto zoomed = [zoom](float at, float low, float high) {
    const double middle = (double{low} + double{high}) / 2;
    return FiniteSingle(middle + zoom * (at - middle));
  };
  mapping.SetMapping(
      zoomed(mapping.PixelX1, room.Left, room.Right), zoomed(mapping.PixelX2, room.Left, room.Right),
      zoomed(mapping.PixelY1, room.Top, room.Bottom), zoomed(mapping.PixelY2, room.Top, room.Bottom),
      mapping.WorldX1, mapping.WorldX2, mapping.WorldY1, mapping.WorldY2);
  return mapping;
}

PixelPoint PointOf(const Graph& mapping, float x, float y) {
  return {OntoPaper(mapping.XPixel(x)), OntoPaper(mapping.YPixel(y))};
}

Table<PixelPoint> PlacesOfJoints(const TrussGraph& graph, const Graph& mapping) {
  Table<PixelPoint> places(graph.NumJoints());
  for (int j = 1; j <= graph.NumJoints(); ++j)
    places[j] = PointOf(mapping, graph.Joints[j].X, graph.Joints[j].Y);
  return places;
}

// The length that as many members exceed as not; 0 without members that have one.
double UsualLength(const std::vector<DrawnMember>& members) {
  std::vector<double> lengths;
  for (const DrawnMember& member : members) lengths.push_back(LengthOf(member.Line));
  if (lengths.empty()) return 0;
  const auto middle = lengths.begin() + static_cast<std::ptrdiff_t>(lengths.size() / 2);
  std::ranges::nth_element(lengths, middle);
  return *middle;
}

void PlaceMembers(ForcesDrawing& drawing, const TrussForces& forces, const Table<PixelPoint>& joints) {
  for (int k = 1; k <= forces.Graph.NumUnknowns(); ++k) {
    const PlacedUnknown& unknown = forces.Graph.Unknowns[k];
    if (!unknown.IsMember()) continue;
    const PixelPoint a = joints[unknown.JointA];
    const PixelPoint b = joints[unknown.JointB];
    drawing.Members.push_back(
        {.Unknown = k, .Sense = forces.Unknowns[k].Sense, .Line = {a.X, a.Y, b.X, b.Y}});
  }
  const double widest = std::clamp(StrokeShare * UsualLength(drawing.Members), NarrowestStroke, WidestStroke);
  for (DrawnMember& member : drawing.Members) {
    const double share =
        forces.Largest > 0 ? std::abs(forces.Unknowns[member.Unknown].Value) / forces.Largest : 0;
    member.Width = static_cast<int>(
        std::lround(NarrowestStroke + (std::isfinite(share) ? share : 1) * (widest - NarrowestStroke)));
  }
}

PixelPoint GroundDirection(std::int16_t type) {
  switch (GroundSideOf(type)) {
    case GroundSide::Left:
      return {-1, 0};
    case GroundSide::Above:
      return {0, -1};
    case GroundSide::Right:
      return {1, 0};
    case GroundSide::Below:
      break;
  }
  return {0, 1};
}

// By joint.
Table<PixelPoint> PlaceSupports(ForcesDrawing& drawing, const ForcesScene& scene, const Graph& mapping) {
  const TrussGraph& graph = scene.Forces.Graph;
  Table<PixelPoint> grounds(graph.NumJoints());
  std::unordered_map<PositionKey, int, PositionHash> jointAt;
  for (int j = 1; j <= graph.NumJoints(); ++j)
    jointAt.emplace(PositionKey(graph.Joints[j].X, graph.Joints[j].Y), j);
  for (const SupportRec& support : scene.Document.SupportsInUse()) {
    if (!support.Live) continue;
    drawing.Supports.push_back({support.TypeIndex, PointOf(mapping, support.X, support.Y)});
    const auto joint = jointAt.find(PositionKey(support.X, support.Y));
    if (joint != jointAt.end()) grounds[joint->second] = GroundDirection(support.TypeIndex);
  }
  return grounds;
}

PixelRect ScaledRoom(const PixelRect& room, double zoom) {
  const double x = (double{room.Left} + double{room.Right}) / 2;
  const double y = (double{room.Top} + double{room.Bottom}) / 2;
  return {FiniteSingle(x + zoom * (room.Left - x)), FiniteSingle(y + zoom * (room.Top - y)),
          FiniteSingle(x + zoom * (room.Right - x)), FiniteSingle(y + zoom * (room.Bottom - y))};
}

// How far the joints stay away from the edges of the area.
double MarginAround(const Table<PixelPoint>& joints, const PixelRect& area) {
  double margin = std::max(area.Width(), area.Height());
  for (const PixelPoint& at : joints.First(joints.Size()))
    margin = std::min({margin, double{at.X} - double{area.Left}, double{area.Right} - double{at.X},
                       double{at.Y} - double{area.Top}, double{area.Bottom} - double{at.Y}});
  return margin;
}

bool IsInside(const PixelRect& box, PixelPoint point) {
  return point.X >= box.Left && point.X < box.Right && point.Y >= box.Top && point.Y < box.Bottom;
}

}  // namespace

ForcesDrawing DrawForces(const ForcesScene& scene, const PixelRect& room, double zoom,
                         const TextMeasure& measure) {
  const TrussForces& forces = scene.Forces;
  ForcesDrawing drawing;
  drawing.Area = ScaledRoom(room, zoom);
  const Graph mapping = ZoomedMapping(forces, room, zoom);
  const Table<PixelPoint> joints = PlacesOfJoints(forces.Graph, mapping);
  PlaceMembers(drawing, forces, joints);
  if (drawing.Members.empty() || UsualLength(drawing.Members) >= ClosestPins) {
    const std::span<const PixelPoint> all = joints.First(joints.Size());
    drawing.Pins.assign(all.begin(), all.end());
  }
  const Table<PixelPoint> grounds = PlaceSupports(drawing, scene, mapping);
  drawing.Arrows = PlaceArrows(forces, joints, grounds, MarginAround(joints, drawing.Area));
  PlaceForceLabels(drawing, scene, joints, measure);
  return drawing;
}

double LargestZoom(const TrussForces& forces, const PixelRect& room) {
  const Graph mapping = ZoomedMapping(forces, room, 1);
  const Table<PixelPoint> joints = PlacesOfJoints(forces.Graph, mapping);
  double shortest = WellSeen;
  for (const PlacedUnknown& unknown : forces.Graph.Unknowns.First(forces.Graph.NumUnknowns())) {
    if (!unknown.IsMember()) continue;
    const PixelPoint a = joints[unknown.JointA];
    const PixelPoint b = joints[unknown.JointB];
    const double length = LengthOf({a.X, a.Y, b.X, b.Y});
    if (length > 0) shortest = std::min(shortest, length);
  }
  const double side = std::max({1.0F, room.Width(), room.Height()});
  return std::clamp(WellSeen / shortest, LeastLargestZoom, std::max(LeastLargestZoom, WidestArea / side));
}

int UnknownAt(const ForcesDrawing& drawing, PixelPoint point, float reach) {
  for (const ForceLabel& label : drawing.Labels) {
    const bool isOfUnknown = label.What == LabelOf::Member || label.What == LabelOf::Reaction;
    if (isOfUnknown && IsInside(label.Box, point)) return label.Number;
  }
  int nearest = 0;
  double least = reach;
  const auto consider = [&](const PixelLine& line, double halfWidth, int unknown) {
    const double distance = DistanceTo(line, point) - halfWidth;
    if (distance > least) return;
    least = distance;
    nearest = unknown;
  };
  for (const DrawnMember& member : drawing.Members) consider(member.Line, member.Width / 2.0, member.Unknown);
  for (const DrawnForce& arrow : drawing.Arrows) {
    if (arrow.What == ArrowOf::Reaction) consider(arrow.Line, 0, arrow.Number);
  }
  return nearest;
}

std::optional<PixelRect> PlaceOf(const ForcesDrawing& drawing, const TrussForces& forces, int unknown) {
  const auto around = [](const PixelLine& line) {
    return PixelRect{std::min(line.X1, line.X2), std::min(line.Y1, line.Y2), std::max(line.X1, line.X2),
                     std::max(line.Y1, line.Y2)};
  };
  if (unknown < 1 || unknown > forces.Graph.NumUnknowns()) return std::nullopt;
  for (const DrawnMember& member : drawing.Members) {
    if (member.Unknown == unknown) return around(member.Line);
  }
  for (const DrawnForce& arrow : drawing.Arrows) {
    if (arrow.What == ArrowOf::Reaction && arrow.Number == unknown) return around(arrow.Line);
  }
  return std::nullopt;
}
