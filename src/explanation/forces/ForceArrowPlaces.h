// Where the arrows of loads and reactions stand: each at its joint, on a side on which no member runs.
#pragma once

#include <vector>

#include "explanation/forces/ForcesDrawing.h"

/// Pixels. The longest arrow is that of the largest of all loads and reactions. Where there is less room
/// around the truss all arrows are shorter, down to a quarter.
inline constexpr float ShortestForceArrow = 22;
inline constexpr float LongestForceArrow = 54;

/// `joints` are the graph's joints on the drawing, `grounds` for each of them the direction in which the
/// ground of its support lies, (0, 0) without one. A load begins beside its joint, or ends there where a
/// member or another arrow runs that way, so that the pin hides none of it; a reaction stands on the side
/// from which a positive one comes, clear of the support's picture, or on the other. `margin` are the pixels
/// around the joints that arrows may take.
std::vector<DrawnForce> PlaceArrows(const TrussForces& forces, const Table<PixelPoint>& joints,
                                    const Table<PixelPoint>& grounds, double margin);
