// The functions here take the place of the system's own in this program, and call them.
#include "support/AtCall.h"

#include <dlfcn.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace {

AtCall* firstAtCall = nullptr;

bool FailsNow(const char* name) {
  if (firstAtCall == nullptr) return false;
  const int before = errno;
  const int error = AtCall::ErrorOf(name);
  errno = error != 0 ? error : before;
  return error != 0;
}

// The function of this name that the system has.
template <class Function>
Function* Own(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

AtCall::AtCall(std::string name, std::function<int()> act, int passed)
    : name_(std::move(name)), act_(std::move(act)), passed_(passed), other_(firstAtCall) {
  firstAtCall = this;
}

AtCall::~AtCall() { firstAtCall = other_; }

int AtCall::ErrorOf(const char* name) {
  int first = 0;
  for (AtCall* at = firstAtCall; at != nullptr; at = at->other_) {
    if (at->HasCome() || at->name_ != name || at->passed_-- > 0) continue;
    const int error = at->act_();
    if (first == 0) first = error;
  }
  return first;
}

extern "C" {

int fstat(int file, struct stat* status) noexcept {
  static auto* const own = Own<int(int, struct stat*)>("fstat");
  return FailsNow("fstat") ? -1 : own(file, status);
}

int lstat(const char* path, struct stat* status) noexcept {
  static auto* const own = Own<int(const char*, struct stat*)>("lstat");
  return FailsNow("lstat") ? -1 : own(path, status);
}

ssize_t readlink(const char* path, char* buffer, std::size_t size) noexcept {
  static auto* const own = Own<ssize_t(const char*, char*, std::size_t)>("readlink");
  return FailsNow("readlink") ? -1 : own(path, buffer, size);
}

ssize_t read(int file, void* buffer, std::size_t size) {
  static auto* const own = Own<ssize_t(int, void*, std::size_t)>("read");
  return FailsNow("read") ? -1 : own(file, buffer, size);
}

ssize_t write(int file, const void* bytes, std::size_t size) {
  static auto* const own = Own<ssize_t(int, const void*, std::size_t)>("write");
  return FailsNow("write") ? -1 : own(file, bytes, size);
}

off_t lseek(int file, off_t offset, int from) noexcept {
  static auto* const own = Own<off_t(int, off_t, int)>("lseek");
  return FailsNow("lseek") ? -1 : own(file, offset, from);
}

int ftruncate(int file, off_t size) noexcept {
  static auto* const own = Own<int(int, off_t)>("ftruncate");
  return FailsNow("ftruncate") ? -1 : own(file, size);
}

int fchmod(int file, mode_t mode) noexcept {
  static auto* const own = Own<int(int, mode_t)>("fchmod");
  return FailsNow("fchmod") ? -1 : own(file, mode);
}

int fchown(int file, uid_t user, gid_t group) noexcept {
  static auto* const own = Own<int(int, uid_t, gid_t)>("fchown");
  return FailsNow("fchown") ? -1 : own(file, user, group);
}

int flock(int file, int operation) noexcept {
  static auto* const own = Own<int(int, int)>("flock");
  return FailsNow("flock") ? -1 : own(file, operation);
}

int rename(const char* from, const char* to) noexcept {
  static auto* const own = Own<int(const char*, const char*)>("rename");
  return FailsNow("rename") ? -1 : own(from, to);
}

int unlink(const char* path) noexcept {
  static auto* const own = Own<int(const char*)>("unlink");
  return FailsNow("unlink") ? -1 : own(path);
}

ssize_t flistxattr(int file, char* list, std::size_t size) noexcept {
  static auto* const own = Own<ssize_t(int, char*, std::size_t)>("flistxattr");
  return FailsNow("flistxattr") ? -1 : own(file, list, size);
}

ssize_t fgetxattr(int file, const char* name, void* value, std::size_t size) noexcept {
  static auto* const own = Own<ssize_t(int, const char*, void*, std::size_t)>("fgetxattr");
  return FailsNow("fgetxattr") ? -1 : own(file, name, value, size);
}

int fsetxattr(int file, const char* name, const void* value, std::size_t size, int flags) noexcept {
  static auto* const own = Own<int(int, const char*, const void*, std::size_t, int)>("fsetxattr");
  return FailsNow("fsetxattr") ? -1 : own(file, name, value, size, flags);
}
}
