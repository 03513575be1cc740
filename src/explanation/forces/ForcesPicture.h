// The truss with its forces as a still picture on white paper, with its legend, for files and documents.
#pragma once

#include "explanation/forces/ForcesDrawing.h"

/// A page has no more room (pixels of 96 to the inch) than the first; a file of its own may be as wide as the
/// second.
inline constexpr float NarrowForcesPicture = 640, WidestForcesPicture = 2560;

/// The smallest picture, no wider than `widest`, in which every text has its place and most stand beside what
/// they are about; where even the widest has no room for all, the one with most of them. What had no room is
/// told below. Empty when there is nothing to draw.
Picture ForcesPicture(const ForcesScene& scene, const TextMeasure& measure,
                      float widest = WidestForcesPicture, bool huesAreSwapped = false);
