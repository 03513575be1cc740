// The list of forces ends with ", " before its line break and the list of joints with ".": that is how the
// report has always read, and it stays.
#include "reports/CountingReport.h"

namespace {

constexpr const char* NewLine = "\r\n";

std::string MemberNames(const Truss& truss) {
  std::string names;
  for (const MemberRec& member : truss.MembersInUse()) {
    if (member.Live) names += truss.Name(member.NameLabel1) + ", ";
  }
  return names;
}

std::string ReactionNames(const Truss& truss) {
  std::string names;
  for (const SupportRec& support : truss.SupportsInUse()) {
    if (!support.Live) continue;
    names += truss.Name(support.NameLabel1) + ", ";
    if (support.IsClamp()) names += truss.Name(support.NameLabel2) + ", ";
  }
  return names;
}

std::string ForcesParagraph(const Truss& truss, const EquationSystem& system) {
  const int unknowns = system.NumUnknowns();
  std::string text = "This truss contains " + std::to_string(unknowns) + " unknown " +
                     (unknowns == 1 ? "force" : "forces") + ":" + NewLine + NewLine;
  if (system.NumMemberForces != 0) {
    text += "- the " + std::to_string(system.NumMemberForces) + " member force(s), labelled " +
            MemberNames(truss) + NewLine +
            "(A positive value for a member force means that the member is under compression "
            "so the member force is directed INTO the pins at its ends.)" +
            NewLine + NewLine;
  }
  if (system.NumReactionForces != 0) {
    text += "- the " + std::to_string(system.NumReactionForces) + " reaction force(s), labelled " +
            ReactionNames(truss) + NewLine +
            "(Reaction forces are due to clamp or roller supports.  "
            "Positive values mean that they act into a pin in the direction shown.)" +
            NewLine + NewLine;
  }
  return text;
}

std::string JointSentence(const Truss& truss) {
  if (truss.NumJoints == 1) {
    return "This truss contains 1 joint, labelled " + truss.Name(truss.Joints[1].NameLabel) + ".";
  }
  std::string text = "This truss contains " + std::to_string(truss.NumJoints) + " joints, labelled ";
  for (int j = 1; j <= truss.NumJoints; ++j) {
    text += truss.Name(truss.Joints[j].NameLabel) + (j < truss.NumJoints ? ", " : ".");
  }
  return text;
}

std::string EquationsParagraph(const Truss& truss) {
  std::string text = "The values of these unknown forces can be found by solving a system of equations.";
  text += NewLine;
  text +=
      "Assuming the truss is in equilibrium, each joint of the truss contributes 2 equations to the system.";
  text += NewLine;
  text += "One equation expresses the fact that the x components of the forces on that joint cancel.";
  text += NewLine;
  text += "The other equation expresses the fact that the y components cancel.";
  text += NewLine;
  text += NewLine;
  text += JointSentence(truss);
  text += "  Thus there are " + std::to_string(2 * truss.NumJoints) + " equations.";
  return text + NewLine + NewLine;
}

std::string CountParagraph(int equations, int unknowns) {
  if (equations == unknowns) {
    return std::string("There are the same number of equations as unknowns.") + NewLine + NewLine +
           "This means that there is a unique solution "
           "(implying a stable truss) as long as the equations are neither redundant nor inconsistent."
           "  If the truss consists only of triangles then this is guaranteed but in all other cases it must "
           "be checked."
           "  This can be done by using Gaussian elimination to put the system of equations into RREF form.";
  }
  if (equations > unknowns) {
    return "There are more equations than unknowns so the system is overdetermined.  "
           "Some applied forces will cause the system to be redundant but others will cause it to be "
           "inconsistent.  "
           "Inconsistency implies that the original assumption that the forces sum to zero at each joint is "
           "incorrect "
           "and this in turn implies that the truss is unstable.";
  }
  return "There are less equations than unknowns so the system is undetermined and "
         "a unique solution cannot be found.  We need more equations "
         "(for example equations describing how the members behave under stress).";
}

}  // namespace

std::string CountingReport::Text() const {
  if (Forces.empty()) return "";
  return "The forces:  " + Forces + "The equations:  " + Equations + "The count:  " + Count;
}

CountingReport ReportCounting(const Truss& truss, const EquationSystem& system) {
  if (system.NumUnknowns() == 0) return {};
  return CountingReport{ForcesParagraph(truss, system), EquationsParagraph(truss),
                        CountParagraph(2 * truss.NumJoints, system.NumUnknowns())};
}
