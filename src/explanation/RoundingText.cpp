#include "explanation/RoundingText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "analysis/EliminationLimits.h"
#include "explanation/Directions.h"
#include "explanation/DistinctNames.h"
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

constexpr const char* WithinText = "Within the figures of the drawing, where a millionth counts as nothing";

// Without its colon.
std::string HeadingText(const std::string& heading) { return heading.substr(0, heading.size() - 1); }

class RoundingWriter {
 public:
  RoundingWriter(const TrussGraph& graph, const Rounding& rounding, const ReportFormat& format)
      : graph_(graph),
        on_(rounding),
        format_(format),
        sure_(JudgeFigures(rounding.Figures.Forces, format)),
        isAllSure_(sure_.AreAll(format)) {}

  std::string Outcomes() const {
    std::string text;
    if (!on_.Agrees()) {
      text = std::string("Exactly, ") + OutcomeText(on_.Verdict.Code()) +
             ".  The reduced matrix says otherwise because " + CauseText() + ".";
    }
    if (on_.Figures.Within != on_.Verdict.Code()) {
      text += std::string(text.empty() ? "" : "  ") + WithinText + ", " + OutcomeText(on_.Figures.Within) +
              ".  Coordinates and loads are written with seven figures at most.";
    }
    return text;
  }

  /// Of the numbers that the table shows for the forces, those that mean nothing. Where forces balance the
  /// loads, a number for one that is left open may stand in one of many such states: it is not determined,
  /// but not wrong.
  std::string WrongNumbers() const {
    const std::vector<int>& open = on_.ShownThoughOpen;
    if (!on_.HoldsNoNumber() && open.empty()) return {};
    const bool one = open.size() == 1;
    std::string text;
    if (on_.HoldsNoNumber()) {
      text = "None of the numbers shown for the forces holds, be they large or small";
    } else {
      text = "The equations leave " + Names(open) + " open; the " +
             (one ? "number shown for it is" : "numbers shown for them are") + " not determined";
    }
    if (on_.ShownMagnification > NearlyAMechanism) {
      text += ": with up to " + Number(on_.ShownMagnification) + " times the largest load " +
              (one ? "it comes" : "they come") + " from dividing by a remnant of rounding";
    } else if (!open.empty()) {
      text += on_.ShownRank > on_.Verdict.Rank
                  ? ": directions are rounded to single precision, and a remnant of that stands as a pivot "
                    "where exactly there is none"
                  : ": directions are rounded to single precision, and a coefficient that exactly is not 0 "
                    "counts as nothing";
    }
    return text + ".";
  }

  /// The forces that are exactly determined though the reduced matrix leaves them open, and why it does.
  std::string HiddenForces() const {
    const std::vector<HiddenForce>& hidden = on_.Figures.Hidden;
    if (hidden.empty()) return {};
    const bool one = hidden.size() == 1;
    std::vector<std::string> values;
    double remnant = 0;
    for (const HiddenForce& force : hidden) {
      values.push_back(Names({force.Unknown}) + (force.Value ? " = " + Number(*force.Value) : ""));
      remnant = std::max(remnant, force.Remnant);
    }
    std::string text = "Exactly, the equations determine " + ListOf(values, MostNamed) +
                       ", but the reduced matrix leaves " + (one ? "it" : "them") +
                       " open because directions are rounded to single precision";
    if (on_.ShownRank < on_.Verdict.Rank) {
      text += ": it has " + std::to_string(on_.ShownRank) + " pivots, where exactly there are " +
              std::to_string(on_.Verdict.Rank);
    } else if (remnant > 0) {
      text += one ? ": beside the 1 in its row" : ": beside the 1 in their rows";
      text += " it has coefficients of up to " + Number(remnant) +
              " that are remnants of rounding and exactly are 0";
    }
    return text + ".";
  }

  /// The same forces, and those of WrongNumbers, for the opening: a clause each.
  std::vector<std::string> OtherForces() const {
    std::vector<std::string> clauses;
    std::vector<int> hidden;
    for (const HiddenForce& force : on_.Figures.Hidden) hidden.push_back(force.Unknown);
    if (!hidden.empty()) {
      const bool one = hidden.size() == 1;
      clauses.push_back("exactly, " + Names(hidden) + (one ? " is" : " are") +
                        " determined, but the reduced matrix leaves " + (one ? "it" : "them") + " open");
    }
    if (!on_.ShownThoughOpen.empty()) {
      const bool one = on_.ShownThoughOpen.size() == 1;
      clauses.push_back("exactly, " + Names(on_.ShownThoughOpen) + (one ? " is" : " are") +
                        " left open, but the reduced matrix shows " +
                        (one ? "a number for it" : "numbers for them"));
    }
    return clauses;
  }

