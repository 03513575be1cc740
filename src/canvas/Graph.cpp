#include "canvas/Graph.h"

#include <algorithm>
#include <limits>

namespace {

// The point of [to1, to2] that stands where `value` stands in [from1, from2].
double MapUnrounded(float value, float from1, float from2, float to1, float to2) {
  const double range = double{from2} - double{from1};
  if (range == 0) return to1;
  const double mapped = (double{value} - double{from1}) * (double{to2} - double{to1}) / range + double{to1};
  constexpr double largest = std::numeric_limits<float>::max();
  return std::clamp(mapped, -largest, largest);
}

float Map(float value, float from1, float from2, float to1, float to2) {
  return static_cast<float>(MapUnrounded(value, from1, from2, to1, to2));
}

}  // namespace

void Graph::SetMapping(float pixelX1, float pixelX2, float pixelY1, float pixelY2, float worldX1,
                       float worldX2, float worldY1, float worldY2) {
  PixelX1 = pixelX1;
  PixelX2 = pixelX2;
  PixelY1 = pixelY1;
  PixelY2 = pixelY2;
  WorldX1 = worldX1;
  WorldX2 = worldX2;
  WorldY1 = worldY1;
  WorldY2 = worldY2;
}

float Graph::XPixel(float worldX) const { return Map(worldX, WorldX1, WorldX2, PixelX1, PixelX2); }
float Graph::YPixel(float worldY) const { return Map(worldY, WorldY1, WorldY2, PixelY1, PixelY2); }
float Graph::XWorld(float pixelX) const { return Map(pixelX, PixelX1, PixelX2, WorldX1, WorldX2); }
float Graph::YWorld(float pixelY) const { return Map(pixelY, PixelY1, PixelY2, WorldY1, WorldY2); }

double Graph::XWorldUnrounded(float pixelX) const {
  return MapUnrounded(pixelX, PixelX1, PixelX2, WorldX1, WorldX2);
}

double Graph::YWorldUnrounded(float pixelY) const {
  return MapUnrounded(pixelY, PixelY1, PixelY2, WorldY1, WorldY2);
}

bool Graph::IsEmpty() const {
  return WorldX1 == WorldX2 || WorldY1 == WorldY2 || PixelX1 == PixelX2 || PixelY1 == PixelY2;
}
