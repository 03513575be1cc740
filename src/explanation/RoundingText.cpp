#include "explanation/RoundingText.h"

#include <cmath>
#include <vector>

#include "explanation/Directions.h"
#include "explanation/MotionText.h"

namespace {

const char* OutcomeText(Outcome outcome) {
  switch (outcome) {
    case Outcome::Neither:
      return "the equations neither contradict nor repeat each other";
    case Outcome::Redundant:
      return "the system is redundant: these loads are in balance";
    case Outcome::Inconsistent:
      break;
  }
  return "the system has no solution";
}

// The power of ten nearest to a positive number, as "1E-8".
std::string MagnitudeText(double share) {
  return "1E" + std::to_string(static_cast<int>(std::lround(std::log10(share))));
}

}  // namespace

std::string RoundingNotice(const TrussGraph& graph, const Rounding& rounding, const ReportFormat& format) {
  const ExactVerdict& verdict = rounding.Verdict;
  std::vector<std::string> sentences;
  if (!rounding.Agrees()) {
    std::string text =
        std::string("Exactly, ") + OutcomeText(verdict.Code()) +
        ".  The reduced matrix says otherwise because directions are rounded to single precision";
    if (rounding.Remnant > 0) {
      text += ": " + FormatSigFigs(rounding.Remnant, format) +
              " on the right of a row without coefficients is a "
              "remnant of rounding, about " +
              MagnitudeText(rounding.RemnantShare) + " of the largest load";
    }
    sentences.push_back(text + ".");
    if (rounding.ShownMagnification > NearlyAMechanism) {
      sentences.push_back("The forces that it shows, up to " +
                          FormatSigFigs(rounding.ShownMagnification, format) +
                          " times the largest load, come from dividing by a remnant of rounding.");
    }
  }
  if (rounding.Figures.Within != verdict.Code()) {
    sentences.push_back(
        std::string("Within the figures of the drawing, where a millionth counts as nothing, ") +
        OutcomeText(rounding.Figures.Within) +
        ".  The exact verdict is about the numbers as they are written; coordinates or loads that "
        "were rounded to seven figures meet a condition only as nearly as that.");
  }
  if (rounding.Figures.NearlyFree) {
    sentences.push_back("The truss is nearly a mechanism: its largest force is " +
                        FormatSigFigs(rounding.Figures.Magnification, format) +
                        " times the largest load.  Nearly free is this motion: " +
                        MotionText(graph, *rounding.Figures.NearlyFree, format));
  }
  const std::optional<int>& sure = rounding.Figures.CertainFigures;
  if (sure && *sure < 4) {
    sentences.push_back(*sure == 0
                            ? "No figure of the forces is sure."
                            : "Only the first " + Counted(*sure, "figure", "figures") +
                                  " of the largest forces are sure; the others depend on how directions are "
                                  "rounded.");
  }
  std::string notice;
  for (const std::string& sentence : sentences) notice += (notice.empty() ? "" : "  ") + sentence;
  return notice;
}

const char* ReadOnText(ReadOn where) {
  switch (where) {
    case ReadOn::OnScreen:
      break;
    case ReadOn::OnPaper:
      return "In the program read on in the menu Learn under \"Why this conclusion\", and in the help under "
             "\"Exact and rounded verdicts\".";
    case ReadOn::FurtherBelow:
      return "Read on further below under \"Why this conclusion\", and in the program's help under \"Exact "
             "and rounded verdicts\".";
  }
  return "Read on under Learn, \"Why this conclusion\", and in the help under \"Exact and rounded "
         "verdicts\".";
}

std::string NoticeBelowConclusion(const TrussGraph& graph, const Rounding& rounding,
                                  const ReportFormat& format, ReadOn where) {
  const std::string notice = RoundingNotice(graph, rounding, format);
  return notice.empty() ? notice : notice + "  " + ReadOnText(where);
}
