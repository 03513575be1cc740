// Numbers as they are typed and as they are shown: what is read is what the C library reads in a text of that
// form, and what is shown reads back.
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <optional>
#include <string>

#include "InputBytes.h"
#include "Require.h"
#include "analysis/FormatSigFigs.h"
#include "text/NumberReader.h"
#include "text/NumberText.h"

namespace {

constexpr char Separators[] = {'.', ',', '\'', '\xB7'};

std::string Replaced(std::string text, char from, char to) {
  for (char& character : text) {
    if (character == from) character = to;
  }
  return text;
}

// Digits with at most one period, and perhaps an exponent.
bool IsNumber(const char* at) {
  const auto skipDigits = [&at] {
    int count = 0;
    for (; *at >= '0' && *at <= '9'; ++at) ++count;
    return count;
  };
  if (*at == '+' || *at == '-') ++at;
  int numDigits = skipDigits();
  if (*at == '.') {
    ++at;
    numDigits += skipDigits();
  }
  if (numDigits == 0) return false;
  if (*at == 'e' || *at == 'E') {
    ++at;
    if (*at == '+' || *at == '-') ++at;
    if (skipDigits() == 0) return false;
  }
  return *at == '\0';
}

std::string WithoutOuterBlanks(const std::string& text) {
  const char* blanks = " \t\r\n\xA0";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

// What a person may have typed is a number, and which.
void CheckTyped(const std::string& typed, char separator) {
  const std::optional<float> value = ReadTypedNumber(typed, std::string(1, separator));
  const std::string text = WithoutOuterBlanks(typed);
  const bool isOneText = text.find('\0') == std::string::npos;
  if (isOneText && separator != '.' && value) {
    Require(ReadTypedNumber(Replaced(text, separator, '.'), ".") == value,
            "a separator is a period elsewhere");
  }
  if (separator != '.' || !isOneText) return;
  Require(value.has_value() <= IsNumber(text.c_str()), "what is no number is not read");
  if (!IsNumber(text.c_str())) return;
  const float expected = std::strtof(text.c_str(), nullptr);
  Require(value.has_value() == std::isfinite(expected), "numbers are read unless they are too large");
  if (value) Require(*value == expected, "a number is the nearest single");
}

void CheckShown(double value, char separator, int figures) {
  const std::string point(1, separator);
  const auto readBack = [&](const std::string& text) { return ReadDouble(Replaced(text, separator, '.')); };
  const bool isSingle = std::abs(value) <= double{std::numeric_limits<float>::max()};  // no others are read
  if (separator == '.' && isSingle)
    Require(readBack(GeneralText(value)) == value, "the general form reads back");
  const std::optional<double> rounded =
      readBack(FormatSigFigs(value, {.SigFigs = figures, .Numbers = {.DecimalSeparator = point}}));
  if (std::abs(value) < 1e-8) {
    Require(rounded == 0, "what is very small is 0");
  } else if (rounded && isSingle) {
    Require(std::abs(*rounded - value) <= std::abs(value) * 0.51 * std::pow(10, 1 - figures) * (1 + 1e-12) ||
                figures > 15,
            "a value is rounded to its figures");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  InputBytes input(data, size);
  const char separator = Separators[input.Below(4)];
  const int figures = 1 + input.Below(17);
  std::uint64_t bits = 0;
  const std::string bytes = input.Text(sizeof bits);
  std::memcpy(&bits, bytes.data(), bytes.size());
  const auto value = std::bit_cast<double>(bits);
  if (std::isfinite(value)) CheckShown(value, separator, figures);
  const auto single = std::bit_cast<float>(static_cast<std::uint32_t>(bits));
  if (std::isfinite(single)) Require(ReadSingle(GeneralText(single)) == single, "a single reads back");
  CheckTyped(std::string(input.Rest()), separator);
  return 0;
}
