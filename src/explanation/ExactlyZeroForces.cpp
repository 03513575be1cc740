#include "explanation/ExactlyZeroForces.h"

#include "explanation/At.h"
#include "explanation/ModularElimination.h"

namespace {

// The equations with the loads as one unknown more. What its null space maps to 0 are the states of
// self-stress and the forces that balance the loads.
template <class Field>
ModularNullSpace BalancedForces(const TrussGraph& graph) {
  std::vector<ModularRow> equations = Transposed(ExactRigidityRows<Field>(graph), graph.NumEquations());
  const std::vector<std::uint64_t> loads = ExactLoads<Field>(graph);
  for (std::size_t row = 0; row < equations.size(); ++row) {
    if (loads[row] != 0) equations[row].push_back({graph.NumUnknowns(), loads[row]});
  }
  return NullSpaceOf<Field>(std::move(equations), graph.NumUnknowns() + 1);
}

}  // namespace

std::vector<int> ExactlyZeroForces(const TrussGraph& graph, int rank) {
  ModularNullSpace balanced = BalancedForces<FirstField>(graph);
  if (balanced.Rank < rank) balanced = BalancedForces<SecondField>(graph);  // an accident of the prime
  std::vector<bool> acts(At(graph.NumUnknowns()) + 1);
  for (const ModularRow& forces : balanced.Vectors) {
    for (const ModularEntry& entry : forces) acts[At(entry.Column)] = true;
  }
  std::vector<int> zero;
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    if (!acts[At(k - 1)]) zero.push_back(k);
  }
  return zero;
}
