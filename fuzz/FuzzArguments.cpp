// Any words on the command line: a call that can be carried out, or one line that says why it cannot.
#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "InputBytes.h"
#include "Require.h"
#include "app/CommandLine.h"

namespace {

void CheckWrong(const WrongArguments& wrong) { Require(!wrong.Why.empty(), "a wrong call is told why"); }

void CheckCall(const CommandLine& call, const std::vector<std::string>& arguments) {
  using Mode = CommandLine::Mode;
  const bool works = call.What != Mode::Window && call.What != Mode::Help && call.What != Mode::Version;
  Require(!works || !call.Files.empty(), "who is to work has files");
  Require(call.Files.size() <= arguments.size(), "files are among the words");
  const bool writes = call.What == Mode::Picture || call.What == Mode::Document ||
                      call.What == Mode::Convert || call.What == Mode::Exercise;
  Require(!writes || !call.OutputPath.empty(), "who writes has a place");
  Require(!writes || call.Files.size() == 1 || call.What == Mode::Exercise, "one file is written from one");
  if (call.Picture.Motion) Require(*call.Picture.Motion >= 1, "motions count from 1");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  InputBytes input(data, size);
  std::vector<std::string> arguments;
  while (!input.IsEmpty()) arguments.push_back(input.TextUpTo('\n'));
  const std::variant<CommandLine, WrongArguments> parsed = ParseCommandLine(arguments);
  if (const auto* wrong = std::get_if<WrongArguments>(&parsed)) {
    CheckWrong(*wrong);
  } else {
    CheckCall(std::get<CommandLine>(parsed), arguments);
  }
  return 0;
}
