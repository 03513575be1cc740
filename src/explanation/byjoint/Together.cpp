// Which forces are determined, and whether the equations contradict each other, is decided over two prime
// fields; the values come from the same elimination as those of the reports.
#include "explanation/byjoint/Together.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "analysis/Elimination.h"
#include "explanation/At.h"
#include "explanation/ModularElimination.h"

namespace {

// The equations of some joints, each as the balance of the joint.
class JointSystem {
 public:
  JointSystem(const TrussBalance& balance, const std::vector<int>& joints) {
    for (const int joint : joints) {
      for (const BalanceKind kind : {BalanceKind::X, BalanceKind::Y})
        rows_.push_back(balance.BalanceOf({joint}, {.Kind = kind}));
      for (const int k : balance.SoughtAt(joint)) unknowns_.push_back(k);
    }
    std::ranges::sort(unknowns_);
    unknowns_.erase(std::unique(unknowns_.begin(), unknowns_.end()), unknowns_.end());
  }

  const std::vector<int>& Unknowns() const { return unknowns_; }

  // Columns that can be left out without making the others depend on each other, and the unknowns that these
  // do not change.
  void FindDetermined() {
    const ModularNullSpace space =
        NullSpaceOf<FirstField>(Rows(unknowns_, &ExactNumber::First), static_cast<int>(unknowns_.size()));
    std::vector<char> isFree(unknowns_.size()), varies(unknowns_.size());
    for (const int column : space.Free) isFree[At(column)] = 1;
    for (const ModularRow& vector : space.Vectors) {
      for (const ModularEntry& entry : vector) varies[At(entry.Column)] = 1;
    }
    for (std::size_t i = 0; i < unknowns_.size(); ++i) {
      if (isFree[i] == 0) pivots_.push_back(unknowns_[i]);
      if (varies[i] == 0) determined_.push_back(unknowns_[i]);
    }
  }

  const std::vector<int>& Determined() const { return determined_; }

  // The exact force of each unknown without those left out; empty when the equations contradict each other.
  std::optional<std::map<int, ExactNumber>> ExactValues() const {
    const auto first = Solution<FirstField>(&ExactNumber::First);
    const auto second = Solution<SecondField>(&ExactNumber::Second);
    if (!first || !second) return std::nullopt;
    std::map<int, ExactNumber> values;
    for (std::size_t i = 0; i < pivots_.size(); ++i) values[pivots_[i]] = {(*first)[i], (*second)[i]};
    return values;
  }

  std::map<int, double> Values() const {
    const auto numColumns = static_cast<int>(pivots_.size());
    const auto numRows = std::max(numColumns, static_cast<int>(rows_.size()));
    SparseMatrix<double> matrix(numRows, numColumns + 1);
    for (std::size_t row = 0; row < rows_.size(); ++row) {
      for (const Balance::SoughtForce& sought : rows_[row].Sought) {
        const auto at = std::ranges::lower_bound(pivots_, sought.Unknown);
        if (at == pivots_.end() || *at != sought.Unknown) continue;
        matrix.Set(static_cast<int>(row) + 1, static_cast<int>(at - pivots_.begin()) + 1, sought.ByForce);
      }
      if (rows_[row].KnownSum != 0)
        matrix.Set(static_cast<int>(row) + 1, numColumns + 1, -rows_[row].KnownSum);
    }
    Table<std::int16_t> order;
    SolveToRREF(numRows, numColumns, matrix, order, {.SmallestPivot = 0, .MostPivots = numColumns});
    std::map<int, double> values;
    for (int i = 1; i <= numColumns; ++i) values[pivots_[At(i - 1)]] = matrix(i, numColumns + 1);
    return values;
  }

 private:
  // Rows of residues whose columns are these unknowns, and after them what is known.
  std::vector<ModularRow> Rows(const std::vector<int>& columns, std::uint64_t ExactNumber::*residue) const {
    std::vector<ModularRow> rows;
    for (const Balance& balance : rows_) {
      ModularRow row;
      for (const Balance::SoughtForce& sought : balance.Sought) {
        const auto at = std::ranges::lower_bound(columns, sought.Unknown);
        if (at == columns.end() || *at != sought.Unknown || sought.Factor.*residue == 0) continue;
        row.push_back({static_cast<int>(at - columns.begin()), sought.Factor.*residue});
      }
      std::ranges::sort(row, {}, &ModularEntry::Column);
      rows.push_back(std::move(row));
    }
    return rows;
  }

  template <class Field>
  std::optional<std::vector<std::uint64_t>> Solution(std::uint64_t ExactNumber::*residue) const {
    std::vector<ModularRow> rows = Rows(pivots_, residue);
    const auto rest = static_cast<int>(pivots_.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
      if (rows_[i].Rest.*residue != 0) rows[i].push_back({rest, rows_[i].Rest.*residue});
    }
    const ModularNullSpace space = NullSpaceOf<Field>(std::move(rows), rest + 1);
    if (space.Vectors.size() != 1 || space.Vectors.front().back().Column != rest) return std::nullopt;
    const std::uint64_t scale = Field::Inverse(space.Vectors.front().back().Value);
    std::vector<std::uint64_t> values(pivots_.size());
    for (const ModularEntry& entry : space.Vectors.front()) {
      if (entry.Column != rest) values[At(entry.Column)] = Field::Multiply(entry.Value, scale);
    }
    return values;
  }

  std::vector<Balance> rows_;
  std::vector<int> unknowns_, pivots_, determined_;  // ascending
};

}  // namespace

std::vector<std::vector<int>> JoinedBySought(const TrussBalance& balance, const Table<char>& isOut) {
  std::vector<std::vector<int>> groups;
  const TrussGraph& graph = balance.Graph();
  Table<char> isSeen(graph.NumJoints());
  for (int first = 1; first <= graph.NumJoints(); ++first) {
    if (isSeen[first] != 0 || isOut[first] != 0 || balance.NumSoughtAt(first) == 0) continue;
    std::vector<int> group = {first};
    isSeen[first] = 1;
    for (std::size_t i = 0; i < group.size(); ++i) {
      const int joint = group[i];
      for (const int k : balance.SoughtAt(joint)) {
        const PlacedUnknown& unknown = graph.Unknowns[k];
        if (!unknown.IsMember()) continue;
        const int far = unknown.JointA == joint ? unknown.JointB : unknown.JointA;
        if (isSeen[far] != 0) continue;
        isSeen[far] = 1;
        group.push_back(far);
      }
    }
    std::ranges::sort(group);
    groups.push_back(std::move(group));
  }
  return groups;
}

std::optional<HandStep> SolveTogether(TrussBalance& balance, const std::vector<int>& joints) {
  JointSystem system(balance, joints);
  system.FindDetermined();
  HandStep step{.Kind = HandStepKind::Together};
  step.Joints = joints;
  step.Unknowns = system.Unknowns();
  const auto exact = system.ExactValues();
  if (!exact) {
    step.Contradicts = true;
    return step;
  }
  if (system.Determined().empty()) return std::nullopt;
  const std::map<int, double> values = system.Values();
  for (const int k : system.Determined()) {
    balance.Learn(k, exact->at(k), values.at(k));
    step.Solved.push_back({k, balance.Value(k)});
  }
  return step;
}
