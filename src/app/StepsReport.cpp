#include "app/StepsReport.h"

#include "explanation/steps/PlainElimination.h"
#include "explanation/steps/StepsReport.h"
#include "text/CodePage.h"
#include "text/ControlCharacters.h"

void WriteSteps(std::ostream& out, const AnalysedFile& file, const ReportFormat& format) {
  const TrussGraph graph = GraphOf(file.Document, file.Analysis);
  const EliminationInSteps story = EliminateInSteps(EquationsOf(file.Document, file.Analysis));
  const StepText text(graph, story, file.Analysis.Reading, format);
  out << "Elimination, step by step:\n";
  for (const StepsLine& line : StepsReport(text, StepsWithoutEnd)) {
    if (line.Kind == StepsLineKind::Pivot) out << '\n';
    if (line.Kind == StepsLineKind::Remark) out << "    ";
    out << VisibleText(ToUtf8(line.Text)) << '\n';
  }
}
