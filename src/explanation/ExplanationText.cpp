#include "explanation/ExplanationText.h"

#include <algorithm>

#include "explanation/AdviceText.h"
#include "explanation/Directions.h"
#include "explanation/DistinctNames.h"
#include "explanation/MotionText.h"
#include "explanation/OpenForcesText.h"
#include "explanation/RigidityMatrix.h"
#include "explanation/RoundingText.h"
#include "explanation/SupportsText.h"

namespace {

constexpr std::size_t MostStates = 12;

// Of a proof.
constexpr std::size_t MostWrittenOut = 8;

// Where they are first spoken of.
constexpr const char* ForceDensity = "(force divided by length, written q) ";

std::string Motions(int count) { return Counted(count, "independent motion", "independent motions"); }
std::string States(int count) { return Counted(count, "state of self-stress", "states of self-stress"); }

std::string Difference(int number, int other) {
  return std::to_string(number) + " - " + std::to_string(other) + " = " + std::to_string(number - other);
}

class Writer {
 public:
  Writer(const Explanation& explanation, const ReportFormat& format)
      : on_(explanation),
        graph_(explanation.Graph),
        verdict_(explanation.Exact.Verdict),
        format_(format),
        names_(graph_, format, OddNames::InBrackets) {}

  std::vector<ExplanationSection> All() {
    Add(VerdictHeading, VerdictParagraphs());
    Add("What may be a slip of the drawing:", WhatMayBeASlip(on_, names_));
    Add(MotionsHeading, MotionParagraphs());
    Add("Why no forces balance the loads:", ProofParagraphs());
    Add("Which forces hang together:", StressParagraphs());
    Add("What would help:", WhatWouldHelp(on_, names_));
    Add("What may be left out:", WhatMayBeLeftOut(on_, names_));
    Add(RoundingHeading, RoundingParagraphs(graph_, on_.Rounded, format_));
    return std::move(sections_);
  }

 private:
  void Add(const char* heading, std::vector<std::string> paragraphs) {
    if (!paragraphs.empty()) sections_.push_back({heading, std::move(paragraphs)});
  }

  std::string Number(double value) const { return FormatSigFigs(value, format_); }

  std::string CountingText() const {
    const int motions = verdict_.Mechanisms();
    const int states = verdict_.SelfStresses();
    const int N = verdict_.NumUnknowns;
    const int R = verdict_.NumEquations;
    std::string counting = "Counting tells only the difference: unknown forces less equations, " +
                           Difference(N, R) + ", are states of self-stress less motions, " +
                           Difference(states, motions) + ".";
    if (N == R && motions > 0) {
      counting +=
          "  There are as many equations as unknowns, and yet the truss can move: what is missing at one "
          "place is too much at another.";
    } else if (N > R && motions > 0) {
      counting +=
          "  There are more unknowns than equations, and yet the truss can move: the forces that are too "
          "many are not where they would hold it.";
    } else if (N < R && states > 0) {
      counting +=
          "  There are fewer unknowns than equations, and yet not every force is determined: the truss can "
          "move at one place, and has a member or support too many at another.";
    }
    if (N == R && motions > 0 && KeepsItsShape(on_)) counting += "  " + TrianglesText(on_, names_);
    return counting;
  }

  std::string ConclusionText() const {
    const std::string word = VerdictWord(verdict_);
    if (word == "unique")
      return "Every force is determined, for these loads and for all others: the truss is stable.";
    if (word == "redundant") {
      return "These loads are in balance, and every force is determined; but the truss can move, and most "
             "other "
             "loads would set it going.";
    }
    if (word == "no solution") return "No forces balance these loads: the truss moves.";
    return verdict_.Mechanisms() > 0
               ? "These loads are in balance, but the truss can move, and not every force is determined."
               : "The truss is stable, but the equations do not determine every force.";
  }

