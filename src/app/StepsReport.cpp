#include "app/StepsReport.h"

#include <string>

#include "explanation/steps/PlainElimination.h"
#include "explanation/steps/StepLines.h"
#include "text/CodePage.h"
#include "text/ControlCharacters.h"

void WriteSteps(std::ostream& out, const AnalysedFile& file, ExplanationOnDemand& reasons,
                const ReportFormat& format) {
  const EliminationInSteps story = EliminateInSteps(EquationsOf(file.Document, file.Analysis));
  const StepText text(reasons.Graph(), story, file.Analysis.Reading, reasons.Rounded(), format,
                      ReadOn::InTexts);
  out << "Elimination, step by step:\n";
  for (const std::string& line : PlainStepLines(text)) out << VisibleText(ToUtf8(line)) << '\n';
}
