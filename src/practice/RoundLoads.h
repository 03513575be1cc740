// Loads of the same direction and another size, in round numbers.
#pragma once

#include <compare>

#include "practice/SeededNumbers.h"

struct RoundLoad {
  float Fx = 0, Fy = 0;  ///< force units

  friend auto operator<=>(const RoundLoad&, const RoundLoad&) = default;
};

/// How many levels of roundness there are; on each the numbers are less round and there are more of them.
inline constexpr int NumRoundnessLevels = 5;

/// A ratio between a half and 2, in tenths on level 0, in twentieths on level 1 ...
double RoundRatio(int level, SeededNumbers& numbers);

/// The load times the ratio, its components rounded to three figures. One that would leave the range of
/// singles stays as it is.
RoundLoad Scaled(const RoundLoad& load, double ratio);

/// A load between half and twice as large. Along an axis it is a whole multiple of a step, which is 1 or 5
/// times a power of ten: on level 0 the largest that is at most an eighth of the load, on each further level
/// a half or a fifth of the one before. An oblique load is scaled as a whole. 0 stays 0, and a load that
/// would leave the range of singles as it is.
RoundLoad RoundLoadLike(const RoundLoad& load, int level, SeededNumbers& numbers);
