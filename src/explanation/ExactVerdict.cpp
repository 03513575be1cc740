#include "explanation/ExactVerdict.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <utility>

#include "analysis/Parallel.h"
#include "explanation/At.h"
#include "explanation/LocalVectors.h"
#include "explanation/MotionExtent.h"
#include "explanation/NullVectors.h"
#include "explanation/RigidMotions.h"

namespace {

template <class Field>
std::uint64_t Product(const ModularRow& vector, const std::vector<std::uint64_t>& loads) {
  std::uint64_t sum = 0;
  for (const ModularEntry& entry : vector)
    sum = Field::Add(sum, Field::Multiply(entry.Value, loads[At(entry.Column)]));
  return sum;
}

template <class Field>
struct ExactSystem {
  explicit ExactSystem(const TrussGraph& graph)
      : Rows(ExactRigidityRows<Field>(graph)),
        Loads(ExactLoads<Field>(graph)),
        MotionSpace(NullSpaceOf<Field>(Rows, graph.NumEquations())) {}

  std::vector<ModularRow> Rows;
  std::vector<std::uint64_t> Loads;
  ModularNullSpace MotionSpace;
  ModularNullSpace StressSpace;

  void FindStresses(const TrussGraph& graph) {
    StressSpace.Rank = MotionSpace.Rank;
    if (MotionSpace.Rank == graph.NumUnknowns()) return;
    StressSpace = NullSpaceOf<Field>(Transposed(Rows, graph.NumEquations()), graph.NumUnknowns());
  }
};

template <class Field>
ExactVerdict VerdictOf(const TrussGraph& graph, ExactSystem<Field>& system) {
  system.FindStresses(graph);
  ExactVerdict verdict;
  verdict.NumEquations = graph.NumEquations();
  verdict.NumUnknowns = graph.NumUnknowns();
  verdict.Rank = system.MotionSpace.Rank;
  // The equations can be satisfied exactly when the loads do no work on any motion.
  const bool works = std::ranges::any_of(system.MotionSpace.Vectors, [&](const ModularRow& vector) {
    return Product<Field>(vector, system.Loads) != 0;
  });
  verdict.AugmentedRank = verdict.Rank + (works ? 1 : 0);
  std::vector<bool> varies(At(graph.NumUnknowns()));
  for (const ModularRow& vector : system.StressSpace.Vectors) {
    for (const ModularEntry& entry : vector) varies[At(entry.Column)] = true;
  }
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    if (!varies[At(k - 1)]) verdict.Determined.push_back(k);
  }
  return verdict;
}

BlockedNullSpace ByJoints(const TrussGraph& graph, const TrussPieces& pieces, const ModularNullSpace& space) {
  BlockedNullSpace blocked{space, {}, {}, pieces.Count};
  for (int column = 0; column < graph.NumEquations(); ++column) blocked.BlockOfColumn.push_back(column / 2);
  for (int j = 1; j <= graph.NumJoints(); ++j) blocked.PieceOfBlock.push_back(pieces.OfJoint[j]);
  return blocked;
}

BlockedNullSpace ByUnknowns(const TrussGraph& graph, const TrussPieces& pieces,
                            const ModularNullSpace& space) {
  BlockedNullSpace blocked{space, {}, {}, pieces.Count};
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    blocked.BlockOfColumn.push_back(k - 1);
    blocked.PieceOfBlock.push_back(pieces.OfJoint[graph.Unknowns[k].JointA]);
  }
  return blocked;
}

std::vector<int> ColumnNumbers(const ModularRow& vector) {
  std::vector<int> columns;
  for (const ModularEntry& entry : vector) columns.push_back(entry.Column + 1);
  return columns;
}

// Entries by ascending column, from 1.
Motion MotionOf(const SparseVector& displacements, MotionKind kind) {
  Motion motion;
  motion.Kind = kind;
  for (const auto& [column, value] : displacements) {
    const int joint = (column + 1) / 2;
    if (motion.Joints.empty() || motion.Joints.back().Joint != joint) motion.Joints.push_back({joint});
    (column % 2 == 1 ? motion.Joints.back().Dx : motion.Joints.back().Dy) = value;
  }
  double largest = 0;
  for (const JointDisplacement& at : motion.Joints)
    largest = std::max(largest, std::sqrt(at.Dx * at.Dx + at.Dy * at.Dy));
  for (JointDisplacement& at : motion.Joints) {
    at.Dx /= largest;
    at.Dy /= largest;
  }
  return motion;
}

// Work that is nothing but what rounding has left counts as none.
void SetWork(Motion& motion, const std::vector<double>& loads) {
  double size = 0;
  for (const JointDisplacement& at : motion.Joints) {
    const double x = at.Dx * loads[At(ColumnOf(at.Joint, Axis::X))];
    const double y = at.Dy * loads[At(ColumnOf(at.Joint, Axis::Y))];
    motion.Work += x + y;
    size += std::abs(x) + std::abs(y);
  }
  if (std::abs(motion.Work) < 1e-9 * size) motion.Work = 0;
}

