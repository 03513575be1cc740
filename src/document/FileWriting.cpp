#include "document/FileWriting.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <ctime>
#include <filesystem>
#include <system_error>

#include "document/FileAttributes.h"
#include "document/FileBeside.h"
#include "document/SideCopy.h"
#include "platform/FileBytes.h"

namespace fs = std::filesystem;

namespace {

constexpr mode_t NewFileMode = 0666;  // less what the user or the folder wants new files to be denied
constexpr mode_t AnyWrite = 0222;

// A file that grows beyond what this process may write is answered by a signal that ends the process, unless
// it is held back: then the write fails and says so.
class SizeSignalHeld {
 public:
  SizeSignalHeld() {
    sigemptyset(&signal_);
    sigaddset(&signal_, SIGXFSZ);
    pthread_sigmask(SIG_BLOCK, &signal_, &before_);
  }
  SizeSignalHeld(const SizeSignalHeld&) = delete;
  SizeSignalHeld& operator=(const SizeSignalHeld&) = delete;
  ~SizeSignalHeld() {
    const timespec now{};
    while (sigismember(&before_, SIGXFSZ) == 0 && sigtimedwait(&signal_, nullptr, &now) > 0) {
    }
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
  }

 private:
  sigset_t signal_{}, before_{};
};

// The file that a chain of symbolic links ends at, whether it exists or not. Empty when the links go round.
std::string BehindLinks(fs::path path) {
  std::error_code error;
  constexpr int longestChain = 40;
  for (int i = 0; i < longestChain && fs::is_symlink(fs::symlink_status(path, error)); ++i) {
    path = path.parent_path() / fs::read_symlink(path, error);
    if (error) return {};
  }
  return fs::is_symlink(fs::symlink_status(path, error)) ? std::string() : path.string();
}

bool LeadsTo(const struct stat& file, const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && IsSameFile(status, file);
}

// With its slash; empty for the current folder.
std::string FolderOf(const std::string& path) { return path.substr(0, path.rfind('/') + 1); }

// `written` counts what was written, also of a part that was not written whole.
int WriteBytes(const SystemFile& file, const ManyBytes& bytes, std::size_t& written) {
  return bytes.Tell([&](std::string_view part) {
    std::size_t writtenOfPart = 0;
    const int error = file.Write(part, writtenOfPart);
    written += writtenOfPart;
    return error;
  });
}

int WriteBytes(const SystemFile& file, const ManyBytes& bytes) {
  std::size_t written = 0;
  return WriteBytes(file, bytes, written);
}

// What is beyond `size` bytes was not touched and stays.
int PutBack(const SystemFile& file, std::string_view old, std::size_t size) {
  if (lseek(file.Descriptor(), 0, SEEK_SET) < 0) return errno;
  if (const int error = WriteBytes(file, ManyBytes::Of(old.substr(0, size)))) return error;
  if (ftruncate(file.Descriptor(), static_cast<off_t>(old.size())) != 0) return errno;
  return file.Synchronise();
}

// `touched` says how many of the old bytes may have to be put back.
int Overwrite(const SystemFile& file, const ManyBytes& bytes, std::size_t oldSize, std::size_t& touched) {
  if (lseek(file.Descriptor(), 0, SEEK_SET) < 0) return errno;
  if (const int error = WriteBytes(file, bytes, touched)) return error;
  // What was written stands on the disk before the rest is cut off: until then the old file's room is there
  // to put its bytes back.
  if (const int error = file.Synchronise()) return error;
  if (ftruncate(file.Descriptor(), static_cast<off_t>(bytes.Size)) != 0) return errno;
  touched = std::max(touched, oldSize);
  return file.Synchronise();
}

// Nothing else, such as a pipe, is opened.
SystemFile OpenInPlace(const std::string& path, std::string& why) {
  SystemFile file(path, O_RDWR | O_NONBLOCK);
  const std::optional<struct stat> status = file.Status();
  if (!file.IsOpen()) {
    why = WhyFailed(file.Error());
  } else if (!status || !S_ISREG(status->st_mode)) {
    why = WhyFailed(EACCES);
  }
  return file;
}

std::string WriteInPlace(const std::string& path, const ManyBytes& bytes, std::string& doubt) {
  std::string why;
  const SystemFile file = OpenInPlace(path, why);
  if (!why.empty()) return why;
  const FileBytes old = ReadWholeFile(file);
  if (!old.Problem.empty()) return "it could not be put back if writing failed: " + old.Problem;
  SideCopy copy(path, old.Bytes);
  std::size_t touched = 0;
  const int error = Overwrite(file, bytes, old.Bytes.size(), touched);
  const bool isWhole = error == 0 || PutBack(file, old.Bytes, touched) == 0;
  if (error != 0) why = WhyFailed(error);
  if (!isWhole) why += ", and what the file held before could not be put back";
  if (!isWhole && !copy.Path().empty()) why += "; it is kept in " + copy.Path();
  if (isWhole && !copy.Remove()) {
    const std::string kept = "what it held before is still kept in " + copy.Path();
    if (error == 0) {
      doubt = kept;
    } else {
      why += "; " + kept;
    }
  }
  return why;
}

// Pipes and devices have no old content to protect, and nothing can take their place.
std::string WriteInto(const std::string& path, const ManyBytes& bytes) {
  const SystemFile device(path, O_WRONLY | O_APPEND);
  const int error = device.IsOpen() ? WriteBytes(device, bytes) : device.Error();
  return error == 0 ? std::string() : WhyFailed(error);
}

std::string DoubtAbout(const FileBeside& file) {
  return file.MayBeUndone() ? "the disk reports an error: after a power failure the old file may be back"
                            : "";
}

// There is nothing to keep secret or to keep: the file is what a new file is in this folder.
std::string Create(const std::string& target, const ManyBytes& bytes, std::string& doubt) {
  FileBeside beside(FolderOf(target), NewFileMode);
  int error = beside.Error();
  if (error == 0) error = WriteBytes(beside.File(), bytes);
  if (error == 0) error = beside.TakePlaceOf(target);
  doubt = DoubtAbout(beside);
  return error == 0 ? std::string() : WhyFailed(error);
}

// The folder lets nothing be created or replaced, or the file is bound to its place; the file itself may be
// writable.
bool OnlyInPlace(int error) { return error == EACCES || error == EPERM || error == EROFS || error == EBUSY; }

std::string Replace(const std::string& target, const ManyBytes& bytes, const SystemFile& existing,
                    const struct stat& old, std::string& doubt) {
  FileBeside beside(FolderOf(target), PrivateMode);
  if (OnlyInPlace(beside.Error())) return WriteInPlace(target, bytes, doubt);
  if (beside.Error() != 0) return WhyFailed(beside.Error());
  if (!KeepAttributes(existing.Descriptor(), old, beside.File().Descriptor())) {
    return WriteInPlace(target, bytes, doubt);
  }
  int error = WriteBytes(beside.File(), bytes);
  if (error != 0) return WhyFailed(error);
  error = beside.TakePlaceOf(target);
  doubt = DoubtAbout(beside);
  if (OnlyInPlace(error)) return WriteInPlace(target, bytes, doubt);
  return error == 0 ? std::string() : WhyFailed(error);
}

std::string WriteOver(const std::string& path, const ManyBytes& bytes, std::string& doubt) {
  const SystemFile existing(path, O_WRONLY | O_NONBLOCK);
  if (!existing.IsOpen()) return WhyFailed(existing.Error());
  const std::optional<struct stat> old = existing.Status();
  // Also for root, who may write everything.
  if (!old || (old->st_mode & AnyWrite) == 0) return WhyFailed(EACCES);
  if (const std::string copy = LeftCopyOf(path); !copy.empty()) {
    return "a save of it was interrupted, and what it held before is kept in " + copy;
  }
  const std::string target = BehindLinks(path);
  const bool hasItsNameAlone = old->st_nlink == 1 && LeadsTo(*old, target);
  return hasItsNameAlone ? Replace(target, bytes, existing, *old, doubt) : WriteInPlace(path, bytes, doubt);
}

}  // namespace

