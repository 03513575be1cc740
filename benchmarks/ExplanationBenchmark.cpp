// The exact verdict, alone and with its reasons, and the solution by hand, on trusses of all shapes.
#include <benchmark/benchmark.h>

#include "explanation/ExactVerdict.h"
#include "explanation/MotionText.h"
#include "explanation/byjoint/HandSolution.h"
#include "support/TrussShapes.h"

namespace {

TrussGraph GraphOf(const TrussShape& shape) {
  TrussGraph graph;
  graph.Joints.Resize(static_cast<int>(shape.Joints.size()));
  for (int j = 1; j <= graph.NumJoints(); ++j) {
    const TrussShape::Joint& joint = shape.Joints[static_cast<std::size_t>(j - 1)];
    graph.Joints[j] = {joint.X, joint.Y, ""};
  }
  graph.Unknowns.Resize(shape.NumUnknowns());
  graph.Unknowns[1] = {.JointA = shape.ClampJoint + 1, .Along = Axis::X};
  graph.Unknowns[2] = {.JointA = shape.ClampJoint + 1, .Along = Axis::Y};
  graph.Unknowns[3] = {.JointA = shape.RollerJoint + 1, .Along = Axis::Y};
  int next = 4;
  for (const auto& [a, b] : shape.Members) graph.Unknowns[next++] = {.JointA = a + 1, .JointB = b + 1};
  for (const TrussShape::Load& load : shape.Loads)
    graph.Loads.push_back({load.AtJoint + 1, load.Fx, load.Fy});
  return graph;
}

TrussGraph ShapeNumber(benchmark::State& state) {
  const int numUnknowns = static_cast<int>(state.range(1));
  switch (state.range(0)) {
    case 0:
      state.SetLabel("Warren strip");
      return GraphOf(WarrenStrip(numUnknowns));
    case 1:
      state.SetLabel("random simple truss");
      return GraphOf(RandomSimpleTruss(numUnknowns, 1));
    case 2:
      state.SetLabel("triangulated grid, which moves");
      return GraphOf(TriangulatedGrid(numUnknowns));
    default:
      state.SetLabel("braced grid");
      return GraphOf(BracedGrid(numUnknowns));
  }
}

void ExactVerdictAlone(benchmark::State& state) {
  const TrussGraph graph = ShapeNumber(state);
  for (auto unused : state) {
    const ExactVerdict verdict = JudgeExactly(graph);
    benchmark::DoNotOptimize(verdict.Rank);
  }
}

void ExactVerdictWithReasons(benchmark::State& state) {
  const TrussGraph graph = ShapeNumber(state);
  for (auto unused : state) {
    const ExactReasons reasons = ReasonExactly(graph);
    benchmark::DoNotOptimize(reasons.Motions.data());
  }
}

// Loose members on one clamp, which has as many motions as members.
TrussGraph Star(int numUnknowns) {
  TrussGraph graph;
  graph.Joints.Resize(numUnknowns - 1);
  graph.Unknowns.Resize(numUnknowns);
  graph.Unknowns[1] = {.JointA = 1, .Along = Axis::X};
  graph.Unknowns[2] = {.JointA = 1, .Along = Axis::Y};
  for (int j = 2; j <= graph.NumJoints(); ++j) {
    graph.Joints[j] = {static_cast<float>(1 + j % 64), static_cast<float>(1 + j / 64), ""};
    graph.Unknowns[j + 1] = {.JointA = 1, .JointB = j};
  }
  return graph;
}

void EveryMotionOfAStarTold(benchmark::State& state) {
  const TrussGraph graph = Star(static_cast<int>(state.range(0)));
  for (auto unused : state) {
    const ExactReasons reasons = ReasonExactly(graph);
    const ReportFormat format;
    MotionTeller teller(graph, format);
    for (const Motion& motion : reasons.Motions) benchmark::DoNotOptimize(teller.Text(motion));
  }
}

void JointByJoint(benchmark::State& state) {
  const TrussGraph graph = ShapeNumber(state);
  for (auto unused : state) {
    const HandSolution solution = SolveByHand(graph);
    benchmark::DoNotOptimize(solution.Steps.data());
  }
}

const std::vector<std::vector<std::int64_t>> ShapesAndSizes = {{0, 1, 2, 3}, {200, 1000, 4096}};

BENCHMARK(ExactVerdictAlone)->ArgsProduct(ShapesAndSizes)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ExactVerdictWithReasons)->ArgsProduct(ShapesAndSizes)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(JointByJoint)->ArgsProduct(ShapesAndSizes)->Unit(benchmark::kMillisecond)->UseRealTime();

BENCHMARK(EveryMotionOfAStarTold)
    ->Arg(200)
    ->Arg(1000)
    ->Arg(4096)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
