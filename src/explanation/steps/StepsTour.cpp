#include "explanation/steps/StepsTour.h"

#include <algorithm>
#include <span>
#include <utility>

#include "explanation/steps/PivotWaits.h"
#include "explanation/steps/PlainElimination.h"

StepsTour::StepsTour(TrussGraph graph, SparseMatrix<double> equations, const Classification& shown,
                     Rounding rounding, const ReportFormat& format)
    : graph_(std::move(graph)),
      shown_(shown),
      rounding_(std::move(rounding)),
      story_(std::make_shared<const EliminationInSteps>(EliminateInSteps(std::move(equations)))),
      text_(graph_, *story_, shown_, rounding_, format) {
  if (story_->IsToldInSteps()) walk_.emplace(story_);
}

int StepsTour::NumPlaces() const {
  return walk_ ? walk_->NumViews() : static_cast<int>(story_->Pivots.size());
}

void StepsTour::GoTo(int place) {
  place_ = place;
  if (walk_) walk_->GoTo(place);
}

int StepsTour::NumOperations() const {
  return static_cast<int>(walk_ ? story_->Steps.size() : story_->Pivots.size());
}

std::string StepsTour::Title(int operation) const {
  const auto index = static_cast<std::size_t>(operation);
  if (!walk_) return std::to_string(operation + 1) + ".  " + text_.Pivot(story_->Pivots[index]);
  const std::string title = text_.Title(story_->Steps[index]);
  return operation == 0 ? title : std::to_string(operation) + ".  " + title;
}

bool StepsTour::IsPivot(int operation) const {
  return walk_ && story_->Steps[static_cast<std::size_t>(operation)].Kind == StepKind::Pivot;
}

int StepsTour::Operation() const { return walk_ ? static_cast<int>(walk_->View().Step) : place_; }

int StepsTour::PlaceOf(int operation) const {
  return walk_ ? walk_->PlaceOf(static_cast<std::size_t>(operation)) : operation;
}

std::string StepsTour::Position() const {
  if (NumPlaces() == 0) return "No pivot";
  if (!walk_) return "Pivot " + std::to_string(place_ + 1) + " of " + std::to_string(NumPlaces());
  if (Operation() == 0) return "The beginning";
  const std::string view = !Changes(walk_->Step().Kind) ? ""
                           : walk_->View().IsCarriedOut ? ", carried out"
                                                        : ", chosen";
  return "Step " + std::to_string(Operation()) + " of " + std::to_string(NumOperations() - 1) + view;
}

std::vector<std::string> StepsTour::Lines() const {
  if (walk_) return text_.View(walk_->View().Step, walk_->View().IsCarriedOut);
  if (NumPlaces() == 0) return {text_.OnlyPivots()};
  std::vector<std::string> lines = {Title(place_)};
  for (const std::string& line : {text_.RemarkOnPivot(place_ + 1), text_.OnlyPivots()}) {
    if (!line.empty()) lines.push_back(line);
  }
  return lines;
}

std::optional<int> StepsTour::PlaceOfPivot(int unknown) const {
  if (walk_) {
    const std::optional<std::size_t> step = StepOfPivot(*story_, unknown);
    return step ? std::optional(walk_->PlaceOf(*step)) : std::nullopt;
  }
  const auto found = std::ranges::find(story_->Pivots, unknown, &EliminationPivot::Column);
  if (found == story_->Pivots.end()) return std::nullopt;
  return static_cast<int>(found - story_->Pivots.begin());
}

std::string StepsTour::LongestNumber() const {
  constexpr double longAsAny = -8.888888888888888e-15;
  constexpr std::size_t mostLookedAt = 200'000;
  if (!walk_ ||
      story_->Steps.size() * static_cast<std::size_t>(story_->Equations.NumColumns()) > mostLookedAt)
    return text_.Number(longAsAny);
  std::string longest;
  const auto lookAt = [&](std::span<const double> numbers) {
    for (const double number : numbers) {
      std::string text = text_.Number(number);
      if (text.size() > longest.size()) longest = std::move(text);
    }
  };
  StepMatrix matrix(story_->Equations);
  for (int row = 1; row <= matrix.NumRows(); ++row) lookAt(matrix.Row(row));
  for (const EliminationStep& step : story_->Steps) {
    matrix.CarryOut(step);
    if (step.Kind == StepKind::Divide || step.Kind == StepKind::Clear) lookAt(matrix.Row(step.Row));
  }
  return longest;
}

std::size_t StepsTour::NumStepsDone() const {
  const StepView& view = walk_->View();
  return view.Step + (view.IsCarriedOut || !Changes(walk_->Step().Kind) ? 1 : 0);
}

std::string StepsTour::PivotLine(int unknown) const {
  if (walk_) return PivotOfUnknownText(text_, unknown, NumStepsDone());
  const std::optional<int> place = PlaceOfPivot(unknown);
  if (!place) return text_.Column(unknown) + " gets no pivot.";
  const EliminationPivot& pivot = story_->Pivots[static_cast<std::size_t>(*place)];
  return text_.Column(unknown) + " gets its pivot in " + text_.Row(pivot.Row) + ", as number " +
         std::to_string(*place + 1) + ".";
}
