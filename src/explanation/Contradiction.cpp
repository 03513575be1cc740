#include "explanation/Contradiction.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numeric>

#include "explanation/ExactFactors.h"
#include "explanation/RigidityMatrix.h"

namespace {

constexpr std::int64_t LargestFactor = 9999;

// The smallest denominator of a fraction that is the ratio, as far as doubles can tell; 0 when there is none.
std::int64_t DenominatorOf(double ratio) {
  double rest = std::abs(ratio);
  std::int64_t before = 1;
  std::int64_t denominator = 0;
  for (int step = 0; step < 20; ++step) {
    const double whole = std::floor(rest + 1e-9);
    const std::int64_t next = static_cast<std::int64_t>(whole) * denominator + before;
    before = std::exchange(denominator, next);
    if (denominator > LargestFactor) return 0;
    const double part = rest - whole;
    const double scaled = std::abs(ratio) * static_cast<double>(denominator);
    if (std::abs(scaled - std::round(scaled)) < 1e-9 * std::max(1.0, scaled)) return denominator;
    rest = 1 / part;
  }
  return 0;
}

std::vector<double> Components(const Motion& motion) {
  std::vector<double> components;
  for (const JointDisplacement& at : motion.Joints) {
    components.push_back(at.Dx);
    components.push_back(at.Dy);
  }
  return components;
}

// Whole numbers in the proportions of the components, without a common divisor; empty when there are no small
// ones.
std::vector<std::int64_t> WholeProportions(const std::vector<double>& components) {
  double smallest = 2;
  for (const double component : components) {
    if (component != 0) smallest = std::min(smallest, std::abs(component));
  }
  std::int64_t common = 1;
  for (const double component : components) {
    const std::int64_t denominator = DenominatorOf(component / smallest);
    if (denominator == 0) return {};
    common = std::lcm(common, denominator);
    if (common > LargestFactor) return {};
  }
  std::vector<std::int64_t> whole;
  std::int64_t divisor = 0;
  for (const double component : components) {
    const double scaled = component / smallest * static_cast<double>(common);
    if (std::abs(scaled) > static_cast<double>(LargestFactor)) return {};
    whole.push_back(std::llround(scaled));
    divisor = std::gcd(divisor, whole.back());
  }
  for (std::int64_t& number : whole) number /= divisor;
  return whole;
}

// Whether displacements of just these sizes lengthen no member and give way at no support.
template <class Field>
bool IsExactly0(const TrussGraph& graph, const Motion& motion, const std::vector<std::int64_t>& whole) {
  std::vector<std::uint64_t> displacements(static_cast<std::size_t>(graph.NumEquations()));
  for (std::size_t i = 0; i < motion.Joints.size(); ++i) {
    const int joint = motion.Joints[i].Joint;
    displacements[static_cast<std::size_t>(ColumnOf(joint, Axis::X))] = Field::FromWhole(whole[2 * i]);
    displacements[static_cast<std::size_t>(ColumnOf(joint, Axis::Y))] = Field::FromWhole(whole[2 * i + 1]);
  }
  return std::ranges::all_of(ExactRigidityRows<Field>(graph), [&](const ModularRow& row) {
    std::uint64_t sum = 0;
    for (const ModularEntry& entry : row) {
      sum = Field::Add(sum,
                       Field::Multiply(entry.Value, displacements[static_cast<std::size_t>(entry.Column)]));
    }
    return sum == 0;
  });
}

bool IsExact(const TrussGraph& graph, const Motion& motion, const std::vector<std::int64_t>& whole) {
  return !whole.empty() && IsExactly0<FirstField>(graph, motion, whole) &&
         IsExactly0<SecondField>(graph, motion, whole);
}

}  // namespace

std::optional<ContradictionProof> ProveContradiction(const TrussGraph& graph,
                                                     const std::vector<Motion>& motions) {
  const Motion* driven = nullptr;
  for (const Motion& motion : motions) {
    const bool isSmaller = driven == nullptr || motion.Joints.size() < driven->Joints.size();
    if (motion.Work > 0 && isSmaller) driven = &motion;
  }
  if (driven == nullptr) return std::nullopt;

  std::vector<double> factors = Components(*driven);
  ContradictionProof proof;
  proof.MotionNumber = static_cast<int>(driven - motions.data()) + 1;
  std::vector<std::int64_t> whole = WholeProportions(factors);
  proof.IsWhole = IsExact(graph, *driven, whole);
  if (!proof.IsWhole) whole = ExactProportions(graph, *driven);
  proof.IsExact = proof.IsWhole || IsExact(graph, *driven, whole);
  if (proof.IsExact) {
    for (std::size_t i = 0; i < factors.size(); ++i) factors[i] = static_cast<double>(whole[i]);
  }
  // Not larger than 2: a power of two changes no figure.
  if (proof.IsExact && !proof.IsWhole) {
    const double size =
        std::abs(*std::ranges::max_element(factors, {}, [](double at) { return std::abs(at); }));
    for (double& factor : factors) factor = std::ldexp(factor, -std::ilogb(size));
  }
  const std::vector<double> displacements = Components(*driven);
  const auto largest = std::ranges::max_element(displacements, {}, [](double at) { return std::abs(at); });
  proof.FactorOfMotion = -factors[static_cast<std::size_t>(largest - displacements.begin())] / *largest;
  const std::vector<double> loads = LoadVector(graph);
  for (std::size_t i = 0; i < factors.size(); ++i) {
    if (factors[i] == 0) continue;
    const Axis axis = i % 2 == 0 ? Axis::X : Axis::Y;
    const int joint = driven->Joints[i / 2].Joint;
    proof.Equations.push_back({joint, axis, -factors[i]});
    proof.Sum += factors[i] * loads[static_cast<std::size_t>(ColumnOf(joint, axis))];
  }
  return proof;
}
