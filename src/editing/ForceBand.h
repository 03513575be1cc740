// The arrow that follows the mouse while a force is dragged. It is drawn with the exclusive-or pen on the
// backing image, so that drawing it a second time takes it away without a trace.
#pragma once

#include <cstdint>
#include <optional>

#include "editing/EditingContext.h"

/// Palette index of the arrow; its width and head are those of a force.
inline constexpr std::int16_t ForceBandColour = 8;

class ForceBand {
 public:
  /// `tail` in pixels.
  ForceBand(const EditingContext& on, PixelPoint tail) : on_(on), tail_(tail) {}

  /// Takes the arrow to another head (pixels); nothing is drawn when it stands there already.
  void MoveTo(PixelPoint head);

  /// Takes the arrow away.
  void Erase();

 private:
  void Draw(Surface& surface, PixelPoint head) const;

  const EditingContext& on_;
  PixelPoint tail_;
  std::optional<PixelPoint> head_;
};
