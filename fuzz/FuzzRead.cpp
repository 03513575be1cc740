// Any bytes are read as a file; what was read must be sane, and writing it must give a file that reads back.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "document/BrokenName.h"
#include "document/JointList.h"
#include "document/TrussFile.h"

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

void CheckLabels(const Truss& truss) {
  const auto inUse = [&truss](LabelIndex label) { return label >= 1 && label <= truss.NumLabels; };
  for (const MemberRec& member : truss.MembersInUse()) {
    Require(inUse(member.NameLabel1) && inUse(member.NameLabel2));
  }
  for (const SupportRec& support : truss.SupportsInUse()) {
    Require(support.TypeIndex >= 1 && support.TypeIndex <= LastSupportType && inUse(support.NameLabel1));
    Require(!support.IsClamp() || inUse(support.NameLabel2));
  }
  for (const JointRec& joint : truss.JointsInUse()) Require(inUse(joint.NameLabel));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Truss truss;
  ReadTrussText(truss, CanvasBounds{}, std::string_view(reinterpret_cast<const char*>(data), size));
  CheckLabels(truss);
  Require(CheckJoints(truss));
  CheckLabels(truss);
  const std::string written = TrussText(truss);
  Truss again;
  again.Settings = truss.Settings;
  const TrussReading reading = ReadTrussWithRest(again, CanvasBounds{}, written);
  CheckLabels(again);
  if (!ElementWithBrokenName(truss).empty()) return 0;  // a quote in a name does not survive a save
  Require(reading.IsWhole());
  Require(again.NumJoints == truss.NumJoints);
  Require(NumLiveMembers(again) == NumLiveMembers(truss));
  return 0;
}
