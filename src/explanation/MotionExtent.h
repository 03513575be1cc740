// Whether a motion can be continued or ends after a tiny displacement.
#pragma once

#include <vector>

#include "explanation/ModularElimination.h"
#include "explanation/Motions.h"

/// Decides Extent for each motion. It tightens when a state of self-stress does work on it at second order:
/// no displacements of second order can then make up for the lengthening of the members. It moves on when it
/// only slides or turns parts as one piece, or when the members and supports that touch what moves are
/// independent of each other. `exactRows` are the rows of the rigidity matrix over the field.
template <class Field>
void FindExtents(const TrussGraph& graph, const std::vector<ModularRow>& exactRows,
                 const std::vector<SelfStress>& stresses, std::vector<Motion>& motions);
