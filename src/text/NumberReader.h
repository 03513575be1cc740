// The one reader of typed numbers, for every box of the program. It follows the locale's decimal separator
// and would rather refuse a text than read it as a number that its writer may not have meant.
#pragma once

#include <optional>
#include <string_view>

/// Reads outer blanks, an optional sign, digits with an optional decimal separator, and an optional exponent
/// (1e3, 2.5E-4). `text` and `decimalSeparator` (one character) are single-byte texts.
///
/// Under a separator other than "." a period is accepted as well, unless it could group thousands: 1 to 3
/// digits that do not begin with 0 stand before it and exactly 3 behind it. So with a comma as separator
/// "1.5", "0.125" and "12.3456" are numbers, but "1.500" is none. Group separators are never accepted.
///
/// Empty when the text is blank or no number, or when the value is beyond the range of a single; "inf", "nan"
/// and hexadecimal forms are no numbers. A value too small for a single becomes 0.
std::optional<float> ReadTypedNumber(std::string_view text, std::string_view decimalSeparator);
