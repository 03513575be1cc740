// A drawing as a graph before it has been analysed.
#pragma once

#include "document/Truss.h"
#include "explanation/TrussGraph.h"

/// The joints of the joint list and the members in use, with their names. A member that is still being drawn
/// has no name and no joints yet, and is left out.
TrussGraph DrawnGraph(const Truss& truss);
