#include "explanation/SureFigures.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace {

double SizeOf(const ComparedForce& force) {
  return std::max(std::abs(force.Shown), std::abs(force.Unrounded));
}

double DifferenceOf(const ComparedForce& force) { return std::abs(force.Shown - force.Unrounded); }

// How much of the last of so many figures two values differ by.
double DifferenceInLastFigure(const ComparedForce& force, int figures) {
  const double unit = std::pow(10.0, std::floor(std::log10(SizeOf(force))) - figures + 1);
  return DifferenceOf(force) / unit;
}

// The figures of a value lie within a fifth of the last of them.
constexpr double Sure = 0.2;

// Whether every figure that is shown is sure. What lies at the edge between two roundings may be shown
// differently for next to no difference.
bool AreAllSure(const ComparedForce& force, const ReportFormat& format) {
  constexpr double edge = 0.01;
  const std::string shown = FormatSigFigs(force.Shown, format);
  const bool areAlike = shown == FormatSigFigs(force.Unrounded, format);
  if (areAlike && shown == "0") return true;
  return DifferenceInLastFigure(force, SureFigures::ShownFigures(format)) < (areAlike ? Sure : edge);
}

// Of a force that is not 0.
bool IsShownAsZero(const ComparedForce& force, const ReportFormat& format) {
  return force.Unrounded != 0 && FormatSigFigs(force.Shown, format) == "0" &&
         FormatSigFigs(force.Unrounded, format) == "0";
}

// Beyond those that are shown only where all of these are sure.
int FiguresOfForce(const ComparedForce& force, const ReportFormat& format) {
  const auto mostBy = [&force](int figures) {
    while (figures > 0 && !(DifferenceInLastFigure(force, figures) < Sure)) --figures;
    return figures;
  };
  if (DifferenceOf(force) == 0) return MostSureFigures;
  if (IsShownAsZero(force, format)) return mostBy(MostSureFigures);
  const int shown = SureFigures::ShownFigures(format);
  const int ofShown = SureFiguresOf(force, format);
  return ofShown < shown ? ofShown : std::max(shown, mostBy(MostSureFigures));
}

double ErrorOf(const ComparedForce& force) { return DifferenceOf(force) / SizeOf(force); }

}  // namespace

int SureFiguresOf(const ComparedForce& force, const ReportFormat& format) {
  int figures = SureFigures::ShownFigures(format);
  if (AreAllSure(force, format)) return figures;
  do --figures;
  while (figures > 0 && DifferenceInLastFigure(force, figures) >= Sure);
  return figures;
}

// The bounds of FormatSigFigs.
int SureFigures::ShownFigures(const ReportFormat& format) { return std::clamp(format.SigFigs, 1, 17); }

std::optional<int> FiguresOfLargest(const std::vector<ComparedForce>& forces) {
  if (forces.empty()) return std::nullopt;
  double largest = 0;
  double difference = 0;
  for (const ComparedForce& force : forces) {
    largest = std::max(largest, std::abs(force.Unrounded));
    difference = std::max(difference, DifferenceOf(force));
  }
  if (difference == 0) return MostSureFigures;
  if (largest == 0 || !std::isfinite(difference)) return 0;
  return static_cast<int>(
      std::clamp(std::floor(-std::log10(difference / largest)), 0.0, double{MostSureFigures}));
}

std::string FirstFigures(int count) {
  return count == 1 ? "the first figure" : "the first " + std::to_string(count) + " figures";
}

std::string AtLength(double value, const ReportFormat& format) {
  ReportFormat longer = format;
  longer.SigFigs = SureFigures::ShownFigures(format) + 2;
  return FormatSigFigs(value, longer);
}

std::optional<int> LeastSureFigures(const std::vector<ComparedForce>& forces, const ReportFormat& format) {
  if (forces.empty()) return std::nullopt;
  int least = MostSureFigures;
  bool areAll0 = true;
  for (const ComparedForce& force : forces) {
    if (force.Unrounded == 0) continue;
    areAll0 = false;
    least = std::min(least, FiguresOfForce(force, format));
  }
  if (areAll0) return FiguresOfLargest(forces);
  const int told = JudgeFigures(forces, format).Count;
  return told < SureFigures::ShownFigures(format) ? std::min(least, told) : least;
}

SureFigures JudgeFigures(const std::vector<ComparedForce>& allForces, const ReportFormat& format) {
  constexpr double small = 1e-3;  // of the largest force
  SureFigures sure;
  sure.Count = SureFigures::ShownFigures(format);
  std::vector<ComparedForce> forces;
  for (const ComparedForce& force : allForces) {
    if (IsShownAsZero(force, format)) {
      sure.ShownAsZero.push_back(force.Unknown);
    } else {
      forces.push_back(force);
    }
  }
  if (forces.empty()) return sure;
  double largest = 0;
  for (const ComparedForce& force : forces) largest = std::max(largest, SizeOf(force));
  std::vector<std::pair<ComparedForce, int>> smallOnes;
  for (const ComparedForce& force : forces) {
    const int figures = SureFiguresOf(force, format);
    if (SizeOf(force) < small * largest) {
      smallOnes.emplace_back(force, figures);
      continue;
    }
    const bool isWorse = figures < sure.Count;
    if (isWorse || (sure.Example && figures == sure.Count && ErrorOf(force) > ErrorOf(*sure.Example)))
      sure.Example = force;
    sure.Count = std::min(sure.Count, figures);
  }
  if (const int ofLargest = *FiguresOfLargest(forces); ofLargest < sure.Count) {
    sure.Count = ofLargest;
    sure.Example = std::ranges::max(forces, {}, DifferenceOf);
  }
  sure.CountOfSmall = sure.Count;
  for (const auto& [force, figures] : smallOnes) {
    if (figures >= sure.Count) continue;
    (figures == 0 ? sure.Remnants : sure.SmallUnknowns).push_back(force.Unknown);
    if (figures > 0) sure.CountOfSmall = std::min(sure.CountOfSmall, figures);
  }
  return sure;
}
