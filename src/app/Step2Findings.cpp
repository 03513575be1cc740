#include "app/Step2Findings.h"

#include <vector>

#include "document/Overlaps.h"
#include "text/NumberText.h"

namespace {

constexpr std::size_t MostPlacesTold = 2;

std::string PlaceText(float x, float y, const NumberFormat& numbers) {
  std::string text = "(";
  text += SevenDigitText(x, numbers.DecimalSeparator);
  text += ", ";
  text += SevenDigitText(y, numbers.DecimalSeparator);
  text += ")";
  return text;
}

// "a", "a and b", "a, b and 3 more places".
std::string Told(const std::vector<std::string>& places) {
  if (places.size() == 1) return places[0];
  if (places.size() == MostPlacesTold) return places[0] + " and " + places[1];
  const std::size_t others = places.size() - MostPlacesTold;
  return places[0] + ", " + places[1] + " and " + std::to_string(others) +
         (others == 1 ? " more place" : " more places");
}

std::string SupportSentence(const Overlaps& overlaps, const NumberFormat& numbers) {
  if (overlaps.Supports.empty()) return {};
  std::vector<std::string> places;
  for (const SupportOverlap& overlap : overlaps.Supports) {
    places.emplace_back("at ").append(PlaceText(overlap.X, overlap.Y, numbers));
  }
  return " Supports stand on one another " + Told(places) + ". ";
}

std::string MemberSentence(const Truss& truss, const Overlaps& overlaps, const NumberFormat& numbers) {
  if (overlaps.Members.empty()) return {};
  std::vector<std::string> places;
  for (const MemberOverlap& overlap : overlaps.Members) {
    const MemberRec& member = truss.Members[overlap.FirstMember];
    places.emplace_back("from ")
        .append(PlaceText(member.X1, member.Y1, numbers))
        .append(" to ")
        .append(PlaceText(member.X2, member.Y2, numbers));
  }
  return " Members lie on one another " + Told(places) + ". ";
}

std::string NameSentence(int namesOutside) {
  if (namesOutside == 0) return {};
  std::string text = " ";
  text += std::to_string(namesOutside);
  text += namesOutside == 1 ? " name lies" : " names lie";
  return text + " outside the drawing; Settings can widen it. ";
}

}  // namespace

std::string Step2Findings(const Truss& truss, int namesOutside, const NumberFormat& numbers) {
  const Overlaps overlaps = FindOverlaps(truss);
  return SupportSentence(overlaps, numbers) + MemberSentence(truss, overlaps, numbers) +
         NameSentence(namesOutside);
}
