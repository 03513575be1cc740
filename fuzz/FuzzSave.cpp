// What has been saved is no change: asked of the file on disk, before and after the truss is edited.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "Require.h"
#include "document/BrokenName.h"
#include "document/JointList.h"
#include "document/TrussChanged.h"
#include "document/TrussFile.h"

namespace {

// A folder that goes with the process; in memory where the system has such a place, so that no disk is waited
// for.
class Folder {
 public:
  Folder() {
    const std::filesystem::path memory = "/dev/shm";
    path_ = (std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path()) /
            ("orvane-fuzz-" + std::to_string(getpid()));
    std::filesystem::create_directories(path_);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() { std::filesystem::remove_all(path_); }

  std::string File() const { return path_ / "saved.trs"; }

 private:
  std::filesystem::path path_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Folder folder;
  Truss truss;
  ReadTrussText(truss, CanvasBounds{}, std::string_view(reinterpret_cast<const char*>(data), size));
  Require(CheckJoints(truss), "what was read has its joints");
  truss.FileName = folder.File();
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
