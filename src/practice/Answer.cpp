#include "practice/Answer.h"

#include <cmath>

#include "text/NumberReader.h"

namespace {

// Blanks and no-break blanks, as they come along when a cell is copied.
constexpr std::string_view NoBreakBlanks[] = {"\xC2\xA0", "\xE2\x80\xAF"};
// Hyphen, en dash and minus sign.
constexpr std::string_view MinusSigns[] = {"\xE2\x80\x90", "\xE2\x80\x93", "\xE2\x88\x92"};

void ReplaceAll(std::string& text, std::string_view what, char by) {
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
    text.replace(at, what.size(), 1, by);
}

std::string Trimmed(std::string_view text) {
  constexpr const char* blanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(blanks) - first + 1));
}

std::string Normalised(std::string_view utf8Text) {
  std::string text(utf8Text);
  for (const std::string_view blank : NoBreakBlanks) ReplaceAll(text, blank, ' ');
  for (const std::string_view minus : MinusSigns) ReplaceAll(text, minus, '-');
  return Trimmed(text);
}

// 1 for C, -1 for T, 0 for anything else.
int SenseOf(char letter) {
  if (letter == 'C' || letter == 'c') return 1;
  return letter == 'T' || letter == 't' ? -1 : 0;
}

// Enough of a text to find it again.
std::string Quoted(const std::string& text) {
  constexpr std::size_t most = 40;
  return '"' + (text.size() <= most ? text : text.substr(0, most) + " ...") + '"';
}

}  // namespace

Answer ReadAnswer(std::string_view utf8Text, AnswerOf of, const NumberFormat& numbers) {
  const std::string text = Normalised(utf8Text);
  if (text.empty()) return {};
  const int sense = SenseOf(text.back());
  const std::string number = sense == 0 ? text : Trimmed(std::string_view(text).substr(0, text.size() - 1));
  const std::optional<float> value = ReadTypedNumber(number, numbers.DecimalSeparator);
  if (!value) return {{}, Quoted(text) + " is not a number"};
  if (sense == 0) return {*value, {}};
  if (of == AnswerOf::Reaction) return {{}, Quoted(text) + ": T and C are for members, not for reactions"};
  if (number.front() == '-' || number.front() == '+')
    return {{}, Quoted(text) + " has a sign and a letter: write a magnitude with T or C, or a signed number"};
  return {*value == 0 ? 0 : sense * static_cast<double>(*value), {}};
}
