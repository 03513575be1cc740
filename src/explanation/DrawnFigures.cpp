#include "explanation/DrawnFigures.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "analysis/Elimination.h"
#include "explanation/ExactlyZeroForces.h"
#include "explanation/RigidityMatrix.h"

namespace {

// The equations in double precision, loads divided by `scale`, reduced.
struct Reduced {
  SparseMatrix<double> Matrix;
  Table<std::int16_t> Order;
  int NumUnknowns = 0;

  int NumPivots() const {
    int pivots = 0;
    for (int row = 1; row <= Matrix.NumRows(); ++row) {
      const auto entries = Matrix.Row(row);
      pivots += !entries.empty() && entries.front().Column <= NumUnknowns ? 1 : 0;
    }
    return pivots;
  }

  bool IsContradicted() const {
    for (int row = 1; row <= Matrix.NumRows(); ++row) {
      const auto entries = Matrix.Row(row);
      const bool isRightHandSide = !entries.empty() && entries.front().Column > NumUnknowns;
      if (isRightHandSide && std::abs(entries.front().Value) > NothingWithinFigures) return true;
    }
    return false;
  }

  /// By unknown, from 1; only those of a row of their own.
  std::vector<double> Values() const {
    std::vector<double> values(static_cast<std::size_t>(NumUnknowns) + 1);
    for (int row = 1; row <= Matrix.NumRows(); ++row) {
      if (!IsOfOneUnknown(row) || Matrix.Row(row).size() < 2) continue;
      const auto entries = Matrix.Row(row);
      values[static_cast<std::size_t>(Order[entries.front().Column])] = entries.back().Value;
    }
    return values;
  }

  /// Which unknowns have a row of their own, by unknown from 1.
  std::vector<bool> Tells() const {
    std::vector<bool> tells(static_cast<std::size_t>(NumUnknowns) + 1);
    for (int row = 1; row <= Matrix.NumRows(); ++row) {
      if (IsOfOneUnknown(row)) tells[static_cast<std::size_t>(Order[Matrix.Row(row).front().Column])] = true;
    }
    return tells;
  }

  bool IsOfOneUnknown(int row) const {
    const auto entries = Matrix.Row(row);
    return !entries.empty() && entries.front().Column <= NumUnknowns &&
           (entries.size() == 1 || (entries.size() == 2 && entries.back().Column > NumUnknowns));
  }
};

Reduced Reduce(const TrussGraph& graph, double scale, const EliminationLimits& limits) {
  const int numUnknowns = graph.NumUnknowns();
  const SparseMatrix<double> rigidity = RigidityRows(graph);
  std::vector<std::vector<SparseMatrix<double>::Entry>> rows(static_cast<std::size_t>(graph.NumEquations()));
  for (int k = 1; k <= numUnknowns; ++k) {
    for (const auto& [column, value] : rigidity.Row(k))
      rows[static_cast<std::size_t>(column - 1)].push_back({k, value});
  }
  const std::vector<double> loads = LoadVector(graph);
  Reduced reduced{SparseMatrix<double>(graph.NumEquations(), numUnknowns + 1), {}, numUnknowns};
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (loads[row] != 0) rows[row].push_back({numUnknowns + 1, -loads[row] / scale});
    reduced.Matrix.SetRow(static_cast<int>(row) + 1, std::move(rows[row]));
  }
  SolveToRREF(graph.NumEquations(), numUnknowns, reduced.Matrix, reduced.Order, limits);
  return reduced;
}

// What is smaller beside the largest is a remnant of double precision: of a force that is 0.
constexpr double NothingInDouble = 1e-12;

// What double precision leaves of a force that is 0 is larger where the truss is nearly a mechanism; whether
// one of the doubtful ones is 0 is found out exactly, for all at once.
void ClearRemnants(const TrussGraph& graph, const ExactVerdict& verdict, std::vector<ComparedForce>& forces) {
  constexpr double doubtful = 1e-6;
  double largest = 0;
  for (const ComparedForce& force : forces) largest = std::max(largest, std::abs(force.Unrounded));
  std::optional<std::vector<int>> zero;
  const auto isZero = [&](int unknown) {
    if (!zero) zero = ExactlyZeroForces(graph, verdict.Rank);
    return std::ranges::binary_search(*zero, unknown);
  };
  for (ComparedForce& force : forces) {
    const double size = std::abs(force.Unrounded);
    const bool isRemnant =
        size < NothingInDouble * largest || (size > 0 && size < doubtful * largest && isZero(force.Unknown));
    if (isRemnant) force.Unrounded = 0;
  }
}

bool IsOneMissing(const TrussAnalysis& analysis, const ExactVerdict& verdict) {
  if (verdict.Code() == Outcome::Inconsistent || verdict.Determined.empty()) return false;
  return analysis.Reading.Code == Outcome::Inconsistent ||
         std::ranges::any_of(verdict.Determined, [&](int k) { return !analysis.Reading.Values[k]; });
}

std::vector<ComparedForce> Compare(const TrussGraph& graph, const TrussAnalysis& analysis,
                                   const ExactVerdict& verdict, const std::vector<double>& values,
                                   double scale) {
  std::vector<ComparedForce> forces;
  if (analysis.Reading.Code == Outcome::Inconsistent || verdict.Code() == Outcome::Inconsistent)
    return forces;
  for (const int k : verdict.Determined) {
    const std::optional<double>& shown = analysis.Reading.Values[k];
    if (!shown) continue;
    forces.push_back({k, *shown, values[static_cast<std::size_t>(k)] * scale});
  }
  ClearRemnants(graph, verdict, forces);
  return forces;
}

