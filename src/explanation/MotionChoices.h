// What can be chosen to be drawn, with the words that name and describe it.
#pragma once

#include <string>
#include <vector>

#include "analysis/FormatSigFigs.h"
#include "explanation/ExactVerdict.h"
#include "explanation/TrussGraph.h"

struct MotionChoice {
  enum class Kind { Motion, SelfStress };
  Kind What = Kind::Motion;
  int Number = 1;     ///< from 1, as in the text of the explanation
  std::string Title;  ///< "Motion 1: C and D move"; a single-byte text
};

/// First the motions, then the states of self-stress.
std::vector<MotionChoice> MotionChoices(const TrussGraph& graph, const ExactReasons& reasons,
                                        const ReportFormat& format);

/// With which words the paragraph of the explanation begins that tells it: "Motion 1.".
std::string BeginningOfText(const MotionChoice& choice);

/// The motion or state that was chosen; null for a choice of the other kind.
const Motion* MotionOf(const MotionChoice& choice, const ExactReasons& reasons);
const SelfStress* SelfStressOf(const MotionChoice& choice, const ExactReasons& reasons);

/// What the drawing of a choice shows, in words, for those who cannot see it; of no choice (null) that the
/// truss stands as it is. A single-byte text.
std::string DescribeChoice(const MotionChoice* choice, const TrussGraph& graph, const ExactReasons& reasons,
                           const ReportFormat& format);

/// What must be known to read the drawing.
const char* NoteOnChoice(const MotionChoice* choice, const TrussGraph& graph, const ExactReasons& reasons);
