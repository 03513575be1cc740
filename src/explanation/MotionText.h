// Motions and states of self-stress in words.
#pragma once

#include <string>

#include "analysis/FormatSigFigs.h"
#include "explanation/Motions.h"
#include "explanation/TrussGraph.h"

/// Which joints move and where to, which members turn or slide as one piece, what becomes of it, and whether
/// the loads drive it. A single-byte text of a few sentences.
std::string MotionText(const TrussGraph& graph, const Motion& motion, const ReportFormat& format);

/// Which unknowns hang together, and in what proportions.
std::string SelfStressText(const TrussGraph& graph, const SelfStress& stress, const ReportFormat& format);
