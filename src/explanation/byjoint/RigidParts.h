// The parts of a truss that triangles make rigid.
#pragma once

#include <vector>

#include "explanation/byjoint/TrussBalance.h"

/// Each part grows from a member by joints that two of its joints hold, by members out of line. Parts share
/// joints but no members. Joints of a part ascend; parts of fewer than three joints are left out.
std::vector<std::vector<int>> RigidParts(const TrussBalance& balance);
