// Names are given, cleared and typed in any order: both labels of a member agree, joints keep their places,
// and what a file can hold survives a save.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "InputBytes.h"
#include "Require.h"
#include "SmallTruss.h"
#include "document/BrokenName.h"
#include "document/TrussFile.h"
#include "naming/Naming.h"

namespace {

std::vector<LabelIndex> JointLabels(const Truss& truss) {
  std::vector<LabelIndex> labels;
  for (const JointRec& joint : truss.JointsInUse()) labels.push_back(joint.NameLabel);
  return labels;
}

void NameSomething(Truss& truss, InputBytes& input) {
  if (truss.NumLabels == 0) return;
  const auto label = static_cast<LabelIndex>(1 + input.Below(truss.NumLabels));
  const std::string before = truss.Name(label);
  const std::string typed = input.TextUpTo('\0');
  Rename(truss, label, typed);
  Require(truss.Name(label) == (typed.empty() ? before : typed), "a name is what was typed");
}

void CheckNames(const Truss& truss) {
  for (const MemberRec& member : truss.MembersInUse()) {
    Require(truss.Name(member.NameLabel1) == truss.Name(member.NameLabel2), "a member has one name");
  }
}

void CheckSaved(Truss& truss) {
  const std::string written = TrussText(truss);
  Truss again;
  const TrussReading reading = ReadTrussWithRest(again, CanvasBounds{}, written);
  const bool isSame = reading.IsWhole() && TrussText(again) == written;
  if (ElementWithBrokenName(truss).empty()) Require(isSame, "names survive a save, or are named as broken");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  InputBytes input(data, size);
  Truss truss = SmallTruss(input);
  const std::vector<LabelIndex> joints = JointLabels(truss);
  for (int i = 0; i < 20 && !input.IsEmpty(); ++i) {
    switch (input.Below(4)) {
      case 0:
        AutoName(truss);
        break;
      case 1:
        ClearNames(truss);
        break;
      default:
        NameSomething(truss, input);
    }
    CheckNames(truss);
    Require(JointLabels(truss) == joints, "naming leaves the joints in their order");
  }
  CheckSaved(truss);
  return 0;
}
