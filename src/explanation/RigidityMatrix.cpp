#include "explanation/RigidityMatrix.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>
#include <utility>

#include "explanation/Length.h"
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

// The difference of two singles as they are written.
ExtendedDouble ExtendedDifference(float a, float b) {
  const DecimalDigits first = DecimalDigits::Of(a);
  const DecimalDigits second = DecimalDigits::Of(b);
  const int unit = std::min(first.IsZero() ? LastPower(second) : LastPower(first),
                            second.IsZero() ? LastPower(first) : LastPower(second));
  const int top = std::max(first.Exponent, second.Exponent);
  // Numbers of very different size: of the smaller one hardly anything counts.
  if (top - unit > 30 || unit < -22 || unit > 22)
    return ExtendedDouble{WrittenValue(a)} - ExtendedDouble{WrittenValue(b)};
  const Wide difference = InUnits(first, unit) - InUnits(second, unit);
  const auto high = static_cast<double>(difference);
  const ExtendedDouble whole{high, static_cast<double>(difference - static_cast<Wide>(high))};
  double scale = 1;
  for (int power = 0; power < std::abs(unit); ++power) scale *= 10;  // exact up to 10^22
  return unit < 0 ? whole / ExtendedDouble{scale} : whole * ExtendedDouble{scale};
}

template <class Field>
void PushEntry(ModularRow& row, int column, std::uint64_t value) {
  if (value != 0) row.push_back({column, value});
}

}  // namespace

double WrittenValue(float value) {
  std::array<char, 64> text{};
  const auto written = std::to_chars(text.data(), text.data() + text.size(), value);
  double result = 0;
  std::from_chars(text.data(), written.ptr, result);
  return result;
}

Table<WrittenPlace> WrittenPlaces(const TrussGraph& graph) {
  Table<WrittenPlace> places(graph.NumJoints());
  for (int j = 1; j <= graph.NumJoints(); ++j)
    places[j] = {WrittenValue(graph.Joints[j].X), WrittenValue(graph.Joints[j].Y)};
  return places;
}

double WrittenDifference(float a, float b) { return ExtendedDifference(a, b).High; }

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

SparseMatrix<ExtendedDouble> ExtendedRigidityRows(const TrussGraph& graph) {
  SparseMatrix<ExtendedDouble> matrix(graph.NumUnknowns(), graph.NumEquations());
  const auto set = [&matrix](int row, int joint, Axis axis, const ExtendedDouble& value) {
    if (value.High != 0) matrix.Set(row, ColumnOf(joint, axis) + 1, value);
  };
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    const PlacedUnknown& unknown = graph.Unknowns[k];
    if (!unknown.IsMember()) {
      set(k, unknown.JointA, unknown.Along, {static_cast<double>(unknown.Sign)});
      continue;
    }
    if (unknown.JointA == unknown.JointB) continue;
    const PlacedJoint& a = graph.Joints[unknown.JointA];
    const PlacedJoint& b = graph.Joints[unknown.JointB];
    ExtendedDouble dx = ExtendedDifference(a.X, b.X);
    ExtendedDouble dy = ExtendedDifference(a.Y, b.Y);
    const ExtendedDouble length{std::sqrt(dx.High * dx.High + dy.High * dy.High)};
    dx = dx / length;
    dy = dy / length;
    set(k, unknown.JointA, Axis::X, dx);
    set(k, unknown.JointA, Axis::Y, dy);
    set(k, unknown.JointB, Axis::X, -dx);
    set(k, unknown.JointB, Axis::Y, -dy);
  }
  return matrix;
}

SparseMatrix<double> RigidityRows(const TrussGraph& graph) {
  const SparseMatrix<ExtendedDouble> extended = ExtendedRigidityRows(graph);
  SparseMatrix<double> matrix(extended.NumRows(), extended.NumColumns());
  for (int row = 1; row <= extended.NumRows(); ++row) {
    std::vector<SparseMatrix<double>::Entry> entries;
    for (const auto& [column, value] : extended.Row(row)) entries.push_back({column, value.High});
    matrix.SetRow(row, std::move(entries));
  }
  return matrix;
}

std::vector<double> LoadVector(const TrussGraph& graph) {
  std::vector<double> loads(static_cast<std::size_t>(graph.NumEquations()));
  for (const PlacedLoad& load : graph.Loads) {
    loads[static_cast<std::size_t>(ColumnOf(load.Joint, Axis::X))] += WrittenValue(load.Fx);
    loads[static_cast<std::size_t>(ColumnOf(load.Joint, Axis::Y))] += WrittenValue(load.Fy);
  }
  return loads;
}

double LargestLoad(const TrussGraph& graph) {
  const std::vector<double> loads = LoadVector(graph);
  double largest = 0;
  for (std::size_t i = 0; i + 1 < loads.size(); i += 2)
    largest = std::max(largest, LengthOf(loads[i], loads[i + 1]));
  return largest;
}
