// A straight line parts two sets of points where their convex hulls do not meet; the one in the middle stands
// across the shortest way from hull to hull.
#include "explanation/byjoint/CutLine.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <optional>

namespace {

constexpr double Overhang = 22;  // pixels, beyond the outermost members
constexpr double LeastGap = 6;   // between the sets that a straight line parts
constexpr double RingDistance = 20;
constexpr double StrokeLength = 16;

struct PixelSpot {
  double X = 0, Y = 0;
};
PixelSpot operator+(PixelSpot a, PixelSpot b) { return {a.X + b.X, a.Y + b.Y}; }
PixelSpot operator-(PixelSpot a, PixelSpot b) { return {a.X - b.X, a.Y - b.Y}; }
PixelSpot operator*(double factor, PixelSpot a) { return {factor * a.X, factor * a.Y}; }
double Dot(PixelSpot a, PixelSpot b) { return a.X * b.X + a.Y * b.Y; }
double CrossOf(PixelSpot a, PixelSpot b) { return a.X * b.Y - a.Y * b.X; }
double Length(PixelSpot a) { return std::hypot(a.X, a.Y); }

PixelSpot Of(PixelPoint point) { return {point.X, point.Y}; }
PixelPoint ToPixels(PixelSpot place) { return {FiniteSingle(place.X), FiniteSingle(place.Y)}; }
PixelLine LineBetween(PixelSpot a, PixelSpot b) {
  return {FiniteSingle(a.X), FiniteSingle(a.Y), FiniteSingle(b.X), FiniteSingle(b.Y)};
}

// The corners of the convex hull, one way round; one or two points are their own.
std::vector<PixelSpot> HullOf(std::vector<PixelSpot> points) {
  const auto before = [](PixelSpot a, PixelSpot b) { return a.X < b.X || (a.X == b.X && a.Y < b.Y); };
  std::ranges::sort(points, before);
  std::vector<PixelSpot> hull;
  for (const bool isLower : {true, false}) {
    const std::size_t start = hull.size();
    for (const PixelSpot& point : points) {
      while (hull.size() >= start + 2 &&
             CrossOf(hull.back() - hull[hull.size() - 2], point - hull.back()) <= 0)
        hull.pop_back();
      hull.push_back(point);
    }
    hull.pop_back();
    if (isLower) std::ranges::reverse(points);
  }
  if (hull.empty()) hull.push_back(points.front());
  return hull;
}

// The point of a hull's edges that is nearest to another point.
PixelSpot NearestOn(const std::vector<PixelSpot>& hull, PixelSpot to) {
  PixelSpot nearest = hull.front();
  for (std::size_t i = 0; i < hull.size(); ++i) {
    const PixelSpot from = hull[i];
    const PixelSpot edge = hull[(i + 1) % hull.size()] - from;
    const double size = Dot(edge, edge);
    const double share = size > 0 ? std::clamp(Dot(to - from, edge) / size, 0.0, 1.0) : 0;
    const PixelSpot at = from + share * edge;
    if (Length(at - to) < Length(nearest - to)) nearest = at;
  }
  return nearest;
}

struct HullGap {
  PixelSpot Inner, Outer;
  double Size() const { return Length(Outer - Inner); }
};

// The shortest way from one hull to the other.
HullGap GapBetween(const std::vector<PixelSpot>& inner, const std::vector<PixelSpot>& outer) {
  HullGap gap{inner.front(), outer.front()};
  for (const PixelSpot& corner : inner) {
    const HullGap other{corner, NearestOn(outer, corner)};
    if (other.Size() < gap.Size()) gap = other;
  }
  for (const PixelSpot& corner : outer) {
    const HullGap other{NearestOn(inner, corner), corner};
    if (other.Size() < gap.Size()) gap = other;
  }
  return gap;
}

std::optional<CutLine> StraightCut(const std::vector<PixelSpot>& inner, const std::vector<PixelSpot>& outer,
                                   const std::vector<PixelLine>& cut) {
  const HullGap gap = GapBetween(inner, outer);
  if (gap.Size() < LeastGap) return std::nullopt;
  const PixelSpot across = 1 / gap.Size() * (gap.Outer - gap.Inner);
  // Hulls that meet have no free strip between them.
  const auto isBehind = [&](PixelSpot place) { return Dot(place - gap.Inner, across) < 1e-6 * gap.Size(); };
  const auto isBeyond = [&](PixelSpot place) { return Dot(place - gap.Outer, across) > -1e-6 * gap.Size(); };
  if (!std::ranges::all_of(inner, isBehind) || !std::ranges::all_of(outer, isBeyond)) return std::nullopt;
  const PixelSpot middle = 0.5 * (gap.Inner + gap.Outer);
  const PixelSpot along{-across.Y, across.X};
  CutLine line;
  double first = std::numeric_limits<double>::max();
  double last = std::numeric_limits<double>::lowest();
  for (const PixelLine& member : cut) {
    const PixelSpot from = Of(member.End1());
    const PixelSpot way = Of(member.End2()) - from;
    const PixelSpot crossing = from + Dot(middle - from, across) / Dot(way, across) * way;
    first = std::min(first, Dot(crossing - middle, along));
    last = std::max(last, Dot(crossing - middle, along));
    line.Crossings.push_back(ToPixels(crossing));
  }
  line.Lines.push_back(LineBetween(middle + (first - Overhang) * along, middle + (last + Overhang) * along));
  return line;
}

bool IsInside(const std::vector<PixelSpot>& ring, PixelSpot place) {
  for (std::size_t i = 0; i < ring.size(); ++i) {
    if (CrossOf(ring[(i + 1) % ring.size()] - ring[i], place - ring[i]) <= 0) return false;
  }
  return true;
}

// The convex ring that goes around points at a distance.
std::vector<PixelSpot> RingAround(const std::vector<PixelSpot>& hull, double distance) {
  constexpr int numDirections = 16;
  std::vector<PixelSpot> points;
  for (const PixelSpot& corner : hull) {
    for (int i = 0; i < numDirections; ++i) {
      const double turn = 2 * std::numbers::pi * i / numDirections;
      points.push_back(corner + distance * PixelSpot{std::cos(turn), std::sin(turn)});
    }
  }
  return HullOf(std::move(points));
}

// Where a line that begins inside the ring leaves it.
PixelSpot Leaving(const std::vector<PixelSpot>& ring, PixelSpot from, PixelSpot to) {
  double share = 1;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const PixelSpot edge = ring[(i + 1) % ring.size()] - ring[i];
    const double before = CrossOf(edge, from - ring[i]);
    const double after = CrossOf(edge, to - ring[i]);
    if (after < 0 && before > after) share = std::min(share, before / (before - after));
  }
  return from + share * (to - from);
}

