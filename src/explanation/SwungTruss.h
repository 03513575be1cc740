// The truss with its joints displaced by a motion, as far as a drawing shows it. A motion has no size of its
// own; what is drawn is small against the truss, so that it looks like the beginning of a motion that it is.
#pragma once

#include "explanation/Motions.h"
#include "explanation/TrussExtent.h"
#include "explanation/TrussGraph.h"

/// The largest displacement that is drawn, as a share of the drawing's size.
inline constexpr double LargestSwing = 1.0 / 20;

/// A copy of the truss with everything that stands at a joint moved with it. `swing` is -1 .. 1; what lies
/// beyond counts as that. At 1 the largest displacement is LargestSwing of the drawing's size. Without a
/// motion it is the truss as it stands.
Truss Swung(const Truss& truss, const TrussGraph& graph, const Motion* motion, double swing);
