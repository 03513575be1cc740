#include "practice/Verdicts.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double Remnant = 1e-6;

bool IsWithin(double difference, double bound) { return std::abs(difference) <= bound * (1 + Remnant); }

// By how many powers of ten a value is too large; 0 when it is not that.
bool IsPowerOff(double given, double solution) {
  if (given == 0 || (given < 0) != (solution < 0)) return false;
  const double power = std::round(std::log10(given / solution));
  return power != 0 && IsWithin(given / std::pow(10, power) - solution, RightWithin * std::abs(solution));
}

}  // namespace

const char* VerdictWord(Verdict verdict) {
  switch (verdict) {
    case Verdict::Empty:
      return "empty";
    case Verdict::Right:
      return "right";
    case Verdict::Close:
      return "close";
    case Verdict::Sense:
      return "sense";
    case Verdict::Power:
      return "power";
    case Verdict::Wrong:
      break;
  }
  return "wrong";
}

bool IsNoForce(double solution, double largest) { return std::abs(solution) <= Remnant * largest; }

Verdict JudgeValue(std::optional<double> given, double solution, double largest) {
  if (!given) return Verdict::Empty;
  if (IsNoForce(solution, largest)) {
    const double right = ZeroWithin * largest;
    if (IsWithin(*given, right)) return Verdict::Right;
    return IsWithin(*given, right * CloseWithin / RightWithin) ? Verdict::Close : Verdict::Wrong;
  }
  const double size = std::abs(solution);
  if (IsWithin(*given - solution, RightWithin * size)) return Verdict::Right;
  if (IsWithin(*given - solution, CloseWithin * size)) return Verdict::Close;
  if (IsWithin(*given + solution, RightWithin * size)) return Verdict::Sense;
  return IsPowerOff(*given, solution) ? Verdict::Power : Verdict::Wrong;
}

double LargestOf(const ForceValues& values) {
  double largest = 0;
  for (const std::optional<double>& value : values.First(values.Size()))
    largest = std::max(largest, std::abs(value.value_or(0)));
  return largest;
}

Table<Verdict> Judge(const ForceValues& given, const ForceValues& solutions) {
  const double largest = LargestOf(solutions);
  Table<Verdict> verdicts(solutions.Size());
  for (int k = 1; k <= solutions.Size(); ++k)
    verdicts[k] = solutions[k] ? JudgeValue(given[k], *solutions[k], largest) : Verdict::Empty;
  return verdicts;
}

bool CountsTensionPositive(const TrussGraph& graph, const Table<Verdict>& verdicts,
                           const ForceValues& solutions) {
  const double largest = LargestOf(solutions);
  int numTurned = 0;
  for (int k = 1; k <= verdicts.Size(); ++k) {
    const bool carries = solutions[k] && !IsNoForce(*solutions[k], largest);
    if (!graph.Unknowns[k].IsMember() || !carries || verdicts[k] == Verdict::Empty) continue;
    if (verdicts[k] != Verdict::Sense) return false;
    ++numTurned;
  }
  return numTurned >= 2;
}

ForceValues WithMembersTurned(const TrussGraph& graph, ForceValues values) {
  for (int k = 1; k <= values.Size(); ++k) {
    if (graph.Unknowns[k].IsMember() && values[k]) values[k] = -*values[k];
  }
  return values;
}
