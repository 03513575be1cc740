// How near the mouse must come to an object to snap to it.
#pragma once

/// Pixels on both axes: closer than this to an object snaps to it.
inline constexpr float SnapTolerance = 10;