  std::string NearlyFree() const {
    const std::optional<Motion>& motion = on_.Figures.NearlyFree;
    const bool isSaid = motion && (on_.Figures.Magnification > NearlyAMechanism || !isAllSure_);
    if (!isSaid) return {};
    return "The truss is nearly a mechanism: its largest force is " + Number(on_.Figures.Magnification) +
           " times the largest load, and nearly free is a motion in which " +
           MotionTeller(graph_, format_).InOneLine(*motion) + ".";
  }

  std::string SureFiguresText() const {
    std::string text;
    if (sure_.Example) {
      text = (sure_.Count == 0 ? "No figure of the forces is sure"
                               : "Only " + FirstFigures(sure_.Count) + " of the forces " +
                                     (sure_.Count == 1 ? "is" : "are") + " sure") +
             ": with directions that are not rounded " + Names({sure_.Example->Unknown}) + " is " +
             AtLength(sure_.Example->Unrounded, format_) + " in place of " +
             AtLength(sure_.Example->Shown, format_) + ".";
    } else if (const auto least = LeastSureFigures(on_.Figures.Forces, format_);
               least && isAllSure_ && !NearlyFree().empty()) {
      text = "Of the forces " + FirstFigures(*least) + (*least == 1 ? " is sure." : " are sure.");
    }
    AddSentence(text, SmallText());
    return text;
  }

  std::string NearlyFreeAtLength() const {
    if (NearlyFree().empty()) return {};
    return "In the motion that is nearly free members change their lengths, but hardly.  " +
           MotionTeller(graph_, format_).Displacements(*on_.Figures.NearlyFree) +
           (on_.Figures.NearlyFree->Work > 0 ? "  The loads drive it." : "");
  }

  static void AddSentence(std::string& text, const std::string& sentence) {
    if (sentence.empty()) return;
    if (!text.empty()) text += "  ";
    text += sentence;
  }

 private:
  std::string CauseText() const {
    const std::string rounded = "directions are rounded to single precision";
    const std::string row = Number(on_.Remnant) + " on the right of a row without coefficients";
    if (on_.IsRemnantOfRounding()) {
      return rounded + ": " + row + " is a remnant of rounding, about " + PowerOfTenText(on_.RemnantShare) +
             " of the largest load";
    }
    if (on_.Vanished.empty() && on_.Remnant == 0) return rounded;
    std::string text =
        "what is smaller than " + PowerOfTenText(PivotTolerance) + " counts as nothing in it: ";
    text += on_.Vanished.empty() ? "the coefficients of a row cancel down to that" : VanishedText();
    return on_.Remnant == 0 ? text : text + ", which leaves " + row;
  }

  std::string VanishedText() const {
    std::string text;
    for (const Axis axis : {Axis::X, Axis::Y}) {
      std::vector<int> unknowns;
      for (const VanishedCoefficient& vanished : on_.Vanished) {
        if (vanished.Along == axis) unknowns.push_back(vanished.Unknown);
      }
      if (unknowns.empty()) continue;
      text += (text.empty() ? "so vanish the " : " and the ") +
              std::string(axis == Axis::X ? "horizontal" : "vertical") + " components of " + Names(unknowns);
    }
    return text;
  }

  std::string SmallText() const {
    std::string text;
    if (const std::vector<int>& zeros = sure_.ShownAsZero; !zeros.empty()) {
      text = DistinctNames(graph_, format_, OddNames::InBrackets).ForcesAtStart(zeros, 6) +
             (zeros.size() == 1 ? " is not 0, but so small that it is shown as 0."
                                : " are not 0, but so small that they are shown as 0.");
    }
    if (!sure_.SmallUnknowns.empty()) {
      AddSentence(text, "Of " + Names(sure_.SmallUnknowns) + ", small beside the others, only " +
                            FirstFigures(sure_.CountOfSmall) +
                            (sure_.CountOfSmall == 1 ? " is sure." : " are sure."));
    }
    if (!sure_.Remnants.empty()) {
      AddSentence(text, "What is shown for " + Names(sure_.Remnants) +
                            " is a remnant of rounding, and no figure of it is sure.");
    }
    return text;
  }

  std::string Names(const std::vector<int>& unknowns) const {
    return DistinctNames(graph_, format_, OddNames::InBrackets).Forces(unknowns, MostNamed);
  }

