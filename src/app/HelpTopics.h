// Which topic of the help file belongs to what the user is doing, and where its list of contents leads.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/Analysis.h"
#include "reports/ReportKind.h"

// Topic paths: the program's directory goes before them, a place on the page may follow after "#".
inline constexpr const char* ProgramHelpTopic = "\\orvane.chm::index.htm";
inline constexpr const char* TrussHelpTopic = "\\orvane.chm::\\truss help\\truss_theory.htm";
inline constexpr const char* MathHelpTopic = "\\orvane.chm::\\gauss help\\backgd3.htm";
inline constexpr const char* SettingsHelpTopic = "\\orvane.chm::\\program\\settings.htm";
inline constexpr const char* PrintingHelpTopic = "\\orvane.chm::\\program\\printing.htm";
inline constexpr const char* WhyHelpTopic = "\\orvane.chm::\\program\\learn.htm#why";
inline constexpr const char* ForcesHelpTopic = "\\orvane.chm::\\program\\forces.htm";
inline constexpr const char* StepsHelpTopic = "\\orvane.chm::\\gauss help\\steps.htm";
inline constexpr const char* ByJointHelpTopic = "\\orvane.chm::\\truss help\\byjoint.htm";
inline constexpr const char* TryHelpTopic = "\\orvane.chm::\\program\\practice.htm";
inline constexpr const char* ExerciseHelpTopic = "\\orvane.chm::\\program\\lecturers.htm";
inline constexpr const char* ChecksHelpTopic = "\\orvane.chm::\\program\\learn.htm#checks";
inline constexpr const char* RoundingHelpTopic = "\\orvane.chm::\\truss help\\exact.htm";

/// The topic path for step 1, 2 or 3; while the instructions of the start are shown, the first page.
const char* HelpTopicForStep(int step, bool instructionsShown);

/// The topic path for a report: the page of what it concludes, and of rounding where that has a part in the
/// conclusion. The equations conclude nothing and lead to the mathematics.
const char* HelpTopicForReport(ReportKind report, const TrussAnalysis& analysis, bool owesToRounding);

struct HelpTopicPlace {
  std::string File;  ///< the path of the help file
  std::string Page;  ///< as it is named inside the file, with slashes: "truss help/truss_theory.htm#pins"

  friend bool operator==(const HelpTopicPlace&, const HelpTopicPlace&) = default;
};

/// Takes apart a topic path behind a directory. Nothing when it names no file or no page.
std::optional<HelpTopicPlace> PlaceOfHelpTopic(std::string_view topicPath);

struct HelpContentsEntry {
  int Level = 0;  ///< 0 at the root of the tree
  std::string Title;
  std::string Page;  ///< empty for a heading that only holds others together

  friend bool operator==(const HelpContentsEntry&, const HelpContentsEntry&) = default;
};

/// The contents list of a compiled help file, from top to bottom: lists within lists, whose items are objects
/// with the parameters "Name" and "Local". Texts are UTF-8. Whatever else stands there is passed over.
std::vector<HelpContentsEntry> ReadHelpContents(std::string_view hhc);
