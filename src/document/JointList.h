// The joint list: the distinct positions of member ends, supports and forces, each with its name. Two
// positions are one joint when their single-precision coordinates are exactly equal; there is no tolerance,
// because editing snaps what is meant to meet to identical coordinates.
#pragma once

#include "document/Truss.h"

/// A position as a key for hashing: equal keys are equal coordinates (-0 equals 0).
struct PositionKey {
  PositionKey(float x, float y);
  std::uint64_t Bits;
  friend bool operator==(const PositionKey&, const PositionKey&) = default;
};

struct PositionHash {
  std::size_t operator()(const PositionKey& key) const;
};

/// Collects the joints anew (live members in order, end 1 then end 2; live supports; active forces) and
/// carries the labels of the old list over by position. A label whose joint is gone is tagged as deleted; a
/// joint that had none gets a new one. Returns false, and changes nothing, when the truss has more joints
/// than MaxJoints or there are not enough labels for them.
[[nodiscard]] bool CheckJoints(Truss& truss);

/// What to tell the user when CheckJoints refuses.
inline constexpr const char* TooManyJointsText = "the truss has too many joints for 16-bit numbers";

/// Sorts the joint list by the joints' names, by character code, ascending; equal names keep their order.
void SortJoints(Truss& truss);
