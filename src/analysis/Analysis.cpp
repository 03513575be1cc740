// See the header.
#include "analysis/Analysis.h"

#include "analysis/Elimination.h"
#include "analysis/Equations.h"
#include "analysis/Unknowns.h"
#include "document/JointList.h"

EquationSystem AnalyseTruss(Truss& truss) {
  EquationSystem system;
  CountUnknowns(truss, system);
  SortJoints(truss);
  if (system.NumUnknowns() > 0) {
    LoadArrays(truss, system);
    SolveToRREF(2 * truss.NumJoints, system.NumUnknowns(), system.EquationMatrix, system.ColumnOrder);
  }
  return system;
}

TrussAnalysis SolveTruss(Truss& truss) {
  TrussAnalysis analysis;
  analysis.System = AnalyseTruss(truss);
  analysis.Reading = ClassifyRREF(analysis.System);
  return analysis;
}
