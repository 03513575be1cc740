#include "practice/Hints.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "explanation/Directions.h"
#include "explanation/byjoint/EquationText.h"

namespace {

// Which equations of a step are still to be solved; of two that are solved together both.
using OpenEquations = std::vector<const BalanceEquation*>;

class Hinter {
 public:
  Hinter(const TrussGraph& graph, const Table<Verdict>& verdicts, const DistinctNames& names,
         const ReportFormat& format)
      : graph_(graph), verdicts_(verdicts), names_(names), equations_(graph, names, format) {}

  bool IsOpen(int unknown) const {
    return verdicts_[unknown] != Verdict::Right && verdicts_[unknown] != Verdict::Close;
  }

  bool IsOpen(const HandStep& step) const {
    return std::ranges::any_of(step.Solved,
                               [this](const UnknownForce& force) { return IsOpen(force.Unknown); });
  }

  Hint About(const HandStep& step) const {
    switch (step.Kind) {
      case HandStepKind::ZeroForce:
        return ZeroForce(step);
      case HandStepKind::Together:
        return Together(step);
      case HandStepKind::Reactions:
        return {0, WithEquations("Begin with the balance of " + PartText(step) + ", which gives reactions.",
                                 step)};
      case HandStepKind::Section:
        return {0, WithEquations("No joint has few enough unknown forces.  Cut the truss through " +
                                     names_.Forces(step.Cut) + ", and look at the part with " +
                                     names_.Joints(step.Joints) + '.',
                                 step)};
      case HandStepKind::Joint:
        break;
    }
    return Joint(step);
  }

 private:
  std::string PartText(const HandStep& step) const {
    const bool all = static_cast<int>(step.Joints.size()) == graph_.NumJoints();
    return all ? "the whole truss" : "the part with " + names_.Joints(step.Joints);
  }

  OpenEquations EquationsToSolve(const HandStep& step) const {
    OpenEquations open;
    for (const BalanceEquation& equation : step.Equations) {
      if (equation.Use == BalanceUse::SolvesTogether) open.push_back(&equation);
      const bool isNext =
          equation.Use == BalanceUse::Solves && open.empty() && IsOpen(equation.Solved.Unknown);
      if (isNext) open.push_back(&equation);
    }
    return open;
  }

  // Where nothing else stands in an equation, or one force that is known and counts as much, the filled
  // equation would be the value.
  std::string FilledIn(const BalanceEquation& equation) const {
    const auto isSought = [](const BalanceTerm& term) { return term.IsSought; };
    const auto sought = std::ranges::find_if(equation.Terms, isSought);
    const auto numSought = std::ranges::count_if(equation.Terms, isSought);
    const auto numKnown = static_cast<std::ptrdiff_t>(equation.Terms.size()) - numSought;
    if (numSought == 1 && numKnown == 0)
      return "Nothing else stands in this equation: what must " + names_.Force(sought->Unknown) + " be?";
    const auto known = std::ranges::find_if_not(equation.Terms, isSought);
    const bool isAlone =
        numSought == 1 && numKnown == 1 && known->Unknown != 0 &&
        std::abs(std::abs(known->Factor) - std::abs(sought->Factor)) < 1e-9 * std::abs(sought->Factor);
    if (isAlone)
      return names_.Force(known->Unknown) + " you know; which sense must " + names_.Force(sought->Unknown) +
             " have?";
    return equations_.WithNumbers(equation);
  }

  // The equation in letters; where only one force stands in it, that says so.
  std::string InLetters(const BalanceEquation& equation) const {
    const std::string what = Capital(equations_.What(equation)) + ":  ";
    if (equation.Terms.size() != 1) return what + equations_.InLetters(equation);
    return what + "only " + names_.Force(equation.Terms.front().Unknown) + " stands in this.";
  }

  std::array<std::string, NumHintLevels> WithEquations(const std::string& where, const HandStep& step,
                                                       const std::string& acting = {}) const {
    std::string letters = acting;
    std::string numbers;
    for (const BalanceEquation* equation : EquationsToSolve(step)) {
      letters += (letters.empty() ? "" : "  ") + InLetters(*equation);
      numbers += (numbers.empty() ? "" : "  and  ") + FilledIn(*equation);
    }
    return {where, letters, numbers};
  }

  Hint Joint(const HandStep& step) const {
    std::vector<int> sought;
    for (const UnknownForce& force : step.Solved) sought.push_back(force.Unknown);
    const std::string where = "Take " + names_.JointInWords(step.Joint) + ": there only " +
                              names_.Forces(sought) + (sought.size() == 1 ? " is" : " are") + " to be found.";
    return {step.Joint, WithEquations(where, step, ActingText(step.Joint) + "  ")};
  }

  std::string ActingText(int joint) const {
    std::vector<int> acting;
    for (int k = 1; k <= graph_.NumUnknowns(); ++k) {
      const PlacedUnknown& unknown = graph_.Unknowns[k];
      if (unknown.JointA == joint || unknown.JointB == joint) acting.push_back(k);
    }
    const bool loaded =
        std::ranges::any_of(graph_.Loads, [&](const PlacedLoad& load) { return load.Joint == joint; });
    return "At " + names_.JointInWords(joint) + " act " + names_.Forces(acting) +
           (loaded ? ", and a load." : ".");
  }

  Hint ZeroForce(const HandStep& step) const {
    const std::string joint = names_.JointInWords(step.Joint);
    std::vector<int> zeros;
    for (const UnknownForce& force : step.Solved) zeros.push_back(force.Unknown);
    std::string what, how;
    switch (step.Rule) {
      case ZeroRule::Alone:
        what = "Only " + names_.Forces(zeros) + " is left there, and no load.";
        how = "What could balance it?";
        break;
      case ZeroRule::TwoOutOfLine:
        what = names_.Forces(zeros) + " are alone there, not in one line and without a load.";
        how = "Write the sum at right angles to one of them: what stands in it?";
        break;
      case ZeroRule::ThirdOfThree:
        what = names_.Forces(step.InLine) + " lie in one line there, and no load acts.";
        how = "Write the sum at right angles to this line: what stands in it?";
        break;
      case ZeroRule::LoadAlongOne:
        what = names_.Forces(step.InLine) + (step.InLine.size() == 1 ? " lies" : " lie") +
               " in one line with all else that acts there.";
        how = "Write the sum at right angles to this line: what stands in it?";
        break;
    }
    if (!step.LeftOut.empty())
      what += "  (" + names_.Forces(step.LeftOut) + (step.LeftOut.size() == 1 ? " carries" : " carry") +
              " nothing, as you have found.)";
    return {step.Joint, {"Look at " + joint + ", without reckoning.", what, how}};
  }

  Hint Together(const HandStep& step) const {
    return {0,
            {"No joint and no section leaves a single unknown force.",
             "Write the equations of " + names_.Joints(step.Joints) + ": they hang together.",
             "Solve them together for " + names_.Forces(step.Unknowns) + ", as the matrix does."}};
  }

  const TrussGraph& graph_;
  const Table<Verdict>& verdicts_;
  const DistinctNames& names_;
  EquationText equations_;
};

}  // namespace

std::optional<Hint> NextHint(const TrussGraph& graph, const HandSolution& solution,
                             const Table<Verdict>& verdicts, const DistinctNames& names,
                             const ReportFormat& format) {
  const Hinter hinter(graph, verdicts, names, format);
  const auto next =
      std::ranges::find_if(solution.Steps, [&](const HandStep& step) { return hinter.IsOpen(step); });
  if (next == solution.Steps.end()) return std::nullopt;
  return hinter.About(*next);
}