SparseVector AsSparse(const std::vector<double>& displacements) {
  SparseVector vector;
  for (std::size_t column = 0; column < displacements.size(); ++column) {
    if (displacements[column] != 0) vector.push_back({static_cast<int>(column) + 1, displacements[column]});
  }
  return vector;
}

// Of the vectors of a large piece, leaves out as many as make room for the given ones: each time the one that
// has the largest share in what is left of a given one.
void MakeRoomFor(const std::vector<SparseVector>& given, std::vector<SparseVector>& vectors) {
  // A column in which a vector alone is not 0 tells its share.
  std::vector<int> own;
  std::vector<int> meets;
  for (const SparseVector& vector : vectors) {
    for (const auto& entry : vector) {
      meets.resize(std::max(meets.size(), At(entry.Column) + 1));
      ++meets[At(entry.Column)];
    }
  }
  std::vector<std::vector<double>> shares(given.size());
  for (const SparseVector& vector : vectors) {
    const auto alone = std::ranges::max_element(vector, {}, [&](const auto& entry) {
      return meets[At(entry.Column)] == 1 ? std::abs(entry.Value) : 0.0;
    });
    for (std::size_t i = 0; i < given.size(); ++i) {
      const auto found =
          std::ranges::find(given[i], alone->Column, [](const auto& entry) { return entry.Column; });
      shares[i].push_back(found == given[i].end() ? 0 : found->Value / alone->Value);
    }
  }
  std::vector<bool> isOut(vectors.size());
  for (std::size_t i = 0; i < given.size(); ++i) {
    const auto largest =
        std::ranges::max_element(shares[i], {}, [](double share) { return std::abs(share); });
    const auto out = static_cast<std::size_t>(largest - shares[i].begin());
    isOut[out] = true;
    for (std::size_t j = i + 1; j < given.size(); ++j) {
      const double factor = shares[j][out] / shares[i][out];
      for (std::size_t k = 0; k < vectors.size(); ++k) shares[j][k] -= factor * shares[i][k];
    }
  }
  std::vector<SparseVector> kept;
  for (std::size_t k = 0; k < vectors.size(); ++k) {
    if (!isOut[k]) kept.push_back(std::move(vectors[k]));
  }
  vectors = std::move(kept);
}

std::vector<SparseVector> Values(const LocalBasis& basis, const NullVectors& nullVectors,
                                 const std::vector<SparseVector>& given) {
  std::vector<SparseVector> vectors;
  for (const ModularRow& vector : basis.Vectors) vectors.push_back(nullVectors.On(ColumnNumbers(vector)));
  for (const LargePiece& piece : basis.LargePieces) {
    std::vector<int> columns = piece.Columns;
    for (int& column : columns) ++column;
    std::vector<SparseVector> all = nullVectors.Basis(columns, piece.NumVectors);
    if (piece.HoldsGiven) MakeRoomFor(given, all);
    std::ranges::move(all, std::back_inserter(vectors));
  }
  return vectors;
}

template <class Field>
std::vector<Motion> MotionsOf(const TrussGraph& graph, const TrussPieces& pieces,
                              const ExactSystem<Field>& system,
                              const SparseMatrix<ExtendedDouble>& rigidity) {
  std::vector<Motion> motions;
  if (system.MotionSpace.Free.empty()) return motions;
  const std::vector<double> loads = LoadVector(graph);
  std::vector<ModularRow> exactlyRigid;
  std::vector<SparseVector> rigid;
  for (const RigidMotion& motion : RigidMotions(graph)) {
    exactlyRigid.push_back(ExactDisplacements<Field>(motion, graph));
    rigid.push_back(AsSparse(Displacements(motion, graph)));
    motions.push_back(MotionOf(rigid.back(), MotionKind::Rigid));
  }
  const LocalBasis basis = LocalVectors<Field>(ByJoints(graph, pieces, system.MotionSpace), exactlyRigid);
  for (const SparseVector& vector : Values(basis, NullVectors(rigidity), rigid)) {
    motions.push_back(MotionOf(vector, MotionKind::Internal));
  }
  for (std::size_t i = 0; i < motions.size(); ++i) {
    SetWork(motions[i], loads);
    const std::size_t numExact = exactlyRigid.size() + basis.Vectors.size();
    if (i < numExact) {
      const ModularRow& exact =
          i < exactlyRigid.size() ? exactlyRigid[i] : basis.Vectors[i - exactlyRigid.size()];
      if (Product<Field>(exact, system.Loads) == 0) motions[i].Work = 0;
    }
    TurnWithLoads(motions[i]);
  }
  return motions;
}

