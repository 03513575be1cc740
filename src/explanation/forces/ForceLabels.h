// Where the texts of a drawing of forces stand.
#pragma once

#include "explanation/forces/ForcesDrawing.h"

/// Gives the drawing, whose members, pins, supports and arrows are placed, its labels: joints' names first,
/// then loads and reactions, then members, the largest force first. Each stands beside what it is about;
/// where there is no room, farther away with a leader; where there is none there either, it is left out.
/// `joints` are the graph's joints on the drawing.
void PlaceForceLabels(ForcesDrawing& drawing, const ForcesScene& scene, const Table<PixelPoint>& joints,
                      const TextMeasure& measure);

/// The size of a label's lines, one below the other.
TextExtent ExtentOfLines(const ForceLabel& label, const TextMeasure& measure);
