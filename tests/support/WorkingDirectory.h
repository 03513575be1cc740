// Works in a directory for a while.
#pragma once

#include <filesystem>
#include <string>

class WorkingDirectory {
 public:
  explicit WorkingDirectory(const std::string& directory) : before_(std::filesystem::current_path()) {
    std::filesystem::current_path(directory);
  }
  WorkingDirectory(const WorkingDirectory&) = delete;
  WorkingDirectory& operator=(const WorkingDirectory&) = delete;
  ~WorkingDirectory() {
    std::error_code error;
    std::filesystem::current_path(before_, error);
  }

 private:
  std::filesystem::path before_;
};
