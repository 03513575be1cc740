#include "explanation/RigidityMatrix.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "text/DecimalDigits.h"

namespace {

__extension__ using Wide = __int128;

// A decimal as a whole number of units of 10 to the power of `unit`.
Wide InUnits(const DecimalDigits& decimal, int unit) {
  Wide whole = 0;
  for (const char digit : decimal.Digits) whole = whole * 10 + (digit - '0');
  for (int power = decimal.Exponent - static_cast<int>(decimal.Digits.size()); power > unit; --power)
    whole *= 10;
  return decimal.Negative ? -whole : whole;
}

int LastPower(const DecimalDigits& decimal) {
  return decimal.Exponent - static_cast<int>(decimal.Digits.size());
}

template <class Field>
void PushEntry(ModularRow& row, int column, std::uint64_t value) {
  if (value != 0) row.push_back({column, value});
}

}  // namespace

double WrittenDifference(float a, float b) {
  const DecimalDigits first = DecimalDigits::Of(a);
  const DecimalDigits second = DecimalDigits::Of(b);
  const int unit = std::min(first.IsZero() ? LastPower(second) : LastPower(first),
                            second.IsZero() ? LastPower(first) : LastPower(second));
  const int top = std::max(first.Exponent, second.Exponent);
  // Numbers of very different size: the difference of doubles is as good.
  if (top - unit > 30 || unit < -22 || unit > 22) return double{a} - double{b};
  const Wide difference = InUnits(first, unit) - InUnits(second, unit);
  constexpr Wide exact = Wide{1} << 53U;
  if (difference > exact || difference < -exact) return double{a} - double{b};
  const double scale = std::pow(10.0, std::abs(unit));  // exact up to 10^22
  return unit < 0 ? static_cast<double>(difference) / scale : static_cast<double>(difference) * scale;
}

template <class Field>
std::vector<ModularRow> ExactRigidityRows(const TrussGraph& graph) {
  std::vector<std::uint64_t> coordinates(static_cast<std::size_t>(graph.NumEquations()));
  for (int j = 1; j <= graph.NumJoints(); ++j) {
    coordinates[static_cast<std::size_t>(ColumnOf(j, Axis::X))] = Field::FromDecimal(graph.Joints[j].X);
    coordinates[static_cast<std::size_t>(ColumnOf(j, Axis::Y))] = Field::FromDecimal(graph.Joints[j].Y);
  }
  std::vector<ModularRow> rows(static_cast<std::size_t>(graph.NumUnknowns()));
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    const PlacedUnknown& unknown = graph.Unknowns[k];
    ModularRow& row = rows[static_cast<std::size_t>(k - 1)];
    if (!unknown.IsMember()) {
      if (unknown.Sign != 0)
        row.push_back({ColumnOf(unknown.JointA, unknown.Along), Field::FromWhole(unknown.Sign)});
      continue;
    }
    if (unknown.JointA == unknown.JointB) continue;
    // Written from the lower joint number on, so that columns ascend.
    const int low = std::min(unknown.JointA, unknown.JointB);
    const int high = std::max(unknown.JointA, unknown.JointB);
    const auto difference = [&](Axis axis) {
      return Field::Subtract(coordinates[static_cast<std::size_t>(ColumnOf(low, axis))],
                             coordinates[static_cast<std::size_t>(ColumnOf(high, axis))]);
    };
    const std::uint64_t dx = difference(Axis::X);
    const std::uint64_t dy = difference(Axis::Y);
    PushEntry<Field>(row, ColumnOf(low, Axis::X), dx);
    PushEntry<Field>(row, ColumnOf(low, Axis::Y), dy);
    PushEntry<Field>(row, ColumnOf(high, Axis::X), Field::Negate(dx));
    PushEntry<Field>(row, ColumnOf(high, Axis::Y), Field::Negate(dy));
  }
  return rows;
}

template <class Field>
std::vector<std::uint64_t> ExactLoads(const TrussGraph& graph) {
  std::vector<std::uint64_t> loads(static_cast<std::size_t>(graph.NumEquations()));
  const auto add = [&loads](int column, float component) {
    std::uint64_t& sum = loads[static_cast<std::size_t>(column)];
    sum = Field::Add(sum, Field::FromDecimal(component));
  };
  for (const PlacedLoad& load : graph.Loads) {
    add(ColumnOf(load.Joint, Axis::X), load.Fx);
    add(ColumnOf(load.Joint, Axis::Y), load.Fy);
  }
  return loads;
}

template std::vector<ModularRow> ExactRigidityRows<FirstField>(const TrussGraph&);
template std::vector<ModularRow> ExactRigidityRows<SecondField>(const TrussGraph&);
template std::vector<std::uint64_t> ExactLoads<FirstField>(const TrussGraph&);
template std::vector<std::uint64_t> ExactLoads<SecondField>(const TrussGraph&);

SparseMatrix<double> RigidityRows(const TrussGraph& graph) {
  SparseMatrix<double> matrix(graph.NumUnknowns(), graph.NumEquations());
  const auto set = [&matrix](int row, int joint, Axis axis, double value) {
    if (value != 0) matrix.Set(row, ColumnOf(joint, axis) + 1, value);
  };
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    const PlacedUnknown& unknown = graph.Unknowns[k];
    if (!unknown.IsMember()) {
      set(k, unknown.JointA, unknown.Along, unknown.Sign);
      continue;
    }
    if (unknown.JointA == unknown.JointB) continue;
    const PlacedJoint& a = graph.Joints[unknown.JointA];
    const PlacedJoint& b = graph.Joints[unknown.JointB];
    const double dx = WrittenDifference(a.X, b.X);
    const double dy = WrittenDifference(a.Y, b.Y);
    const double length = std::sqrt(dx * dx + dy * dy);
    set(k, unknown.JointA, Axis::X, dx / length);
    set(k, unknown.JointA, Axis::Y, dy / length);
    set(k, unknown.JointB, Axis::X, -dx / length);
    set(k, unknown.JointB, Axis::Y, -dy / length);
  }
  return matrix;
}

std::vector<double> LoadVector(const TrussGraph& graph) {
  std::vector<double> loads(static_cast<std::size_t>(graph.NumEquations()));
  for (const PlacedLoad& load : graph.Loads) {
    loads[static_cast<std::size_t>(ColumnOf(load.Joint, Axis::X))] += double{load.Fx};
    loads[static_cast<std::size_t>(ColumnOf(load.Joint, Axis::Y))] += double{load.Fy};
  }
  return loads;
}

double LargestLoad(const TrussGraph& graph) {
  const std::vector<double> loads = LoadVector(graph);
  double largest = 0;
  for (std::size_t i = 0; i + 1 < loads.size(); i += 2)
    largest = std::max(largest, std::hypot(loads[i], loads[i + 1]));
  return largest;
}
