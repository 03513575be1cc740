// The arrows of applied forces: where they stand, and how they are painted so that a force that runs along a
// member is told from it.
#pragma once

#include <vector>

#include "canvas/Drawing.h"
#include "platform/Surface.h"

/// Pixels: a member is widened to this where a force runs along it, and stays white this far beside the
/// arrow. So the arrow lies inside the member like a wire in a tube, and neither hides the other.
inline constexpr int MemberWidthUnderForce = 6;
inline constexpr int ForceRim = 1;

/// More members and forces to compare than this (one number times the other) are not compared: the drawing is
/// so crowded then that a tube could not be told from its neighbours.
inline constexpr int MostForceComparisons = 300'000;

/// A force's arrow from tail to head in pixels. With a force scale of 0 the head stands on the tail.
PixelLine ForceArrow(const Graph& graph, const DocumentSettings& settings, const ForceRec& force);

/// Paints the arrows of all active forces where they stand on the drawing.
void DrawForces(Surface& surface, const Drawing& drawing, const Truss& truss);

/// The same over members: with a white rim, unless there are very many.
void DrawForcesOverMembers(Surface& surface, const Drawing& drawing, const Truss& truss);

/// The parts of members along which the shaft of a force runs, so close that one line would cover the other:
/// pixels, in the direction of the member, members in order. Heads are left out.
std::vector<PixelLine> MemberPartsUnderForces(const Drawing& drawing, const Truss& truss);
