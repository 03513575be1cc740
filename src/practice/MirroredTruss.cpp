#include "practice/MirroredTruss.h"

#include <algorithm>
#include <limits>

#include "document/SupportReactions.h"
#include "text/NumberText.h"

namespace {

template <class Visit>
void ForEachX(Truss& truss, Visit visit) {
  for (MemberRec& member : truss.MembersInUse()) {
    if (!member.Live) continue;
    visit(member.X1);
    visit(member.X2);
  }
  for (SupportRec& support : truss.SupportsInUse()) {
    if (support.Live) visit(support.X);
  }
  for (ForceRec& force : truss.ForcesInUse()) {
    if (force.Active) visit(force.X);
  }
  for (JointRec& joint : truss.JointsInUse()) visit(joint.X);
}

}  // namespace

void MirrorTruss(Truss& truss) {
  double lowest = std::numeric_limits<double>::max();
  double highest = std::numeric_limits<double>::lowest();
  ForEachX(truss, [&](float x) {
    const double decimal = ReadDouble(GeneralText(x)).value_or(0);
    lowest = std::min(lowest, decimal);
    highest = std::max(highest, decimal);
  });
  ForEachX(truss, [&](float& x) {
    const double decimal = ReadDouble(GeneralText(x)).value_or(0);
    x = ReadSingle(SevenDigitText(lowest + highest - decimal)).value_or(x);
  });
  for (SupportRec& support : truss.SupportsInUse()) support.TypeIndex = MirroredSupport(support.TypeIndex);
  for (ForceRec& force : truss.ForcesInUse()) {
    if (force.Fx != 0) force.Fx = -force.Fx;
  }
}
