// Both questions are answered by looking at texts, so that they agree with what the user sees.
#include "platform/NumberFormat.h"

#include <algorithm>

#include "text/NumberText.h"

std::string DecimalSeparator(const NumberFormat& format) {
  const std::string text = GeneralText(1.2F, format.DecimalSeparator);
  if (text[1] == '.') return "period";
  if (text[1] == ',') return "comma";
  return "unknown";
}

std::int16_t DecimalPlaces(float a, float b, const NumberFormat& format) {
  const std::string kind = DecimalSeparator(format);
  if (kind == "unknown") return 0;
  const char separator = kind == "period" ? '.' : ',';
  const auto places = [&](float number) {
    const std::string text = GeneralText(number, format.DecimalSeparator);
    const std::size_t position = text.find(separator);
    return position == std::string::npos ? std::size_t{0} : text.size() - position - 1;
  };
  return static_cast<std::int16_t>(std::max(places(a), places(b)));
}
