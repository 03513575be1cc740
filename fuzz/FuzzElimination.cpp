// Small trusses of every kind: the fast elimination has the bits of the plain one, the solutions satisfy the
// equations, and the exact verdict counts what elimination in whole numbers counts.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "InputBytes.h"
#include "Require.h"
#include "SmallTruss.h"
#include "analysis/Analysis.h"
#include "analysis/Elimination.h"
#include "explanation/ExactVerdict.h"
#include "explanation/TrussGraph.h"
#include "support/PlainElimination.h"
#include "support/WholeNumberRank.h"

namespace {

bool IsSameMatrix(const SparseMatrix<double>& a, const SparseMatrix<double>& b) {
  if (a.NumRows() != b.NumRows() || a.NumColumns() != b.NumColumns()) return false;
  for (int row = 1; row <= a.NumRows(); ++row) {
    if (!std::ranges::equal(a.Row(row), b.Row(row))) return false;
  }
  return true;
}

// A pivot of size p lets an error of rounding in what comes after it grow to 1 / p at the most.
double ResidualBound(const SparseMatrix<double>& equations) {
  double smallest = 1;
  for (const EliminationPivot& pivot : PivotsOf(equations))
    smallest = std::min(smallest, std::abs(pivot.Value));
  return 1e-13 / (smallest * smallest);
}

void CheckSolutions(const TrussAnalysis& analysis, const SparseMatrix<double>& equations) {
  const auto values = analysis.Reading.Values.First(analysis.Reading.Values.Size());
  const auto isKnown = [](const auto& value) { return value.has_value(); };
  if (analysis.Reading.Code == Outcome::Inconsistent || !std::ranges::all_of(values, isKnown)) return;
  const int rightHandSide = equations.NumColumns();
  const double bound = ResidualBound(equations);
  for (int row = 1; row <= equations.NumRows(); ++row) {
    double sum = 0, scale = 1;
    for (const auto& entry : equations.Row(row)) {
      const double term =
          entry.Column == rightHandSide ? -entry.Value : entry.Value * *analysis.Reading.Values[entry.Column];
      sum += term;
      scale = std::max(scale, std::abs(term));
    }
    Require(std::abs(sum) <= bound * scale, "the solutions satisfy the equations");
  }
}

void CheckExactly(const TrussGraph& graph) {
  const ExactVerdict verdict = JudgeExactly(graph);
  Require(verdict.Rank == WholeNumbers::Rank(WholeNumbers::Equations(graph, false)), "the rank is exact");
  Require(verdict.AugmentedRank == WholeNumbers::Rank(WholeNumbers::Equations(graph, true)),
          "the augmented rank is exact");
  const ExactReasons reasons = ReasonExactly(graph);
  Require(static_cast<int>(reasons.Motions.size()) == verdict.Mechanisms(), "all motions are found");
  Require(static_cast<int>(reasons.SelfStresses.size()) == verdict.SelfStresses(),
          "all states of self-stress are found");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  InputBytes input(data, size);
  Truss truss = SmallTruss(input);
  const TrussAnalysis analysis = SolveTruss(truss);
  if (analysis.System.NumUnknowns() == 0) return 0;
  const SparseMatrix<double> equations = EquationsOf(truss, analysis);
  const ReducedMatrix expected = ReducedPlainly(equations);
  Require(IsSameMatrix(analysis.System.EquationMatrix, expected.Equations),
          "the fast elimination has the bits of the plain one");
  Require(analysis.System.ColumnOrder == expected.ColumnOrder, "columns stand in the same order");
  CheckSolutions(analysis, equations);
  CheckExactly(GraphOf(truss, analysis));
  return 0;
}
