// What the steps found, and how it compares with the solutions that the reduced matrix shows.
#include <algorithm>

#include "explanation/Directions.h"
#include "explanation/SureFigures.h"
#include "explanation/byjoint/HandText.h"

namespace {

// Wherever what is found by hand and what the reduced matrix shows are not the same.
constexpr const char* ReadOnWhy = "See \"Why this conclusion\".";

bool HasValues(const Classification& shown) {
  return std::ranges::any_of(shown.Values.First(shown.Values.Size()),
                             [](const std::optional<double>& value) { return value.has_value(); });
}

}  // namespace

std::vector<std::string> HandText::Closing(const Classification& shown) const {
  std::vector<std::string> lines;
  std::vector<int> open;
  for (int k = 1; k <= solution_.Values.Size(); ++k) {
    if (!solution_.Values[k]) open.push_back(k);
  }
  if (solution_.Contradicts()) {
    lines.emplace_back(
        "The equations contradict each other, so no forces balance the loads.  The values found before that "
        "satisfy only the equations from which they come.");
    if (!open.empty()) lines.push_back("Not found:  " + names_.Forces(open, 24) + ".");
    if (shown.Code != Outcome::Inconsistent)
      lines.push_back(
          "The reduced matrix does not say so, because its directions are rounded to single precision" +
          std::string(HasValues(shown) ? ": exactly, the solutions that it gives balance nothing" : "") +
          ".  " + ReadOnWhy);
    return lines;
  }
  if (open.empty()) {
    lines.emplace_back("Every force is found.");
  } else {
    lines.push_back("The equations do not determine " + names_.Forces(open, 24) + ".");
  }
  AddAgreement(shown, lines);
  if (!solution_.AllSectionsSought)
    lines.emplace_back("The truss is too large for every section to be tried; there may be more of them.");
  return lines;
}

// Where the reduced matrix finds other forces: which, and why. What it shows for forces that are left open is
// one of many states that balance the loads.
void HandText::AddOtherForces(const Classification& shown, std::vector<std::string>& lines) const {
  std::vector<int> hidden;
  std::vector<int> open;
  for (int k = 1; k <= solution_.Values.Size(); ++k) {
    if (solution_.Values[k] && !shown.Values[k]) hidden.push_back(k);
    if (!solution_.Values[k] && shown.Values[k]) open.push_back(k);
  }
  const std::string because =
      std::string(", because its directions are rounded to single precision.  ") + ReadOnWhy;
  if (!hidden.empty())
    lines.push_back("The reduced matrix leaves " + names_.Forces(hidden) + " open" + because);
  if (!open.empty()) {
    lines.push_back("For " + names_.Forces(open) + " the reduced matrix shows " +
                    (open.size() == 1 ? "a number that is" : "numbers that are") + " not determined" +
                    because);
  }
}

void HandText::AddAgreement(const Classification& shown, std::vector<std::string>& lines) const {
  if (shown.Code == Outcome::Inconsistent) {
    lines.emplace_back(
        std::string("The reduced matrix says that there is no solution, because its directions are rounded "
                    "to single precision.  ") +
        ReadOnWhy);
    return;
  }
  AddOtherForces(shown, lines);
  const std::string agreement = Agreement(shown);
  if (!agreement.empty()) lines.push_back(agreement);
}

std::string HandText::Agreement(const Classification& shown) const {
  std::vector<ComparedForce> forces;
  bool areAlike = true;
  for (int k = 1; k <= solution_.Values.Size(); ++k) {
    const std::optional<double>& value = solution_.Values[k];
    if (!value || !shown.Values[k]) continue;
    forces.push_back({.Unknown = k, .Shown = *shown.Values[k], .Unrounded = *value});
    areAlike = areAlike && FormatSigFigs(*value, format_) == FormatSigFigs(*shown.Values[k], format_);
  }
  if (forces.empty()) return {};
  const std::string solutions = "the solutions that the reduced matrix gives";
  if (areAlike) return "The values agree with " + solutions + '.';
  const SureFigures sure = JudgeFigures(forces, format_);
  if (sure.AreAll(format_)) {
    return "The values agree with " + solutions +
           "; a last figure may differ where a value lies at the edge between two roundings.";
  }
  std::string text = "The values agree with " + solutions;
  if (sure.Example) {
    text = (sure.Count == 0 ? "No figure of the largest values agrees with " + solutions
                            : text + " only in " + FirstFigures(sure.Count)) +
           ": " + names_.Force(sure.Example->Unknown) + " is " + AtLength(sure.Example->Unrounded, format_) +
           " here and " + AtLength(sure.Example->Shown, format_) + " there";
  }
  std::vector<std::string> small;
  if (!sure.SmallUnknowns.empty())
    small.push_back(names_.Forces(sure.SmallUnknowns) + " only in " + FirstFigures(sure.CountOfSmall));
  if (!sure.Remnants.empty()) small.push_back(names_.Forces(sure.Remnants) + " in none");
  if (!small.empty())
    text += (sure.Example ? "; the small ones less: " : ", but the small ones less: ") + ListOf(small);
  return text + ", because its directions are rounded to single precision.";
}
