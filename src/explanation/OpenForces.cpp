#include "explanation/OpenForces.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <utility>

#include "analysis/Elimination.h"
#include "explanation/At.h"
#include "explanation/Length.h"
#include "explanation/RigidityMatrix.h"

namespace {

template <class Field>
class FreeChooser {
 public:
  FreeChooser(const TrussGraph& graph, std::vector<ModularRow> vectors)
      : graph_(graph), vectors_(std::move(vectors)), free_(vectors_.size(), -1) {
    for (const ModularRow& vector : vectors_) {
      for (const ModularEntry& entry : vector) ++numMet_[entry.Column];
    }
  }

  OpenForces Choose() {
    // A force of one vector alone is 0 in all others already.
    for (std::size_t i = 0; i < vectors_.size(); ++i) free_[i] = BestOf(vectors_[i], true);
    for (std::size_t i = 0; i < vectors_.size(); ++i) {
      if (free_[i] >= 0) continue;
      free_[i] = BestOf(vectors_[i], false);
      ClearOthers(i);
    }
    return Told();
  }

 private:
  // -1 when there is none.
  int BestOf(const ModularRow& vector, bool onlyOfOneVector) const {
    int best = -1;
    for (const ModularEntry& entry : vector) {
      if (onlyOfOneVector && numMet_.at(entry.Column) > 1) continue;
      if (best < 0 || Rank(entry.Column) < Rank(best)) best = entry.Column;
    }
    return best;
  }

  // The lower, the better.
  std::pair<bool, double> Rank(int column) const {
    const PlacedUnknown& unknown = graph_.Unknowns[column + 1];
    if (!unknown.IsMember()) return {true, 0};
    const PlacedJoint& a = graph_.Joints[unknown.JointA];
    const PlacedJoint& b = graph_.Joints[unknown.JointB];
    return {false, -LengthOf(double{a.X} - double{b.X}, double{a.Y} - double{b.Y})};
  }

  static std::uint64_t In(const ModularRow& vector, int column) {
    const auto found = std::ranges::lower_bound(vector, column, {}, &ModularEntry::Column);
    return found == vector.end() || found->Column != column ? 0 : found->Value;
  }

  // Takes so much of the vector from each other one that this is 0 in its free column.
  void ClearOthers(std::size_t index) {
    const ModularRow vector = vectors_[index];
    const std::uint64_t inverse = Field::Inverse(In(vector, free_[index]));
    for (std::size_t i = 0; i < vectors_.size(); ++i) {
      const std::uint64_t there = i == index ? 0 : In(vectors_[i], free_[index]);
      if (there != 0) vectors_[i] = Less(vectors_[i], Field::Multiply(there, inverse), vector);
    }
  }

  static ModularRow Less(const ModularRow& from, std::uint64_t factor, const ModularRow& vector) {
    ModularRow rest;
    auto a = from.begin();
    auto b = vector.begin();
    while (a != from.end() || b != vector.end()) {
      const bool takesA = b == vector.end() || (a != from.end() && a->Column <= b->Column);
      const bool takesB = a == from.end() || (b != vector.end() && b->Column <= a->Column);
      const int column = takesA ? a->Column : b->Column;
      std::uint64_t value = takesA ? (a++)->Value : 0;
      if (takesB) value = Field::Subtract(value, Field::Multiply(factor, (b++)->Value));
      if (value != 0) rest.push_back({column, value});
    }
    return rest;
  }

  OpenForces Told() const {
    OpenForces open;
    for (const int column : free_) open.Free.push_back(column + 1);
    std::ranges::sort(open.Free);
    std::map<int, std::vector<int>> on;
    for (std::size_t i = 0; i < vectors_.size(); ++i) {
      for (const ModularEntry& entry : vectors_[i]) {
        if (entry.Column != free_[i]) on[entry.Column + 1].push_back(free_[i] + 1);
      }
    }
    for (auto& [unknown, free] : on) {
      std::ranges::sort(free);
      open.Dependent.push_back({unknown, std::move(free)});
    }
    return open;
  }

  const TrussGraph& graph_;
  std::vector<ModularRow> vectors_;
  std::vector<int> free_;      // of each vector: the column in which the others are 0
  std::map<int, int> numMet_;  // by column: how many vectors are not 0 in it
};

}  // namespace

template <class Field>
OpenForces OpenForcesOf(const TrussGraph& graph, std::vector<ModularRow> vectors) {
  return FreeChooser<Field>(graph, std::move(vectors)).Choose();
}

template OpenForces OpenForcesOf<FirstField>(const TrussGraph&, std::vector<ModularRow>);
template OpenForces OpenForcesOf<SecondField>(const TrussGraph&, std::vector<ModularRow>);

Table<double> ForcesWithFreeAt0(const TrussGraph& graph, const std::vector<int>& free, int rank) {
  const int numUnknowns = graph.NumUnknowns();
  const SparseMatrix<double> rigidity = RigidityRows(graph);
  std::vector<std::vector<SparseMatrix<double>::Entry>> rows(At(graph.NumEquations()));
  for (int k = 1; k <= numUnknowns; ++k) {
    if (std::ranges::binary_search(free, k)) continue;
    for (const auto& [column, value] : rigidity.Row(k)) rows[At(column - 1)].push_back({k, value});
  }
  const std::vector<double> loads = LoadVector(graph);
  double largest = LargestLoad(graph);
  const double scale = largest > 0 ? largest : 1;
  SparseMatrix<double> matrix(graph.NumEquations(), numUnknowns + 1);
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (loads[row] != 0) rows[row].push_back({numUnknowns + 1, -loads[row] / scale});
    matrix.SetRow(static_cast<int>(row) + 1, std::move(rows[row]));
  }
  Table<std::int16_t> order;
  SolveToRREF(graph.NumEquations(), numUnknowns, matrix, order,
              EliminationLimits{.SmallestPivot = 0, .MostPivots = rank});
  Table<double> forces(numUnknowns);
  for (int row = 1; row <= matrix.NumRows(); ++row) {
    const auto entries = matrix.Row(row);
    if (entries.empty() || entries.front().Column > numUnknowns || entries.back().Column <= numUnknowns)
      continue;
    forces[order[entries.front().Column]] = entries.back().Value * scale;
  }
  for (const double force : forces.First(numUnknowns)) largest = std::max(largest, std::abs(force));
  constexpr double onlyRounding = 1e-12;
  for (double& force : forces.First(numUnknowns)) {
    if (std::abs(force) < onlyRounding * largest) force = 0;
  }
  return forces;
}
