// What each type of support pushes along, and what a mirror makes of it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "document/Truss.h"

/// The direction in which a reaction component is positive: along one axis, 1 or -1; (0, 0) where there is
/// none.
struct ReactionDirection {
  int X = 0, Y = 0;

  bool Exists() const { return X != 0 || Y != 0; }
  bool IsAlongX() const { return X != 0; }
  int Sign() const { return X + Y; }
};

/// Of `component` 1, or 2 of a clamp. Other types and components have none.
inline ReactionDirection DirectionOf(std::int16_t type, int component) {
  using Directions = std::array<ReactionDirection, 2>;
  static constexpr Directions clamp = {{{1, 0}, {0, 1}}};
  static constexpr std::array<Directions, LastSupportType + 1> directions = {
      {{}, clamp, clamp, clamp, clamp, {{{0, 1}, {}}}, {{{0, -1}, {}}}, {{{-1, 0}, {}}}, {{{1, 0}, {}}}}};
  if (type < 1 || type > LastSupportType || component < 1 || component > 2) return {};
  return directions[static_cast<std::size_t>(type)][static_cast<std::size_t>(component - 1)];
}

/// What a mirror in a vertical line makes of a support: ground on its left and on its right change places.
/// Other types stay as they are.
inline std::int16_t MirroredSupport(std::int16_t type) {
  static constexpr std::array<std::int16_t, LastSupportType + 1> mirrored = {0, 1, 2, 4, 3, 5, 6, 8, 7};
  return type < 1 || type > LastSupportType ? type : mirrored[static_cast<std::size_t>(type)];
}
