#include "reports/RTBText.h"

#include "text/CodePage.h"
#include "text/ControlCharacters.h"

namespace {

void AppendBreaks(const ReportText& report, int count) {
  std::string breaks;
  for (int i = 0; i < count; ++i) breaks += LineBreak;
  if (!breaks.empty()) report.Document.Append(breaks, FormatOf(PlainBlack, report.Points));
}

}  // namespace

CharacterFormat FormatOf(std::string_view code, float points) {
  const auto isOn = [&](std::size_t place) { return place < code.size() && code[place] == 'T'; };
  const bool hasColour = code.size() > 3 && code[3] >= '0' && code[3] <= '9';
  return CharacterFormat{.Bold = isOn(0),
                         .Italic = isOn(1),
                         .Underlined = isOn(2),
                         .Colour = hasColour ? code[3] - '0' : Black,
                         .Points = points};
}

std::string PrintableText(std::string text) {
  std::erase_if(text, IsControl);
  return ToUtf8(text);
}

void RTBTitle(const ReportText& report, std::string_view title, int breaksBefore, int breaksAfter) {
  AppendBreaks(report, breaksBefore);
  report.Document.Append(title, FormatOf(BoldBlack, report.Points + TitleEnlargement), LineRole::Title);
  AppendBreaks(report, 1 + breaksAfter);
}

void RTBText(const ReportText& report, std::string_view text, int breaksBefore, int breaksAfter,
             std::string_view formatCode, LineRole role) {
  AppendBreaks(report, breaksBefore);
  if (!text.empty()) report.Document.Append(text, FormatOf(formatCode, report.Points), role);
  AppendBreaks(report, breaksAfter);
}
