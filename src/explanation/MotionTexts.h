// The texts of a drawing with a motion or a self-stress: where each can be read.
#pragma once

#include "explanation/MotionDrawing.h"

/// Gives the drawing, in which everything else is placed, its texts: first the visible names of joints, each
/// in a place beside its joint, or away with a leader, where it lies on nothing wherever the motion swings
/// the truss, and goes along with the joint; then those of a self-stress. A text for which there is no room
/// is left out. `swing` is that of the drawing.
void PlaceMotionTexts(const MotionScene& scene, const PixelRect& room, double swing, MotionDrawing& drawing,
                      const TextMeasure& measure);
