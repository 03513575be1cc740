// Which forces are determined, and whether the equations contradict each other, is decided over two prime
// fields; the values come from the same elimination as those of the reports, and what it leaves over is put
// through it again where that matters.
#include "explanation/byjoint/Together.h"

#include <algorithm>
#include <cmath>
#include <limits>
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
    for (std::size_t i = 0; i < pivots_.size(); ++i) values[pivots_[i]] = {(*first)[i], (*second)[i], {}};
    return values;
  }

  // The exact forces of the unknowns without those left out, as far as doubles and their corrections tell.
  std::map<int, WideNumber> Sizes(const TrussBalance& balance) const {
    std::map<int, WideNumber> sizes;
    for (const int k : pivots_) sizes[k] = {};
    for (int pass = 0; pass < MostPasses && !AreNearEnough(balance, sizes, pass); ++pass) {
      const std::vector<double> forces = ForcesFor(LeftOver(sizes));
      for (std::size_t i = 0; i < pivots_.size(); ++i) {
        WideNumber& size = sizes[pivots_[i]];
        size = size + WideNumber(forces[i]) / WideNumber(balance.Length(pivots_[i]));
      }
    }
    return sizes;
  }

 private:
  static constexpr int MostPasses = 8;

  // What each equation lacks when these are its forces.
  std::vector<double> LeftOver(const std::map<int, WideNumber>& sizes) const {
    std::vector<double> left;
    left.reserve(rows_.size());
    for (const Balance& row : rows_) {
      WideNumber sum = row.Rest.IsZero() ? WideNumber{} : row.Rest.Size;
      for (const Balance::SoughtForce& sought : row.Sought) {
        const auto at = sizes.find(sought.Unknown);
        if (at != sizes.end()) sum = sum + sought.Factor.Size * at->second;
      }
      left.push_back(-sum.ToDouble());
    }
    return left;
  }

  // One pass of doubles is enough unless there are forces that vanish beside the largest.
  bool AreNearEnough(const TrussBalance& balance, const std::map<int, WideNumber>& sizes, int pass) const {
    if (pass == 0) return false;
    double smallest = std::numeric_limits<double>::infinity();
    for (const auto& [unknown, size] : sizes) {
      const double force = std::abs(size.ToDouble() * balance.Length(unknown));
      if (force > 0) smallest = std::min(smallest, force);
    }
    const std::vector<double> left = LeftOver(sizes);
    return std::ranges::all_of(left, [&](double force) { return std::abs(force) <= 1e-9 * smallest; });
  }

  // By the elimination of the reports.
  std::vector<double> ForcesFor(const std::vector<double>& rightHandSides) const {
    const auto numColumns = static_cast<int>(pivots_.size());
    const auto numRows = std::max(numColumns, static_cast<int>(rows_.size()));
    SparseMatrix<double> matrix(numRows, numColumns + 1);
    for (std::size_t row = 0; row < rows_.size(); ++row) {
      const int number = static_cast<int>(row) + 1;
      for (const Balance::SoughtForce& sought : rows_[row].Sought) {
        const auto at = std::ranges::lower_bound(pivots_, sought.Unknown);
        if (at == pivots_.end() || *at != sought.Unknown) continue;
        matrix.Set(number, static_cast<int>(at - pivots_.begin()) + 1, sought.ByForce);
      }
      if (rightHandSides[row] != 0) matrix.Set(number, numColumns + 1, rightHandSides[row]);
    }
    Table<std::int16_t> order;
    SolveToRREF(numRows, numColumns, matrix, order, {.SmallestPivot = 0, .MostPivots = numColumns});
    std::vector<double> forces;
    forces.reserve(pivots_.size());
    for (int i = 1; i <= numColumns; ++i) forces.push_back(matrix(i, numColumns + 1));
    return forces;
  }

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
  const std::map<int, WideNumber> sizes = system.Sizes(balance);
  for (const int k : system.Determined()) {
    ExactNumber force = exact->at(k);
    force.Size = sizes.at(k);
    balance.Learn(k, force);
    step.Solved.push_back({k, balance.Value(k)});
  }
  return step;
}
