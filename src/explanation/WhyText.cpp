#include "explanation/WhyText.h"

#include "text/CodePage.h"
#include "text/ControlCharacters.h"

std::vector<WhyLine> WhyText(const Explanation& explanation, const ReportFormat& format) {
  std::vector<WhyLine> lines;
  for (const ExplanationSection& section : ExplanationText(explanation, format)) {
    const bool isFirst = lines.empty();
    if (!isFirst) lines.push_back({WhyLineKind::Gap, ""});
    lines.push_back({WhyLineKind::Heading, section.Heading});
    if (isFirst) {
      for (const std::string& line : KindTable(explanation.Exact.Verdict))
        lines.push_back({WhyLineKind::Table, line});
    }
    for (const std::string& paragraph : section.Paragraphs)
      lines.push_back({WhyLineKind::Paragraph, VisibleText(ToUtf8(paragraph))});
  }
  return lines;
}
