// A text that must stay on the line it is printed on. Names in files and names of files can hold line ends
// and other control characters, which would break a table, or command the terminal.
#pragma once

#include <algorithm>
#include <string>

/// Each control character below code 32, and 127, becomes a blank. Works on single-byte texts and on UTF-8.
inline std::string OnOneLine(std::string text) {
  std::ranges::replace_if(
      text, [](char c) { return (c >= 0 && c < 32) || c == 127; }, ' ');
  return text;
}
