// How large a truss is, and how a drawing of it fits into a room.
#pragma once

#include "canvas/Graph.h"
#include "explanation/TrussGraph.h"
#include "platform/Picture.h"

/// The rectangle around all joints, world coordinates in double precision.
struct TrussExtent {
  double Left = 0, Bottom = 0, Right = 0, Top = 0;

  double Width() const { return Right - Left; }
  double Height() const { return Top - Bottom; }

  /// The longer side: the drawing's size.
  double Size() const;
};
TrussExtent ExtentOf(const TrussGraph& graph);

/// Maps the extent into the middle of a room (pixels), as large as it can be with a border of air around it:
/// that many pixels, but no more than a fifth of a side of the room. World units to a pixel are the same on
/// both axes.
Graph MappingInto(const TrussExtent& extent, const PixelRect& room, float widestBorder);
