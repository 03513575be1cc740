// Supports that stand on the canvas: which one is under the mouse, turning it, erasing it, dragging its
// picture and dropping it.
#pragma once

#include <memory>

#include "editing/Drag.h"
#include "editing/EditingContext.h"

/// The type that follows when a support is turned: 1, 2, 3, 4, 1 for clamps and 5, 6, 7, 8, 5 for rollers.
std::int16_t NextOrientation(std::int16_t type);

/// Turns a support to its next orientation.
void ReOrientSupport(Truss& truss, int support);

/// Whether support pictures answer the mouse. While a selection is shown they do not, so that its handles can
/// be reached.
void EnableSupports(Drawing& drawing, bool enabled);

/// The topmost live support whose picture covers the pixel and answers the mouse; 0: none.
int SupportAt(const Truss& truss, const Drawing& drawing, float x, float y);

/// Whether a press on a support's picture belongs to the support with this tool. Other tools reach the canvas
/// through the picture, so that a member or force can begin at a supported joint.
bool ActsOnSupports(Tool tool);

/// The mouse is pressed on a support's picture: the Re-orientation tool turns it, the Erase tool erases it,
/// and the Move tool begins to drag it. Null when no drag begins.
std::unique_ptr<Drag> SupportPressed(const EditingContext& on, int support, PixelPoint mouse);
