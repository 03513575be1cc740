// Giving name labels and arrow segments to new elements: always the next free indices, a pair of labels for
// members and clamps, one for rollers and joints, four segments to an arrow.
#pragma once

#include "document/Truss.h"

/// Font size (points) of joint names, which are bold; all other names are smaller and plain.
inline constexpr float JointFontSize = 10;

/// Segments of one arrow: shaft, two head sides, head base.
inline constexpr int SegmentsPerArrow = 4;

/// Gives member or support `index` its labels ("[ ]") and arrow segments. Returns false, and changes nothing,
/// when a counter would pass MaxCount.
[[nodiscard]] bool CreateMemberLabels(Truss& truss, int index);
[[nodiscard]] bool CreateSupportLabels(Truss& truss, int index);

/// Takes the next label (caption "[ ]", not tagged) for a joint. 0 when there is none left.
[[nodiscard]] LabelIndex CreateJointLabel(Truss& truss);

/// Tags the labels and arrow segments of an erased element, so that they are never shown again.
void DeleteMemberLabels(Truss& truss, int index);
void DeleteSupportLabels(Truss& truss, int index);