std::string WriteWholeFile(const std::string& path, std::string_view bytes, PipesAndDevices others,
                           std::string* doubt) {
  return WriteWholeFile(path, ManyBytes::Of(bytes), others, doubt);
}

std::string WriteWholeFile(const std::string& path, const ManyBytes& bytes, PipesAndDevices others,
                           std::string* doubt) {
  const SizeSignalHeld held;
  std::string untold;
  std::string& told = doubt != nullptr ? *doubt : untold;
  told.clear();
  struct stat status {};
  if (stat(path.c_str(), &status) == 0) {
    if (const char* why = WhyNoFile(status.st_mode, others)) return why;
    return S_ISREG(status.st_mode) ? WriteOver(path, bytes, told) : WriteInto(path, bytes);
  }
  if (errno != ENOENT) return WhyFailed(errno);
  return Create(BehindLinks(path), bytes, told);
}

std::string PutLeftCopyBack(const std::string& path) {
  const SizeSignalHeld held;
  const FileBytes before = ReadWholeFile(LeftCopyOf(path));
  if (!before.Problem.empty()) return before.Problem;
  std::string why;
  const SystemFile file = OpenInPlace(path, why);
  if (!why.empty()) return why;
  std::size_t touched = 0;
  if (const int error = Overwrite(file, ManyBytes::Of(before.Bytes), before.Bytes.size(), touched))
    return WhyFailed(error);
  DiscardLeftCopy(path);
  return {};
}
