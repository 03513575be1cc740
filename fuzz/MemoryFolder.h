// A folder that goes with the process; in memory where the system has such a place, so that no disk is waited
// for.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <string>

class MemoryFolder {
 public:
  MemoryFolder() {
    const std::filesystem::path memory = "/dev/shm";
    path_ = (std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path()) /
            ("orvane-fuzz-" + std::to_string(getpid()));
    std::filesystem::create_directories(path_);
  }
  MemoryFolder(const MemoryFolder&) = delete;
  MemoryFolder& operator=(const MemoryFolder&) = delete;
  ~MemoryFolder() { std::filesystem::remove_all(path_); }

  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};