  std::string Number(double value) const { return FormatSigFigs(value, format_); }

  static constexpr std::size_t MostNamed = 6;

  const TrussGraph& graph_;
  const Rounding& on_;
  const ReportFormat& format_;
  SureFigures sure_;
  bool isAllSure_;
};

// That the outcomes differ, and how; without the full stop.
std::string DifferentOutcomes(const Rounding& rounding) {
  const Outcome exact = rounding.Verdict.Code();
  const Outcome within = rounding.Figures.Within;
  if (exact == within && within == rounding.Shown) return {};
  std::string text = std::string("The readings of this truss differ: exactly, ") + OutcomeText(exact);
  if (within == exact) {
    text += ", and so it is within the figures of the drawing";
  } else {
    text += std::string("; but within the figures of the drawing ") + OutcomeText(within);
  }
  if (rounding.Shown != exact && rounding.Shown != within) {
    text += std::string("; and the reduced matrix says that ") + OutcomeText(rounding.Shown);
  } else {
    text += rounding.Shown == exact ? " (the reduced matrix says what holds exactly)"
                                    : " (and so says the reduced matrix)";
  }
  return text;
}

}  // namespace

std::string DifferentReadings(const TrussGraph& graph, const Rounding& rounding, const ReportFormat& format) {
  std::string text = DifferentOutcomes(rounding);
  for (const std::string& clause : RoundingWriter(graph, rounding, format).OtherForces())
    text += text.empty() ? "The readings of this truss differ: " + clause : ".  " + Capital(clause);
  if (text.empty()) return text;
  return text + ".  More stands below, under \"" + HeadingText(RoundingHeading) + "\".";
}

std::string RoundingNotice(const TrussGraph& graph, const Rounding& rounding, const ReportFormat& format) {
  const RoundingWriter writer(graph, rounding, format);
  std::string notice;
  for (const std::string& sentence : {writer.Outcomes(), writer.HiddenForces(), writer.WrongNumbers(),
                                      writer.NearlyFree(), writer.SureFiguresText()})
    RoundingWriter::AddSentence(notice, sentence);
  return notice;
}

std::string FiguresRemark(const Rounding& rounding, const ReportFormat& format) {
  const SureFigures sure = JudgeFigures(rounding.Figures.Forces, format);
  std::string text;
  if (sure.Count == 0) {
    text = "No figure of these forces is sure";
  } else if (sure.Count < SureFigures::ShownFigures(format)) {
    text =
        "Only " + FirstFigures(sure.Count) + " of these forces " + (sure.Count == 1 ? "is" : "are") + " sure";
  } else if (!sure.SmallUnknowns.empty() || !sure.Remnants.empty()) {
    text = "Of forces that are small beside the others not all figures are sure";
  } else {
    return {};
  }
  return text + ", because directions are rounded.  See \"Why this conclusion\".";
}

std::vector<std::string> RoundingParagraphs(const TrussGraph& graph, const Rounding& rounding,
                                            const ReportFormat& format) {
  const RoundingWriter writer(graph, rounding, format);
  std::vector<std::string> paragraphs;
  const auto add = [&paragraphs](const std::string& text) {
    if (!text.empty()) paragraphs.push_back(text);
  };
  std::string outcomes = writer.Outcomes();
  if (rounding.Figures.Within != rounding.Verdict.Code()) {
    outcomes +=
        "  The exact verdict is about the numbers as they are written; coordinates or loads that were "
        "rounded to seven figures meet a condition only as nearly as that.";
  }
  add(outcomes);
  add(writer.HiddenForces());
  add(writer.WrongNumbers());
  std::string nearlyFree = writer.NearlyFree();
  RoundingWriter::AddSentence(nearlyFree, writer.NearlyFreeAtLength());
  add(nearlyFree);
  add(writer.SureFiguresText());
  return paragraphs;
}

const char* ReadOnText(ReadOn where) {
  switch (where) {
    case ReadOn::OnScreen:
      break;
    case ReadOn::InTexts:
      return "Read on with --report=why, and in the help under \"Exact and rounded verdicts\".";
    case ReadOn::OnPaper:
      return "In the program read on in the menu Learn under \"Why this conclusion\", and in the help under "
             "\"Exact and rounded verdicts\".";
    case ReadOn::FurtherBelow:
      return "Read on further below under \"Why this conclusion\", and in the program's help under \"Exact "
             "and rounded verdicts\".";
    case ReadOn::FurtherAbove:
      return "Read on further above under \"Why this conclusion\", and in the program's help under \"Exact "
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
