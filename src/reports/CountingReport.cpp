// The list of forces ends with ", " before its line break and the list of joints with ".": that is how the
// report has always read, and it stays.
#include "reports/CountingReport.h"

namespace {

constexpr const char* NewLine = "\r\n";

std::string Listed(const Table<SharedText>& names) {
  std::string text;
  for (const SharedText& name : names.First(names.Size())) text.append(name).append(", ");
  return text;
}

std::string ForcesParagraph(const CountedTruss& counted) {
  const int unknowns = counted.NumUnknowns();
  std::string text = "This truss contains " + std::to_string(unknowns) + " unknown " +
                     (unknowns == 1 ? "force" : "forces") + ":" + NewLine + NewLine;
  if (counted.MemberForces.Size() != 0) {
    text += "- the " + std::to_string(counted.MemberForces.Size()) + " member force(s), labelled " +
            Listed(counted.MemberForces) + NewLine +
            "(A positive value for a member force means that the member is under compression "
            "so the member force is directed INTO the pins at its ends.)" +
            NewLine + NewLine;
  }
  if (counted.ReactionForces.Size() != 0) {
    text += "- the " + std::to_string(counted.ReactionForces.Size()) + " reaction force(s), labelled " +
            Listed(counted.ReactionForces) + NewLine +
            "(Reaction forces are due to clamp or roller supports.  "
            "Positive values mean that they act into a pin in the direction shown.)" +
            NewLine + NewLine;
  }
  return text;
}

std::string JointSentence(const Table<CountedJoint>& joints) {
  if (joints.Size() == 1) return "This truss contains 1 joint, labelled " + joints[1].Name + ".";
  std::string text = "This truss contains " + std::to_string(joints.Size()) + " joints, labelled ";
  for (int j = 1; j <= joints.Size(); ++j) text.append(joints[j].Name).append(j < joints.Size() ? ", " : ".");
  return text;
}

std::string EquationsParagraph(const CountedTruss& counted) {
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
  text += JointSentence(counted.Joints);
  text += "  Thus there are " + std::to_string(counted.NumEquations()) + " equations.";
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
           "inconsistent.  Inconsistency implies that the original assumption that the forces sum to zero "
           "at each joint is incorrect and this in turn implies that the truss is unstable.";
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

CountingReport ReportCounting(const CountedTruss& counted) {
  if (counted.NumUnknowns() == 0) return {};
  return CountingReport{ForcesParagraph(counted), EquationsParagraph(counted),
                        CountParagraph(counted.NumEquations(), counted.NumUnknowns())};
}
