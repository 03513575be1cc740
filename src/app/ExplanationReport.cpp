#include "app/ExplanationReport.h"

#include "explanation/WhyText.h"
#include "text/CodePage.h"
#include "text/ControlCharacters.h"

void WriteWhy(std::ostream& out, const Explanation& explanation, const ReportFormat& format) {
  for (const WhyLine& line : WhyText(explanation, format)) out << line.Text << '\n';
}

std::vector<DrawingCheck> ChecksOf(const AnalysedFile& file, const ReportFormat& format) {
  return CheckDrawing(file.Document, UsuallyDrawn(file.Document), format);
}

void WriteChecks(std::ostream& out, const AnalysedFile& file, const ReportFormat& format) {
  out << ChecksHeading << '\n';
  const std::vector<DrawingCheck> checks = ChecksOf(file, format);
  for (const DrawingCheck& check : checks) out << VisibleText(ToUtf8(check.Text)) << '\n';
  if (checks.empty()) out << NothingFoundText << '\n';
}
