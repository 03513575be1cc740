// The whole analysis in its one order, for the window, the printable report and the command line.
#pragma once

#include "analysis/Classification.h"
#include "analysis/EquationSystem.h"
#include "document/Truss.h"

/// Counts the unknowns, sorts the joints by name and, when there is at least one unknown, assembles the
/// equations and reduces them. The joint list must be up to date (CheckJoints).
EquationSystem AnalyseTruss(Truss& truss);

/// The equations of a truss and what their solution says. Without any unknown force both are empty.
struct TrussAnalysis {
  EquationSystem System;
  Classification Reading;
};

/// AnalyseTruss, and its rows read.
TrussAnalysis SolveTruss(Truss& truss);
