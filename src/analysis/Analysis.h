// The whole analysis in its one order, for the window, the printable report and the command line.
#pragma once

#include "analysis/Classification.h"
#include "analysis/CountedTruss.h"
#include "analysis/EquationSystem.h"
#include "document/Truss.h"

/// All that the reports tell of a truss: what was counted, the equations, and what their solution says. It
/// stays as it is whatever is drawn later. Without any unknown force there are no equations.
struct TrussAnalysis {
  CountedTruss Counted;
  EquationSystem System;
  Classification Reading;
};

/// Counts the unknowns, sorts the truss's joints by name and, when there is at least one unknown, assembles
/// the equations, reduces them and reads the rows. The joint list must be up to date (CheckJoints).
TrussAnalysis SolveTruss(Truss& truss);
