// The linear mapping between world coordinates (y up) and canvas pixels (y down).
#pragma once

class Graph {
 public:
  /// Pixel positions of the two world values on each axis. Usually pixelY1 is the bottom and pixelY2 the top,
  /// which turns y around.
  void SetMapping(float pixelX1, float pixelX2, float pixelY1, float pixelY2, float worldX1, float worldX2,
                  float worldY1, float worldY2);

  // Computed in double precision and rounded to single once. On an axis whose range is empty every value maps
  // to the first end of the other side.
  float XPixel(float worldX) const;
  float YPixel(float worldY) const;
  float XWorld(float pixelX) const;
  float YWorld(float pixelY) const;

  // XWorld and YWorld before they are rounded.
  double XWorldUnrounded(float pixelX) const;
  double YWorldUnrounded(float pixelY) const;

  /// Whether a side has no extent on either axis, so that nothing can be drawn to scale.
  bool IsEmpty() const;

  float PixelX1 = 0, PixelX2 = 0, PixelY1 = 0, PixelY2 = 0;
  float WorldX1 = 0, WorldX2 = 0, WorldY1 = 0, WorldY2 = 0;
};
