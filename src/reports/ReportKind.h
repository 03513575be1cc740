// The four reports of Step 3.
#pragma once

enum class ReportKind { Counting, Equations, RREF, Solutions };

/// Whether the report says what the rows mean, to which rounding may have contributed.
constexpr bool IsConclusion(ReportKind report) {
  return report == ReportKind::RREF || report == ReportKind::Solutions;
}
