#include "explanation/steps/StepLines.h"

#include <algorithm>
#include <utility>

namespace {

std::string WithNumber(std::size_t number, const std::string& text) {
  return std::to_string(number) + ".  " + text;
}

void AddStep(const StepText& text, std::size_t index, std::vector<StepLine>& lines) {
  const EliminationStep& step = text.Story().Steps[index];
  const std::string sentence = text.Sentence(step, false);
  const std::string shortForm = text.ShortForm(step);
  if (index == 0) {
    lines.push_back({StepLineKind::Text, sentence});
  } else {
    lines.push_back({step.Kind == StepKind::Pivot ? StepLineKind::Pivot : StepLineKind::Operation,
                     WithNumber(index, sentence + (shortForm.empty() ? "" : "   " + shortForm))});
  }
  for (std::string& remark : text.Remarks(index)) lines.push_back({StepLineKind::Remark, std::move(remark)});
}

void AddPivot(const StepText& text, std::size_t number, std::vector<StepLine>& lines) {
  lines.push_back({StepLineKind::Operation, WithNumber(number, text.Pivot(text.Story().Pivots[number - 1]))});
  std::string remark = text.RemarkOnPivot(static_cast<int>(number));
  if (!remark.empty()) lines.push_back({StepLineKind::Remark, std::move(remark)});
}

void AddPivots(const StepText& text, std::size_t most, std::vector<StepLine>& lines) {
  const std::vector<EliminationPivot>& pivots = text.Story().Pivots;
  const std::size_t told = std::min(most, pivots.size());
  for (std::size_t number = 1; number <= told; ++number) AddPivot(text, number, lines);
  if (told < pivots.size())
    lines.push_back({StepLineKind::Text, "And " + std::to_string(pivots.size() - told) +
                                             " more pivots, which would fill too many pages."});
}

}  // namespace

std::vector<StepLine> StepLines(const StepText& text, const StepsRoom& room) {
  std::vector<StepLine> lines;
  const EliminationInSteps& story = text.Story();
  if (!story.IsToldInSteps()) {
    lines.push_back({StepLineKind::Text, text.OnlyPivots()});
    AddPivots(text, room.Pivots, lines);
    return lines;
  }
  for (std::string& sentence : StepText::Introduction())
    lines.push_back({StepLineKind::Text, std::move(sentence)});
  if (story.Steps.size() <= room.Steps) {
    for (std::size_t index = 0; index < story.Steps.size(); ++index) AddStep(text, index, lines);
    return lines;
  }
  lines.push_back({StepLineKind::Text,
                   "The elimination has " + std::to_string(story.Steps.size() - 1) +
                       " steps, which would fill too many pages: only the pivots follow, each by its row, "
                       "its column and its number.  The program shows every step under Learn."});
  AddPivots(text, room.Pivots, lines);
  for (std::string& remark : text.Remarks(story.Steps.size() - 1))
    lines.push_back({StepLineKind::Text, std::move(remark)});
  return lines;
}

std::vector<std::string> PlainStepLines(const StepText& text) {
  std::vector<std::string> plain;
  for (StepLine& line : StepLines(text, StepsWithoutEnd)) {
    if (line.Kind == StepLineKind::Pivot) plain.emplace_back();
    plain.push_back(line.Kind == StepLineKind::Remark ? "    " + line.Text : std::move(line.Text));
  }
  return plain;
}
