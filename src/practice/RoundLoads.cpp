#include "practice/RoundLoads.h"

#include <cmath>
#include <optional>
#include <string>

#include "text/DecimalDigits.h"
#include "text/NumberText.h"

namespace {

// A number of the form Count times 1 or 5 times a power of ten.
struct Step {
  int Mantissa = 1;
  int Exponent = 0;

  double Size() const { return Mantissa * std::pow(10.0, Exponent); }
  Step Finer() const { return Mantissa == 5 ? Step{1, Exponent} : Step{5, Exponent - 1}; }
};

// The single that this many steps are; nothing beyond the range of singles.
std::optional<float> SingleOf(int count, const Step& step) {
  return ReadSingle(std::to_string(count * step.Mantissa) + "E" + std::to_string(step.Exponent));
}

constexpr double FewestSteps = 8;

// The coarsest step of which the size holds at least FewestSteps.
Step CoarsestStep(double size) {
  Step step{1, DecimalDigits::Of(size).Exponent};
  while (size / step.Size() < FewestSteps * (1 - 1e-9)) step = step.Finer();
  return step;
}

float AlongAxis(float load, int level, SeededNumbers& numbers) {
  const double size = std::abs(static_cast<double>(load));
  Step step = CoarsestStep(size);
  for (int i = 0; i < level; ++i) step = step.Finer();
  const int lowest = static_cast<int>(std::ceil(size / 2 / step.Size() - 1e-9));
  const int highest = static_cast<int>(std::floor(size * 2 / step.Size() + 1e-9));
  const std::optional<float> value = SingleOf(lowest + numbers.Below(highest - lowest + 1), step);
  if (!value) return load;
  return load < 0 ? -*value : *value;
}

float InThreeFigures(double value, float ifTooLarge) {
  DecimalDigits digits = DecimalDigits::Of(value);
  digits.RoundToSignificant(3);
  return ReadSingle(PlainText(digits, ".")).value_or(ifTooLarge);
}

}  // namespace

double RoundRatio(int level, SeededNumbers& numbers) { return AlongAxis(1, level, numbers); }

RoundLoad Scaled(const RoundLoad& load, double ratio) {
  return {InThreeFigures(ratio * static_cast<double>(load.Fx), load.Fx),
          InThreeFigures(ratio * static_cast<double>(load.Fy), load.Fy)};
}

RoundLoad RoundLoadLike(const RoundLoad& load, int level, SeededNumbers& numbers) {
  if (load.Fx == 0 && load.Fy == 0) return load;
  if (load.Fy == 0) return {AlongAxis(load.Fx, level, numbers), 0};
  if (load.Fx == 0) return {0, AlongAxis(load.Fy, level, numbers)};
  return Scaled(load, RoundRatio(level, numbers));
}