// Around the hull `held`, none of whose points `kept` lies within.
std::optional<CutLine> RingCut(const std::vector<PixelSpot>& held, const std::vector<PixelSpot>& kept,
                               const std::vector<PixelLine>& cut, bool isAroundInner) {
  double distance = RingDistance;
  for (const PixelLine& member : cut)
    distance = std::min(distance, 0.4 * Length(Of(member.End2()) - Of(member.End1())));
  const std::vector<PixelSpot> ring = RingAround(held, distance);
  if (std::ranges::any_of(kept, [&ring](PixelSpot place) { return IsInside(ring, place); }))
    return std::nullopt;
  CutLine line;
  for (const PixelLine& member : cut) {
    const PixelSpot inner = Of(member.End1());
    const PixelSpot outer = Of(member.End2());
    line.Crossings.push_back(
        ToPixels(isAroundInner ? Leaving(ring, inner, outer) : Leaving(ring, outer, inner)));
  }
  for (std::size_t i = 0; i < ring.size(); ++i)
    line.Lines.push_back(LineBetween(ring[i], ring[(i + 1) % ring.size()]));
  return line;
}

CutLine StrokesAcross(const std::vector<PixelLine>& cut) {
  CutLine line;
  for (const PixelLine& member : cut) {
    const PixelSpot way = Of(member.End2()) - Of(member.End1());
    const PixelSpot middle = Of(member.End1()) + 0.5 * way;
    line.Crossings.push_back(ToPixels(middle));
    if (Length(way) == 0) continue;
    const PixelSpot half = StrokeLength / 2 / Length(way) * PixelSpot{-way.Y, way.X};
    line.Lines.push_back(LineBetween(middle - half, middle + half));
  }
  return line;
}

}  // namespace

CutLine DrawCut(const std::vector<PixelPoint>& part, const std::vector<PixelLine>& cut) {
  std::vector<PixelSpot> inner, outer;
  for (const PixelPoint& joint : part) inner.push_back(Of(joint));
  for (const PixelLine& member : cut) outer.push_back(Of(member.End2()));
  if (cut.empty()) return {};
  const std::vector<PixelSpot> innerHull = HullOf(inner);
  const std::vector<PixelSpot> outerHull = HullOf(outer);
  if (auto line = StraightCut(innerHull, outerHull, cut)) return std::move(*line);
  if (auto line = RingCut(innerHull, outer, cut, true)) return std::move(*line);
  if (auto line = RingCut(outerHull, inner, cut, false)) return std::move(*line);
  return StrokesAcross(cut);
}
