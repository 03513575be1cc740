#include "app/StepsReport.h"

#include <string>

#include "explanation/steps/PlainElimination.h"
#include "explanation/steps/StepLines.h"
#include "text/CodePage.h"
#include "text/ControlCharacters.h"

void WriteSteps(std::ostream& out, const AnalysedFile& file, const ReportFormat& format) {
  const TrussGraph graph = GraphOf(file.Document, file.Analysis);
  const EliminationInSteps story = EliminateInSteps(EquationsOf(file.Document, file.Analysis));
  const StepText text(graph, story, file.Analysis.Reading, format);
  out << "Elimination, step by step:\n";
  for (const std::string& line : PlainStepLines(text)) out << VisibleText(ToUtf8(line)) << '\n';
}
