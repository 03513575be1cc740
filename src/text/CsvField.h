// One field of a table with commas between its fields, as RFC 4180 has it.
#pragma once

#include <string>
#include <string_view>

/// The text, in quotes when a comma, a quote or an end of line would tear it; quotes in it are doubled.
std::string CsvField(std::string_view text);
