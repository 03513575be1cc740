// A disk without room, for tests of what happens then.
#pragma once

#include <sys/resource.h>

#include <csignal>

// A disk with room for this many bytes in a file, for as long as it lives.
class FullDisk {
 public:
  explicit FullDisk(rlim_t room) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    rlimit limit = before_;
    limit.rlim_cur = room;
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }

 private:
  rlimit before_{};
  void (*handler_)(int);
};
