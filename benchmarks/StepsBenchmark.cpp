// The elimination step by step: how long a window waits for it, and for any of its steps.
#include <benchmark/benchmark.h>

#include "explanation/steps/PlainElimination.h"
#include "explanation/steps/StepWalk.h"
#include "support/TrussShapes.h"

namespace {

SparseMatrix<double> EquationsNumber(benchmark::State& state, int numUnknowns) {
  switch (state.range(0)) {
    case 0:
      state.SetLabel("Warren strip");
      return EquationsOf(WarrenStrip(numUnknowns));
    case 1:
      state.SetLabel("random simple truss");
      return EquationsOf(RandomSimpleTruss(numUnknowns, 1));
    case 2:
      state.SetLabel("triangulated grid");
      return EquationsOf(TriangulatedGrid(numUnknowns));
    default:
      state.SetLabel("braced grid");
      return EquationsOf(BracedGrid(numUnknowns));
  }
}

// All that is done before the first step is shown.
void StepsFound(benchmark::State& state) {
  const SparseMatrix<double> equations = EquationsNumber(state, static_cast<int>(state.range(1)));
  for (auto unused : state) {
    const EliminationInSteps story = EliminateInSteps(equations);
    benchmark::DoNotOptimize(story.Pivots.data());
  }
}

// From the last step back to the one before it, which takes longest.
void StepShown(benchmark::State& state) {
  const auto story =
      std::make_shared<const EliminationInSteps>(EliminateInSteps(EquationsNumber(state, MostToldInSteps)));
  StepWalk walk(story);
  for (auto unused : state) {
    state.PauseTiming();
    walk.GoTo(walk.NumViews() - 1);
    state.ResumeTiming();
    walk.GoTo(walk.NumViews() - 3);
    benchmark::DoNotOptimize(walk.Mark(1, 1));
  }
  state.counters["steps"] = static_cast<double>(story->Steps.size());
}

BENCHMARK(StepsFound)
    ->ArgsProduct({{0, 1, 2, 3}, {200, 1000, 4096}})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(StepShown)->DenseRange(0, 3)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
