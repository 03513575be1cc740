// What comes about with a step of the elimination: rows that decide, pivots that rounding has left or that
// are missing, and what the rows say in the end.
#include <algorithm>
#include <cmath>
#include <iterator>

#include "explanation/Directions.h"
#include "explanation/steps/StepText.h"

namespace {

constexpr std::size_t MostNamed = 12;

// For lists that are what the step is about.
constexpr std::size_t All = ~std::size_t{0};

}  // namespace

std::vector<std::string> StepText::Remarks(std::size_t index) const {
  std::vector<std::string> remarks;
  const EliminationStep& step = story_.Steps[index];
  if (step.Kind == StepKind::Pivot) {
    std::string remark = RemarkOnPivot(PivotNumber(index));
    if (!remark.empty()) remarks.push_back(std::move(remark));
  }
  if (step.Kind == StepKind::PivotsEnd) AddPivotsEnd(step, remarks);
  AddEmptied(index, remarks);
  if (step.Kind == StepKind::Read) AddReading(remarks);
  return remarks;
}

// 1 the first.
int StepText::PivotNumber(std::size_t index) const {
  const auto upTo = story_.Steps.begin() + static_cast<std::ptrdiff_t>(index) + 1;
  return static_cast<int>(std::count_if(
      story_.Steps.begin(), upTo, [](const EliminationStep& step) { return step.Kind == StepKind::Pivot; }));
}

std::string StepText::RemarkOnPivot(int number) const {
  return rounding_.OnPivot(number, Factor(story_.Pivots[static_cast<std::size_t>(number - 1)].Value));
}

void StepText::AddPivotsEnd(const EliminationStep& step, std::vector<std::string>& remarks) const {
  if (static_cast<int>(story_.Pivots.size()) == NumUnknowns()) return;
  if (step.Number != 0)
    remarks.emplace_back(
        "It is smaller than 1E-10 in magnitude and counts as a remnant of rounding: who divided by it "
        "would make large forces out of nothing.");
  std::string lost = rounding_.OnPivotsEnd(step.Number);
  if (!lost.empty()) remarks.push_back(std::move(lost));
  const bool fewer = static_cast<int>(story_.Pivots.size()) == story_.Equations.NumRows();
  remarks.push_back(WithoutPivot() + (fewer ? ": there are more unknowns than equations." : "."));
}

// Of the unknowns there are some.
std::string StepText::WithoutPivot() const {
  std::vector<bool> hasPivot(static_cast<std::size_t>(NumUnknowns()) + 1);
  for (const EliminationPivot& pivot : story_.Pivots) hasPivot[static_cast<std::size_t>(pivot.Column)] = true;
  std::vector<int> without;
  for (int k = 1; k <= NumUnknowns(); ++k) {
    if (!hasPivot[static_cast<std::size_t>(k)]) without.push_back(k);
  }
  return names_.ForcesAtStart(without, All) + (without.size() == 1 ? " gets" : " get") + " no pivot";
}

std::string StepText::RowsOf(const std::vector<EmptiedRow>& emptied) const {
  std::vector<std::string> list;
  list.reserve(emptied.size());
  for (const EmptiedRow& row : emptied) list.push_back(Row(row.Row));
  return ListOf(list, MostNamed);
}

void StepText::AddEmptied(std::size_t index, std::vector<std::string>& remarks) const {
  const std::string left = index == 0 ? "" : " left";
  std::vector<EmptiedRow> zeros;
  for (const EmptiedRow& emptied : story_.Emptied) {
    if (emptied.Step != index) continue;
    if (!emptied.Contradicts()) {
      zeros.push_back(emptied);
    } else if (remarks.size() < MostNamed) {
      const std::string number = Number(emptied.RightHandSide);
      std::string doubt = rounding_.OnContradiction(emptied.RightHandSide, number);
      remarks.push_back(Row(emptied.Row) + " has no coefficient" + left + ", and " + number +
                        " on its right: it says 0 = " + number +
                        ".  No forces can make that true.  This row decides that there is no solution." +
                        (doubt.empty() ? "" : "  " + doubt));
    }
  }
  if (zeros.empty()) return;
  const bool one = zeros.size() == 1;
  const double rightHandSide = zeros.front().RightHandSide;
  const std::string small =
      one && rightHandSide != 0
          ? " (" + Number(rightHandSide) + " is smaller than 1E-10 in magnitude and will be cleaned)"
          : "";
  const bool contradicted = std::ranges::any_of(story_.Emptied, &EmptiedRow::Contradicts);
  remarks.push_back(
      RowsOf(zeros) + (one ? " has" : " have") + " no coefficient" + left + ", and 0 on the right" + small +
      ": 0 = 0.  " + (one ? "It says" : "They say") + " nothing that the other equations do not say" +
      (contradicted ? "." : std::string(", and ") + (one ? "makes" : "make") + " the system redundant."));
}

void StepText::AddReading(std::vector<std::string>& remarks) const {
  const std::vector<EmptiedRow> deciding = story_.DecidingRows(story_.Steps.size() - 1);
  const bool one = deciding.size() == 1;
  if (!deciding.empty() && deciding.front().Contradicts()) {
    remarks.push_back(RowsOf(deciding) + (one ? " has" : " have") +
                      " no coefficient left and something else than 0 on the right, and " +
                      (one ? "decides" : "decide") + " the conclusion.");
    remarks.emplace_back(InconsistentText);
  } else {
    AddValues(remarks);
    if (!deciding.empty()) {
      remarks.push_back(RowsOf(deciding) + (one ? " says 0 = 0 and decides" : " say 0 = 0 and decide") +
                        " the conclusion.");
      remarks.emplace_back(RedundantText);
    }
  }
  std::string worth = rounding_.OnReading();
  if (!worth.empty()) remarks.push_back(std::move(worth));
}

// Those that do not hold, or are not determined, apart from those that are.
void StepText::AddValues(std::vector<std::string>& remarks) const {
  std::vector<std::string> values;
  std::vector<std::string> wrong;
  std::vector<int> undetermined;
  for (int k = 1; k <= NumUnknowns(); ++k) {
    if (shown_.Values[k]) {
      (rounding_.Holds(k) ? values : wrong).push_back(Column(k) + " = " + Number(*shown_.Values[k]));
    } else {
      undetermined.push_back(k);
    }
  }
  const std::string single = "A row whose only coefficient is a 1 says what the unknown of that column is";
  if (!values.empty()) remarks.push_back(single + ": " + ListOf(values, All) + ".");
  if (!wrong.empty()) {
    const bool one = wrong.size() == 1;
    remarks.push_back((values.empty() ? single + ".  But t" : "T") + (one ? "his value " : "hese values ") +
                      rounding_.WhatFails(one) + ": " + ListOf(wrong, All) + ".");
  }
  if (!undetermined.empty())
    remarks.push_back("No row has a single coefficient for " + names_.Forces(undetermined, All) + ", which " +
                      (undetermined.size() == 1 ? "stays" : "stay") + " undetermined.");
}
