// The Truss Member tool: a press sets end 1 of a new member, the drag stretches its line, the release sets
// end 2.
#pragma once

#include <memory>

#include "editing/Drag.h"
#include "editing/EditingContext.h"

/// Begins a new member at a point. Null, after a message, when there is no room for one.
std::unique_ptr<Drag> BeginMember(const EditingContext& on, const SnappedPoint& start);
