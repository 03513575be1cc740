#include "app/JsonList.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>
#include <cmath>
#include <string_view>

#include "text/CodePage.h"
#include "text/ControlCharacters.h"
#include "text/NumberText.h"

namespace {

std::string Escaped(unsigned code) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string escaped = "\\u";
  for (unsigned shift = 16; shift > 0; shift -= 4) escaped += digits[code >> (shift - 4) & 0xFU];
  return escaped;
}

unsigned BitsOf(char byte) { return static_cast<unsigned char>(byte); }

// The toolkit leaves DEL, C1 and marks of direction as they are, which a terminal may obey. In UTF-8, C1 is
// C2 80 to C2 9F.
std::string WithHighControlsEscaped(std::string_view json) {
  std::string escaped;
  for (std::size_t i = 0; i < json.size(); ++i) {
    const std::string_view two = json.substr(i, 2);
    const std::string_view three = json.substr(i, 3);
    if (json[i] == '\x7F') {
      escaped += Escaped(0x7F);
    } else if (two.size() == 2 && two[0] == '\xC2' && (BitsOf(two[1]) & 0xE0U) == 0x80U) {
      escaped += Escaped(BitsOf(two[1]));
      i += 1;
    } else if (IsDirectionMark(two)) {
      escaped += Escaped((BitsOf(two[0]) & 0x1FU) << 6U | (BitsOf(two[1]) & 0x3FU));
      i += 1;
    } else if (IsDirectionMark(three)) {
      escaped += Escaped((BitsOf(three[0]) & 0xFU) << 12U | (BitsOf(three[1]) & 0x3FU) << 6U |
                         (BitsOf(three[2]) & 0x3FU));
      i += 2;
    } else {
      escaped += json[i];
    }
  }
  return escaped;
}

}  // namespace

std::string JsonText(const std::string& utf8Text) {
  // Most texts have nothing to escape.
  const bool isPlain = std::ranges::all_of(
      utf8Text, [](char byte) { return byte >= ' ' && byte < '\x7F' && byte != '"' && byte != '\\'; });
  if (isPlain) return '"' + utf8Text + '"';
  const QByteArray array =
      QJsonDocument(QJsonArray{QString::fromStdString(utf8Text)}).toJson(QJsonDocument::Compact);
  return WithHighControlsEscaped(array.mid(1, array.size() - 2).toStdString());
}

std::string JsonName(const std::string& singleByteText) { return JsonText(ToUtf8(singleByteText)); }

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
