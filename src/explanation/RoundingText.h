// What rounding has to do with the answer, in words.
#pragma once

#include <string>
#include <vector>

#include "analysis/FormatSigFigs.h"
#include "explanation/Rounding.h"

inline constexpr const char* RoundingHeading = "What rounding has to do with it:";

/// In place of the notice below a conclusion, while it is not known.
inline constexpr const char* RoundingIsComing = "How many figures are sure is being worked out ...";

/// The page of the help to read on.
inline constexpr const char* RoundingHelpTitle = "Exact and rounded verdicts";

/// Where to read on, for whoever has the notice before him.
enum class ReadOn {
  OnScreen,      ///< in the program: under Learn, and in the help
  InTexts,       ///< the command line, or what it has written
  OnPaper,       ///< in the program, which he may not have before him
  FurtherBelow,  ///< on the same paper, which has the reasons
  FurtherAbove,  ///< the same, where they stand before
};
const char* ReadOnText(ReadOn where);

/// The essence, below the conclusion of the RREF and Solutions reports, where rounding has a part in it: the
/// exact outcome differs, or the reading within the drawing's figures does, or forces are determined that are
/// not shown, or numbers are shown that mean nothing, or the truss is nearly a mechanism, or a figure that is
/// shown is not sure. A few sentences as a single-byte text without line breaks; empty when there is nothing
/// to say.
std::string RoundingNotice(const TrussGraph& graph, const Rounding& rounding, const ReportFormat& format);

/// In one sentence, for a drawing: that fewer figures of the forces are sure than are shown. Empty where all
/// are.
std::string FiguresRemark(const Rounding& rounding, const ReportFormat& format);

/// The same at length, paragraph by paragraph, where there is room for it.
std::vector<std::string> RoundingParagraphs(const TrussGraph& graph, const Rounding& rounding,
                                            const ReportFormat& format);

/// For whoever begins to read why the conclusion is what it is: that the exact reading, the one within the
/// figures of the drawing and the reduced matrix differ, and how; also where the outcome is the same and only
/// the forces that are determined are others. Empty where there is no difference.
std::string DifferentReadings(const TrussGraph& graph, const Rounding& rounding, const ReportFormat& format);

/// The notice and where to read on; empty when there is nothing to say.
std::string NoticeBelowConclusion(const TrussGraph& graph, const Rounding& rounding,
                                  const ReportFormat& format, ReadOn where = ReadOn::OnScreen);
