// What has been saved is no change: asked of the file on disk, before and after the truss is edited.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "MemoryFolder.h"
#include "Require.h"
#include "document/BrokenName.h"
#include "document/JointList.h"
#include "document/TrussChanged.h"
#include "document/TrussFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const MemoryFolder folder;
  Truss truss;
  ReadTrussText(truss, CanvasBounds{}, std::string_view(reinterpret_cast<const char*>(data), size));
  Require(CheckJoints(truss), "what was read has its joints");
  truss.FileName = folder.Path() / "saved.trs";
  Require(WriteTruss(truss).empty(), "the truss is saved");
  if (ElementWithBrokenName(truss).empty())
    Require(!TrussChanged(truss), "what was just saved has not changed");
  for (MemberRec& member : truss.MembersInUse()) {
    if (!member.Live) continue;
    member.X1 += member.X1 == 0 ? 1 : member.X1;  // always another number, or infinite
    Require(TrussChanged(truss), "a member that was moved is a change");
    break;
  }
  return 0;
}
