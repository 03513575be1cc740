// Characters that are not seen but command: a terminal, a printer, a table. Names in files and names of files
// can hold them. C0 is below code 32, DEL is 127, C1 is 128 to 159 in Unicode. Marks of direction, in names
// of files only, make a terminal show a text in another order than it has.
#pragma once

#include <string>
#include <string_view>

/// How a text stands on a terminal, on one line: C0 and DEL as their pictures (such as U+241B for escape),
/// C1, marks of direction and bytes that are not UTF-8 as U+FFFD. Each is one character wide.
std::string VisibleText(std::string_view utf8Text);

/// How a text stands between the quotes of JSON, and no terminal obeys it: quotes, backslashes, control
/// characters and marks of direction escaped, bytes that are not UTF-8 as U+FFFD.
std::string JsonEscaped(std::string_view utf8Text);

/// Whether one character, in UTF-8, is a mark of direction: U+061C, U+200E, U+200F, U+202A to U+202E or
/// U+2066 to U+2069.
bool IsDirectionMark(std::string_view character);

/// Whether every byte belongs to a character. Names of files need not.
bool IsUtf8(std::string_view text);

/// The text without its control characters, for documents; what is not UTF-8 stays.
std::string WithoutControls(std::string_view utf8Text);

/// The same question for a name, a single-byte text: also the five bytes that its code page leaves open.
bool IsControl(char singleByte);
