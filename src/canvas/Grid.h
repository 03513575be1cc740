// The dotted grid behind the truss.
#pragma once

#include "canvas/Graph.h"
#include "document/DocumentSettings.h"
#include "platform/MessageBox.h"
#include "platform/Surface.h"

inline constexpr const char* GridTooDenseText = "Grid too dense";

/// The world coordinate of a grid line; line 0 is the minimum.
float GridLine(float minimum, float spacing, int index);

/// Sets one pixel, in the foreground colour, at every crossing of grid lines except those on the left and
/// bottom edge. With more than MaxGridCount lines along an axis it shows a message instead and draws nothing.
void ShowGrid(Surface& surface, const Graph& graph, const DocumentSettings& settings, const DerivedView& view,
              MessageBox& messages);
