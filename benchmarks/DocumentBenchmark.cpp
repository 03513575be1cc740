// The stages between a file and its tables, on the largest document that 16-bit counters allow and on growing
// ones.
#include <benchmark/benchmark.h>

#include "ShapeDocument.h"
#include "analysis/Analysis.h"
#include "analysis/Classification.h"
#include "analysis/Elimination.h"
#include "analysis/Equations.h"
#include "analysis/Unknowns.h"
#include "canvas/RedrawTruss.h"
#include "document/JointList.h"
#include "document/TrussFile.h"
#include "explanation/ExactVerdict.h"
#include "platform/Picture.h"
#include "reports/ReportTables.h"
#include "support/FakeMessageBox.h"

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

void Eliminating(State& state, const TrussShape& shape) {
  Truss truss = DocumentOf(shape);
  EquationSystem assembled;
  Assemble(truss, assembled);
  for (auto unused : state) {
    state.PauseTiming();
    EquationSystem system = assembled;
    state.ResumeTiming();
    SolveToRREF(system.EquationMatrix.NumRows(), system.NumUnknowns(), system.EquationMatrix,
                system.ColumnOrder);
    benchmark::DoNotOptimize(system);
  }
}

void Judging(State& state, const TrussShape& shape) {
  Truss truss = DocumentOf(shape);
  const TrussGraph graph = GraphOf(truss, SolveTruss(truss));
  for (auto unused : state) benchmark::DoNotOptimize(JudgeExactly(graph));
}

// All that a redraw does but paint.
void Redrawing(State& state, const TrussShape& shape) {
  Truss truss = DocumentOf(shape);
  Drawing drawing;
  drawing.LabelsShown = true;
  const TextMeasure measure = [](const TextFont&, std::string_view text) {
    return TextExtent{6 * static_cast<float>(text.size()), 12};
  };
  const CanvasContext context{.Bounds = {}, .Numbers = {}, .Measure = measure};
  FakeMessageBox messages;
  Picture picture(measure);
  for (auto unused : state) {
    if (!RedrawTruss(truss, drawing, picture, context, messages)) state.SkipWithError("not redrawn");
  }
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
      table->VisitCells([&](int row, int column, std::optional<int> /*shape*/) {
        benchmark::DoNotOptimize(table->Text(row, column));
        ++numCells;
      });
    }
  }
  state.counters["cells"] = static_cast<double>(numCells);
}

struct Stage {
  const char* Name;
  void (*Run)(State& state, const TrussShape& shape);
};

void Register(const std::string& name, const Stage& stage, const NamedShape& shape, int numUnknowns) {
  benchmark::RegisterBenchmark((name + stage.Name).c_str(), [make = shape.Make, run = stage.Run,
                                                             numUnknowns](State& state) {
    run(state, make(numUnknowns));
  })->Unit(benchmark::kMillisecond);
}

// scripts/growth reads the second kind: a stage, a shape and a size, between slashes.
int RegisterAll() {
  constexpr Stage stages[] = {{"read", Reading},
                              {"joint list", JointList},
                              {"redraw", Redrawing},
                              {"unknowns and assembly", UnknownsAndAssembly},
                              {"elimination", Eliminating},
                              {"classify", Classifying},
                              {"exact verdict", Judging},
                              {"visit the cells of all tables", VisitingCells},
                              {"write", Writing},
                              {"from file to equations", FromFileToEquations}};
  for (const NamedShape& shape : AllShapes()) {
    for (const Stage& stage : stages) {
      Register("largest document/" + shape.Name + "/", stage, shape, LargestNumUnknowns);
      for (const int numUnknowns : {250, 500, 1000, 2000, 4000})
        Register("growth/" + std::to_string(numUnknowns) + "/" + shape.Name + "/", stage, shape, numUnknowns);
    }
  }
  return 0;
}

[[maybe_unused]] const int registered = RegisterAll();

}  // namespace
