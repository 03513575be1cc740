// The options of those who set exercises and mark them.
#pragma once

#include "app/CommandLineOption.h"

/// All members throw WrongArguments at what is wrong.
class PracticeOptions {
 public:
  /// Writes into the request, which must outlive it.
  explicit PracticeOptions(PracticeRequest& request) : request_(request) {}

  /// Takes an option but for --exercise; returns whether it is one of these.
  bool Take(const CommandLineOption& option);

  /// Of --exercise; returns the path.
  std::string TakeExerciseFile(const CommandLineOption& option);

  /// Whether --mark was there.
  bool IsMarking() const { return isMarking_; }

  /// Whether it has what it needs, answers or a key.
  void CheckMarking() const;

  /// Whether the options go together and with what the call is for.
  void CheckFor(CommandLine::Mode mode) const;

 private:
  PracticeRequest& request_;
  bool isMarking_ = false;
};
