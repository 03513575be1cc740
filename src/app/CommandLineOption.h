// One option as it stands on the command line, and how a wrong one is refused.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "app/CommandLine.h"

/// "--name" or "--name=value".
struct CommandLineOption {
  std::string_view Name;
  std::optional<std::string_view> Value;
};

inline CommandLineOption SplitOption(std::string_view argument) {
  const std::size_t equals = argument.find('=');
  if (equals == std::string_view::npos) return {argument, std::nullopt};
  return {argument.substr(0, equals), argument.substr(equals + 1)};
}

/// Throws WrongArguments.
[[noreturn]] inline void FailWith(const std::string& why) { throw WrongArguments{why}; }

/// The value; throws WrongArguments when there is none, or an empty one.
inline std::string NeededValue(const CommandLineOption& option) {
  if (!option.Value || option.Value->empty())
    FailWith(std::string(option.Name) + " needs a value after \"=\"");
  return std::string(*option.Value);
}
