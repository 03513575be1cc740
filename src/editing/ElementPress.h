// Acting on an element that was chosen by itself, not by a place: where on the canvas a click would act on
// it.
#pragma once

#include <optional>

#include "canvas/Drawing.h"
#include "document/ElementWords.h"
#include "editing/ToolPalette.h"

/// Pixels. With a tool that draws, a joint is where something new begins; `dragging` says that something is
/// being dragged, which is dropped on joints alone. Other tools act on supports, members and forces. Nothing
/// where the tool does nothing to the element, or where others lie over all of it. The element must be one
/// that is to be seen.
std::optional<PixelPoint> PlaceToPress(const Truss& truss, const Drawing& drawing, Tool tool, bool dragging,
                                       const Element& element);
