// The sections of the text reports, one by one: an execution that writes one of them is a quick one.
#pragma once

#include <iterator>

#include "app/TextReports.h"

inline constexpr int NumSections = 9;

/// Section 0 .. NumSections - 1 by itself.
inline WantedSections OneSection(int section) {
  WantedSections wanted;
  bool ReportSections::*const usual[] = {&ReportSections::Counting, &ReportSections::Joints,
                                         &ReportSections::Equations, &ReportSections::RREF,
                                         &ReportSections::Solutions};
  constexpr int numUsual = std::size(usual);
  if (section < numUsual) {
    wanted.Usual.*usual[section] = true;
  } else {
    wanted.Explained.push_back(static_cast<ExplainedSection>(section - numUsual));
  }
  return wanted;
}
