#include "program/FaultyProgram.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <csignal>

namespace {

constexpr int LongestFaultyRun = 60000;  // milliseconds

}  // namespace

FaultyProgram::FaultyProgram(const QStringList& arguments) : arguments_(arguments) {
  process_.setProcessEnvironment(
      EnvironmentFor({.Arguments = arguments,
                      .Input = {},
                      .OutputFile = {},
                      .Environment = {{QStringLiteral("LD_PRELOAD"), QStringLiteral(ORVANE_FAULTS)},
                                      {QStringLiteral("ORVANE_FAULT_RUNS"), files_.path()}}}));
  process_.start(QStringLiteral(ORVANE_PROGRAM), arguments);
}

FaultyProgram::~FaultyProgram() {
  process_.closeWriteChannel();
  process_.waitForFinished();
}

std::optional<Ended> FaultyProgram::Run(const FaultPlan& plan) {
  process_.write(QByteArray::number(static_cast<int>(plan.Calls)) + ' ' +
                 QByteArray::number(static_cast<int>(plan.Kind)) + ' ' +
                 QByteArray::number(static_cast<qlonglong>(plan.At)) + ' ' + QByteArray::number(plan.Error) +
                 '\n');
  while (!process_.canReadLine()) {
    if (process_.waitForReadyRead(LongestFaultyRun)) continue;
    ADD_FAILURE() << "the program did not end: " << process_.readAllStandardError().toStdString();
    return Ended{};
  }
  const int status = process_.readLine().trimmed().toInt();
  if (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) return std::nullopt;
  return Ended{WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status),
               BytesOf(files_.filePath(QStringLiteral("out"))),
               BytesOf(files_.filePath(QStringLiteral("err")))};
}

int FaultyProgram::NumCalls() const {
  return BytesOf(files_.filePath(QStringLiteral("count"))).trimmed().toInt();
}
