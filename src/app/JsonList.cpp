#include "app/JsonList.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <cmath>
#include <string_view>

#include "text/CodePage.h"
#include "text/NumberText.h"

namespace {

// The toolkit leaves DEL and C1 as they are, which a terminal may obey. In UTF-8, C1 is C2 80 to C2 9F.
std::string WithHighControlsEscaped(std::string_view json) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string escaped;
  for (std::size_t i = 0; i < json.size(); ++i) {
    const bool isC1 = json[i] == '\xC2' && i + 1 < json.size() && (json[i + 1] & 0xE0) == 0x80;
    const auto code = static_cast<unsigned char>(isC1 ? json[++i] : json[i]);
    if (isC1 || code == 0x7F) {
      escaped += std::string("\\u00") + digits[code >> 4U] + digits[code & 0xFU];
    } else {
      escaped += json[i];
    }
  }
  return escaped;
}

}  // namespace

std::string JsonText(const std::string& utf8Text) {
  const QByteArray array =
      QJsonDocument(QJsonArray{QString::fromStdString(utf8Text)}).toJson(QJsonDocument::Compact);
  return WithHighControlsEscaped(array.mid(1, array.size() - 2).toStdString());
}

std::string JsonName(const std::string& singleByteText) { return JsonText(ToUtf8(singleByteText)); }

std::string JsonNumber(float value) { return std::isfinite(value) ? GeneralText(value) : "null"; }
std::string JsonNumber(double value) { return std::isfinite(value) ? GeneralText(value) : "null"; }

JsonList& JsonList::Item(const std::string& json) {
  if (text_.size() > 1) text_ += ',';
  text_ += json;
  return *this;
}

JsonList& JsonList::Key(const char* key, const std::string& json) {
  return Item('"' + std::string(key) + "\":" + json);
}
