// Giving name labels and arrow segments to new elements: always the next free indices, a pair of labels for
// members and clamps, one for rollers and joints, four segments to an arrow. Only when no free index is left
// are those used again that erased elements had, so that long editing does not run out of them.
#pragma once

#include <span>

#include "document/Truss.h"

/// Font size (points) of joint names, which are bold; all other names are smaller and plain.
inline constexpr float JointFontSize = 10;

/// Segments of one arrow: shaft, two head sides, head base.
inline constexpr int SegmentsPerArrow = 4;

/// Gives member or support `index` its labels ("[ ]"; of two, the second follows the first) and arrow
/// segments (four in a row). Returns false, and changes nothing, when they would pass MaxCount and not enough
/// are tagged as deleted.
[[nodiscard]] bool CreateMemberLabels(Truss& truss, int index);
[[nodiscard]] bool CreateSupportLabels(Truss& truss, int index);

/// Takes a label (caption "[ ]", not tagged) for a joint. 0 when there is none left.
[[nodiscard]] LabelIndex CreateJointLabel(Truss& truss);

/// How many labels can still be taken one by one: up to MaxCount, and those that are tagged as deleted.
int NumFreeLabels(const Truss& truss);

/// Gives a label to every joint of the list that has none, in order; there must be enough free ones.
void CreateJointLabels(Truss& truss, std::span<JointRec> joints);

/// Tags the labels and arrow segments of an erased element, so that they are never shown for it again.
void DeleteMemberLabels(Truss& truss, int index);
void DeleteSupportLabels(Truss& truss, int index);
