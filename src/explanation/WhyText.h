// The explanation line by line, as the window shows it and the command line prints it.
#pragma once

#include <string>
#include <vector>

#include "explanation/ExplanationText.h"

enum class WhyLineKind {
  Heading,
  Table,      ///< in columns, to be set in letters of one width
  Paragraph,  ///< may be broken into several lines
  Gap,        ///< empty, between two sections
};

struct WhyLine {
  WhyLineKind Kind = WhyLineKind::Paragraph;
  std::string Text;  ///< UTF-8, without control characters
};

/// All of ExplanationText, with the table of kinds below the first heading.
std::vector<WhyLine> WhyText(const Explanation& explanation, const ReportFormat& format);
