// Dragging a handle of the selected element: an end of a member (actions 1 and 2) or the head of a force (3).
#pragma once

#include <memory>

#include "editing/Drag.h"
#include "editing/EditingContext.h"

/// Grabs the handle under the pixel: the head of the selected force, or an end of the selected member, which
/// becomes the big one. Null when there is none. `selection` must outlive the drag.
std::unique_ptr<Drag> GrabHandle(const EditingContext& on, Selection& selection, PixelPoint mouse);

/// Which handle a press there would grab: 1 or 2, that end of the selected member; 3, the head of the
/// selected force; 0, none.
int HandleAt(const EditingContext& on, const Selection& selection, PixelPoint mouse);
