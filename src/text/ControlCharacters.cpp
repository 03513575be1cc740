#include "text/ControlCharacters.h"

#include <algorithm>
#include <cstdint>

namespace {

constexpr std::string_view ReplacementCharacter = "\xEF\xBF\xBD";

std::uint8_t ByteAt(std::string_view text, std::size_t at) {
  return at < text.size() ? static_cast<std::uint8_t>(text[at]) : std::uint8_t{0};
}

// What may follow the first byte, so that no character has two forms and none is a surrogate or too large.
bool MayFollow(std::uint8_t first, std::uint8_t second) {
  const int smallest = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
  const int largest = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
  return second >= smallest && second <= largest;
}

// The bytes of the character that the text begins with; 0 when it begins with none.
std::size_t CharacterLength(std::string_view text) {
  const std::uint8_t first = ByteAt(text, 0);
  if (first < 0x80) return 1;
  if (first < 0xC2 || first > 0xF4 || !MayFollow(first, ByteAt(text, 1))) return 0;
  const std::size_t length = first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
  for (std::size_t i = 2; i < length; ++i) {
    if ((ByteAt(text, i) & 0xC0U) != 0x80U) return 0;
  }
  return length;
}

bool IsC0OrDel(std::uint8_t byte) { return byte < 0x20 || byte == 0x7F; }

bool IsC1(std::string_view character) {
  return character.size() == 2 && ByteAt(character, 0) == 0xC2 && ByteAt(character, 1) < 0xA0;
}

// U+2400 and what follows it; U+2421 for DEL.
std::string PictureOf(std::uint8_t control) {
  const std::uint8_t last = control == 0x7F ? 0xA1 : static_cast<std::uint8_t>(0x80 + control);
  return {'\xE2', '\x90', static_cast<char>(last)};
}

// Calls `piece` with each character, or with an empty view and the byte where there is none.
template <class Piece>
void ForEachCharacter(std::string_view text, Piece piece) {
  while (!text.empty()) {
    const std::size_t length = CharacterLength(text);
    piece(text.substr(0, length), text[0]);
    text.remove_prefix(length == 0 ? 1 : length);
  }
}

// The number of a character of at most three bytes.
unsigned CodeOf(std::string_view character) {
  unsigned code = ByteAt(character, 0) & (character.size() == 1 ? 0x7FU : 0xFFU >> (character.size() + 1));
  for (std::size_t i = 1; i < character.size(); ++i) code = code << 6U | (ByteAt(character, i) & 0x3FU);
  return code;
}

// The short form where JSON has one.
std::string EscapeOf(unsigned code) {
  constexpr std::string_view digits = "0123456789abcdef";
  constexpr std::string_view shortForms = "\"\"\\\\\bb\ff\nn\rr\tt";  // each after its character
  for (std::size_t i = 0; i < shortForms.size(); i += 2) {
    if (code == ByteAt(shortForms, i)) return {'\\', shortForms[i + 1]};
  }
  std::string escape = "\\u";
  for (unsigned shift = 16; shift > 0; shift -= 4) escape += digits[code >> (shift - 4) & 0xFU];
  return escape;
}

}  // namespace

std::string VisibleText(std::string_view utf8Text) {
  // Most texts have nothing that is not seen.
  if (std::ranges::all_of(utf8Text, [](char byte) { return byte >= ' ' && byte < '\x7F'; }))
    return std::string(utf8Text);
  std::string visible;
  visible.reserve(utf8Text.size());
  ForEachCharacter(utf8Text, [&visible](std::string_view character, char first) {
    const auto code = static_cast<std::uint8_t>(first);
    if (IsC0OrDel(code)) {
      visible += PictureOf(code);
    } else {
      const bool isSeen = !character.empty() && !IsC1(character) && !IsDirectionMark(character);
      visible += isSeen ? character : ReplacementCharacter;
    }
  });
  return visible;
}

std::string WithoutControls(std::string_view utf8Text) {
  std::string kept;
  kept.reserve(utf8Text.size());
  ForEachCharacter(utf8Text, [&kept](std::string_view character, char first) {
    if (IsC0OrDel(static_cast<std::uint8_t>(first)) || IsC1(character)) return;
    kept += character.empty() ? std::string_view(&first, 1) : character;
  });
  return kept;
}

std::string JsonEscaped(std::string_view utf8Text) {
  std::string json;
  json.reserve(utf8Text.size());
  ForEachCharacter(utf8Text, [&json](std::string_view character, char first) {
    const bool isEscaped = IsC0OrDel(static_cast<std::uint8_t>(first)) || first == '"' || first == '\\' ||
                           IsC1(character) || IsDirectionMark(character);
    if (isEscaped) {
      json += EscapeOf(CodeOf(character));
    } else {
      json += character.empty() ? ReplacementCharacter : character;
    }
  });
  return json;
}

bool IsDirectionMark(std::string_view character) {
  const auto isFrom = [&](std::string_view lead, std::uint8_t first, std::uint8_t last) {
    return character.size() == lead.size() + 1 && character.starts_with(lead) &&
           ByteAt(character, lead.size()) >= first && ByteAt(character, lead.size()) <= last;
  };
  return isFrom("\xD8", 0x9C, 0x9C) || isFrom("\xE2\x80", 0x8E, 0x8F) || isFrom("\xE2\x80", 0xAA, 0xAE) ||
         isFrom("\xE2\x81", 0xA6, 0xA9);
}

bool IsUtf8(std::string_view text) {
  bool isUtf8 = true;
  ForEachCharacter(text,
                   [&isUtf8](std::string_view character, char) { isUtf8 = isUtf8 && !character.empty(); });
  return isUtf8;
}

bool IsControl(char singleByte) {
  constexpr std::string_view open = "\x81\x8D\x8F\x90\x9D";
  return IsC0OrDel(static_cast<std::uint8_t>(singleByte)) || open.find(singleByte) != std::string_view::npos;
}
