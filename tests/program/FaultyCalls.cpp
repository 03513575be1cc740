// Calls of the system that fail on purpose, or end the program. Linked into a test they are chosen by
// ArmFaults. As a library that is loaded before the system's they serve FaultyProgram: where the program
// opens its first file named *.trs it stops, and for each line on its standard input, "CALLS KIND AT ERROR"
// as the numbers of a FaultPlan, a copy of it goes on from there and counts. What the system and the toolkit
// do before is not meant, and takes longer than all that comes after. The answer, a line on standard output,
// is how the copy ended, as waitpid tells it. The folder ORVANE_FAULT_RUNS gets the copy's standard output
// and error, as "out" and "err", and as "count" the number of counted calls.
#include "FaultyCalls.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <sys/wait.h>
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

// Null for no such run.
const char* FileOfRuns(const char* name) {
  static char path[4096];
  const char* folder = std::getenv("ORVANE_FAULT_RUNS");
  if (folder == nullptr) return nullptr;
  std::snprintf(path, sizeof path, "%s/%s", folder, name);
  return path;
}

__attribute__((destructor)) void TellCount() {
  hasBegun = false;
  const char* path = FileOfRuns("count");
  std::FILE* file = path != nullptr ? std::fopen(path, "w") : nullptr;
  if (file == nullptr) return;
  std::fprintf(file, "%ld\n", count);
  std::fclose(file);
}

int OpenDirectly(const char* path, int flags, mode_t mode) {
  return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

void LeadTo(const char* path, int descriptor) {
  const int file = OpenDirectly(path, O_RDWR | O_CREAT | O_TRUNC, 0600);
  dup2(file, descriptor);
  close(file);
}

bool ReadOrder(FaultPlan& order) {
  char line[64] = {};
  for (std::size_t length = 0; length + 1 < sizeof line; ++length) {
    if (syscall(SYS_read, STDIN_FILENO, line + length, 1) != 1) return false;
    if (line[length] == '\n') break;
  }
  int calls = 0, kind = 0;
  if (std::sscanf(line, "%d %d %ld %d", &calls, &kind, &order.At, &order.Error) != 4) return false;
  order.Calls = static_cast<Calls>(calls);
  order.Kind = static_cast<FaultKind>(kind);
  return true;
}

// Returns in each copy, and never in the program itself.
void GoOnInCopies() {
  FaultPlan order;
  while (ReadOrder(order)) {
    const pid_t copy = fork();
    if (copy == 0) {
      LeadTo("/dev/null", STDIN_FILENO);
      LeadTo(FileOfRuns("out"), STDOUT_FILENO);
      LeadTo(FileOfRuns("err"), STDERR_FILENO);
      ArmFaults(order);
      return;
    }
    int status = 0;
    waitpid(copy, &status, 0);
    char answer[16];
    const int length = std::snprintf(answer, sizeof answer, "%d\n", status);
    syscall(SYS_write, STDOUT_FILENO, answer, length);
  }
  _exit(0);
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
  if (!hasBegun && IsTrussFile(path) && FileOfRuns("") != nullptr) GoOnInCopies();
  const bool changes = (flags & (O_WRONLY | O_RDWR | O_CREAT)) != 0;
  if (Fails(changes ? Calls::Changes : Calls::Reads)) return -1;
  return OpenDirectly(path, flags, mode);
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
