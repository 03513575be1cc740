// What surrounds the elimination, on the largest document that 16-bit counters allow: reading, joint list,
// unknowns and assembly, classification, the tables' cells, writing.
#include <benchmark/benchmark.h>

#include "ShapeDocument.h"
#include "analysis/Analysis.h"
#include "analysis/Classification.h"
#include "analysis/Equations.h"
#include "analysis/Unknowns.h"
#include "document/JointList.h"
#include "document/TrussFile.h"
#include "reports/ReportTables.h"

namespace {

using benchmark::State;

void ReadInto(Truss& truss, const std::string& text, State& state) {
  if (ReadTrussText(truss, CanvasBounds(), text)) state.SkipWithError("the file was not read whole");
}

void Assemble(Truss& truss, EquationSystem& system) {
  CountUnknowns(truss, system);
  SortJoints(truss);
  LoadArrays(truss, CountTruss(truss).Joints, system);
}

void Reading(State& state, const TrussShape& shape) {
  const std::string text = FileTextOf(shape);
  for (auto unused : state) {
    Truss truss;
    ReadInto(truss, text, state);
    benchmark::DoNotOptimize(truss);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void JointList(State& state, const TrussShape& shape) {
  Truss truss = DocumentOf(shape);
  for (auto unused : state) benchmark::DoNotOptimize(CheckJoints(truss));
}

void UnknownsAndAssembly(State& state, const TrussShape& shape) {
  Truss truss = DocumentOf(shape);
  for (auto unused : state) {
    EquationSystem system;
    Assemble(truss, system);
    benchmark::DoNotOptimize(system);
  }
}

void FromFileToEquations(State& state, const TrussShape& shape) {
  const std::string text = FileTextOf(shape);
  for (auto unused : state) {
    Truss truss;
    EquationSystem system;
    ReadInto(truss, text, state);
    benchmark::DoNotOptimize(CheckJoints(truss));
    Assemble(truss, system);
    benchmark::DoNotOptimize(system);
  }
}

void Writing(State& state, const TrussShape& shape) {
  Truss truss = DocumentOf(shape);
  for (auto unused : state) benchmark::DoNotOptimize(TrussText(truss));
}

void Classifying(State& state, const TrussShape& shape) {
  Truss truss = DocumentOf(shape);
  const EquationSystem system = SolveTruss(truss).System;
  for (auto unused : state) benchmark::DoNotOptimize(ClassifyRREF(system));
}

// As a window does it that measures its columns.
void VisitingCells(State& state, const TrussShape& shape) {
  Truss truss = DocumentOf(shape);
  const TrussAnalysis analysis = SolveTruss(truss);
  const auto equations = LoadGridWithEquations(analysis, ReportFormat{});
  const auto rref = LoadGridWithRREF(analysis, ReportFormat{});
  const auto solutions = LoadGridWithSolutions(analysis, ReportFormat{});
  std::size_t numCells = 0;
  for (auto unused : state) {
    numCells = 0;
    for (const auto& table : {equations.get(), rref.get(), solutions.get()}) {
      table->VisitCells([&](int row, int column) {
        benchmark::DoNotOptimize(table->Text(row, column));
        ++numCells;
      });
    }
  }
  state.counters["cells"] = static_cast<double>(numCells);
}

int Register() {
  struct Step {
    const char* Name;
    void (*Run)(State& state, const TrussShape& shape);
  };
  constexpr Step steps[] = {{"read", Reading},
                            {"joint list", JointList},
                            {"unknowns and assembly", UnknownsAndAssembly},
                            {"from file to equations", FromFileToEquations},
                            {"write", Writing},
                            {"classify", Classifying},
                            {"visit the cells of all tables", VisitingCells}};
  for (const NamedShape& shape : AllShapes()) {
    for (const Step& step : steps) {
      benchmark::RegisterBenchmark(
          ("largest document/" + shape.Name + "/" + step.Name).c_str(),
          [make = shape.Make, run = step.Run](State& state) { run(state, make(LargestNumUnknowns)); })
          ->Unit(benchmark::kMillisecond);
    }
  }
  return 0;
}

[[maybe_unused]] const int registered = Register();

}  // namespace
