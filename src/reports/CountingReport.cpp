// The list of forces ends with ", " before its line break and the list of joints with ".": that is how the
// report has always read, and it stays.
#include "reports/CountingReport.h"

namespace {

constexpr const char* NewLine = "\r\n";

void TellNames(const Table<SharedText>& names, const TakeText& take) {
  for (const SharedText& name : names.First(names.Size())) {
    take(name);
    take(", ");
  }
}

void TellForces(const CountedTruss& counted, const TakeText& take) {
  const int unknowns = counted.NumUnknowns();
  take("This truss contains " + std::to_string(unknowns) + " unknown " +
       (unknowns == 1 ? "force" : "forces") + ":" + NewLine + NewLine);
  if (counted.MemberForces.Size() != 0) {
    take("- the " + std::to_string(counted.MemberForces.Size()) + " member force(s), labelled ");
    TellNames(counted.MemberForces, take);
    take(std::string(NewLine) +
         "(A positive value for a member force means that the member is under compression "
         "so the member force is directed INTO the pins at its ends.)" +
         NewLine + NewLine);
  }
  if (counted.ReactionForces.Size() != 0) {
    take("- the " + std::to_string(counted.ReactionForces.Size()) + " reaction force(s), labelled ");
    TellNames(counted.ReactionForces, take);
    take(std::string(NewLine) +
         "(Reaction forces are due to clamp or roller supports.  "
         "Positive values mean that they act into a pin in the direction shown.)" +
         NewLine + NewLine);
  }
}

void TellJoints(const Table<CountedJoint>& joints, const TakeText& take) {
  take("This truss contains " + std::to_string(joints.Size()) + (joints.Size() == 1 ? " joint" : " joints") +
       ", labelled ");
  for (int j = 1; j <= joints.Size(); ++j) {
    take(joints[j].Name);
    take(j < joints.Size() ? ", " : ".");
  }
}

void TellEquations(const CountedTruss& counted, const TakeText& take) {
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
  take(text);
  TellJoints(counted.Joints, take);
  take("  Thus there are " + std::to_string(counted.NumEquations()) + " equations." + NewLine + NewLine);
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

void TellCounting(const CountedTruss& counted, CountingParagraph which, const TakeText& take) {
  if (counted.NumUnknowns() == 0) return;
  switch (which) {
    case CountingParagraph::Forces:
      return TellForces(counted, take);
    case CountingParagraph::Equations:
      return TellEquations(counted, take);
    case CountingParagraph::Count:
      return take(CountParagraph(counted.NumEquations(), counted.NumUnknowns()));
  }
}

void TellCounting(const CountedTruss& counted, const TakeText& take) {
  if (counted.NumUnknowns() == 0) return;
  take("The forces:  ");
  TellForces(counted, take);
  take("The equations:  ");
  TellEquations(counted, take);
  take("The count:  ");
  take(CountParagraph(counted.NumEquations(), counted.NumUnknowns()));
}

std::string CountingReport::Text() const {
  if (Forces.empty()) return "";
  return "The forces:  " + Forces + "The equations:  " + Equations + "The count:  " + Count;
}

CountingReport ReportCounting(const CountedTruss& counted) {
  const auto paragraph = [&](CountingParagraph which) {
    std::string text;
    TellCounting(counted, which, [&text](std::string_view part) { text += part; });
    return text;
  };
  return {.Forces = paragraph(CountingParagraph::Forces),
          .Equations = paragraph(CountingParagraph::Equations),
          .Count = paragraph(CountingParagraph::Count)};
}
