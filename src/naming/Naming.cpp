// Naming and clearing walk the same way; only the caption that each label gets differs.
#include "naming/Naming.h"

namespace {

constexpr int LastCharacterCode = 255;

// The name of the force with a running code; "A" has code 65.
std::string ForceName(int code) {
  if (code <= LastCharacterCode) return std::string(1, static_cast<char>(static_cast<unsigned char>(code)));
  // Two letters or more, counted like the columns of a spreadsheet after "Z".
  int number = code - LastCharacterCode - 1 + 26;
  std::string name;
  for (; number >= 0; number = number / 26 - 1)
    name.insert(name.begin(), static_cast<char>('A' + number % 26));
  return name;
}

template <class NextForceName, class NextJointName>
void NameAll(Truss& truss, NextForceName nextForceName, NextJointName nextJointName) {
  for (const SupportRec& support : truss.SupportsInUse()) {
    if (!support.Live) continue;
    truss.Labels[support.NameLabel1].Caption = nextForceName();
    if (support.IsClamp()) truss.Labels[support.NameLabel2].Caption = nextForceName();
  }
  for (const MemberRec& member : truss.MembersInUse()) {
    if (!member.Live) continue;
    const SharedText name = nextForceName();
    truss.Labels[member.NameLabel1].Caption = name;
    truss.Labels[member.NameLabel2].Caption = name;
  }
  for (const JointRec& joint : truss.JointsInUse()) truss.Labels[joint.NameLabel].Caption = nextJointName();
}

}  // namespace

void AutoName(Truss& truss) {
  int code = 64;
  int number = 0;
  NameAll(
      truss, [&code] { return ForceName(++code); }, [&number] { return std::to_string(++number); });
}

void ClearNames(Truss& truss) {
  const auto unnamed = [] { return std::string(UnnamedCaption); };
  NameAll(truss, unnamed, unnamed);
}

void Rename(Truss& truss, LabelIndex label, const std::string& typedText) {
  // Pairing runs even when the old name is kept: a file can give a member two different names.
  const SharedText name = typedText.empty() ? truss.Name(label) : SharedText(typedText);
  truss.Labels[label].Caption = name;
  for (const MemberRec& member : truss.MembersInUse()) {
    if (member.NameLabel1 == label) truss.Labels[member.NameLabel2].Caption = name;
    if (member.NameLabel2 == label) truss.Labels[member.NameLabel1].Caption = name;
  }
}
