#include "support/WholeNumberRank.h"

#include <cstdint>
#include <utility>

namespace WholeNumbers {

int Rank(Rows rows) {
  std::size_t rank = 0;
  Wide last = 1;
  const std::size_t numColumns = rows.empty() ? 0 : rows.front().size();
  for (std::size_t column = 0; column < numColumns && rank < rows.size(); ++column) {
    std::size_t pivot = rank;
    while (pivot < rows.size() && rows[pivot][column] == 0) ++pivot;
    if (pivot == rows.size()) continue;
    std::swap(rows[pivot], rows[rank]);
    for (std::size_t row = rank + 1; row < rows.size(); ++row) {
      for (std::size_t c = column + 1; c < numColumns; ++c) {
        rows[row][c] = (rows[row][c] * rows[rank][column] - rows[row][column] * rows[rank][c]) / last;
      }
      rows[row][column] = 0;
    }
    last = rows[rank][column];
    ++rank;
  }
  return static_cast<int>(rank);
}

Rows Equations(const TrussGraph& graph, bool withLoads) {
  const auto numUnknowns = static_cast<std::size_t>(graph.NumUnknowns());
  Rows rows(static_cast<std::size_t>(graph.NumEquations()),
            std::vector<Wide>(numUnknowns + (withLoads ? 1 : 0)));
  const auto row = [&rows](int joint, Axis axis) -> std::vector<Wide>& {
    return rows[static_cast<std::size_t>(2 * (joint - 1) + (axis == Axis::Y ? 1 : 0))];
  };
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    const PlacedUnknown& unknown = graph.Unknowns[k];
    const auto column = static_cast<std::size_t>(k - 1);
    if (!unknown.IsMember()) {
      row(unknown.JointA, unknown.Along)[column] = unknown.Sign;
      continue;
    }
    if (unknown.JointA == unknown.JointB) continue;
    const PlacedJoint& a = graph.Joints[unknown.JointA];
    const PlacedJoint& b = graph.Joints[unknown.JointB];
    row(unknown.JointA, Axis::X)[column] = static_cast<std::int64_t>(a.X) - static_cast<std::int64_t>(b.X);
    row(unknown.JointA, Axis::Y)[column] = static_cast<std::int64_t>(a.Y) - static_cast<std::int64_t>(b.Y);
    row(unknown.JointB, Axis::X)[column] = static_cast<std::int64_t>(b.X) - static_cast<std::int64_t>(a.X);
    row(unknown.JointB, Axis::Y)[column] = static_cast<std::int64_t>(b.Y) - static_cast<std::int64_t>(a.Y);
  }
  if (!withLoads) return rows;
  for (const PlacedLoad& load : graph.Loads) {
    row(load.Joint, Axis::X)[numUnknowns] -= static_cast<std::int64_t>(load.Fx);
    row(load.Joint, Axis::Y)[numUnknowns] -= static_cast<std::int64_t>(load.Fy);
  }
  return rows;
}

}  // namespace WholeNumbers
