// One joint at a time: whether its equations can be solved by hand, and their solution.
#pragma once

#include <vector>

#include "explanation/byjoint/TrussBalance.h"

/// What can be done at a joint: 0 when nothing can, because too many forces are sought or those that are lie
/// in one line; else by what would be divided, the sine of an angle, at most 1.
double SolvableShare(const TrussBalance& balance, int joint);

/// Whether both equations of a joint hold both forces that are sought at it, so that neither gives one alone.
bool IsSolvedInPair(const TrussBalance& balance, int joint);

/// Solves the joint's two equations for the forces that are sought at it, two at most, and learns them.
/// Without any it is a check.
HandStep SolveJoint(TrussBalance& balance, int joint);

/// Where all sought forces but one lie in one line: that one, and by what would be divided; 0 otherwise.
struct AcrossLine {
  int Unknown = 0;  ///< 0: there is none
  int Line = 0;     ///< an unknown of the line
  double Share = 0;
};
AcrossLine OneAcross(const TrussBalance& balance, int joint);

/// Solves the sum across the line.
HandStep SolveAcross(TrussBalance& balance, int joint, const AcrossLine& across);

/// Where all sought forces lie in one line, the sum across it contains none of them: whether it is false.
bool ContradictsAcross(const TrussBalance& balance, int joint);

/// The step that says so.
HandStep ContradictionAcross(const TrussBalance& balance, int joint);
