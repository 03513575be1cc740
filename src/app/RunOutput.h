// What a run without a window tells: results, files, a line for each problem, and its progress.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "app/RunCommandLine.h"
#include "platform/ManyBytes.h"

class RunOutput {
 public:
  /// `total` files are to be worked on. The environment must outlive it.
  RunOutput(const CommandLineEnvironment& environment, std::size_t total);
  RunOutput(const RunOutput&) = delete;
  RunOutput& operator=(const RunOutput&) = delete;
  ~RunOutput() { ClearProgress(); }

  /// Shown on a terminal when a run over many files takes longer than a moment.
  void ShowProgress(std::size_t done);
  void ClearProgress();

  /// The line "== FILE ==" above what is printed of a file, where there are several.
  void PrintHeading(const std::string& file);

  /// One line on standard error: "orvane: SUBJECT: WHAT". Complain is for what was not done.
  void Say(const std::string& subject, const std::string& what);
  void Complain(const std::string& subject, const std::string& why);

  /// Writes a file that is complete or absent; "-" is standard output. Bytes that could not even be made
  /// (none) cannot be written.
  void WriteFile(const std::string& path, const ManyBytes& bytes);
  void WriteFile(const std::string& path, std::string_view bytes) { WriteFile(path, ManyBytes::Of(bytes)); }

  /// To be called last: flushes the results.
  ExitStatus Finish();

 private:
  void WriteToOutput(const ManyBytes& bytes);

  const CommandLineEnvironment& environment_;
  bool showsProgress_;
  std::size_t total_;
  std::chrono::steady_clock::time_point lastShown_;
  bool isProgressVisible_ = false;
  bool hasHeading_ = false;
  ExitStatus status_ = Done;
};
