// The JSON objects of many small files, made on as many threads as the machine has and given out in the order
// of the files.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "app/RunCommandLine.h"

/// What a run tells of one file.
struct FileJson {
  std::string Error;                 ///< as in AnalysedFile
  std::vector<std::string> Remarks;  ///< as in AnalysedFile
  std::string Object;                ///< one line of UTF-8 without its end
};

class JsonAhead {
 public:
  /// Both must outlive it. `environment.Json` is called on several threads at once.
  JsonAhead(const CommandLine& commandLine, const CommandLineEnvironment& environment)
      : commandLine_(commandLine), environment_(environment) {}

  /// Of file `index` (from 0), to be asked for in ascending order. Nothing for a file whose turn must be
  /// waited for: standard input, a large one, whose object is better written as it goes, and one for which
  /// there was not enough memory.
  std::optional<FileJson> Take(std::size_t index);

 private:
  void MakeBatch(std::size_t begin);
  std::optional<FileJson> Made(const std::string& argument) const;

  const CommandLine& commandLine_;
  const CommandLineEnvironment& environment_;
  std::vector<std::optional<FileJson>> batch_;
  std::size_t begin_ = 0;
};
