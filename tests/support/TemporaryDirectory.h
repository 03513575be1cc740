// An empty directory that is gone after the test, with short ways to look at what lies in it.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <string>

class TemporaryDirectory {
 public:
  TemporaryDirectory() {
    std::random_device random;
    do {
      path_ = std::filesystem::temp_directory_path() / ("orvane-test-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path_));
  }
  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;
  ~TemporaryDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  /// The path of a file in the directory, UTF-8.
  std::string operator/(const std::string& name) const { return path_.string() + '/' + name; }

  /// Writes a file by plain means and returns its path.
  std::string Put(const std::string& name, const std::string& bytes) const {
    std::ofstream file(*this / name, std::ios::binary);
    file << bytes;
    EXPECT_TRUE(file.flush().good());
    return *this / name;
  }

  std::string Bytes(const std::string& name) const {
    std::ifstream file(*this / name, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << name;
    return {std::istreambuf_iterator<char>(file), {}};
  }

  /// The names of everything in the directory.
  std::set<std::string> Names() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
      names.insert(entry.path().filename().string());
    }
    return names;
  }

 private:
  std::filesystem::path path_;
};
