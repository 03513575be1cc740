// Truss files as tests write them: line by line.
#pragma once

#include <string>
#include <vector>

/// The lines, each with CR LF behind it.
inline std::string FileLines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

/// Lines 1 to 10 of a file in the current layout, with the settings of a new document; the number of supports
/// comes on line 11.
inline std::string SettingsLines() {
  return FileLines(
      {"Orvane 5", "#TRUE#,#TRUE#,#TRUE#,#TRUE#", "0", "20", "2", "0.5", "0", "0.5", "1000", "4"});
}
