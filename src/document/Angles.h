// How angles are converted between degrees and radians, everywhere in the program.
#pragma once

/// Half a turn in radians, with the digits that all angles are computed with, so that conversions undo each
/// other.
inline constexpr double HalfTurn = 3.141592654;
