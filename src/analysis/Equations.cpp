// Walks the members, supports and forces once; the rows of each are found by the position of its joint.
#include "analysis/Equations.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_map>
#include <utility>
#include <vector>

#include "analysis/Unknowns.h"
#include "document/JointList.h"
#include "document/SupportReactions.h"

namespace {

float ToSingle(double value) {
  constexpr double largest = std::numeric_limits<float>::max();
  return static_cast<float>(std::clamp(value, -largest, largest));
}

float Length(const MemberRec& member) {
  const double dx = SingleDifference(member.X1, member.X2);
  const double dy = SingleDifference(member.Y1, member.Y2);
  return ToSingle(std::sqrt(dy * dy + dx * dx));
}

float Ratio(float numerator, float length) { return length == 0 ? 0.0F : numerator / length; }

// Row numbers of each joint position.
class RowMap {
 public:
  explicit RowMap(const Table<CountedJoint>& joints) {
    jointAt_.reserve(static_cast<std::size_t>(joints.Size()));
    for (int j = 1; j <= joints.Size(); ++j) jointAt_.emplace(PositionKey(joints[j].X, joints[j].Y), j);
  }

  /// The x row of the joint at a position; the y row is the next one. 0 when there is no joint.
  int XRow(float x, float y) const {
    const auto found = jointAt_.find(PositionKey(x, y));
    return found == jointAt_.end() ? 0 : 2 * found->second - 1;
  }

 private:
  std::unordered_map<PositionKey, int, PositionHash> jointAt_;
};

// Cells are set, never added to, and zeros are not stored.
void SetCell(SparseMatrix<double>& matrix, int row, int column, float value) {
  if (value != 0) matrix.Set(row, column, double{value});
}

void LoadMemberEnd(SparseMatrix<double>& matrix, const MemberRec& member, int end, int xRow, int column) {
  if (xRow == 0) return;
  SetCell(matrix, xRow, column, Cosine(member, end));
  SetCell(matrix, xRow + 1, column, Sine(member, end));
}

void LoadSupport(SparseMatrix<double>& matrix, const SupportRec& support, int xRow,
                 const ColumnMap& columns) {
  if (xRow == 0) return;
  for (const auto& [component, label] :
       {std::pair(1, support.NameLabel1), std::pair(2, support.NameLabel2)}) {
    const ReactionDirection direction = DirectionOf(support.TypeIndex, component);
    if (!direction.Exists()) continue;
    matrix.Set(direction.IsAlongX() ? xRow : xRow + 1, columns.Column(label), direction.Sign());
  }
}

void LoadRightHandSide(SparseMatrix<double>& matrix, const Truss& truss, const RowMap& rows) {
  std::vector<double> sums(static_cast<std::size_t>(matrix.NumRows()) + 1);
  for (const ForceRec& force : truss.ForcesInUse()) {
    const int xRow = force.Active ? rows.XRow(force.X, force.Y) : 0;
    if (xRow == 0) continue;
    sums[static_cast<std::size_t>(xRow)] -= double{force.Fx};
    sums[static_cast<std::size_t>(xRow) + 1] -= double{force.Fy};
  }
  for (int row = 1; row <= matrix.NumRows(); ++row) {
    const double sum = sums[static_cast<std::size_t>(row)];
    if (sum != 0) matrix.Set(row, matrix.NumColumns(), sum);
  }
}

SparseMatrix<float> SingleCopy(const SparseMatrix<double>& matrix) {
  SparseMatrix<float> copy(matrix.NumRows(), matrix.NumColumns());
  for (int row = 1; row <= matrix.NumRows(); ++row) {
    std::vector<SparseMatrix<float>::Entry> entries;
    entries.reserve(matrix.Row(row).size());
    for (const auto& [column, value] : matrix.Row(row)) entries.push_back({column, ToSingle(value)});
    copy.SetRow(row, std::move(entries));
  }
  return copy;
}

}  // namespace

float SingleDifference(float a, float b) { return ToSingle(double{a} - double{b}); }

float Sine(const MemberRec& member, int end) {
  const float rise =
      end == 1 ? SingleDifference(member.Y1, member.Y2) : SingleDifference(member.Y2, member.Y1);
  return Ratio(rise, Length(member));
}

float Cosine(const MemberRec& member, int end) {
  const float run =
      end == 1 ? SingleDifference(member.X1, member.X2) : SingleDifference(member.X2, member.X1);
  return Ratio(run, Length(member));
}

void LoadArrays(const Truss& truss, const Table<CountedJoint>& joints, EquationSystem& system) {
  const ColumnMap columns(system.UnknownList);
  const RowMap rows(joints);
  SparseMatrix<double> matrix(2 * joints.Size(), system.NumUnknowns() + 1);

  for (const MemberRec& member : truss.MembersInUse()) {
    if (!member.Live) continue;
    const int column = columns.Column(member.NameLabel1);
    LoadMemberEnd(matrix, member, 1, rows.XRow(member.X1, member.Y1), column);
    LoadMemberEnd(matrix, member, 2, rows.XRow(member.X2, member.Y2), column);
  }
  for (const SupportRec& support : truss.SupportsInUse()) {
    if (support.Live) LoadSupport(matrix, support, rows.XRow(support.X, support.Y), columns);
  }
  LoadRightHandSide(matrix, truss, rows);

  system.DisplayEquations = SingleCopy(matrix);
  system.EquationMatrix = std::move(matrix);
}
