// What reads the program's texts back: a reader of tables, and one who looks for what a terminal would obey.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

using Records = std::vector<std::vector<std::string>>;

/// A table as RFC 4180 has it, cell by cell; nothing for what it does not know.
std::optional<Records> ReadRecords(const std::string& text);

/// Ends the run when a text (UTF-8) has control characters other than line ends and tabs.
void CheckForTerminal(std::string_view text);