SparseMatrix<ExtendedDouble> Transposed(const SparseMatrix<ExtendedDouble>& matrix) {
  std::vector<std::vector<SparseMatrix<ExtendedDouble>::Entry>> columns(At(matrix.NumColumns()) + 1);
  for (int row = 1; row <= matrix.NumRows(); ++row) {
    for (const auto& entry : matrix.Row(row)) columns[At(entry.Column)].push_back({row, entry.Value});
  }
  SparseMatrix<ExtendedDouble> transposed(matrix.NumColumns(), matrix.NumRows());
  for (int row = 1; row <= transposed.NumRows(); ++row) transposed.SetRow(row, std::move(columns[At(row)]));
  return transposed;
}

// Those of large pieces are as the null space has them.
std::vector<ModularRow> ExactStresses(const LocalBasis& basis, const ModularNullSpace& space) {
  std::vector<ModularRow> vectors = basis.Vectors;
  for (std::size_t i = 0; i < space.Vectors.size(); ++i) {
    const bool isOfLargePiece = std::ranges::any_of(basis.LargePieces, [&](const LargePiece& piece) {
      return std::ranges::binary_search(piece.Columns, space.Free[i]);
    });
    if (isOfLargePiece) vectors.push_back(space.Vectors[i]);
  }
  return vectors;
}

template <class Field>
void FindStresses(const TrussGraph& graph, const TrussPieces& pieces, const ExactSystem<Field>& system,
                  const SparseMatrix<ExtendedDouble>& rigidity, ExactReasons& reasons) {
  if (system.StressSpace.Free.empty()) return;
  const LocalBasis basis = LocalVectors<Field>(ByUnknowns(graph, pieces, system.StressSpace), {});
  const SparseMatrix<ExtendedDouble> balance = Transposed(rigidity);
  for (const SparseVector& vector : Values(basis, NullVectors(balance), {})) {
    SelfStress stress;
    for (const auto& [column, value] : vector) stress.Forces.push_back({column, value});
    // The first force presses.
    const bool turn = stress.Forces.front().Value < 0;
    for (UnknownForce& force : stress.Forces) force.Value = turn ? -force.Value : force.Value;
    reasons.SelfStresses.push_back(std::move(stress));
  }
  reasons.Open = OpenForcesOf<Field>(graph, ExactStresses(basis, system.StressSpace));
}

template <class Field>
ExactReasons ReasonsOf(const TrussGraph& graph, ExactSystem<Field>& system) {
  const TrussPieces pieces = PiecesOf(graph);
  const SparseMatrix<ExtendedDouble> rigidity = ExtendedRigidityRows(graph);
  ExactReasons reasons;
  reasons.Verdict = VerdictOf(graph, system);
  reasons.Motions = MotionsOf(graph, pieces, system, rigidity);
  FindStresses(graph, pieces, system, rigidity, reasons);
  FindExtents<Field>(graph, system.Rows, reasons.SelfStresses, reasons.Motions);
  return reasons;
}

// Goes on with the prime that gives the larger rank, which is the first one but for an accident.
template <class Work>
auto WithBetterPrime(const TrussGraph& graph, const Work& work) {
  std::optional<ExactSystem<FirstField>> first;
  int secondRank = 0;
  std::atomic<int> next = 0;
  constexpr int fewestForThreads = 400;  // unknowns; less is done before a thread has started
  RunInParallel(graph.NumUnknowns() < fewestForThreads ? 1 : 2, [&] {
    for (int job = next++; job < 2; job = next++) {
      if (job == 0) {
        first.emplace(graph);
      } else {
        secondRank = RankOf<SecondField>(ExactRigidityRows<SecondField>(graph), graph.NumEquations());
      }
    }
  });
  if (first->MotionSpace.Rank >= secondRank) return work(*first);
  ExactSystem<SecondField> second(graph);
  return work(second);
}

}  // namespace

Outcome ExactVerdict::Code() const {
  if (AugmentedRank > Rank) return Outcome::Inconsistent;
  return Rank < NumEquations ? Outcome::Redundant : Outcome::Neither;
}

const char* VerdictWord(const ExactVerdict& verdict) {
  if (verdict.Code() == Outcome::Inconsistent) return "no solution";
  if (verdict.SelfStresses() > 0) return "undetermined";
  return verdict.Code() == Outcome::Redundant ? "redundant" : "unique";
}

ExactVerdict JudgeExactly(const TrussGraph& graph) {
  return WithBetterPrime(graph, [&](auto& system) { return VerdictOf(graph, system); });
}

ExactReasons ReasonExactly(const TrussGraph& graph) {
  return WithBetterPrime(graph, [&](auto& system) { return ReasonsOf(graph, system); });
}
