// Painting a drawing of forces and its legend on any surface.
#pragma once

#include <optional>

#include "explanation/forces/ForcesDrawing.h"
#include "explanation/forces/ForcesLegend.h"
#include "platform/Surface.h"

struct ForcesLook {
  bool HuesAreSwapped = false;         ///< compression has the hue of tension, and the other way round
  int Marked = 0;                      ///< an unknown that stands out; 0: none
  std::optional<PixelRect> Visible{};  ///< what lies outside need not be painted; without it everything is
};

/// Paints over what the surface holds: a compressed member as one stroke, one in tension as two, one without
/// force as thin grey dashes, one that is undetermined as dots. Leaves a black foreground, a line width of 1
/// and the font TextFont{}.
void PaintForces(Surface& surface, const ForcesDrawing& drawing, const ForcesLook& look);

/// Paint the lines of a label, and a leader with a dot at its end; each leaves its own pen, the first its
/// font.
void PaintLabel(Surface& surface, const ForceLabel& label);
void PaintLeader(Surface& surface, const PixelLine& leader);

/// Paints the legend with its top left corner at a point, on paper of its own, and leaves the same.
void PaintLegend(Surface& surface, const ForcesLegend& legend, PixelPoint topLeft, const ForcesLook& look);
