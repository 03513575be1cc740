// Any small truss: joints on whole coordinates, members, supports and loads among them, sensible or not.
#pragma once

#include "InputBytes.h"
#include "document/Truss.h"

/// At most 5 joints with coordinates from 0 to 7 and loads from -3 to 3, so that the ranks of the equations
/// can be found in 128-bit whole numbers. Everything is named.
Truss SmallTruss(InputBytes& input);
