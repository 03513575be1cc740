// As long as it lives, files cannot grow beyond a few bytes: the disk has no room left.
#pragma once

#include <sys/resource.h>

#include <csignal>

class FullDisk {
 public:
  FullDisk() : before_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &limit_);
    rlimit small = limit_;
    small.rlim_cur = 64;
    setrlimit(RLIMIT_FSIZE, &small);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &limit_);
    std::signal(SIGXFSZ, before_);
  }

 private:
  void (*before_)(int);
  rlimit limit_{};
};