  std::vector<std::string> VerdictParagraphs() const {
    std::vector<std::string> paragraphs = {ConclusionText()};
    for (const std::string& remark : {DifferentReadings(graph_, on_.Rounded, format_), NoSupportsText(on_),
                                      PartsWithoutSupportText(on_, names_)}) {
      if (!remark.empty()) paragraphs.push_back(remark);
    }
    paragraphs.push_back("This truss has " + Motions(verdict_.Mechanisms()) + " and " +
                         States(verdict_.SelfStresses()) + ".");
    paragraphs.push_back(CountingText());
    // Where no forces balance the loads, there is none to be determined.
    if (verdict_.SelfStresses() > 0 && verdict_.Code() != Outcome::Inconsistent)
      paragraphs.push_back(DeterminedText(on_, names_, format_));
    return paragraphs;
  }

  std::vector<std::string> MotionParagraphs() const {
    std::vector<std::string> paragraphs;
    const std::vector<Motion>& motions = on_.Exact.Motions;
    MotionTeller teller(graph_, format_);
    for (std::size_t i = 0; i < std::min(motions.size(), MostMotionsTold); ++i) {
      paragraphs.push_back("Motion " + std::to_string(i + 1) + ".  " + teller.Text(motions[i]));
    }
    if (motions.size() > MostMotionsTold) {
      paragraphs.push_back("There are " + std::to_string(motions.size() - MostMotionsTold) +
                           " further motions.");
    }
    return paragraphs;
  }

  // A negative factor in brackets: a minus sign beside a name could be read as a dash.
  std::string Factor(double value) const {
    const std::string text = Number(value);
    return value < 0 ? "(" + text + ")" : text;
  }

  std::vector<std::string> ProofParagraphs() const {
    if (!on_.Proof) return {};
    const ContradictionProof& proof = *on_.Proof;
    if (proof.Equations.size() == 1) return {OneEquationText(proof)};
    std::vector<std::string> terms;
    for (const WeightedEquation& equation : proof.Equations) {
      terms.push_back(Factor(equation.Factor) + " times the equation " +
                      names_.Equation(equation.Joint, equation.Along));
    }
    std::vector<std::string> paragraphs = {
        "These equations, each times its factor, add up to 0 on the left and to " + Number(proof.Sum) +
        " on the right: " + ListOf(terms, 24) + ".  So they contradict each other, whatever the forces are."};
    const bool isWrittenOut = proof.Equations.size() <= MostWrittenOut;
    if (isWrittenOut) WriteOut(proof, paragraphs);
    paragraphs.push_back(
        "The factors are the displacements of these joints in motion " + std::to_string(proof.MotionNumber) +
        ", times " + Factor(proof.FactorOfMotion) +
        ".  So the sum is a sum of works, and in words of mechanics: on this motion no member changes its "
        "length and no support gives way, so their forces do no work; but the loads do.  Nothing is there to "
        "balance them.");
    paragraphs.push_back(
        "In the table of the equations directions are rounded to single precision, so that there the sum on "
        "the left may be only nearly 0.  With force densities " +
        std::string(isWrittenOut ? "" : ForceDensity) +
        "every coefficient is a difference of coordinates, and the sum is exactly 0" +
        std::string(proof.IsWhole ? "." : ", when the factors are not rounded as they are here."));
    return paragraphs;
  }

  // It has no force on its left, since nothing else could cancel one.
  std::string OneEquationText(const ContradictionProof& proof) const {
    const WeightedEquation& equation = proof.Equations.front();
    const std::string load = Number(proof.Sum / equation.Factor);
    return "No unknown force acts on " + names_.JointInWords(equation.Joint) +
           " in the direction of the equation " + names_.Equation(equation.Joint, equation.Along) +
           ", only a load: it says 0 = " + load +
           ", and contradicts itself.  In words of mechanics: on motion " +
           std::to_string(proof.MotionNumber) + " the load does work, and nothing is there to balance it.";
  }

