#include "app/HelpTopics.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

void ReplaceAll(std::string& text, std::string_view what, std::string_view with) {
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size())) {
    text.replace(at, what.size(), with);
  }
}

std::string WithoutEntities(std::string_view markup) {
  static constexpr std::array<std::pair<const char*, const char*>, 4> entities = {
      {{"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&amp;", "&"}}};
  std::string text(markup);
  for (const auto& [entity, character] : entities) ReplaceAll(text, entity, character);
  return text;
}

std::string InSmallLetters(std::string_view text) {
  std::string result(text);
  for (char& letter : result) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  }
  return result;
}

bool StartsWith(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

// The value of `name="value"` in a tag; empty when it has none.
std::string Attribute(std::string_view tag, const std::string& name) {
  const std::size_t at = InSmallLetters(tag).find(" " + name + "=\"");
  if (at == std::string::npos) return {};
  const std::size_t begin = at + name.size() + 3;
  const std::size_t end = tag.find('"', begin);
  return WithoutEntities(tag.substr(begin, end == std::string_view::npos ? end : end - begin));
}

// The entries so far, and how deep the lists are nested that are open.
struct ContentsReader {
  std::vector<HelpContentsEntry> Entries;
  int Depth = 0;

  void Take(std::string_view tag) {
    const std::string small = InSmallLetters(tag);
    if (small == "ul") {
      ++Depth;
    } else if (small == "/ul") {
      --Depth;
    } else if (StartsWith(small, "object")) {
      Entries.push_back({.Level = std::max(0, Depth - 1), .Title = {}, .Page = {}});
    } else if (StartsWith(small, "param") && !Entries.empty()) {
      const std::string name = Attribute(tag, "name");
      if (name == "Name") Entries.back().Title = Attribute(tag, "value");
      if (name == "Local") Entries.back().Page = Attribute(tag, "value");
    }
  }
};

// Each has its place on the page of the conclusions.
const char* TopicOfConclusion(const Classification& reading) {
  if (reading.Code == Outcome::Inconsistent) {
    return "\\orvane.chm::\\truss help\\conclusions.htm#inconsistent";
  }
  bool isDetermined = true;
  for (const std::optional<double>& value : reading.Values.First(reading.Values.Size())) {
    isDetermined = isDetermined && value.has_value();
  }
  if (reading.Code == Outcome::Redundant) {
    return isDetermined ? "\\orvane.chm::\\truss help\\conclusions.htm#redundant"
                        : "\\orvane.chm::\\truss help\\conclusions.htm#mixed";
  }
  return isDetermined ? "\\orvane.chm::\\truss help\\conclusions.htm#unique"
                      : "\\orvane.chm::\\truss help\\conclusions.htm#undetermined";
}

}  // namespace

const char* HelpTopicForStep(int step, bool instructionsShown) {
  if (instructionsShown) return ProgramHelpTopic;
  switch (step) {
    case 2:
      return "\\orvane.chm::\\program\\naming.htm";
    case 3:
      return "\\orvane.chm::\\program\\reports.htm";
    default:
      return "\\orvane.chm::\\program\\drawing.htm";
  }
}

const char* HelpTopicForReport(ReportKind report, const TrussAnalysis& analysis, bool owesToRounding) {
  if (analysis.System.NumUnknowns() == 0) return HelpTopicForStep(3, false);
  switch (report) {  // without a default: the compiler asks for the topic of a new report
    case ReportKind::Counting:
      return "\\orvane.chm::\\truss help\\determinacy.htm#count";
    case ReportKind::Equations:
      return MathHelpTopic;
    case ReportKind::RREF:
    case ReportKind::Solutions:
      return owesToRounding ? RoundingHelpTopic : TopicOfConclusion(analysis.Reading);
  }
  return HelpTopicForStep(3, false);
}

std::optional<HelpTopicPlace> PlaceOfHelpTopic(std::string_view topicPath) {
  const std::size_t colons = topicPath.rfind("::");
  if (colons == std::string_view::npos) return std::nullopt;
  HelpTopicPlace place{.File = std::string(topicPath.substr(0, colons)),
                       .Page = std::string(topicPath.substr(colons + 2))};
  // Only the last separator of the file's path is ours; others belong to the directory's name.
  const std::size_t separator = place.File.rfind('\\');
  if (separator != std::string::npos) place.File[separator] = '/';
  std::ranges::replace(place.Page, '\\', '/');
  place.Page.erase(0, std::min(place.Page.size(), place.Page.find_first_not_of('/')));
  if (place.File.empty() || place.Page.empty()) return std::nullopt;
  return place;
}

std::vector<HelpContentsEntry> ReadHelpContents(std::string_view hhc) {
  ContentsReader reader;
  for (std::size_t open = hhc.find('<'); open != std::string_view::npos; open = hhc.find('<', open + 1)) {
    const std::size_t close = hhc.find('>', open);
    if (close == std::string_view::npos) break;
    reader.Take(hhc.substr(open + 1, close - open - 1));
  }
  return std::move(reader.Entries);
}
