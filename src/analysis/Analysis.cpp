#include "analysis/Analysis.h"

#include "analysis/Elimination.h"
#include "analysis/Equations.h"
#include "analysis/Unknowns.h"
#include "document/JointList.h"

TrussAnalysis SolveTruss(Truss& truss) {
  TrussAnalysis analysis;
  EquationSystem& system = analysis.System;
  CountUnknowns(truss, system);
  SortJoints(truss);
  analysis.Counted = CountTruss(truss);
  if (system.NumUnknowns() > 0) {
    LoadArrays(truss, analysis.Counted.Joints, system);
    SolveToRREF(analysis.Counted.NumEquations(), system.NumUnknowns(), system.EquationMatrix,
                system.ColumnOrder);
  }
  analysis.Reading = ClassifyRREF(system);
  return analysis;
}
