// Additions that hold a truss together, where one alone does not.
#pragma once

#include <vector>

#include "explanation/Advice.h"

/// Additions after which nothing moves any more, judged exactly together: as many as there are motions. Where
/// the truss has no supports, first the two reactions of a clamp at one joint and a roller at another. Empty
/// where there is only one motion, or very many, or where none were found.
std::vector<Advice> SetThatHolds(const TrussGraph& graph, const ExactReasons& reasons,
                                 const NearPlaces& near);

/// Whether nothing holds any joint.
bool HasNoSupports(const TrussGraph& graph);
