// Eliminations to hold the steps against.
#pragma once

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "explanation/byjoint/HandSolutionFixture.h"
#include "explanation/steps/PlainElimination.h"
#include "explanation/steps/StepText.h"

/// A truss with all that its steps are told from.
struct SteppedTruss {
  explicit SteppedTruss(Truss truss)
      : Document(std::move(truss)),
        Analysis(SolveTruss(Document)),
        Graph(GraphOf(Document, Analysis)),
        Rounded(Graph.NumUnknowns() == 0 ? Rounding{} : RoundingOf(Graph, Analysis, JudgeExactly(Graph))),
        Story(EliminateInSteps(EquationsOf(Document, Analysis))) {}

  StepText Text(const ReportFormat& format = {}) const {
    return {Graph, Story, Analysis.Reading, Rounded, format};
  }
  std::size_t StepOf(StepKind kind) const {
    const auto found = std::ranges::find(Story.Steps, kind, &EliminationStep::Kind);
    return static_cast<std::size_t>(found - Story.Steps.begin());
  }

  Truss Document;
  TrussAnalysis Analysis;
  TrussGraph Graph;
  Rounding Rounded;
  EliminationInSteps Story;
};

/// Calls `check(truss)` with all examples, with simple trusses, and with small ones of every kind: with too
/// few and too many members, redundant and inconsistent ones.
template <class Check>
void WithTrussesOfAllKinds(const Check& check) {
  WithEachExample(check);
  std::mt19937 random(20260614);
  for (int run = 0; run < 300; ++run) {
    SCOPED_TRACE("run " + std::to_string(run));
    check(RandomSmallTruss(random, 7, 5));
  }
  for (int numJoints = 3; numJoints < 40; ++numJoints) {
    SCOPED_TRACE("joints " + std::to_string(numJoints));
    check(RandomSimpleTrussOn(random, numJoints));
  }
}

/// A square of four members: it moves under the load at its upper corner.
inline TrussBuilder LooseSquare(float load = 1000) {
  return TrussBuilder()
      .Member(0, 0, 4, 0, "AB")
      .Member(4, 0, 4, 4, "BC")
      .Member(4, 4, 0, 4, "CD")
      .Member(0, 4, 0, 0, "AD")
      .Clamp(0, 0, "Ax", "Ay")
      .Roller(4, 0, "B")
      .Joint(0, 0, "A")
      .Joint(4, 0, "B")
      .Joint(4, 4, "C")
      .Joint(0, 4, "D")
      .Force(4, 4, load, 0);
}
