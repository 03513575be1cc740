// The table of code page Windows-1252 and its two directions.
#include "text/CodePage.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace {

// Bytes 128 to 159; all others stand for the Unicode character of the same number.
constexpr std::array<char32_t, 32> HighCharacters = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t UnicodeOf(unsigned char byte) {
  return byte >= 128 && byte < 160 ? HighCharacters[byte - 128U] : char32_t{byte};
}

char ByteOf(char32_t character) {
  if (character < 128 || (character >= 160 && character < 256)) {
    return static_cast<char>(static_cast<unsigned char>(character));
  }
  const auto found = std::find(HighCharacters.begin(), HighCharacters.end(), character);
  if (found == HighCharacters.end()) return '?';
  return static_cast<char>(static_cast<unsigned char>(128 + (found - HighCharacters.begin())));
}

void AppendUtf8(std::string& text, char32_t character) {
  const auto append = [&text](char32_t byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
  if (character < 0x80) {
    append(character);
  } else if (character < 0x800) {
    append(0xC0 | (character >> 6));
    append(0x80 | (character & 0x3F));
  } else {
    append(0xE0 | (character >> 12));
    append(0x80 | ((character >> 6) & 0x3F));
    append(0x80 | (character & 0x3F));
  }
}

// The length of the sequence that a first byte announces; 0 for a byte that begins none.
std::size_t SequenceLength(unsigned char first) {
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first < 0xE0) return 2;
  if (first >= 0xE0 && first < 0xF0) return 3;
  if (first >= 0xF0 && first < 0xF5) return 4;
  return 0;
}

}  // namespace

std::string ToUtf8(std::string_view singleByteText) {
  const auto isAscii = [](char byte) { return static_cast<unsigned char>(byte) < 0x80; };
  if (std::ranges::all_of(singleByteText, isAscii)) return std::string(singleByteText);
  std::string text;
  text.reserve(singleByteText.size());
  for (const char byte : singleByteText) AppendUtf8(text, UnicodeOf(static_cast<unsigned char>(byte)));
  return text;
}

std::string FromUtf8(std::string_view utf8Text) {
  std::string text;
  text.reserve(utf8Text.size());
  for (std::size_t at = 0; at < utf8Text.size();) {
    const auto first = static_cast<unsigned char>(utf8Text[at]);
    const std::size_t length = SequenceLength(first);
    char32_t character = length <= 1 ? first : first & (0x7FU >> length);
    bool whole = length != 0 && at + length <= utf8Text.size();
    for (std::size_t i = 1; whole && i < length; ++i) {
      const auto next = static_cast<unsigned char>(utf8Text[at + i]);
      whole = (next & 0xC0U) == 0x80U;
      character = (character << 6) | (next & 0x3FU);
    }
    text += whole ? ByteOf(character) : '?';
    at += whole ? length : 1;
  }
  return text;
}