  // The equations of the proof with force densities as unknowns, one below the other.
  void WriteOut(const ContradictionProof& proof, std::vector<std::string>& paragraphs) const {
    paragraphs.push_back(std::string("Written with force densities ") + ForceDensity +
                         "in place of the members' forces:");
    const std::vector<double> loads = LoadVector(graph_);
    for (const WeightedEquation& equation : proof.Equations) {
      std::vector<std::string> terms;
      for (int k = 1; k <= graph_.NumUnknowns(); ++k) AddTerm(equation, k, terms);
      std::string left;
      for (const std::string& term : terms) left += (left.empty() ? "" : " + ") + term;
      const double load = loads[static_cast<std::size_t>(ColumnOf(equation.Joint, equation.Along))];
      paragraphs.push_back("Equation " + names_.Equation(equation.Joint, equation.Along) + ":  " +
                           (left.empty() ? "0" : left) + " = " + Number(load == 0 ? 0 : -load) + ",  times " +
                           Factor(equation.Factor));
    }
  }

  void AddTerm(const WeightedEquation& equation, int k, std::vector<std::string>& terms) const {
    const PlacedUnknown& unknown = graph_.Unknowns[k];
    // The joint moves along the equation, so no reaction stands in it.
    if (!unknown.IsMember()) return;
    if (unknown.JointA != equation.Joint && unknown.JointB != equation.Joint) return;
    const PlacedJoint& here = graph_.Joints[equation.Joint];
    const PlacedJoint& there =
        graph_.Joints[unknown.JointA == equation.Joint ? unknown.JointB : unknown.JointA];
    const double difference =
        equation.Along == Axis::X ? WrittenDifference(here.X, there.X) : WrittenDifference(here.Y, there.Y);
    if (difference != 0) terms.push_back("(" + Number(difference) + ") q(" + names_.Member(k) + ")");
  }

  std::vector<std::string> StressParagraphs() const {
    std::vector<std::string> paragraphs;
    const std::vector<SelfStress>& states = on_.Exact.SelfStresses;
    const MotionTeller teller(graph_, format_);
    for (std::size_t i = 0; i < std::min(states.size(), MostStates); ++i) {
      paragraphs.push_back("Self-stress " + std::to_string(i + 1) + ".  " + teller.Text(states[i]));
    }
    if (states.size() > MostStates) {
      paragraphs.push_back("There are " + std::to_string(states.size() - MostStates) + " further states.");
    }
    if (!states.empty() && verdict_.Code() != Outcome::Inconsistent) {
      paragraphs.push_back(FreeForcesText(on_, names_));
    }
    return paragraphs;
  }

  const Explanation& on_;
  const TrussGraph& graph_;
  const ExactVerdict& verdict_;
  const ReportFormat& format_;
  DistinctNames names_;
  std::vector<ExplanationSection> sections_;
};

}  // namespace

TrussKinds KindOf(const ExactVerdict& verdict) {
  TrussKinds kind;
  kind.Row = verdict.Mechanisms() > 0 ? 1 : 0;
  kind.Column = verdict.SelfStresses() > 0 ? 1 : 0;
  return kind;
}

std::vector<std::string> KindTable(const ExactVerdict& verdict) {
  const TrussKinds kind = KindOf(verdict);
  constexpr std::size_t firstWidth = 11;
  constexpr std::size_t width = 19;
  const auto line = [](const std::string& first, const std::string& second, const std::string& third) {
    std::string text = first;
    text.resize(firstWidth, ' ');
    text += second;
    if (third.empty()) return text;
    text.resize(firstWidth + width, ' ');
    return text + third;
  };
  const std::string blanks = "    ";
  std::vector<std::string> lines = {
      line("", blanks + TrussKinds::Columns[0], blanks + TrussKinds::Columns[1])};
  for (std::size_t row = 0; row < 2; ++row) {
    const auto& names = TrussKinds::Names[row];
    const auto mark = [&](int column) {
      return static_cast<int>(row) == kind.Row && column == kind.Column ? "[x] " : "[ ] ";
    };
    lines.push_back(
        line(TrussKinds::Rows[row], mark(0) + std::string(names[0][0]), mark(1) + std::string(names[1][0])));
    lines.push_back(line("", blanks + names[0][1], blanks + names[1][1]));
  }
  return lines;
}

std::vector<ExplanationSection> ExplanationText(const Explanation& explanation, const ReportFormat& format) {
  return Writer(explanation, format).All();
}
