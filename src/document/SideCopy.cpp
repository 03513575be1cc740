// The copy's name is made from the file's whole path, so that the next program that opens the file finds it.
#include "document/SideCopy.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <vector>

#include "platform/FileBytes.h"

namespace fs = std::filesystem;

namespace {

// Without symbolic links; empty when there is no such file.
std::string RealPath(const std::string& path) {
  std::array<char, PATH_MAX> real{};
  return realpath(path.c_str(), real.data()) != nullptr ? std::string(real.data()) : std::string();
}

// The same in every run and on every machine (FNV-1a).
std::string HashOf(std::string_view text) {
  std::uint64_t hash = 0xCBF29CE484222325;
  for (const char byte : text) {
    hash = (hash ^ static_cast<std::uint8_t>(byte)) * 0x100000001B3;
  }
  std::string digits;
  for (int shift = 60; shift >= 0; shift -= 4) digits += "0123456789abcdef"[hash >> shift & 0xF];
  return digits;
}

// It ends as the file's name does, so that it can be opened like the file.
std::string NameOfSideCopy(const std::string& realPath) {
  constexpr std::size_t longest = 200;
  const std::string name = realPath.substr(realPath.rfind('/') + 1);
  return "orvane-copy-" + HashOf(realPath) + '-' +
         name.substr(name.size() > longest ? name.size() - longest : 0);
}

// Where programs keep what is neither the user's data nor his settings.
std::string StateFolder() {
  const char* state = std::getenv("XDG_STATE_HOME");
  if (state != nullptr && *state == '/') return std::string(state) + "/orvane/";
  const char* home = std::getenv("HOME");
  return home != nullptr && *home == '/' ? std::string(home) + "/.local/state/orvane/" : std::string();
}

// In the order in which they are tried, each with a slash at its end.
std::vector<std::string> FoldersFor(const std::string& realPath) {
  std::vector<std::string> folders = {realPath.substr(0, realPath.rfind('/') + 1)};
  if (const std::string state = StateFolder(); !state.empty()) folders.push_back(state);
  std::error_code error;
  const fs::path temporary = fs::temp_directory_path(error);
  if (!error) folders.push_back(temporary.string() + '/');
  return folders;
}

bool IsHeldByARunningSave(const SystemFile& file) {
  return flock(file.Descriptor(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

// Nothing for what is not surely the copy of a save of this user that has ended.
std::optional<std::string> BytesOfLeftCopy(const std::string& path) {
  const SystemFile file(path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
  if (!IsFileOfThisUser(file) || IsHeldByARunningSave(file)) return std::nullopt;
  FileBytes bytes = ReadWholeFile(file);
  return bytes.Problem.empty() ? std::optional(std::move(bytes.Bytes)) : std::nullopt;
}

}  // namespace

SideCopy::SideCopy(const std::string& path, std::string_view bytes) {
  const std::string realPath = RealPath(path);
  if (realPath.empty() || bytes.empty()) return;
  std::error_code ignored;
  for (const std::string& folder : FoldersFor(realPath)) {
    if (folder == StateFolder()) fs::create_directories(folder, ignored);
    if (Keep(folder, NameOfSideCopy(realPath), bytes)) return;
  }
}

bool SideCopy::Keep(const std::string& folder, const std::string& name, std::string_view bytes) {
  file_.emplace(folder, PrivateMode);
  std::size_t written = 0;
  const bool isKept = file_->Error() == 0 && file_->File().Write(bytes, written) == 0 &&
                      file_->TakePlaceOf(folder + name) == 0;
  if (isKept) {
    path_ = folder + name;
  } else {
    file_.reset();
  }
  return isKept;
}

bool SideCopy::Remove() {
  if (!path_.empty() && unlink(path_.c_str()) != 0) return false;
  path_.clear();
  return true;
}

std::string LeftCopyOf(const std::string& path) {
  const std::string realPath = RealPath(path);
  if (realPath.empty()) return {};
  for (const std::string& folder : FoldersFor(realPath)) {
    std::string copy = folder + NameOfSideCopy(realPath);
    const std::optional<std::string> before = BytesOfLeftCopy(copy);
    if (!before) continue;
    const FileBytes now = ReadWholeFile(realPath);
    if (!now.Problem.empty() || now.Bytes != *before) return copy;
    unlink(copy.c_str());
  }
  return {};
}

void DiscardLeftCopy(const std::string& path) {
  for (std::string copy = LeftCopyOf(path); !copy.empty(); copy = LeftCopyOf(path)) {
    if (unlink(copy.c_str()) != 0) return;
  }
}
