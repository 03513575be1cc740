// The elimination step by step as a section of the printable report.
#include <algorithm>
#include <string>

#include "explanation/steps/PlainElimination.h"
#include "explanation/steps/StepLines.h"
#include "reports/ReportExtras.h"

AppendedExtra AppendSteps(const ReportExtraContext& context) {
  RTBText(context.Report, "Elimination, step by step:", 2, 0, SectionHeading, LineRole::Heading);
  const TrussAnalysis& analysis = context.Reasons.Analysis();
  const EliminationInSteps story = EliminateInSteps(EquationsOf(context.Document, analysis));
  const bool hasReasons = std::ranges::count(context.With, ReportExtra::Why) > 0;
  const StepText text(context.Reasons.Graph(), story, analysis.Reading, context.Reasons.Rounded(),
                      context.Format, hasReasons ? ReadOn::FurtherAbove : ReadOn::OnPaper);
  const std::vector<StepLine> lines = StepLines(text, StepsOnPaper);
  bool isFirst = true;
  double numDone = 0;
  for (const StepLine& line : lines) {
    std::string printable = PrintableText(line.Text);
    if (line.Kind == StepLineKind::Remark) printable.insert(0, "      ");
    const bool begins = isFirst || line.Kind == StepLineKind::Pivot;
    RTBText(context.Report, printable, begins ? 2 : 1, 0,
            line.Kind == StepLineKind::Pivot ? BoldBlack : PlainBlack);
    isFirst = false;
    if (!context.Progress(++numDone / static_cast<double>(lines.size()))) return AppendedExtra::Ended;
  }
  return AppendedExtra::Whole;
}
