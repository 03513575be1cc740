#include "ReadBack.h"

#include <algorithm>

#include "Require.h"

std::optional<Records> ReadRecords(const std::string& text) {
  Records records;
  std::size_t at = 0;
  while (at < text.size()) {
    records.emplace_back();
    for (bool hasMore = true; hasMore;) {
      std::string& field = records.back().emplace_back();
      if (text.compare(at, 1, "\"") == 0) {
        for (++at; text.compare(at, 1, "\"") != 0 || text.compare(at, 2, "\"\"") == 0; ++at) {
          if (at >= text.size()) return std::nullopt;
          if (text[at] == '"') ++at;
          field += text[at];
        }
        ++at;
      } else {
        const std::size_t end = std::min(text.find_first_of(",\r\n\"", at), text.size());
        field = text.substr(at, end - at);
        at = end;
      }
      hasMore = text.compare(at, 1, ",") == 0;
      if (hasMore) ++at;
    }
    if (text.compare(at, 2, "\r\n") != 0) return std::nullopt;
    at += 2;
  }
  return records;
}

void CheckForTerminal(std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto code = static_cast<unsigned char>(text[i]);
    Require(code >= 0x20 || code == '\n' || code == '\r' || code == '\t', "no control character is printed");
    Require(code != 0x7F, "no DEL is printed");
    const bool isC1 = code == 0xC2 && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) < 0xA0;
    Require(!isC1, "no C1 character is printed");
  }
}
