// The printable report: one document that holds the whole analysis of a truss, from its pictures to its
// solution, built from the same values that the report window shows.
#pragma once

#include <functional>
#include <vector>

#include "analysis/Analysis.h"
#include "analysis/FormatSigFigs.h"
#include "document/Truss.h"
#include "paper/RichText.h"
#include "platform/TextMeasure.h"
#include "reports/RTBPicture.h"
#include "reports/ReportExtras.h"

/// Told of the work that is done, in parts of the whole (0 .. 1, never less than before, 1 when all is done):
/// after each picture, each joint and each row of a table, and while tables are measured. Returns false when
/// the user wants no more.
using ReportProgress = std::function<bool(double done)>;

struct PrintableReportContext {
  RichText& Document;
  ClipboardAccess Clipboard;  ///< the one that `Document` pastes from
  TextMeasure Measure;        ///< for the texts in the pictures
  NumberFormat Numbers;
  float TableRoom = 0;  ///< width of the paper's text in points, for the tables; 0: they may be of any width
  ReportProgress Progress;
  std::vector<ReportExtra> With{};         ///< sections behind the solution, in this order
  ExplanationOnDemand* Reasons = nullptr;  ///< of this analysis; null: it is worked out here
};

enum class BuiltReport {
  Ended,          ///< by `Progress`: the document holds the beginning of the report
  LacksAPicture,  ///< the clipboard could not be had for it; all the rest is there
  Whole
};

/// Appends the report of a truss as SolveTruss left it, in the report font size of its settings. Where
/// rounding has a part in the conclusion a paragraph below it says so. A name stays on its line:
/// control characters in it are blanks.
BuiltReport BuildPrintableReport(const Truss& truss, const TrussAnalysis& analysis,
                                 const PrintableReportContext& context);
