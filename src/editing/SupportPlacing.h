// The Clamp and Roller tools: a press places a new support.
#pragma once

#include <memory>

#include "editing/Drag.h"
#include "editing/EditingContext.h"

/// The orientations of new supports.
inline constexpr std::int16_t NewClampType = 1;
inline constexpr std::int16_t NewRollerType = LastClampType + 1;

/// Places a support with its labels. Until the release it can still be taken back. Null, after a message,
/// when there is no room for one.
std::unique_ptr<Drag> PlaceSupport(const EditingContext& on, std::int16_t type, const SnappedPoint& point);
