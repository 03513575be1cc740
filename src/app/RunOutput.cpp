#include "app/RunOutput.h"

#include "document/FileWriting.h"
#include "text/ControlCharacters.h"

RunOutput::RunOutput(const CommandLineEnvironment& environment, std::size_t total)
    : environment_(environment),
      showsProgress_(environment.ErrIsTerminal && total > 1),
      total_(total),
      lastShown_(environment.Now()) {}

void RunOutput::ShowProgress(std::size_t done) {
  if (!showsProgress_ || environment_.Now() - lastShown_ < std::chrono::milliseconds(500)) return;
  lastShown_ = environment_.Now();
  environment_.Err << "\rorvane: " << done << " of " << total_ << " files" << std::flush;
  isProgressVisible_ = true;
}

void RunOutput::ClearProgress() {
  if (isProgressVisible_) environment_.Err << "\r\x1b[K" << std::flush;
  isProgressVisible_ = false;
}

void RunOutput::PrintHeading(const std::string& file) {
  if (total_ < 2) return;
  environment_.Out << (hasHeading_ ? "\n" : "") << "== " << VisibleText(file) << " ==\n";
  hasHeading_ = true;
}

void RunOutput::Say(const std::string& subject, const std::string& what) {
  ClearProgress();
  environment_.Err << "orvane: " << VisibleText(subject) << ": " << VisibleText(what) << '\n';
}

void RunOutput::Complain(const std::string& subject, const std::string& why) {
  Say(subject, why);
  status_ = NotAllDone;
}

void RunOutput::WriteFile(const std::string& path, const ManyBytes& bytes) {
  std::string doubt;
  if (bytes.Size == 0) {
    Complain(path == "-" ? "standard output" : path, "the file could not be written");
  } else if (path == "-") {
    WriteToOutput(bytes);
  } else if (const std::string why = WriteWholeFile(path, bytes, PipesAndDevices::Taken, &doubt);
             !why.empty()) {
    Complain(path, "the file could not be written: " + why);
  } else if (!doubt.empty()) {
    Say(path, "the file is written, but " + doubt);
  }
}

void RunOutput::WriteToOutput(const ManyBytes& bytes) {
  const int error = bytes.Tell([this](std::string_view part) {
    environment_.Out << part;
    return 0;
  });
  if (error != 0) Complain("standard output", "the results could not be written: " + WhyFailed(error));
}

ExitStatus RunOutput::Finish() {
  ClearProgress();
  environment_.Out.flush();
  if (!environment_.Out) Complain("standard output", "the results could not be written");
  return status_;
}
