// Grid steps are taken in world coordinates, so that they never drift off the grid.
#include "editing/KeyboardCursor.h"

#include <algorithm>
#include <cmath>

#include "editing/GridLines.h"

namespace {

// A pixel position on a grid line comes back from its conversion a little beside the line; in grid steps.
constexpr double Slack = 1e-3;

// The grid line next to a world coordinate in a direction (1, -1; 0: the nearest). Not finite without a grid.
float NextGridLine(float world, float minimum, float spacing, int direction) {
  const GridLines lines(minimum, std::abs(spacing));
  if (direction > 0) return lines.Stored(std::floor(lines.Position(world) + Slack) + 1);
  if (direction < 0) return lines.Stored(std::ceil(lines.Position(world) - Slack) - 1);
  return lines.Stored(lines.Nearest(world));
}

float XOnGrid(const Graph& graph, const DocumentSettings& settings, float pixel, int direction) {
  const float line = NextGridLine(graph.XWorld(pixel), settings.XMin, settings.GridX, direction);
  return std::isfinite(line) ? graph.XPixel(line) : pixel + static_cast<float>(direction);
}

// `direction` is that of the world, upward.
float YOnGrid(const Graph& graph, const DocumentSettings& settings, float pixel, int direction) {
  const float line = NextGridLine(graph.YWorld(pixel), settings.YMin, settings.GridY, direction);
  return std::isfinite(line) ? graph.YPixel(line) : pixel - static_cast<float>(direction);
}

float Within(float value, float end1, float end2) {
  return std::clamp(value, std::min(end1, end2), std::max(end1, end2));
}

}  // namespace

PixelPoint KeyboardCursor::KeptInside(PixelPoint place) const {
  const Graph& graph = drawing_.Mapping;
  return {Within(place.X, graph.PixelX1, graph.PixelX2), Within(place.Y, graph.PixelY1, graph.PixelY2)};
}

PixelPoint KeyboardCursor::Position() const {
  const Graph& graph = drawing_.Mapping;
  if (visible_ || graph.IsEmpty()) return position_;
  const PixelPoint middle{(graph.PixelX1 + graph.PixelX2) / 2, (graph.PixelY1 + graph.PixelY2) / 2};
  const PixelPoint last = placed_ ? position_ : middle;
  return KeptInside({XOnGrid(graph, truss_.Settings, last.X, 0), YOnGrid(graph, truss_.Settings, last.Y, 0)});
}

void KeyboardCursor::Show() {
  position_ = Position();
  placed_ = true;
  visible_ = true;
}

void KeyboardCursor::Move(ArrowKey key, bool onePixel) {
  if (drawing_.Mapping.IsEmpty()) return;
  Show();
  const bool isSideways = key == ArrowKey::Left || key == ArrowKey::Right;
  const int direction = key == ArrowKey::Right || key == ArrowKey::Up ? 1 : -1;
  if (onePixel) {
    (isSideways ? position_.X : position_.Y) += static_cast<float>(isSideways ? direction : -direction);
  } else if (isSideways) {
    position_.X = XOnGrid(drawing_.Mapping, truss_.Settings, position_.X, direction);
  } else {
    position_.Y = YOnGrid(drawing_.Mapping, truss_.Settings, position_.Y, direction);
  }
  position_ = KeptInside(position_);
  editing_.KeyMove(position_.X, position_.Y);
}

void KeyboardCursor::MoveTo(PixelPoint place) {
  if (drawing_.Mapping.IsEmpty() || std::isnan(place.X) || std::isnan(place.Y)) return;
  Show();
  position_ = KeptInside(place);
  editing_.KeyMove(position_.X, position_.Y);
}

void KeyboardCursor::PressOrRelease() {
  if (drawing_.Mapping.IsEmpty()) return;
  Show();
  if (editing_.IsDragging()) {
    editing_.KeyUp(position_.X, position_.Y);
    return;
  }
  editing_.KeyDown(position_.X, position_.Y);
  if (!editing_.AwaitsRelease()) editing_.KeyUp(position_.X, position_.Y);
}

bool KeyboardCursor::ChooseTool(int digit) {
  if (digit < 1 || digit > NumTools) return false;
  editing_.SelectTool(digit);
  return true;
}

void KeyboardCursor::FollowMouse(float x, float y) {
  position_ = {x, y};
  placed_ = true;
  visible_ = false;
}
