// Where a floating panel lies on the canvas: where it opens, and where it goes when it is dragged. Pixels,
// y downward, in the canvas's coordinates.
#pragma once

#include "canvas/Paper.h"
#include "platform/Surface.h"

struct PixelBox {
  float Left = 0, Top = 0, Width = 0, Height = 0;

  float Right() const { return Left + Width; }
  float Bottom() const { return Top + Height; }

  friend bool operator==(const PixelBox&, const PixelBox&) = default;
};

struct PanelSize {
  float Width = 0, Height = 0;
};

/// The left top corner nearest to `leftTop` at which the whole panel lies inside the room; in a room that is
/// too small the panel keeps the room's left or top edge.
PixelPoint KeptInside(PixelPoint leftTop, PanelSize panel, const PixelBox& room);

/// The left top corner at which a panel opens: inside the room, beside the object it belongs to and clear of
/// it, its handles and its arrow head. Where no place is clear, the one that hides the shortest part of the
/// object.
PixelPoint PanelPlace(const PixelLine& object, PanelSize panel, const PixelBox& room);

/// A panel that is moved with the mouse: it follows the pointer by the point at which it was grabbed.
class PanelDrag {
 public:
  /// The button went down on the panel's frame; the position is the pointer's within the frame.
  void Begin(float x, float y);
  void End() { isDragging_ = false; }
  bool IsDragging() const { return isDragging_; }

  /// The panel's left top corner for a pointer on the canvas: the pointer minus the grab offset, kept inside.
  PixelPoint Place(PixelPoint pointer, PanelSize panel, const PixelBox& room) const;

 private:
  bool isDragging_ = false;
  float grabX_ = 0, grabY_ = 0;
};
