// The names and arrows that stand beside members and supports, and the names of joints: making them, placing
// them, taking them away.
#pragma once

#include <cstdint>
#include <vector>

#include "canvas/Drawing.h"
#include "platform/TextMeasure.h"

/// All in pixels. A joint's label begins at the joint itself; its letters begin this far to the right of it,
/// clear of the joint's pin and of members that run straight down, or further, clear of a support's picture.
inline constexpr float JointNameInset = 4;

/// Its letters and their rim begin this far below it, so that a member that runs to the right is not cut.
inline constexpr float JointNameDrop = 2;

/// A member's name keeps the member's line this far away on both sides, so that it does not run into letters
/// such as E and F.
inline constexpr float MemberNameMargin = 3;

/// A reaction's name keeps this far from its arrow's tail.
inline constexpr float ReactionNameMargin = 2;

/// No label is narrower or lower than this: one whose name is empty can still be seen, clicked and reached.
inline constexpr float LeastLabelSize = 8;

enum class LabelMode : std::int16_t { Create = 1, Place = 2 };
enum class LabelClass : std::int16_t { Member = 1, Support = 2 };

/// Creates the labels and arrow segments of an element, hidden, or places those that it has by its line or
/// picture on the drawing. Returns false, and changes nothing, when a counter of the truss would pass
/// MaxCount.
[[nodiscard]] bool DoLabel(Drawing& drawing, Truss& truss, const TextMeasure& measure, LabelMode mode,
                           LabelClass labelClass, int index);

/// Hides the labels and arrows of an erased element and tags them, so that they are never shown for it again.
void RemoveLabels(Drawing& drawing, Truss& truss, LabelClass labelClass, int index);

/// Places the labels and arrows of all live elements: supports in order, then members. Each label placed
/// stands in front of those before it.
void PlaceElementLabels(Drawing& drawing, const Truss& truss, const TextMeasure& measure);

/// Places the name of each joint with its top left corner at the joint.
void PlaceJointLabels(Drawing& drawing, const Truss& truss, const TextMeasure& measure);

/// Measures and places all names again, after names have changed on a drawing that stands. Nothing else
/// moves, and the joint list keeps its order.
void PlaceNames(Drawing& drawing, const Truss& truss, const TextMeasure& measure);

/// Brings the truss's joint list up to date and places the joints' names. Returns false, with the old joints
/// and their names in place, when CheckJoints refuses.
[[nodiscard]] bool RefreshJoints(Drawing& drawing, Truss& truss, const TextMeasure& measure);

/// The arrows of a support's reactions as they stand beside its picture, in pixels: two for a clamp, one for
/// a roller. (x, y) is the supported point.
std::vector<PixelLine> ReactionArrows(float x, float y, std::int16_t type);
