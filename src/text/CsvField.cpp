#include "text/CsvField.h"

std::string CsvField(std::string_view text) {
  if (text.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(text);
  std::string field(1, '"');
  for (const char character : text) field.append(character == '"' ? 2 : 1, character);
  return field += '"';
}
