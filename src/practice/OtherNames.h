// The same truss with its names given to other joints and forces.
#pragma once

#include <cstdint>

#include "document/Truss.h"

/// Joints get each other's names. Where a member is called by the names of its two joints, and a reaction by
/// that of its joint with or without something behind it, they are called so again; otherwise members get
/// each other's names, and so do reactions. The same seed gives the same names.
void GiveOtherNames(Truss& truss, std::uint64_t seed);
