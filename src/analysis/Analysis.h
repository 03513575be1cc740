// The whole analysis in its one order, for the window and for the command line.
#pragma once

#include "analysis/EquationSystem.h"
#include "document/Truss.h"

/// Counts the unknowns, sorts the joints by name and, when there is at least one unknown, assembles the
/// equations and reduces them. The joint list must be up to date (CheckJoints).
EquationSystem AnalyseTruss(Truss& truss);
