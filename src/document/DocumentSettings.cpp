// Derived values are computed in double precision and rounded to single once.
#include "document/DocumentSettings.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "text/NumberText.h"

namespace {

float SingleOrZero(double value) {
  return std::abs(value) <= double{std::numeric_limits<float>::max()} ? static_cast<float>(value) : 0.0F;
}

}  // namespace

double ValueOf(const TaggedNumber& number) {
  return std::visit([](auto value) { return static_cast<double>(value); }, number);
}

std::string TaggedNumberText(const TaggedNumber& number, const std::string& decimalSeparator) {
  if (const auto* integer = std::get_if<std::int16_t>(&number)) return std::to_string(*integer);
  if (const auto* single = std::get_if<float>(&number)) return GeneralText(*single, decimalSeparator);
  return GeneralText(std::get<double>(number), decimalSeparator);
}

DerivedView DeriveView(const DocumentSettings& settings, const CanvasBounds& bounds) {
  const double xRange = double{settings.XMax} - double{settings.XMin};
  const double height = double{bounds.PixB} - double{bounds.PixT};
  const double width = double{bounds.PixR} - double{bounds.PixL};
  const double hatchSpacing = ValueOf(settings.HatchSpacing);

  DerivedView view;
  view.YMax = SingleOrZero(double{settings.YMin} + xRange * height / width);
  view.HatchCountX = SingleOrZero(xRange / hatchSpacing);
  view.HatchCountY = SingleOrZero((double{view.YMax} - double{settings.YMin}) / hatchSpacing);
  return view;
}

std::int16_t GridCount(float minimum, float maximum, float spacing) {
  if (spacing == 0) return 0;
  // The quotient is a single: 100 / 0.2 is 500 dots, although the single 0.2 is a little more than 0.2.
  const double count = std::trunc((maximum - minimum) / spacing);
  if (std::isnan(count)) return 0;
  constexpr double smallest = std::numeric_limits<std::int16_t>::min();
  constexpr double largest = std::numeric_limits<std::int16_t>::max();
  return static_cast<std::int16_t>(std::clamp(count, smallest, largest));
}
