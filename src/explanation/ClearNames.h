// Names of joints beside each other and beside the arrows of a motion, so that all can be read.
#pragma once

#include <vector>

#include "canvas/Drawing.h"
#include "document/Truss.h"

/// Where a joint's name stands and where the motion carries it, pixels.
struct CarriedName {
  LabelIndex Label = 0;            ///< placed already, at `Places.front()`
  std::vector<PixelPoint> Places;  ///< of its joint: as it is drawn, and others that it passes, in step
                                   ///< with the other names
};

/// Moves each name on which an arrow or a name before it would lie, in any of its places, to another side of
/// its joint: above it, to its left, or both; where no side is free, to that with the fewest of them.
void KeepNamesClear(Drawing& drawing, const std::vector<CarriedName>& names,
                    const std::vector<PixelLine>& arrows);
