// The picture of a step in words.
#include "explanation/Directions.h"
#include "explanation/DistinctNames.h"
#include "explanation/byjoint/ForcesOnPart.h"
#include "explanation/byjoint/HandPicture.h"

bool ShowsAssumedSenses(const HandStep& step) { return step.Kind == HandStepKind::Section; }

std::string NoteOfArrows(const HandStep& step) {
  if (ShowsAssumedSenses(step)) {
    return "The picture's arrows show the senses assumed, as in the equations: cut members push on the part, "
           "reactions act as the arrows of their supports point.  A negative number means the other way.";
  }
  const std::string found = "The picture's arrows show the senses found, not those assumed";
  if (step.Joint == 0) return found + ": this is how the forces act on the truss.";
  return found + ": away from the joint is tension, towards it compression.";
}

std::string DescribeHandStep(const TrussGraph& graph, const HandSolution& solution, std::size_t index,
                             const ReportFormat& format) {
  const HandStep& step = solution.Steps[index];
  const DistinctNames names(graph, format);
  std::string text = step.Joint != 0 ? Capital(names.JointInWords(step.Joint)) + " alone"
                                     : "The part with " + names.Joints(JointsOfStep(graph, step));
  std::string separator = ", and what acts on it: ";
  for (const ForceOnPart& force : ForcesOnPart(graph, solution, index, format)) {
    text += separator + (force.Role == ForceRole::Load ? "a load of " : "") + force.Text;
    separator = ", ";
  }
  return text + ".  " + NoteOfArrows(step);
}
