#include "app/JsonList.h"

#include <algorithm>
#include <cmath>

#include "text/ControlCharacters.h"
#include "text/NumberText.h"

std::string JsonLetters(const std::string& utf8Text) {
  // Most texts have nothing to escape.
  const bool isPlain = std::ranges::all_of(
      utf8Text, [](char byte) { return byte >= ' ' && byte < '\x7F' && byte != '"' && byte != '\\'; });
  return isPlain ? utf8Text : JsonEscaped(utf8Text);
}

std::string JsonText(const std::string& utf8Text) { return '"' + JsonLetters(utf8Text) + '"'; }

std::string JsonName(std::string_view singleByteText) { return JsonText(ToUtf8(singleByteText)); }

std::string JsonNumber(float value) { return std::isfinite(value) ? GeneralText(value) : "null"; }
std::string JsonNumber(double value) { return std::isfinite(value) ? GeneralText(value) : "null"; }

JsonList& JsonList::Item(std::string_view json) {
  if (text_.size() > 1) text_ += ',';
  text_ += json;
  return *this;
}

JsonStream::JsonStream(std::ostream& out, char open) : out_(out), close_(open == '[' ? ']' : '}') {
  out_ << open;
}

JsonStream& JsonStream::Item(std::string_view json) {
  BeginItem();
  out_ << json;
  return *this;
}

void JsonStream::BeginItem() {
  if (!isEmpty_) out_ << ',';
  isEmpty_ = false;
}

void JsonStream::BeginKey(const char* key) {
  BeginItem();
  out_ << '"' << key << "\":";
}
