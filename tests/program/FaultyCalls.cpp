// Calls of the system that fail on purpose, or end the program. Linked into a test they are chosen by
// ArmFaults; as a library that is loaded before the system's by environment variables:
//
// ORVANE_FAULT_CALLS: "changes" (calls that change a file), "reads" (calls that read one) or "memory"
// (allocations)
//
// ORVANE_FAULT_KIND: "fail", "short" (a write takes half of the bytes; what is no write goes well) or "kill"
//
// ORVANE_FAULT_AT: the call, from 1; 0 or nothing: none
//
// ORVANE_FAULT_ERROR: the number of the error that a failing call has
//
// ORVANE_FAULT_COUNT: a file into which the number of counted calls is written at the end
//
// By these variables counting begins when a file named *.trs is opened: what the system and the toolkit do
// before is not meant.
#include "FaultyCalls.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* __libc_calloc(std::size_t count, std::size_t size);
extern "C" void* __libc_realloc(void* old, std::size_t size);

namespace {

using Calls = FaultyCalls;

// Set before the first counted call; nothing here may allocate while allocations are counted.
FaultPlan plan{.Error = ENOSPC};
long count = 0;
bool hasBegun = false;

const char* Setting(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

__attribute__((constructor)) void ReadPlan() {
  const char* calls = Setting("ORVANE_FAULT_CALLS");
  plan.Calls = std::strcmp(calls, "changes") == 0  ? Calls::Changes
               : std::strcmp(calls, "reads") == 0  ? Calls::Reads
               : std::strcmp(calls, "memory") == 0 ? Calls::Memory
                                                   : Calls::None;
  plan.Kind = std::strcmp(Setting("ORVANE_FAULT_KIND"), "short") == 0  ? FaultKind::Short
              : std::strcmp(Setting("ORVANE_FAULT_KIND"), "kill") == 0 ? FaultKind::Kill
                                                                       : FaultKind::Fail;
  plan.At = std::atol(Setting("ORVANE_FAULT_AT"));
  if (*Setting("ORVANE_FAULT_ERROR") != '\0') plan.Error = std::atoi(Setting("ORVANE_FAULT_ERROR"));
}

__attribute__((destructor)) void TellCount() {
  const char* path = Setting("ORVANE_FAULT_COUNT");
  if (*path == '\0') return;
  hasBegun = false;
  std::FILE* file = std::fopen(path, "w");
  if (file == nullptr) return;
  std::fprintf(file, "%ld\n", count);
  std::fclose(file);
}

// True when this call is the one.
bool Strikes(Calls calls) {
  if (!hasBegun || calls != plan.Calls) return false;
  if (++count != plan.At) return false;
  if (plan.Kind == FaultKind::Kill) std::raise(SIGKILL);
  return true;
}

bool Fails(Calls calls) {
  if (!Strikes(calls) || plan.Kind == FaultKind::Short) return false;
  errno = plan.Error;
  return true;
}

template <class Function>
Function* Next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

bool IsTrussFile(const char* path) {
  const std::size_t length = std::strlen(path);
  return length > 4 && std::strcmp(path + length - 4, ".trs") == 0;
}

int OpenIt(const char* path, int flags, mode_t mode) {
  if (IsTrussFile(path)) hasBegun = true;
  const bool changes = (flags & (O_WRONLY | O_RDWR | O_CREAT)) != 0;
  if (Fails(changes ? Calls::Changes : Calls::Reads)) return -1;
  return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

bool IsStandard(int descriptor) { return descriptor <= 2; }

bool LacksMemory(std::size_t size) { return size >= plan.LeastAllocation && Fails(Calls::Memory); }

}  // namespace

void ArmFaults(const FaultPlan& wanted) {
  plan = wanted;
  count = 0;
  hasBegun = true;
}

long DisarmFaults() {
  plan.Calls = Calls::None;
  return count;
}

extern "C" {

int open(const char* path, int flags, ...) {
  va_list more;
  va_start(more, flags);
  const auto mode = static_cast<mode_t>(va_arg(more, int));
  va_end(more);
  return OpenIt(path, flags, mode);
}

int open64(const char* path, int flags, ...) {
  va_list more;
  va_start(more, flags);
  const auto mode = static_cast<mode_t>(va_arg(more, int));
  va_end(more);
  return OpenIt(path, flags, mode);
}

ssize_t read(int descriptor, void* buffer, std::size_t size) {
  if (!IsStandard(descriptor) && Fails(Calls::Reads)) return -1;
  return syscall(SYS_read, descriptor, buffer, size);
}

ssize_t write(int descriptor, const void* bytes, std::size_t size) {
  if (IsStandard(descriptor)) return syscall(SYS_write, descriptor, bytes, size);
  if (Strikes(Calls::Changes)) {
    if (plan.Kind == FaultKind::Short) return syscall(SYS_write, descriptor, bytes, (size + 1) / 2);
    errno = plan.Error;
    return -1;
  }
  return syscall(SYS_write, descriptor, bytes, size);
}

int fsync(int descriptor) {
  return Fails(Calls::Changes) ? -1 : static_cast<int>(syscall(SYS_fsync, descriptor));
}

int rename(const char* from, const char* to) {
  static auto* const next = Next<int(const char*, const char*)>("rename");
  return Fails(Calls::Changes) ? -1 : next(from, to);
}

int unlink(const char* path) {
  static auto* const next = Next<int(const char*)>("unlink");
  return Fails(Calls::Changes) ? -1 : next(path);
}

int ftruncate(int descriptor, off_t size) {
  return Fails(Calls::Changes) ? -1 : static_cast<int>(syscall(SYS_ftruncate, descriptor, size));
}

int fchmod(int descriptor, mode_t mode) {
  return Fails(Calls::Changes) ? -1 : static_cast<int>(syscall(SYS_fchmod, descriptor, mode));
}

int fchown(int descriptor, uid_t user, gid_t group) {
  return Fails(Calls::Changes) ? -1 : static_cast<int>(syscall(SYS_fchown, descriptor, user, group));
}

void* malloc(std::size_t size) { return LacksMemory(size) ? nullptr : __libc_malloc(size); }

void* calloc(std::size_t number, std::size_t size) {
  return LacksMemory(number * size) ? nullptr : __libc_calloc(number, size);
}

void* realloc(void* old, std::size_t size) { return LacksMemory(size) ? nullptr : __libc_realloc(old, size); }
}
