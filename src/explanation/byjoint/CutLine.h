// Where the line of a cut runs through the drawing of a truss.
#pragma once

#include <vector>

#include "canvas/Paper.h"

struct CutLine {
  std::vector<PixelLine> Lines;
  std::vector<PixelPoint> Crossings;  ///< where it crosses each member that is cut
};

/// `part` are the joints on one side (pixels), at least one; `cut` the members that run out of it, from their
/// inner ends to their outer ones. A straight line where one parts the inner joints from the outer ends, in
/// the middle between them; else a ring around the inner joints or around the outer ends; else a short stroke
/// across each member. It crosses the members that are cut and none of the part.
CutLine DrawCut(const std::vector<PixelPoint>& part, const std::vector<PixelLine>& cut);
