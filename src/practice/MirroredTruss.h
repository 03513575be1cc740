// A truss as it is seen in a mirror.
#pragma once

#include "document/Truss.h"

/// Left becomes right about the middle of the truss, exactly on the decimals in which coordinates are
/// written: 0.1 between 0 and 0.7 becomes 0.6. Supports and loads turn with it; reactions keep the axes along
/// which they are positive where their support does (a clamp), names stay with what they name.
void MirrorTruss(Truss& truss);
