// The Force tool: a press sets the point of application, the drag points the arrow, the release sets its
// head.
#pragma once

#include <memory>
#include <optional>

#include "editing/Drag.h"
#include "editing/EditingContext.h"

/// Force units.
struct ForceComponents {
  float Fx = 0, Fy = 0;
};

/// The components of a force whose arrow reaches from its point of application to `head`. They are taken from
/// the exact places and rounded once, so that arrows of opposite lengths are opposite forces wherever they
/// stand. Nothing when the components are not finite, both zero, or the force scale has no use.
std::optional<ForceComponents> ComponentsBetween(const SnappedPoint& tail, const SnappedPoint& head,
                                                 float forceScale);

/// Begins a new force at a point. Null, after a message, when there is no room for one.
std::unique_ptr<Drag> BeginForce(const EditingContext& on, const SnappedPoint& tail);
