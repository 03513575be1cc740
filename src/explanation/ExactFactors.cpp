#include "explanation/ExactFactors.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <optional>
#include <utility>

#include "explanation/At.h"
#include "explanation/ModularElimination.h"
#include "explanation/RigidityMatrix.h"

namespace {

__extension__ using Signed128 = __int128;

constexpr std::int64_t LargestExact = std::int64_t{1} << 53U;

// The motion by component, each divided by the component `reference`; empty when it is not the only one.
template <class Field>
std::vector<std::uint64_t> ProportionsIn(const TrussGraph& graph, const Motion& motion,
                                         std::size_t reference) {
  std::map<int, int> componentOf;  // by column of the graph
  for (const JointDisplacement& at : motion.Joints) {
    const int first = static_cast<int>(componentOf.size());
    componentOf[ColumnOf(at.Joint, Axis::X)] = first;
    componentOf[ColumnOf(at.Joint, Axis::Y)] = first + 1;
  }
  std::vector<ModularRow> rows;
  for (const ModularRow& row : ExactRigidityRows<Field>(graph)) {
    ModularRow part;
    for (const ModularEntry& entry : row) {
      const auto found = componentOf.find(entry.Column);
      if (found != componentOf.end()) part.push_back({found->second, entry.Value});
    }
    if (!part.empty()) rows.push_back(std::move(part));
  }
  const auto space = NullSpaceOf<Field>(std::move(rows), static_cast<int>(componentOf.size()));
  if (space.Vectors.size() != 1) return {};
  std::vector<std::uint64_t> values(componentOf.size());
  for (const ModularEntry& entry : space.Vectors.front()) values[At(entry.Column)] = entry.Value;
  if (values[reference] == 0) return {};
  const std::uint64_t inverse = Field::Inverse(values[reference]);
  for (std::uint64_t& value : values) value = Field::Multiply(value, inverse);
  return values;
}

struct Fraction {
  std::int64_t Numerator = 0, Denominator = 1;
};

// The fraction with these residues, when there is one with a numerator and a denominator below 2^53.
std::optional<Fraction> FractionOf(std::uint64_t first, std::uint64_t second) {
  constexpr Signed128 p = FirstField::Prime;
  constexpr Signed128 q = SecondField::Prime;
  // The residue modulo p * q, below 2^122.
  const std::uint64_t inverse = SecondField::Inverse(FirstField::Prime % SecondField::Prime);
  const std::uint64_t more =
      SecondField::Multiply(SecondField::Subtract(second, first % SecondField::Prime), inverse);
  // By Euclid's algorithm, which is ended half way.
  Signed128 before = p * q;
  Signed128 rest = Signed128{first} + p * Signed128{more};
  Signed128 factorBefore = 0;
  Signed128 factor = 1;
  while (rest >= LargestExact) {
    const Signed128 quotient = before / rest;
    before = std::exchange(rest, before - quotient * rest);
    factorBefore = std::exchange(factor, factorBefore - quotient * factor);
  }
  if (factor == 0 || factor >= LargestExact || factor <= -LargestExact) return std::nullopt;
  const auto numerator = static_cast<std::int64_t>(factor < 0 ? -rest : rest);
  const auto denominator = static_cast<std::int64_t>(factor < 0 ? -factor : factor);
  return Fraction{numerator, denominator};
}

// Nothing when it is too large for a double.
std::optional<std::int64_t> ProductForDouble(std::int64_t a, std::int64_t b) {
  const Signed128 product = Signed128{a} * b;
  if (product >= LargestExact || product <= -LargestExact) return std::nullopt;
  return static_cast<std::int64_t>(product);
}

}  // namespace

std::vector<std::int64_t> ExactProportions(const TrussGraph& graph, const Motion& motion) {
  std::vector<double> components;
  for (const JointDisplacement& at : motion.Joints) {
    components.push_back(at.Dx);
    components.push_back(at.Dy);
  }
  const auto largest = std::ranges::max_element(components, {}, [](double at) { return std::abs(at); });
  const auto reference = static_cast<std::size_t>(largest - components.begin());
  const auto first = ProportionsIn<FirstField>(graph, motion, reference);
  const auto second = ProportionsIn<SecondField>(graph, motion, reference);
  if (first.empty() || second.empty()) return {};
  std::vector<Fraction> fractions;
  std::int64_t common = 1;
  for (std::size_t i = 0; i < components.size(); ++i) {
    const std::optional<Fraction> fraction = FractionOf(first[i], second[i]);
    if (!fraction) return {};
    fractions.push_back(*fraction);
    const std::optional<std::int64_t> multiple =
        ProductForDouble(common, fraction->Denominator / std::gcd(common, fraction->Denominator));
    if (!multiple) return {};
    common = *multiple;
  }
  std::vector<std::int64_t> whole;
  for (const Fraction& fraction : fractions) {
    const std::optional<std::int64_t> number =
        ProductForDouble(fraction.Numerator, common / fraction.Denominator);
    if (!number) return {};
    whole.push_back(*largest < 0 ? -*number : *number);
  }
  std::int64_t divisor = 0;
  for (const std::int64_t number : whole) divisor = std::gcd(divisor, number);
  for (std::int64_t& number : whole) number /= divisor;
  return whole;
}
