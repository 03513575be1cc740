#include "explanation/Directions.h"

#include <cmath>

std::string ListOf(const std::vector<std::string>& items, std::size_t most) {
  std::string list;
  const std::size_t numNamed = items.size() > most ? most : items.size();
  for (std::size_t i = 0; i < numNamed; ++i) {
    const bool isLast = i + 1 == items.size();
    if (i > 0) list += isLast ? " and " : ", ";
    list += items[i];
  }
  if (numNamed < items.size()) list += " and " + std::to_string(items.size() - numNamed) + " more";
  return list;
}

std::string Counted(int count, const std::string& singular, const std::string& plural) {
  if (count == 0) return "no " + plural;
  std::string text = std::to_string(count);
  text += ' ';
  return text + (count == 1 ? singular : plural);
}

std::string DirectionText(double dx, double dy) {
  const double size = std::sqrt(dx * dx + dy * dy);
  const std::string sideways = std::abs(dx) < 1e-9 * size ? "" : dx > 0 ? "to the right" : "to the left";
  std::string upright = std::abs(dy) < 1e-9 * size ? "" : dy > 0 ? "up" : "down";
  if (sideways.empty()) return upright;
  return upright.empty() ? sideways : sideways + " and " + upright;
}

std::string DirectionOfReaction(const PlacedUnknown& reaction, double sign) {
  const double along = sign * reaction.Sign;
  return reaction.Along == Axis::X ? DirectionText(along, 0) : DirectionText(0, along);
}

std::string PairText(double x, double y, const ReportFormat& format) {
  return PairOf(FormatSigFigs(x, format), FormatSigFigs(y, format), format);
}

std::string PairOf(const std::string& x, const std::string& y, const ReportFormat& format) {
  return '(' + x + (format.Numbers.DecimalSeparator == "," ? "; " : ", ") + y + ')';
}

std::string PowerOfTenText(double number) {
  return "1E" + std::to_string(static_cast<int>(std::lround(std::log10(number))));
}

std::string Capital(std::string text) {
  if (!text.empty() && text[0] >= 'a' && text[0] <= 'z') text[0] = static_cast<char>(text[0] - 'a' + 'A');
  return text;
}
