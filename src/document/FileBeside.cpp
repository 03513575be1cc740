// Who holds the lock on a file and finds it still under its name, owns that name: only he may remove or
// rename it. So no save ever takes the file of another one that is just being written.
#include "document/FileBeside.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <optional>
#include <tuple>
#include <utility>

namespace {

constexpr int MaxSavesAtOnce = 100;

std::string PathOf(const std::string& folder, int number) {
  return folder + ".orvane-save-" + std::to_string(number);
}

bool StandsUnder(const std::string& path, const SystemFile& file) {
  const std::optional<struct stat> status = file.Status();
  struct stat named {};
  return status && lstat(path.c_str(), &named) == 0 && IsSameFile(named, *status);
}

bool IsLocked(const SystemFile& file) { return flock(file.Descriptor(), LOCK_EX | LOCK_NB) == 0; }

// Whatever is not surely a save of this user stays.
void RemoveIfLeftOver(const std::string& path) {
  const SystemFile file(path, O_RDWR | O_NOFOLLOW | O_NONBLOCK);
  if (IsFileOfThisUser(file) && IsLocked(file) && StandsUnder(path, file)) unlink(path.c_str());
}

void RemoveLeftovers(const std::string& folder) {
  struct stat ignored {};
  for (int number = 1; number <= MaxSavesAtOnce; ++number) {
    const std::string path = PathOf(folder, number);
    if (lstat(path.c_str(), &ignored) != 0) return;
    RemoveIfLeftOver(path);
  }
}

// A file that another save took for a leftover before it could be locked is that one's. Where there are no
// locks nobody takes it.
bool IsKept(const std::string& path, const SystemFile& file) {
  if (!IsLocked(file)) return errno != EWOULDBLOCK;
  return StandsUnder(path, file);
}

}  // namespace

FileBeside::FileBeside(std::string folder, mode_t mode) : folder_(std::move(folder)) {
  RemoveLeftovers(folder_);
  for (int number = 1; number <= MaxSavesAtOnce; ++number) {
    std::string path = PathOf(folder_, number);
    SystemFile file(path, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW, mode);
    error_ = file.Error();
    if (file.IsOpen() && IsKept(path, file)) {
      file_ = std::move(file);
      path_ = std::move(path);  // nothing may fail between its creation and here: it would never be removed
      return;
    }
    if (error_ != 0 && error_ != EEXIST) return;
  }
  error_ = EEXIST;
}

FileBeside::~FileBeside() {
  if (!path_.empty()) unlink(path_.c_str());
}

int FileBeside::TakePlaceOf(const std::string& target) {
  if (const int error = file_.Synchronise()) return error;
  if (std::rename(path_.c_str(), target.c_str()) != 0) return errno;
  path_.clear();
  // A folder that may be written but not read cannot be asked to.
  const SystemFile folder(folder_.empty() ? "." : folder_, O_RDONLY | O_DIRECTORY);
  mayBeUndone_ = folder.IsOpen() && folder.Synchronise() != 0;
  return 0;
}

bool IsSameFile(const struct stat& one, const struct stat& other) {
  return std::tie(one.st_dev, one.st_ino) == std::tie(other.st_dev, other.st_ino);
}

bool IsFileOfThisUser(const SystemFile& file) {
  const std::optional<struct stat> status = file.Status();
  return status && S_ISREG(status->st_mode) && status->st_nlink == 1 &&
         (status->st_uid == geteuid() || geteuid() == 0);
}
