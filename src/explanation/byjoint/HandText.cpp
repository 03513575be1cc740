#include "explanation/byjoint/HandText.h"

#include <algorithm>
#include <utility>

#include "explanation/Directions.h"

namespace {

std::vector<int> UnknownsOf(const std::vector<UnknownForce>& forces) {
  std::vector<int> unknowns;
  unknowns.reserve(forces.size());
  for (const UnknownForce& force : forces) unknowns.push_back(force.Unknown);
  return unknowns;
}

// Forces that other steps gave, as the first equation holds them.
std::vector<int> KnownIn(const HandStep& step) {
  std::vector<int> known;
  if (step.Equations.empty()) return known;
  for (const BalanceTerm& term : step.Equations.front().Terms) {
    if (term.Unknown != 0 && !term.IsSought) known.push_back(term.Unknown);
  }
  return known;
}

}  // namespace

HandText::HandText(const TrussGraph& graph, const HandSolution& solution, const ReportFormat& format)
    : graph_(graph),
      solution_(solution),
      format_(format),
      names_(graph, format, OddNames::InBrackets),
      equations_(graph, names_, format_) {}

const char* HandText::Convention() {
  return "Every member is assumed to push into the joints at its ends.  A positive value is compression (C); "
         "a negative one says that the member pulls: tension (T).  Reactions are assumed in the directions "
         "of their arrows.";
}

HandStepText HandText::Step(const HandStep& step) const {
  switch (step.Kind) {
    case HandStepKind::Reactions:
      return Reactions(step);
    case HandStepKind::ZeroForce:
      return ZeroForce(step);
    case HandStepKind::Joint:
      return Joint(step);
    case HandStepKind::Section:
      return Section(step);
    case HandStepKind::Together:
      break;
  }
  return Together(step);
}

// A joint's equations have the names by which the table of the equations calls its rows, "A - x" and "A - y".
std::string HandText::Opening(const HandStep& step, const BalanceEquation& equation) const {
  std::string what = equations_.What(equation);
  const bool isX = equation.Kind == BalanceKind::X;
  const bool isRow = step.Kind == HandStepKind::Joint && (isX || equation.Kind == BalanceKind::Y);
  if (!isRow) return Capital(std::move(what));
  return names_.Equation(step.Joint, isX ? Axis::X : Axis::Y) + ", " + what;
}

void HandText::AddEquations(const HandStep& step, std::vector<std::string>& lines) const {
  for (const BalanceEquation& equation : step.Equations) {
    lines.push_back(Opening(step, equation) + ":  " + equations_.InLetters(equation));
    const std::string numbers = equations_.WithNumbers(equation);
    const std::string noArm = LoadsWithoutArm(step, equation);
    if (!noArm.empty()) lines.push_back(noArm);
    if (equations_.HasKnownNames(equation)) lines.push_back("With numbers:  " + numbers);
    const std::string result = equations_.Result(equation);
    if (!result.empty() && result != numbers) lines.push_back("So  " + result + '.');
  }
  const bool together = !step.Equations.empty() && step.Equations.front().Use == BalanceUse::SolvesTogether;
  if (!together) return;
  for (std::string& line : equations_.Together(step.Equations[0], step.Equations[1], step.Solved))
    lines.push_back(std::move(line));
}

HandStepText HandText::Reactions(const HandStep& step) const {
  const bool all = static_cast<int>(step.Joints.size()) == graph_.NumJoints();
  HandStepText text{"Reactions", {}};
  const std::vector<int> known = KnownIn(step);
  const std::string again = known.empty() ? ""
                                          : " once more, now that " + names_.Forces(known) +
                                                (known.size() == 1 ? " is known" : " are known");
  text.Lines.push_back("The balance of the " +
                       (all ? std::string("whole truss") : "part with " + names_.Joints(step.Joints)) +
                       again + '.');
  const std::string loads = LoadsInComponents(step.Joints);
  if (!loads.empty()) text.Lines.push_back(loads);
  AddEquations(step, text.Lines);
  if (!step.StillSought.empty() && !step.Contradicts) {
    const bool one = step.StillSought.size() == 1;
    text.Lines.push_back("This balance does not give " + names_.Forces(step.StillSought) +
                         (one ? " yet.  The joints and sections that follow may give it."
                              : ": none of its equations holds only one of them.  The joints and sections "
                                "that follow may give them."));
  }
  return text;
}

HandStepText HandText::ZeroForce(const HandStep& step) const {
  const std::string joint = names_.JointInWords(step.Joint);
  const std::vector<int> zeros = UnknownsOf(step.Solved);
  const std::string zero = names_.Forces(zeros);
  const std::string line = names_.Forces(step.InLine);
  const bool one = step.InLine.size() == 1;
  // Why members that meet there too do not count.
  const std::string left = step.LeftOut.empty() ? "" : " left";
  const std::string already =
      step.LeftOut.empty()
          ? ""
          : " (" + names_.Forces(step.LeftOut) + (step.LeftOut.size() == 1 ? " is" : " are") + " 0 already)";
  std::string why;
  switch (step.Rule) {
    case ZeroRule::Alone:
      why =
          "Only " + zero + " is left at " + joint + already + ", and no load acts there: it carries nothing.";
      break;
    case ZeroRule::TwoOutOfLine:
      why = zero + " are alone at " + joint + already +
            ", not in one line and without a load: neither carries anything.";
      break;
    case ZeroRule::ThirdOfThree:
      why = line + " lie in one line at " + joint + ", and no load acts there: " + zero +
            ", the only other member" + left + already + ", carries nothing.";
      break;
    case ZeroRule::LoadAlongOne:
      why = line + (one ? " lies" : " lie") + " in one line with " + WhatActsAt(step.Joint) + " at " + joint +
            ": " + zero + ", the only other member" + left + already + ", carries nothing.";
      break;
  }
  return {"Nothing in " + zero, {why}};
}

