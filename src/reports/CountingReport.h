// The Counting report: how many unknown forces and how many equations there are, in prose.
#pragma once

#include <string>

#include "analysis/CountedTruss.h"
#include "text/TextParts.h"

/// The three paragraphs, with CR LF line ends, in the single-byte code page. All empty when there is no
/// unknown force.
struct CountingReport {
  std::string Forces;
  std::string Equations;
  std::string Count;

  /// The whole report as the text box shows it.
  std::string Text() const;
};

inline constexpr const char* CountingCaption =
    "Report - Counting the number of unknown forces and the number of determining equations";

CountingReport ReportCounting(const CountedTruss& counted);

enum class CountingParagraph { Forces, Equations, Count };

/// One paragraph, or the whole report, part after part; each name is a part.
void TellCounting(const CountedTruss& counted, CountingParagraph which, const TakeText& take);
void TellCounting(const CountedTruss& counted, const TakeText& take);
