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

/// The components of a force whose arrow reaches from its point of application to `head`. Nothing when they
/// are not finite, both zero, or the force scale has no use.
std::optional<ForceComponents> ComponentsTo(const Truss& truss, const ForceRec& force,
                                            const SnappedPoint& head);

/// Begins a new force at a point. Null, after a message, when there is no room for one.
std::unique_ptr<Drag> BeginForce(const EditingContext& on, const SnappedPoint& tail);
