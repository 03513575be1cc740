// The forms in which numbers are written and read outside the reports: the general form (settings, value
// editor, truss file), fixed patterns (rulers, read-out, equations) and typed or stored numbers read back.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "text/DecimalDigits.h"

/// The digits in plain decimals: no exponent, no trailing zeros, "0" before a leading separator.
std::string PlainText(const DecimalDigits& value, std::string_view decimalSeparator);

/// One digit, the separator, `figures` - 1 digits, "E", a sign and as few exponent digits as it needs:
/// 1.23E+4, -4.50E-3; with one figure 1.E+4. The digits must have been rounded to `figures` already.
std::string ScientificText(const DecimalDigits& value, int figures, std::string_view decimalSeparator);

/// The general form: the shortest digits that read back to the same value, in plain decimals from 1E-5 up to,
/// not including, 1E+7 (singles) or 1E+15 (doubles), otherwise like 2.5E+9. No leading blank.
std::string GeneralText(float value, std::string_view decimalSeparator = ".");
std::string GeneralText(double value, std::string_view decimalSeparator = ".");

/// The general form for boxes that a person edits: a single rounded to at most 7 significant digits, so that
/// 1/3 is 0.3333333 and not 0.33333334. It does not always read back to the same bits. A finite double beyond
/// the range of singles keeps its size and is written like 6E+38.
std::string SevenDigitText(double value, std::string_view decimalSeparator = ".");

/// The pattern "0", "0.0", "0.00" ...: at least one digit before the separator, exactly `decimals` after it.
std::string FixedText(double value, int decimals, std::string_view decimalSeparator = ".");
std::string FixedText(float value, int decimals, std::string_view decimalSeparator = ".");

/// The pattern "#.#": at most one decimal, no forced zeros, the separator always shown: "12.", ".5", ".".
std::string SharpText(float value, std::string_view decimalSeparator = ".");

/// A number as it stands in files: an optional sign, digits with an optional period, an optional exponent
/// with E or e, and nothing else (no blanks, "nan", "inf" or hexadecimal). Empty when the text is none, or
/// when the value is beyond the range of a single. A value too small for the type becomes 0.
std::optional<float> ReadSingle(std::string_view text);
std::optional<double> ReadDouble(std::string_view text);
