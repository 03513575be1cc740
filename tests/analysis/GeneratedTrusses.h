// Seeded random documents: any a file could hold, for comparing with plain code, and well-shaped simple
// trusses, whose forces are all determined.
#pragma once

#include <random>
#include <string>

#include "document/Truss.h"

/// A number 0 .. count - 1, the same on every machine for the same seed.
int Pick(std::mt19937& random, int count);

/// Members, supports of all types and forces over few positions, so that many share a joint; some erased,
/// some members of zero length, positions that differ in the last bit, names that repeat. Anything but a
/// sensible truss.
Truss RandomDocument(std::mt19937& random);

/// A triangle grown joint by joint with two members each, on a clamp and a roller of random types, with
/// random loads: as many equations as unknowns, all of them determined.
Truss RandomSimpleTruss(std::mt19937& random, int numJoints);
