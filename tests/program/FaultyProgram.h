// The built program with calls of the system that fail.
#pragma once

#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>
#include <optional>

#include "program/FaultyCalls.h"
#include "program/RunProgram.h"

/// Starts the program once, up to where it opens its truss, and makes each run in a copy of it; see
/// FaultyCalls.cpp. What it reads before, its arguments and environment, is that of the start.
class FaultyProgram {
 public:
  explicit FaultyProgram(const QStringList& arguments);
  ~FaultyProgram();

  const QStringList& Arguments() const { return arguments_; }

  /// Nothing when it was killed; where another signal ended it the status is larger than 128, as in a shell.
  std::optional<Ended> Run(const FaultPlan& plan);

  /// That the last run made, of the kind of its plan.
  int NumCalls() const;

 private:
  QStringList arguments_;
  QTemporaryDir files_;
  QProcess process_;
};
