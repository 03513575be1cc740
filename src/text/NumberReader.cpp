// Turns the typed form into the form of files and leaves the rest to the reader of those.
#include "text/NumberReader.h"

#include <algorithm>
#include <string>

#include "text/NumberText.h"

namespace {

constexpr std::string_view Digits = "0123456789";

// Blanks, tabs, line ends and the no-break space, as they come along when a number is pasted.
constexpr std::string_view Blanks = " \t\r\n\xA0";

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(Blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

std::size_t CountDigits(std::string_view text) {
  return std::min(text.find_first_not_of(Digits), text.size());
}

// True for a text such as "1.500", which is one and a half to one reader and 1500 to another.
bool PeriodCouldGroup(std::string_view number) {
  if (number.starts_with('+') || number.starts_with('-')) number.remove_prefix(1);
  const std::size_t before = CountDigits(number);
  if (before < 1 || before > 3 || number[0] == '0') return false;
  return number.substr(before).starts_with('.') && CountDigits(number.substr(before + 1)) == 3;
}

}  // namespace

std::optional<float> ReadTypedNumber(std::string_view text, std::string_view decimalSeparator) {
  std::string number(Trimmed(text));
  if (decimalSeparator != ".") {
    if (PeriodCouldGroup(number)) return std::nullopt;
    if (!decimalSeparator.empty()) std::ranges::replace(number, decimalSeparator[0], '.');
  }
  return ReadSingle(number);
}
