#include "app/ByJointReport.h"

#include "explanation/byjoint/HandSolution.h"
#include "explanation/byjoint/HandText.h"
#include "text/CodePage.h"
#include "text/ControlCharacters.h"

void WriteByJoint(std::ostream& out, const AnalysedFile& file, const ReportFormat& format) {
  const auto shown = [](const std::string& text) { return VisibleText(ToUtf8(text)); };
  const TrussGraph graph = GraphOf(file.Document, file.Analysis);
  const HandSolution solution = SolveByHand(graph);
  const HandReport report = ReportByHand(graph, solution, file.Analysis.Reading, format);
  out << "Joint by joint:\n" << HandText::Convention() << '\n';
  int number = 0;
  for (const HandStepText& step : report.Steps) {
    out << '\n' << ++number << ".  " << shown(step.Heading) << '\n';
    for (const std::string& line : step.Lines) out << "    " << shown(line) << '\n';
  }
  out << '\n';
  for (const std::string& line : report.Closing) out << shown(line) << '\n';
}
