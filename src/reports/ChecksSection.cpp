// The checks of the drawing as a section of the printable report, on a canvas of the usual size: whoever
// reads the paper sees what the command line says of the file.
#include "explanation/DrawingChecks.h"
#include "reports/ReportExtras.h"

AppendedExtra AppendChecks(const ReportExtraContext& context) {
  constexpr int breaksBefore = 2;
  RTBText(context.Report, ChecksHeading, breaksBefore, 0, SectionHeading, LineRole::Heading);
  const auto append = [&](std::string_view text) {
    RTBText(context.Report, PrintableText(std::string(text)), breaksBefore, 0, PlainBlack, LineRole::Text);
  };
  const std::vector<DrawingCheck> checks =
      CheckDrawing(context.Document, UsuallyDrawn(context.Document), context.Format);
  for (const DrawingCheck& check : checks) append(check.Text);
  if (checks.empty()) append(NothingFoundText);
  return context.Progress(1) ? AppendedExtra::Whole : AppendedExtra::Ended;
}
