#include "document/FieldReader.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "text/NumberText.h"

namespace {

bool IsBlank(char character) { return character == ' ' || character == '\t'; }

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

bool EqualInAnyCase(std::string_view text, std::string_view upperCase) {
  return std::ranges::equal(text, upperCase, [](char a, char b) {
    return (a >= 'a' && a <= 'z' ? static_cast<char>(a - 'a' + 'A') : a) == b;
  });
}

// A field as it can stand in one line of a message: short, and without control characters.
std::string Shown(std::string_view field) {
  constexpr std::size_t longest = 40;
  std::string text(field.substr(0, longest));
  std::ranges::replace_if(
      text, [](char c) { return static_cast<unsigned char>(c) < 32 || c == 127; }, '?');
  if (field.size() > longest) text += "...";
  return '"' + text + '"';
}

bool IsIntegerText(std::string_view text) {
  return text.find_first_not_of("+-0123456789") == std::string_view::npos;
}

}  // namespace

std::string ReadError::Text() const { return Line > 0 ? "line " + std::to_string(Line) + ": " + Why : Why; }

void FieldReader::Fail(const std::string& why) const { throw ReadError{fieldLine_, why}; }

void FieldReader::SkipLineEnd() {
  const char first = text_[at_++];
  if (first == '\r' && !AtEnd() && text_[at_] == '\n') ++at_;
  ++line_;
}

std::string_view FieldReader::RestOfLine() {
  const std::size_t first = at_;
  while (!AtEnd() && !AtLineEnd()) ++at_;
  const std::string_view line = text_.substr(first, at_ - first);
  if (!AtEnd()) SkipLineEnd();
  return line;
}

void FieldReader::SkipToSeparator() {
  while (!AtEnd() && text_[at_] != ',' && !AtLineEnd()) ++at_;
}

void FieldReader::SkipSeparator() {
  afterComma_ = !AtEnd() && text_[at_] == ',';
  if (afterComma_) {
    ++at_;
  } else if (!AtEnd()) {
    SkipLineEnd();
  }
}

std::string_view FieldReader::QuotedContent() {
  const std::size_t first = ++at_;
  const std::size_t closing = text_.find('"', first);
  if (closing == std::string_view::npos) Fail("a quoted text has no closing quote");
  while (at_ < closing) {
    if (AtLineEnd()) {
      SkipLineEnd();
    } else {
      ++at_;
    }
  }
  at_ = closing + 1;
  return text_.substr(first, closing - first);
}

std::string_view FieldReader::NextField() {
  while (!AtEnd() && IsBlank(text_[at_])) ++at_;
  fieldLine_ = line_;
  if (AtEnd() && !afterComma_) Fail("the file ends too early");
  std::string_view content;
  if (!AtEnd() && text_[at_] == '"') {
    content = QuotedContent();
    const std::size_t behind = at_;
    SkipToSeparator();
    if (leftOutLine_ == 0 && !Trimmed(text_.substr(behind, at_ - behind)).empty()) leftOutLine_ = line_;
  } else {
    const std::size_t first = at_;
    SkipToSeparator();
    content = Trimmed(text_.substr(first, at_ - first));
  }
  SkipSeparator();
  return content;
}

int FieldReader::UnreadLine() const {
  if (leftOutLine_ > 0) return leftOutLine_;
  constexpr char endMark = '\x1a';
  FieldReader rest(*this);
  while (!rest.AtEnd()) {
    if (rest.AtLineEnd()) {
      rest.SkipLineEnd();
    } else if (IsBlank(text_[rest.at_]) || text_[rest.at_] == endMark) {
      ++rest.at_;
    } else {
      return rest.line_;
    }
  }
  return 0;
}

float FieldReader::NextSingle() {
  const std::string_view field = NextField();
  const auto value = ReadSingle(Trimmed(field));
  if (!value) Fail("a number should stand here, not " + Shown(field));
  return *value;
}

std::int16_t FieldReader::NextInteger() {
  const std::string_view field = NextField();
  const auto value = ReadDouble(Trimmed(field));
  if (!value) Fail("a number should stand here, not " + Shown(field));
  const double rounded = std::nearbyint(*value);
  if (rounded < std::numeric_limits<std::int16_t>::min() ||
      rounded > std::numeric_limits<std::int16_t>::max()) {
    Fail("the number " + Shown(field) + " does not fit into 16 bits");
  }
  return static_cast<std::int16_t>(rounded);
}

TaggedNumber FieldReader::NextTaggedNumber() {
  const std::string_view field = NextField();
  const std::string_view text = Trimmed(field);
  const auto value = ReadDouble(text);
  if (!value) Fail("a number should stand here, not " + Shown(field));
  if (IsIntegerText(text) && *value >= std::numeric_limits<std::int16_t>::min() &&
      *value <= std::numeric_limits<std::int16_t>::max()) {
    return static_cast<std::int16_t>(*value);
  }
  return *value;
}

bool FieldReader::NextBoolean() {
  const std::string_view field = NextField();
  if (EqualInAnyCase(Trimmed(field), "#TRUE#")) return true;
  if (EqualInAnyCase(Trimmed(field), "#FALSE#")) return false;
  Fail("#TRUE# or #FALSE# should stand here, not " + Shown(field));
}
