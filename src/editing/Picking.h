// What the mouse means on the canvas: the member or force under it, and the point where a joint may go, which
// is an existing one nearby, or a point of the grid, or the mouse position itself.
#pragma once

#include <cstdint>
#include <optional>

#include "canvas/Drawing.h"
#include "canvas/SnapTolerance.h"
#include "document/Truss.h"
#include "text/ExactDecimal.h"

/// Pixels on both axes: not farther than this from a marked end is on its handle.
inline constexpr float HandleTolerance = 4;

/// Whether a place on a member, 0 at end 1 and 1 at end 2, stands for end 2; exactly in the middle it is
/// end 1.
constexpr bool IsEnd2Nearer(float t) { return t > 0.5F; }

enum class ObjectType : std::int16_t { None = 0, Member = 1, Force = 2 };

/// What was picked last. It counts only while the handles are shown.
struct Selection {
  ObjectType Type = ObjectType::None;
  int Index = 0;  ///< 1-based, of the member or force
  float T = 0;    ///< for a member: where it was picked, 0 at end 1 and 1 at end 2

  /// Whether end 2 is the one that a move or a typed value changes.
  bool IsEnd2Big() const { return IsEnd2Nearer(T); }

  friend bool operator==(const Selection&, const Selection&) = default;
};

/// A place for a joint.
struct SnappedPoint {
  PixelPoint Pixel;
  float X = 0, Y = 0;               ///< world, as it is stored
  ExactDecimal ExactX{}, ExactY{};  ///< world, as it was before it was rounded: the decimals of the grid

  friend bool operator==(const SnappedPoint& a, const SnappedPoint& b) {
    return a.Pixel == b.Pixel && a.X == b.X && a.Y == b.Y;
  }
};

/// Whether two places are one: a member or force between them would have no length, on the drawing or in the
/// world.
bool SamePlace(const SnappedPoint& a, const SnappedPoint& b);

/// The first member whose line is under the pixel, or else the first whose pin is, or else the first force.
/// But for the pins nothing beyond a line's ends counts.
Selection ObjectAt(const Truss& truss, const Drawing& drawing, float x, float y);

/// Picks what is under the pixel: marks it with the two handles and disables the supports. Without a hit only
/// the selection is cleared.
Selection IdentifyObject(const Truss& truss, Drawing& drawing, float x, float y);

/// Puts the big handle at the end that a move changes (of a force: the head), the small one at the other, and
/// shows both.
void ShowMoveHandles(const Truss& truss, Drawing& drawing, const Selection& selection);

void PlaceHandles(Drawing& drawing, PixelPoint big, PixelPoint small);

/// Whether the handles are shown, so that a press may grab one.
bool IsSelectionShown(const Drawing& drawing);

/// Whether a selection's element is still there.
bool IsLive(const Truss& truss, const Selection& selection);

/// The place of something that stands at a world point of finite coordinates. A coordinate that is stored for
/// a grid line stands for the decimals of that line, any other for its own.
SnappedPoint PlaceOf(const Truss& truss, const Drawing& drawing, float x, float y);

/// Where a joint may go for the mouse at a pixel. With snap to object, the first that is near: member ends
/// (not those of member `selfObject`; 0: of all), supports, points of application; otherwise with snap to
/// grid the nearest grid point, halves upward, counted from the minimum coordinates; otherwise the mouse
/// position. Nothing when the mapping has no range or the result is not a finite number.
std::optional<SnappedPoint> OKLocation(const Truss& truss, const Drawing& drawing, int selfObject, float x,
                                       float y);
