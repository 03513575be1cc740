#include "platform/SystemFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace {

// A call that a signal interrupted has done nothing and is made again.
template <class Call>
auto Uninterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

}  // namespace

SystemFile::SystemFile(const std::string& path, int flags, mode_t mode)
    : descriptor_(Uninterrupted([&] { return open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode); })) {
  if (descriptor_ < 0) error_ = errno;
}

SystemFile::SystemFile(SystemFile&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)), error_(other.error_) {}

SystemFile& SystemFile::operator=(SystemFile&& other) noexcept {
  std::swap(descriptor_, other.descriptor_);
  std::swap(error_, other.error_);
  return *this;
}

SystemFile::~SystemFile() {
  if (descriptor_ >= 0) close(descriptor_);
}

std::optional<struct stat> SystemFile::Status() const {
  struct stat status {};
  if (fstat(descriptor_, &status) != 0) return std::nullopt;
  return status;
}

ssize_t SystemFile::Read(char* buffer, std::size_t size) const {
  return Uninterrupted([&] { return read(descriptor_, buffer, size); });
}

int SystemFile::Write(std::string_view bytes, std::size_t& written) const {
  written = 0;
  while (written < bytes.size()) {
    const ssize_t count =
        Uninterrupted([&] { return write(descriptor_, bytes.data() + written, bytes.size() - written); });
    if (count < 0) return errno;
    written += static_cast<std::size_t>(count);
  }
  return 0;
}

int SystemFile::Synchronise() const {
  if (Uninterrupted([this] { return fsync(descriptor_); }) == 0) return 0;
  const bool unknownHere = errno == EINVAL || errno == ENOSYS || errno == EOPNOTSUPP || errno == EROFS;
  return unknownHere ? 0 : errno;
}

std::string WhyFailed(int error) {
  switch (error) {
    case ENOSPC:
      return "there is no space left on the disk";
    case EDQUOT:
      return "the disk space allotted to you is used up";
    case EFBIG:
      return "the file would be larger than the system allows";
    case EACCES:
    case EPERM:
      return "there is no permission to write it";
    case EROFS:
      return "the disk is read-only";
    case ENAMETOOLONG:
      return "its name is too long";
    case EISDIR:
      return "it is a directory, not a file";
    case ENOENT:
      return "its folder does not exist";
    case ENOTDIR:
      return "a part of its path is not a folder";
    case ELOOP:
      return "its symbolic links go round";
    case ETXTBSY:
      return "it is in use as a program";
    case EILSEQ:
    case EINVAL:
      return "the disk does not take such a name";
    case EEXIST:
      return "too many other files are being saved in its folder";
    case EIO:
      return "the disk reports an error";
    case EMFILE:
    case ENFILE:
      return "too many files are open";
    default:
      return "the system refuses it (error " + std::to_string(error) + ")";
  }
}

const char* WhyNoFile(mode_t mode, PipesAndDevices others) {
  if (S_ISDIR(mode)) return "it is a directory, not a file";
  if (!S_ISREG(mode) && others == PipesAndDevices::Refused) return "it is a pipe or a device, not a file";
  return nullptr;
}