HandStepText HandText::Joint(const HandStep& step) const {
  HandStepText text{Capital(names_.JointInWords(step.Joint)), {}};
  const std::vector<int> found = UnknownsOf(step.Solved);
  if (found.empty() && step.PutAside.empty()) {
    text.Lines.emplace_back("No force is sought here any more: a check.");
  } else if (!found.empty()) {
    text.Lines.push_back("Sought:  " + WhatIsAssumed(found));
  }
  if (!step.LeftOut.empty()) {
    const bool one = step.LeftOut.size() == 1;
    text.Lines.push_back("Left out:  " + names_.Forces(step.LeftOut) +
                         (one ? ", which is 0." : ", which are 0."));
  }
  if (!step.PutAside.empty()) text.Lines.push_back(PutAside(step));
  const std::string loads = LoadsInComponents({step.Joint});
  if (!loads.empty()) text.Lines.push_back(loads);
  AddEquations(step, text.Lines);
  return text;
}

// Members push, and a reaction acts as its support's arrow points.
std::string HandText::WhatIsAssumed(const std::vector<int>& sought) const {
  std::vector<int> members;
  std::string reactions;
  for (const int k : sought) {
    const PlacedUnknown& unknown = graph_.Unknowns[k];
    if (unknown.IsMember()) {
      members.push_back(k);
    } else {
      reactions += (reactions.empty() ? "" : "; ") + names_.Force(k) + ", assumed to act " +
                   DirectionOfReaction(unknown, 1);
    }
  }
  std::string text = members.empty() ? "" : names_.Forces(members) + ", assumed to push into the joint";
  if (!members.empty() && !reactions.empty()) text += "; ";
  return text + reactions + '.';
}

// Why the equation leaves one force alone.
std::string HandText::PutAside(const HandStep& step) const {
  const BalanceEquation& equation = step.Equations.front();
  const std::string aside = names_.Forces(step.PutAside);
  const bool one = step.PutAside.size() == 1;
  const std::string alone =
      step.Solved.empty() ? "" : ", which leaves " + names_.Force(step.Solved.front().Unknown) + " alone";
  if (equation.Kind == BalanceKind::Moment) {
    return aside + (one ? " passes through " : " meet in ") + names_.Point(equation.AtX, equation.AtY) +
           ", so their moment about it is 0" + alone + '.';
  }
  const char* component = equation.Kind == BalanceKind::X   ? " no horizontal component"
                          : equation.Kind == BalanceKind::Y ? " no vertical component"
                          : one                             ? " no component at right angles to itself"
                                                            : " no component at right angles to it";
  return aside + (one ? " has" : " lie in one direction and have") + component + alone + '.';
}

HandStepText HandText::Section(const HandStep& step) const {
  HandStepText text{"Section through " + names_.Forces(step.Cut), {}};
  if (step.Cut.empty()) text.Heading = "Part of the truss";
  text.Lines.push_back(
      "The part with " + names_.Joints(step.Joints) + " is looked at." +
      (step.Cut.empty()
           ? ""
           : "  The members that are cut act on it at their joints there, and are assumed to push."));
  if (!step.PutAside.empty()) text.Lines.push_back(PutAside(step));
  const std::string loads = LoadsInComponents(step.Joints);
  if (!loads.empty()) text.Lines.push_back(loads);
  AddEquations(step, text.Lines);
  return text;
}

HandStepText HandText::Together(const HandStep& step) const {
  const auto count = static_cast<int>(step.Unknowns.size());
  HandStepText text{Counted(count, "unknown force", "unknown forces") + " together", {}};
  text.Lines.push_back("No joint and no section leaves a single unknown force.  The equations of " +
                       names_.Joints(step.Joints) + " must be solved together for " +
                       names_.Forces(step.Unknowns) + ", as the matrix does.");
  if (step.Contradicts) {
    text.Lines.emplace_back("These equations contradict each other: no forces balance the loads.");
    return text;
  }
  if (step.Solved.size() < step.Unknowns.size()) {
    text.Lines.push_back("They determine " +
                         Counted(static_cast<int>(step.Solved.size()), "force", "forces") + ".");
  }
  for (const UnknownForce& force : step.Solved) text.Lines.push_back(equations_.Value(force) + '.');
  return text;
}

HandReport ReportByHand(const TrussGraph& graph, const HandSolution& solution, const Classification& shown,
                        const ReportFormat& format) {
  const HandText text(graph, solution, format);
  HandReport report;
  for (const HandStep& step : solution.Steps) report.Steps.push_back(text.Step(step));
  report.Closing = text.Closing(shown);
  return report;
}
