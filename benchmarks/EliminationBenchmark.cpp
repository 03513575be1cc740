// The elimination on trusses of all shapes, beside the plain algorithm and, where they are installed, beside
// Eigen's LU decomposition with complete pivoting and LAPACK's dgesv, which pivots by columns only, does not
// reduce and wants as many unknowns as equations. The plain ones are left out where they take a minute.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "analysis/Elimination.h"
#include "analysis/EliminationTuning.h"
#include "explanation/steps/PlainElimination.h"
#include "support/TrussShapes.h"
#if defined(ORVANE_HAVE_EIGEN)
#include <Eigen/Dense>
#endif

#if defined(ORVANE_HAVE_LAPACK)
extern "C" void dgesv_(const int* n, const int* nrhs, double* a, const int* lda, int* pivots, double* b,
                       const int* ldb, int* info);
#endif

namespace {

using Matrix = SparseMatrix<double>;

void Fast(benchmark::State& state, const Matrix& equations, unsigned numThreads) {
  EliminationTuning tuning;
  tuning.MostThreads = numThreads;
  for (auto unused : state) {
    state.PauseTiming();
    Matrix matrix = equations;
    Table<std::int16_t> order;
    state.ResumeTiming();
    SolveToRREF(matrix.NumRows(), matrix.NumColumns() - 1, matrix, order, tuning);
    benchmark::DoNotOptimize(matrix);
  }
}

void Plain(benchmark::State& state, const Matrix& equations) {
  for (auto unused : state) {
    state.PauseTiming();
    StepMatrix matrix(equations);
    state.ResumeTiming();
    EliminatePlainly(matrix, [](const EliminationStep&) {});
    benchmark::DoNotOptimize(matrix);
  }
}

#if defined(ORVANE_HAVE_EIGEN)
void EigenFullPivLu(benchmark::State& state, const Matrix& equations) {
  const int N = equations.NumColumns() - 1;
  Eigen::MatrixXd coefficients = Eigen::MatrixXd::Zero(equations.NumRows(), N);
  Eigen::VectorXd loads = Eigen::VectorXd::Zero(equations.NumRows());
  for (int row = 1; row <= equations.NumRows(); ++row) {
    for (const auto& [column, value] : equations.Row(row)) {
      if (column <= N) {
        coefficients(row - 1, column - 1) = value;
      } else {
        loads(row - 1) = value;
      }
    }
  }
  for (auto unused : state) {
    Eigen::VectorXd solution = Eigen::FullPivLU<Eigen::MatrixXd>(coefficients).solve(loads);
    benchmark::DoNotOptimize(solution);
  }
}
#endif

#if defined(ORVANE_HAVE_LAPACK)
// Coefficients column by column, in place of which their triangles come.
void LapackDgesv(benchmark::State& state, const Matrix& equations) {
  const int N = equations.NumRows();
  std::vector<double> given(static_cast<std::size_t>(N) * static_cast<std::size_t>(N + 1));
  for (int row = 1; row <= N; ++row) {
    for (const auto& [column, value] : equations.Row(row))
      given[static_cast<std::size_t>(column - 1) * static_cast<std::size_t>(N) +
            static_cast<std::size_t>(row - 1)] = value;
  }
  std::vector<int> pivots(static_cast<std::size_t>(N));
  for (auto unused : state) {
    state.PauseTiming();
    std::vector<double> numbers = given;
    state.ResumeTiming();
    const int one = 1;
    int info = 0;
    double* loads = numbers.data() + static_cast<std::size_t>(N) * static_cast<std::size_t>(N);
    dgesv_(&N, &one, numbers.data(), &N, pivots.data(), loads, &N, &info);
    benchmark::DoNotOptimize(numbers);
  }
}
#endif

void Register(const NamedShape& shape, int numUnknowns) {
  const Matrix equations = EquationsOf(shape.Make(numUnknowns));
  const std::string name = shape.Name + "/" + std::to_string(numUnknowns) + "/";
  const auto add = [&](const std::string& method, auto run) {
    benchmark::RegisterBenchmark((name + method).c_str(), run)->Unit(benchmark::kMillisecond)->UseRealTime();
  };
  add("fast, one thread", [equations](benchmark::State& state) { Fast(state, equations, 1); });
  add("fast", [equations](benchmark::State& state) { Fast(state, equations, 0); });
#if defined(ORVANE_HAVE_LAPACK)
  if (equations.NumRows() == equations.NumColumns() - 1)
    add("LAPACK dgesv", [equations](benchmark::State& state) { LapackDgesv(state, equations); });
#endif
  if (numUnknowns > 1600) return;
  add("plain", [equations](benchmark::State& state) { Plain(state, equations); });
#if defined(ORVANE_HAVE_EIGEN)
  add("Eigen FullPivLU", [equations](benchmark::State& state) { EigenFullPivLu(state, equations); });
#endif
}

}  // namespace

int main(int argc, char** argv) {
  for (const int numUnknowns : {200, 800, 1600, 4096}) {
    for (const NamedShape& shape : AllShapes()) Register(shape, numUnknowns);
  }
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
