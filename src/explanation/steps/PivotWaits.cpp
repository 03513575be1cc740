#include "explanation/steps/PivotWaits.h"

#include <algorithm>

#include "explanation/Directions.h"

std::optional<std::size_t> StepOfPivot(const EliminationInSteps& story, int unknown) {
  const auto found = std::ranges::find_if(story.Steps, [&](const EliminationStep& step) {
    return step.Kind == StepKind::Pivot && step.Column == unknown;
  });
  if (found == story.Steps.end()) return std::nullopt;
  return static_cast<std::size_t>(found - story.Steps.begin());
}

std::vector<AwaitedPivot> AwaitedBy(const EliminationInSteps& story, std::size_t stepOfPivot,
                                    std::size_t from) {
  std::vector<AwaitedPivot> awaited;
  const int row = story.Steps[stepOfPivot].Row;
  for (std::size_t index = std::max(stepOfPivot, from); index < story.Steps.size(); ++index) {
    const EliminationStep& step = story.Steps[index];
    if (step.Kind == StepKind::Clear && step.Row == row) awaited.push_back({step.Column, index});
  }
  return awaited;
}

std::string PivotOfUnknownText(const StepText& text, int unknown, std::size_t from) {
  const EliminationInSteps& story = text.Story();
  const std::string name = text.Column(unknown);
  const std::optional<std::size_t> pivot = StepOfPivot(story, unknown);
  if (!pivot) return name + " gets no pivot.";
  const bool isChosen = from > *pivot;
  const std::string has = name + (isChosen ? " has" : " gets") + " its pivot in " +
                          text.Row(story.Steps[*pivot].Row) + " (step " + std::to_string(*pivot) + ").";
  std::vector<std::string> awaited;
  for (const AwaitedPivot& one : AwaitedBy(story, *pivot, from))
    awaited.push_back(text.Column(one.Unknown) + " (step " + std::to_string(one.Step) + ")");
  if (awaited.empty())
    return has + (isChosen ? "  That row waits for nothing more." : "  That row then waits for nothing.");
  return has + (isChosen ? "  That row still waits for " : "  That row then waits for ") + ListOf(awaited) +
         " to go out of it.";
}
