#include "reports/ReportExtras.h"

#include <algorithm>

std::optional<ReportExtra> ReportExtraNamed(std::string_view word) {
  const auto* kind = std::ranges::find(AllReportExtras, word, &ReportExtraKind::Word);
  if (kind == AllReportExtras.end()) return std::nullopt;
  return kind->Extra;
}

const ReportExtraKind& KindOf(ReportExtra extra) {
  return *std::ranges::find(AllReportExtras, extra, &ReportExtraKind::Extra);
}
