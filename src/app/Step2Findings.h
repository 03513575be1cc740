// What the user had better know about his drawing before he names its forces.
#pragma once

#include <string>

#include "document/Truss.h"
#include "platform/NumberFormat.h"

/// Sentences that follow the status text of Step 2, each with a blank before and after it: where supports,
/// and where members, lie on one another, and that `namesOutside` names stand where they cannot be clicked,
/// with the remedy. Empty when there is nothing to say. At most two places of each kind are told, the others
/// counted.
std::string Step2Findings(const Truss& truss, int namesOutside, const NumberFormat& numbers);
