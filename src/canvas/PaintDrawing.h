// Painting the objects of a drawing on any surface: members, supports, forces, pins, arrows, labels and
// handles, each kind in front of those before it.
#pragma once

#include "canvas/Drawing.h"
#include "platform/Surface.h"

/// Pixels; members are drawn stronger than rulers and arrows, which are one pixel wide.
inline constexpr int RodLineWidth = 2;

/// More names of joints, or more values of forces, cover each other anyway: they go without the rims, which
/// take time and room in files.
inline constexpr int MostRims = 300;

/// Paints what is visible over what the surface holds; ink is black, forces are red. They stand in front of
/// members and supports, which would hide a force that runs along them; where one does, the member is a tube
/// around it. Names stand on white, so that they can
/// be read where a member passes beneath; a joint's name leaves the joint's pin and support uncovered. Leaves
/// a black foreground, a line width of 1 and the font TextFont{}.
void PaintDrawing(Surface& surface, const Drawing& drawing, const Truss& truss);
