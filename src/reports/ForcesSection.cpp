// The forces on the truss as a section of the printable report: their drawing with its legend.
#include "explanation/forces/ForcesPicture.h"
#include "explanation/forces/ForcesText.h"
#include "reports/ReportExtras.h"

AppendedExtra AppendForces(const ReportExtraContext& context) {
  constexpr int breaksBefore = 2;
  RTBText(context.Report, "The forces on the truss:", breaksBefore, 0, SectionHeading, LineRole::Heading);
  const TrussForces forces = ForcesOf(context.Reasons, context.Format);
  const std::string description = PrintableText(DescribeForces(forces, context.Format));
  const bool isThere = RTBPicture(ForcesPicture({.Document = context.Document, .Forces = forces, .Points = 7},
                                                context.Measure, NarrowForcesPicture),
                                  context.Report, context.Clipboard, breaksBefore, 0, description);
  if (!context.Progress(1)) return AppendedExtra::Ended;
  return isThere ? AppendedExtra::Whole : AppendedExtra::LacksAPicture;
}
