// Names inside the program are single-byte texts of code page Windows-1252, the same bytes that stand in the
// truss file, so that sorting by character code is sorting by byte. Only the edges (screen, standard output,
// JSON) speak Unicode; these are the two doors.
#pragma once

#include <string>
#include <string_view>

/// The en dash as a single-byte text: the minus sign of report tables.
inline constexpr char EnDash = '\x96';

/// Every byte has a character: the five that the code page leaves open become the control characters U+0081,
/// U+008D, U+008F, U+0090 and U+009D.
std::string ToUtf8(std::string_view singleByteText);

/// Characters outside the code page, and bytes that are not UTF-8, become "?" (one for each character or
/// byte).
std::string FromUtf8(std::string_view utf8Text);