// By unknown, from 1: the largest magnitude beside the 1 of its row in the reduced matrix.
std::vector<double> RemnantsBeside(const EquationSystem& system) {
  const int numUnknowns = system.NumUnknowns();
  std::vector<double> remnants(static_cast<std::size_t>(numUnknowns) + 1);
  for (int row = 1; row <= system.EquationMatrix.NumRows(); ++row) {
    const auto entries = system.EquationMatrix.Row(row);
    if (entries.empty() || entries.front().Column > numUnknowns) continue;
    double& largest = remnants[static_cast<std::size_t>(system.ColumnOrder[entries.front().Column])];
    for (const auto& [column, value] : entries.subspan(1)) {
      if (column <= numUnknowns) largest = std::max(largest, std::abs(value));
    }
  }
  return remnants;
}

std::vector<HiddenForce> HiddenForces(const TrussAnalysis& analysis, const ExactVerdict& verdict,
                                      const Reduced& reduced, double scale) {
  std::vector<HiddenForce> hidden;
  if (analysis.Reading.Code == Outcome::Inconsistent || verdict.Code() == Outcome::Inconsistent)
    return hidden;
  const bool isAny =
      std::ranges::any_of(verdict.Determined, [&](int k) { return !analysis.Reading.Values[k]; });
  if (!isAny) return hidden;
  const std::vector<double> values = reduced.Values();
  const std::vector<bool> tells = reduced.Tells();
  const std::vector<double> remnants = RemnantsBeside(analysis.System);
  for (const int k : verdict.Determined) {
    if (analysis.Reading.Values[k]) continue;
    const auto at = static_cast<std::size_t>(k);
    hidden.push_back({.Unknown = k, .Value = {}, .Remnant = remnants[at]});
    if (tells[at]) hidden.back().Value = std::abs(values[at]) < NothingInDouble ? 0 : values[at] * scale;
  }
  return hidden;
}

// The displacements whose lengthenings are in proportion to the forces: nearly those that lengthen nothing,
// because such forces are nearly in balance without loads.
Motion NearlyFreeMotion(const TrussGraph& graph, const std::vector<double>& forces) {
  SparseMatrix<double> rigidity = RigidityRows(graph);
  SparseMatrix<double> system(graph.NumUnknowns(), graph.NumEquations() + 1);
  double largest = 0;
  for (const double force : forces) largest = std::max(largest, std::abs(force));
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    const auto row = rigidity.Row(k);
    std::vector<SparseMatrix<double>::Entry> entries(row.begin(), row.end());
    const double force = forces[static_cast<std::size_t>(k)] / largest;
    if (force != 0) entries.push_back({graph.NumEquations() + 1, force});
    system.SetRow(k, std::move(entries));
  }
  Table<std::int16_t> order;
  SolveToRREF(graph.NumUnknowns(), graph.NumEquations(), system, order,
              EliminationLimits{.SmallestPivot = 0});
  Motion motion;
  double longest = 0;
  for (int j = 1; j <= graph.NumJoints(); ++j) {
    const int column = ColumnOf(j, Axis::X) + 1;
    const JointDisplacement at{j, system(column, graph.NumEquations() + 1),
                               system(column + 1, graph.NumEquations() + 1)};
    longest = std::max(longest, std::sqrt(at.Dx * at.Dx + at.Dy * at.Dy));
    motion.Joints.push_back(at);
  }
  for (JointDisplacement& at : motion.Joints) {
    at.Dx /= longest;
    at.Dy /= longest;
  }
  // What hardly moves beside the others is left out.
  constexpr double hardly = 1e-3;
  std::erase_if(motion.Joints, [](const JointDisplacement& at) {
    return std::abs(at.Dx) < hardly && std::abs(at.Dy) < hardly;
  });
  for (const JointDisplacement& at : motion.Joints) {
    for (const PlacedLoad& load : graph.Loads) {
      if (load.Joint != at.Joint) continue;
      motion.Work += WrittenValue(load.Fx) * at.Dx + WrittenValue(load.Fy) * at.Dy;
    }
  }
  TurnWithLoads(motion);
  return motion;
}

}  // namespace

DrawnFigures FiguresOf(const TrussGraph& graph, const TrussAnalysis& analysis, const ExactVerdict& verdict) {
  DrawnFigures figures;
  const double load = LargestLoad(graph);
  const double scale = load > 0 ? load : 1;
  Reduced reduced = Reduce(graph, scale, {.SmallestPivot = NothingWithinFigures});
  const int pivots = reduced.NumPivots();
  if (reduced.IsContradicted()) {
    figures.Within = Outcome::Inconsistent;
  } else if (pivots < graph.NumEquations()) {
    figures.Within = Outcome::Redundant;
  }
  if (pivots != verdict.Rank)
    reduced = Reduce(graph, scale, {.SmallestPivot = 0, .MostPivots = verdict.Rank});
  const std::vector<double> values = reduced.Values();
  figures.IsOneMissing = IsOneMissing(analysis, verdict);
  figures.Forces = Compare(graph, analysis, verdict, values, scale);
  figures.Hidden = HiddenForces(analysis, verdict, reduced, scale);
  figures.CertainFigures = FiguresOfLargest(figures.Forces);
  if (load == 0) return figures;
  for (const double value : values) figures.Magnification = std::max(figures.Magnification, std::abs(value));
  const bool isUnique = verdict.Code() == Outcome::Neither && verdict.SelfStresses() == 0;
  const bool losesFigures = figures.Magnification > LargeForces && figures.CertainFigures < MostSureFigures;
  if (isUnique && (figures.Magnification > NearlyAMechanism || losesFigures))
    figures.NearlyFree = NearlyFreeMotion(graph, values);
  return figures;
}
