// The forces that act on the joint or the part of a step, with what is known of them then.
#pragma once

#include <string>
#include <vector>

#include "analysis/FormatSigFigs.h"
#include "explanation/byjoint/HandPicture.h"

struct ForceOnPart {
  int Unknown = 0;  ///< 0: a load
  int Joint = 0;    ///< at which it acts
  double X = 0,
         Y = 0;  ///< direction of its arrow, of length 1, y upward: in which it acts on the joint, or is
                 ///< assumed to (see ShowsAssumedSenses); of a force that is 0 or open, the one assumed
  bool IsMember = false;
  double SideX = 0, SideY = 0;  ///< of a member: from the joint along it
  double Value = 0;             ///< as in the solutions; of a load its magnitude
  ForceRole Role = ForceRole::Known;
  std::string Text{};
};

/// Which joints the step looks at.
std::vector<int> JointsOfStep(const TrussGraph& graph, const HandStep& step);

/// Members that run out of the part, reactions and loads on it, by joints.
std::vector<ForceOnPart> ForcesOnPart(const TrussGraph& graph, const HandSolution& solution,
                                      std::size_t index, const ReportFormat& format);
