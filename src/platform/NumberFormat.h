// The locale's number conventions, as far as the program asks for them: the decimal separator.
#pragma once

#include <cstdint>
#include <string>

/// How numbers are written and read for the user. Files always use a period.
struct NumberFormat {
  std::string DecimalSeparator = ".";  ///< one character, in the single-byte code page
};

/// The kind of the decimal separator, found by writing 1.2 in the locale's general form and looking at the
/// second character: "period", "comma" or "unknown".
std::string DecimalSeparator(const NumberFormat& format);

/// How many decimals are needed to print both numbers: the larger count of characters after the separator in
/// their general text. 0 when the separator is unknown.
std::int16_t DecimalPlaces(float a, float b, const NumberFormat& format);
