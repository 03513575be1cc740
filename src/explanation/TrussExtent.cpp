#include "explanation/TrussExtent.h"

#include <algorithm>
#include <cmath>

#include "canvas/Paper.h"

namespace {

// A small room keeps some of itself.
constexpr float BorderShare = 0.2F;

}  // namespace

double TrussExtent::Size() const { return std::max(Width(), Height()); }

TrussExtent ExtentOf(const TrussGraph& graph) {
  TrussExtent extent;
  for (int j = 1; j <= graph.NumJoints(); ++j) {
    const double x = graph.Joints[j].X;
    const double y = graph.Joints[j].Y;
    if (j == 1) extent = {x, y, x, y};
    extent = {std::min(extent.Left, x), std::min(extent.Bottom, y), std::max(extent.Right, x),
              std::max(extent.Top, y)};
  }
  return extent;
}

Graph MappingInto(const TrussExtent& extent, const PixelRect& room, float widestBorder) {
  const auto border = [widestBorder](float length) { return std::min(widestBorder, BorderShare * length); };
  const double width = std::max(1.0F, room.Width() - 2 * border(room.Width()));
  const double height = std::max(1.0F, room.Height() - 2 * border(room.Height()));
  double unit = std::max(extent.Width() / width, extent.Height() / height);
  const double x = (extent.Left + extent.Right) / 2;
  const double y = (extent.Bottom + extent.Top) / 2;
  // A single place has no size; around it anything may be the unit that a single can tell from nothing.
  if (!(unit > 0)) unit = std::max({1.0, std::abs(x), std::abs(y)}) / 100;
  const double reachX = room.Width() / 2.0 * unit;
  const double reachY = room.Height() / 2.0 * unit;
  Graph graph;
  graph.SetMapping(room.Left, room.Right, room.Bottom, room.Top, FiniteSingle(x - reachX),
                   FiniteSingle(x + reachX), FiniteSingle(y - reachY), FiniteSingle(y + reachY));
  return graph;
}
